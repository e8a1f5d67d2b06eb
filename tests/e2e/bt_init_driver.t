# "bt init" and the combo module's driver: the module list read up to 2048
# bytes (one byte less is read whole), no module list at all, a driver
# listed without its device node, and a driver loaded already.
$ ftsim set bt.hal absent
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

# 2047 bytes without mbt8xxx: the script loads the driver and lists it after
# them, where the check before unloading it, which reads the first 2048
# bytes only, cannot find it.
$ ftsim exec -- sh -c 'yes padding | head -c 2047 > /proc/modules'
ft>bt init
ERROR: failed to load BT HAL library!
is_module_loaded: buffer is not enough
FAIL
$ ftsim get bt.driver
| loaded
$ ftsim exec -- rm /proc/modules
ft>bt init
ERROR: failed to load BT driver!
FAIL
$ ftsim exec -- sh -c 'echo "mbt8xxx 188416 0 - Live 0x0000000000000000" > /proc/modules; rm /dev/mbtchar0'
ft>bt init
ERROR: failed to load BT driver!
FAIL
# With the node there, a loaded driver is used as it is: the script does
# not run again.
$ ftsim exec -- touch /dev/mbtchar0
$ ftsim set bt.hal present
ft>bt init
BT interface initialized
PASS
$ ftsim log
| /system/bin/load_wireless_driver.sh --type bt
| /system/bin/bd_addr_loader
| /system/bin/bd_addr_loader
| /vendor/bin/hw/android.hardware.bluetooth@1.0-service &
ft>q
@ exit 0
$ ftsim get bt.driver
| unloaded
