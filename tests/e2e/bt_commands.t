# Bluetooth before "bt init": every command refuses, the capability query
# answers both ways, and quit has nothing to tear down. The phone's defaults.
$ ftsim get bt
| present
$ ftsim get bt.hal
| present
$ ftsim get bt.address
| 00:11:22:AA:BB:CC
$ ftsim get bt.address.unasked
| no
$ ftsim get bt.discovery_ms
| 3000
$ ftsim get bt.addr_loader
| 0
$ ftsim get bt.driver.busy
| 0
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>bt on
BT is not initialized!
FAIL
ft>bt off
BT is not initialized!
FAIL
ft>bt mac_get
BT is not initialized!
FAIL
ft>bt scan
FAIL: BT is not initialized!
ft>bt cap
PASS
$ ftsim set bt absent
ft>bt cap
FAIL
$ ftsim set bt present
$ ftsim fail Cap_Bluetooth -1 EIO
ft>bt cap
FAIL
ft>q
@ exit 0
$ ftsim get bt.driver
| unloaded
$ ftsim get bt.adapter
| off
$ ftsim get bt.discovering
| no
