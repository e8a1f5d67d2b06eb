# cradle: the state report passes either way; the charger is only switched in
# a connected cradle; every library answer.
$ ftsim get cradle
| connected
$ ftsim get cradle.charger
| off
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>cradle 0
connected
PASS
ft>cradle 1
PASS
$ ftsim get cradle.charger
| on
ft>cradle 2
PASS
$ ftsim get cradle.charger
| off
ft>cradle 3
Invalid <action>="3"
FAIL
ft>cradle 00
Invalid <action>="00"
FAIL
ft>cradle
Invalid <action>=""
FAIL
ft>cradle 1
PASS
$ ftsim set cradle disconnected
ft>cradle 0
disconnected
PASS
ft>cradle 2
Cradle is disconnected
FAIL
$ ftsim get cradle.charger
| on
ft>cradle 1
Cradle is disconnected
FAIL
$ ftsim set cradle undefined
ft>cradle 0
Cradle state undefined
FAIL
$ ftsim set cradle connected
$ ftsim fail BTHandsetCradle_IsConnected 1
ft>cradle 0
Failed to get the connection state of the BT handset cradle
FAIL
$ ftsim unfail all
$ ftsim fail BTHandsetCharger_SetState -1 EIO
ft>cradle 2
FAIL
$ ftsim fail BTHandsetCharger_SetState 1
ft>cradle 1
FAIL
$ ftsim get cradle.charger
| on
ft>q
@ exit 0
