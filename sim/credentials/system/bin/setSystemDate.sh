#!/bin/sh
# The phone's clock setter. The simulated phone shares the host's clock and has
# no right to change it, so this stand-in only leaves its call in the command
# log (recorded by the kernel shim) and succeeds.
exit 0
