# Quit unloads the driver, retrying every 500 ms while the module is busy:
# ten attempts in all, so nine refusals still end with it unloaded, ten
# leave it loaded.
$ ftsim set bt.driver.busy 9
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>bt init
BT interface initialized
PASS
ft>q
@ exit 0
$ ftsim get bt.driver.refused
| 9
$ ftsim get bt.driver
| unloaded
$ ftsim set bt.driver.busy 10
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>bt init
BT interface initialized
PASS
ft>q
@ exit 0
$ ftsim get bt.driver.refused
| 10
$ ftsim get bt.driver
| loaded
