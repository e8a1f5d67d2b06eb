# "bt init" failing: the address loader (once, then twice), no HAL, and each
# step of opening it. Failures before the HAL's interface unload the driver;
# a failed interface leaves it loaded.
$ ftsim set bt.addr_loader 4,0
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

# Once: the second try, two seconds later, programs the address.
ft>bt init
BT interface initialized
PASS
$ ftsim get bt.addr_loader.runs
| 2
ft>q
@ exit 0
$ ftsim set bt.addr_loader 26
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>bt init
ERROR: failed to save BT MAC address (error code = 0x1a)
FAIL
$ ftsim get bt.addr_loader.runs
| 2
$ ftsim get bt.driver
| unloaded
$ ftsim set bt.addr_loader 0
# No shell to run the driver script in.
$ ftsim fail system -1 EAGAIN
ft>bt init
load_bt_driver: failed
ERROR: failed to load BT driver!
FAIL
$ ftsim unfail system
$ ftsim set bt.hal absent
ft>bt init
ERROR: failed to load BT HAL library!
FAIL
$ ftsim get bt.driver
| unloaded
$ ftsim set bt.hal present
$ ftsim fail hw_get_module -2
ft>bt init
ERROR: failed to load BT HAL library!
FAIL
$ ftsim unfail all
$ ftsim fail open_bluetooth_stack -22
ft>bt init
ERROR: failed to load BT HAL library!
FAIL
$ ftsim unfail all
$ ftsim fail get_bluetooth_interface 0
ft>bt init
btTestInit: bt_if is NULL
FAIL
$ ftsim get bt.driver
| loaded
$ ftsim unfail all
$ ftsim fail bt_init 1
ft>bt init
FAIL
$ ftsim unfail all
$ ftsim fail bt_set_os_callouts 7
ft>bt init
BT interface initialized
FAIL
# None of them initialized it, so quit leaves the driver and the stack as
# they are.
ft>q
@ exit 0
$ ftsim get bt.driver
| loaded
$ ftsim get bt.stack
| running
