# Monitors without their devices: start-up reports each one missing and goes
# on, and the commands refuse.
$ ftsim set keypad absent
$ ftsim set jack absent
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
keyTestInit(): fail - keypad device can't be opened
jackTestInit(): fail - 3.5 headset event device can't be opened

ft>key 1
keyTest(): fail - event device is not open
ft>jackkeydet 1
jackTest(): fail - event device is not open
ft>q
@ exit 0
