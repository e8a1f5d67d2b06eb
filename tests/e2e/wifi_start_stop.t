# WiFi brought up and down by the shell: the driver's modules, wlan0 with the
# module's address, and quit taking down what the shell started.
$ ftsim get wifi.driver
| unloaded
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>wifi stop
ft: WiFi service is already stopped.
# Nothing to stop: no tool ran.
$! ftsim exec -- test -e /sim/log
ft>wifi start
ft: WiFi started.
ft>wifi start
ft: WiFi service is already running.
$ ftsim exec -- cat /proc/modules
| evdev 28672 2 - Live 0x0000000000000000
| snd_soc_core 253952 1 - Live 0x0000000000000000
| uvcvideo 106496 0 - Live 0x0000000000000000
| mlan 385024 1 sd8xxx, Live 0x0000000000000000
| sd8xxx 524288 0 - Live 0x0000000000000000
$ ftsim get wifi.driver
| loaded
$ ftsim get wifi.link
| up
ft>wifi mac_get
ft : MAC Address
02:00:00:00:0a:01
ft>wifi stop
ft: WiFi stopped.
ft>wifi stop
ft: WiFi service is already stopped.
$! ftsim exec -- grep -e ^sd8xxx -e ^mlan /proc/modules
$! ftsim exec -- test -e /sys/class/net/wlan0
$ ftsim get wifi.driver
| unloaded
# Started again, quietly by mac_get this time, and taken down by quit.
ft>wifi mac_get
ft: WiFi started.
ft : MAC Address
02:00:00:00:0a:01
ft>quit
ft: WiFi stopped.
@ exit 0
$ ftsim get wifi.driver
| unloaded
$ ftsim log
| /system/bin/load_wireless_driver.sh --type wifi
| ip link set wlan0 up
| cat /sys/class/net/wlan0/address
| ip link set wlan0 down
| /system/bin/load_wireless_driver.sh --type wifi
| ip link set wlan0 up
| cat /sys/class/net/wlan0/address
| ip link set wlan0 down
# The module's address is a condition; each power-up starts without a driver.
$ ftsim set wifi.mac 02:aa:bb:cc:dd:ee
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>wifi cap
PASS
$ ftsim get wifi.driver
| unloaded
$ ftsim set wifi absent
ft>wifi cap
FAIL
$ ftsim set wifi present
$ ftsim fail Cap_WiFi -1 EIO
ft>wifi cap
FAIL
$ ftsim unfail all
ft>wifi mac_get
ft: WiFi started.
ft : MAC Address
02:aa:bb:cc:dd:ee
$ ftsim exec -- rm /sys/class/net/wlan0/address
ft>wifi mac_get
FAIL
ft: Err getting WiFi MAC address 
ft>quit
ft: WiFi stopped.
@ exit 0
