# The phone's own WiFi service loads the same driver behind the shell's back:
# the shell goes by /proc/modules, and quit leaves alone what it did not start.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim exec -- /system/bin/load_wireless_driver.sh --type wifi
# Found loaded: taken as started, without a word and without touching wlan0.
ft>wifi start
ft>wifi start
ft: WiFi service is already running.
ft>wifi stop
ft: WiFi stopped.
$ ftsim get wifi.driver
| unloaded
# Stopped by the shell while it had not started it.
$ ftsim exec -- /system/bin/load_wireless_driver.sh --type wifi
ft>wifi stop
ft: WiFi service is already stopped.
ft: WiFi stopped.
$ ftsim exec -- /system/bin/load_wireless_driver.sh --type wifi
ft>quit
@ exit 0
$ ftsim log
| ip link set wlan0 down
| ip link set wlan0 down
$ ftsim get wifi.driver
| loaded
# A power cycle unloads every driver.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim get wifi.driver
| unloaded
$! ftsim exec -- grep -q sd8xxx /proc/modules
# The module list cannot be read: the driver counts as absent, and loading it
# makes the list again.
$ ftsim exec -- rm /proc/modules
ft>wifi start
Could not open /proc/modules: No such file or directory
ft: WiFi started.
$ ftsim exec -- cat /proc/modules
| mlan 385024 1 sd8xxx, Live 0x0000000000000000
| sd8xxx 524288 0 - Live 0x0000000000000000
# Unloaded behind the shell's back: the flag is cleared without a word.
$ ftsim exec -- sh -c "grep -v -e '^sd8xxx ' -e '^mlan ' /proc/modules > /tmp/m; cat /tmp/m > /proc/modules"
ft>wifi stop
ft>wifi stop
ft: WiFi service is already stopped.
ft>quit
@ exit 0
