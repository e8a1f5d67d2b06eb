# Keypad monitor: key lines, the line feed that keeps a first report off the
# prompt's line, records that are not keys, quitting while the read waits.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>key 01
Incorrect parameter
ft>key 1
Start keypad test
$ ftsim key 115 1
ft>
KeyCode[0073] value[1]
# A scan-code record (type 4) passes silently; the key after it is read whole.
$ ftsim event keypad 4 4 458792
$ ftsim key 0x246 0
KeyCode[0246] value[0]
> key 0
Stop keypad test
ft>key 1
Start keypad test
$ ftsim key 28 1
ft>
KeyCode[001c] value[1]
# A first report whose line another monitor has already ended keeps its own
# line feed: a blank line.
> key 1
Start keypad test
ft>hookswitch 1
Start hookswitch test
$ ftsim hook off
ft>
HOOKSWITCH event: [OFF HOOK]
$ ftsim key 28 0

KeyCode[001c] value[0]
> quit
@ exit 0
