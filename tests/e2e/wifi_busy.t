# A busy module is asked again every half second, ten times in all: nine
# refusals still end in a stop, ten end in the failure lines, and a failed
# stop leaves WiFi counted as started.
$ ftsim get wifi.busy
| 0
$ ftsim set wifi.busy 9
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>wifi start
ft: WiFi started.
ft>wifi stop
ft: WiFi stopped.
$ ftsim get wifi.busy
| 0
ft>wifi start
ft: WiFi started.
$ ftsim set wifi.busy 10
ft>wifi stop
Unable to unload driver module "sd8xxx": Resource temporarily unavailable
ft: Err stopping WiFi service
FAIL
ft: Err: failed to stop WiFi service, retry.
$ ftsim get wifi.driver
| loaded
$ ftsim set wifi.busy 1
ft>wifi start
ft: WiFi service is already running.
ft>quit
ft: WiFi stopped.
@ exit 0
$ ftsim get wifi.busy
| 0
$ ftsim get wifi.driver
| unloaded
