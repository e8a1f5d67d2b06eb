# WiFi brought up and down by the shell, or by the phone's own WiFi service
# behind its back: the shell goes by /proc/modules.
$ ftsim get wifi.busy
| 0
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>wifi cap
PASS
$ ftsim set wifi absent
ft>wifi cap
FAIL
$ ftsim set wifi present
$ ftsim fail Cap_WiFi -1 EIO
ft>wifi cap
FAIL
$ ftsim unfail all
ft>wifi stop
ft: WiFi service is already stopped.
# Nothing to stop: no tool ran.
$! ftsim exec -- test -e /sim/log
# A module list that cannot be read: no driver, and loading it makes the list again.
$ ftsim exec -- rm /proc/modules
ft>wifi start
Could not open /proc/modules: No such file or directory
ft: WiFi started.
ft>wifi start
ft: WiFi service is already running.
ft>wifi mac_get
ft : MAC Address
02:00:00:00:0a:01
$ ftsim exec -- rm /sys/class/net/wlan0/address
ft>wifi mac_get
FAIL
ft: Err getting WiFi MAC address 
ft>wifi stop
ft: WiFi stopped.
$! ftsim exec -- test -e /sys/class/net/wlan0
$! ftsim exec -- grep -e ^sd8xxx -e ^mlan /proc/modules
# A busy module is asked again every half second, ten times in all: nine
# refusals still end in a stop; ten end in the failure lines, WiFi still started.
ft>wifi start
ft: WiFi started.
$ ftsim set wifi.busy 9
ft>wifi stop
ft: WiFi stopped.
ft>wifi start
ft: WiFi started.
$ ftsim set wifi.busy 10
ft>wifi stop
Unable to unload driver module "sd8xxx": Resource temporarily unavailable
ft: Err stopping WiFi service
FAIL
ft: Err: failed to stop WiFi service, retry.
ft>wifi stop
ft: WiFi stopped.
# Loaded by the phone's own service: taken as started without a word and
# without raising wlan0; unloaded behind the shell's back: no longer started.
$ ftsim exec -- sh -c '> /sim/log'
$ ftsim set wifi.mac 02:aa:bb:cc:dd:ee
$ ftsim exec -- /system/bin/load_wireless_driver.sh --type wifi
ft>wifi mac_get
ft : MAC Address
02:aa:bb:cc:dd:ee
$ ftsim exec -- sh -c "grep -v -e '^sd8xxx ' -e '^mlan ' /proc/modules > /tmp/m; cat /tmp/m > /proc/modules"
ft>wifi stop
# Stopped when typed, although the shell had not started it; left at quit.
$ ftsim exec -- /system/bin/load_wireless_driver.sh --type wifi
ft>wifi stop
ft: WiFi service is already stopped.
ft: WiFi stopped.
$ ftsim exec -- /system/bin/load_wireless_driver.sh --type wifi
ft>quit
@ exit 0
$ ftsim get wifi.driver
| loaded
$ ftsim log
| cat /sys/class/net/wlan0/address
| ip link set wlan0 down
# A power cycle unloads every driver.
$! ftsim exec -- grep -q sd8xxx /proc/modules
$ ftsim get wifi.driver
| unloaded
