# Hookswitch and EHS monitors: modes, the state query, the one line feed of the
# process's life, and quitting while both threads wait in the library.
$ ftsim set hook off
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>hookswitch 3
hookswitchTest(): fail - incorrect parameter [3]
ft>ehs 2
ehsTest(): fail - incorrect parameter [2]
ft>ehs 0
Ehs test has already been stopped
# The handset was lifted before power-up.
ft>hookswitch 2
HOOKSWITCH state: [OFF HOOK]
PASS
ft>hookswitch 0
Hookswitch test has already been stopped
ft>hookswitch 1
Start hookswitch test
$ ftsim hook on
ft>
HOOKSWITCH event: [ON HOOK]
> ehs 1
Start ehs test
$ ftsim ehs off
ft>
EHS event: [OFF HOOK]
> hookswitch 0
Stop hookswitch test
ft>hookswitch 1
Start hookswitch test
# No second first-report line feed; the event still ends the prompt's line
# before its own.
$ ftsim hook off
ft>
HOOKSWITCH event: [OFF HOOK]
$ ftsim fail CradleHookswitch_GetState 5 EIO
> hookswitch 2
FAIL
ft>q
@ exit 0
