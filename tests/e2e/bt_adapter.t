# Bluetooth before "bt init": every command refuses, the capability query
# answers both ways. After it: the address, the adapter on and off, the HAL's
# refusals, an address report nobody asked for, and quit switching it off,
# stopping the HAL's stack and unloading the driver. The address loader fails
# once: the second try, two seconds later, programs the address. Quit retries
# the driver's removal every 500 ms while the module is busy, ten attempts in
# all: nine refusals still end with it unloaded (ten: bt_scan.t).
$ ftsim set bt.addr_loader 4,0
$ ftsim set bt.driver.busy 9
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
ft>bt init
BT interface initialized
PASS
# Once initialized, init touches nothing.
ft>bt init
PASS
$ ftsim log
| /system/bin/load_wireless_driver.sh --type bt
| /system/bin/bd_addr_loader
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
$ ftsim fail bt_get_adapter_property 1
ft>bt mac_get
FAIL
$ ftsim unfail all
$ ftsim set bt.address none
ft>bt mac_get
FAIL
ft>bt off
BT is already OFF
ft>bt on
BT state changed: ON
ft>bt on
BT is already ON
ft>bt off
BT state changed: OFF
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
$ ftsim get bt.driver.refused
| 9
$ ftsim get bt.driver
| unloaded
$ ftsim get bt.stack
| stopped
