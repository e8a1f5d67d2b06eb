# Keypad monitor: refused modes, reporting on and off with the line feed that
# keeps each first report off the prompt's line, records that are not keys,
# and quitting while the monitor waits in its read.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>key
Incorrect parameter
ft>key 2
Incorrect parameter
ft>key 01
Incorrect parameter
ft>key x
Incorrect parameter
ft>key -1
Incorrect parameter
ft>key 1
Start keypad test
ft>ft key 1
Start keypad test
# A press and a release, each followed by its sync record, which prints nothing.
$ ftsim key 115 1
ft>
KeyCode[0073] value[1]
$ ftsim key 115 0
KeyCode[0073] value[0]
# Only key records count: a scan-code record (type 4) passes silently, and the
# key after it is still read whole.
$ ftsim event keypad 4 4 458792
$ ftsim key 0x246 1
KeyCode[0246] value[1]
$ ftsim key 2 2
KeyCode[0002] value[2]
> key 0
Stop keypad test
ft>key 1
Start keypad test
# Armed again by the stop and the start: a new line feed first.
$ ftsim key 28 1
ft>
KeyCode[001c] value[1]
> quit
@ exit 0
# The entry model names its keypad differently; the shell finds it all the same.
$ ftsim set model entry
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>key 1
Start keypad test
$ ftsim key 59 1
ft>
KeyCode[003b] value[1]
> q
@ exit 0
