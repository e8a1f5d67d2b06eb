# The adapter after "bt init": its address, on and off twice each, the HAL's
# refusals, an address report nobody asked for, and quit switching it off,
# stopping the HAL's stack and unloading the driver.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>bt init
BT interface initialized
PASS
$ ftsim get bt.driver
| loaded
$ ftsim get bt.stack
| running
$ ftsim get bt.addr_loader.runs
| 1
# Once initialized, init touches nothing.
ft>bt init
PASS
$ ftsim get bt.addr_loader.runs
| 1
$ ftsim log
| /system/bin/load_wireless_driver.sh --type bt
| /system/bin/bd_addr_loader
| /vendor/bin/hw/android.hardware.bluetooth@1.0-service &
# The address needs no adapter on.
ft>bt mac_get
00:11:22:AA:BB:CC
PASS
$ ftsim set bt.address 0a:1b:2c:3d:4e:5f
ft>bt mac_get
0A:1B:2C:3D:4E:5F
PASS
$ ftsim set bt.address none
ft>bt mac_get
FAIL
$ ftsim set bt.address 00:11:22:AA:BB:CC
$ ftsim fail bt_get_adapter_property 1
ft>bt mac_get
FAIL
$ ftsim unfail all
ft>bt off
BT is already OFF
ft>bt on
BT state changed: ON
ft>bt on
BT is already ON
$ ftsim get bt.adapter
| on
ft>bt off
BT state changed: OFF
ft>bt off
BT is already OFF
$ ftsim get bt.adapter
| off
$ ftsim fail bt_enable 2
ft>bt on
FAIL
$ ftsim unfail all
# A report of the address that arrives while no "bt mac_get" waits for it.
$ ftsim set bt.address.unasked yes
ft>bt on
BT adapter_properties_callback: bt_addr_buf == NULL!
BT state changed: ON
$ ftsim fail bt_disable 1
ft>bt off
FAIL
$ ftsim unfail all
ft>q
BT state changed: OFF
@ exit 0
$ ftsim get bt.driver
| unloaded
$ ftsim get bt.stack
| stopped
$ ftsim get bt.adapter
| off
