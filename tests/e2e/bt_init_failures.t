# "bt init" failing at each step. Failures before the HAL's interface unload
# the driver; a failed interface leaves it loaded.
$ ftsim set bt.addr_loader 26
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

# The address loader fails on both tries.
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
# The module list is read up to 2048 bytes: 2047 without mbt8xxx are read
# whole, and the script lists the driver after them, where the check before
# unloading it, on the HAL's failure, cannot find it.
$ ftsim set bt.hal absent
$ ftsim exec -- sh -c 'yes padding | head -c 2047 > /proc/modules'
ft>bt init
ERROR: failed to load BT HAL library!
is_module_loaded: buffer is not enough
FAIL
$ ftsim get bt.driver
| loaded
$ ftsim set bt.hal present
# No module list at all, then a driver listed without its device node.
$ ftsim exec -- rm /proc/modules
ft>bt init
ERROR: failed to load BT driver!
FAIL
$ ftsim exec -- sh -c 'echo "mbt8xxx 188416 0 - Live 0x0000000000000000" > /proc/modules; rm /dev/mbtchar0'
ft>bt init
ERROR: failed to load BT driver!
FAIL
# With the node there, the loaded driver is used as it is: the script does
# not run again.
$ ftsim exec -- sh -c 'touch /dev/mbtchar0; > /sim/log'
$ ftsim fail open_bluetooth_stack -22
ft>bt init
ERROR: failed to load BT HAL library!
FAIL
$ ftsim log
| /system/bin/bd_addr_loader
$ ftsim get bt.driver
| unloaded
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
