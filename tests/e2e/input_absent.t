# Monitors without their devices: start-up reports each missing device and goes
# on, the commands refuse, and quitting does not wait for threads that never ran.
$ ftsim set keypad absent
$ ftsim set jack absent
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
keyTestInit(): fail - keypad device can't be opened
jackTestInit(): fail - 3.5 headset event device can't be opened

ft>key 1
keyTest(): fail - event device is not open
ft>key x
keyTest(): fail - event device is not open
ft>jackdet 1
jackTest(): fail - event device is not open
ft>jackkeydet 1
jackTest(): fail - event device is not open
# The hook switches do not depend on the input devices.
ft>hookswitch 1
Start hookswitch test
$ ftsim hook off
ft>
HOOKSWITCH event: [OFF HOOK]
> q
@ exit 0
$! ftsim key 2 1
| ftsim: this phone has no keypad (ftsim set keypad present)
$! ftsim jack remove
| ftsim: this phone has no jack (ftsim set jack present)
# Devices that are there but answer to other names: the shell believes it
# is the entry model, the phone is the standard one.
$ ftsim set keypad present
$ ftsim set jack present
$ ftsim fail is_corvane_entry 1
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
keyTestInit(): fail - keypad device can't be opened
jackTestInit(): fail - 3.5 headset event device can't be opened

ft>jackkeydet 0
jackTest(): fail - event device is not open
ft>q
@ exit 0
