# The input monitors on the entry model (other device names), handset lifted at power-up.
$ ftsim set model entry
$ ftsim set hook off
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>hookswitch 3
hookswitchTest(): fail - incorrect parameter [3]
ft>ehs 2
ehsTest(): fail - incorrect parameter [2]
ft>ehs 0
Ehs test has already been stopped
ft>hookswitch 2
HOOKSWITCH state: [OFF HOOK]
PASS
ft>hookswitch 0
Hookswitch test has already been stopped
ft>hookswitch 1
Start hookswitch test
$ ftsim hook on
ft>
HOOKSWITCH event: [ON HOOK]
> ehs 1
Start ehs test
$ ftsim ehs off
ft>
EHS event: [OFF HOOK]
> hookswitch 0
Stop hookswitch test
$ ftsim fail CradleHookswitch_GetState 5 EIO
ft>hookswitch 2
FAIL
$ ftsim hook off
ft>key 01
Incorrect parameter
ft>jackdet 2
Incorrect parameter
ft>jackdet 1
Start jackdet test
# The first insertion record after start-up counts, even a removal.
$ ftsim jack remove
ft>
JACK = none
$ ftsim jack insert ctia
JACK = CTIA
$ ftsim jack remove
JACK = none
$ ftsim jack insert omtp
JACK = OMTP
$ ftsim jack remove
JACK = none
# A repeated insertion is no change: the removal after it is the next line.
$ ftsim jack insert nomic
JACK = no mic
$ ftsim jack insert nomic
$ ftsim jack remove
JACK = none
# A type query that fails names a headset with a microphone.
$ ftsim fail Jack_GetHeadsetType 1 EIO
$ ftsim jack insert ctia
JACK = mic
# Buttons print nothing under detection alone; other record types are not
# looked at; an unknown code prints under either flag.
$ ftsim jack button A 1
$ ftsim event jack 4 3 0
$ ftsim event jack 5 3 0
Unknown jack event: keyCode[0003] value[0]
> jackkeydet 1
Start jackkeydet test
$ ftsim jack button A 1
ft>
jackKeyCode[A] value[1]
$ ftsim jack button C 1
jackKeyCode[C] value[1]
> key 1
Start keypad test
ft>jackdet 0
Stop jackdet test
$ ftsim key 115 1
ft>
KeyCode[0073] value[1]
# A scan-code record (type 4) passes silently; the key after it is read whole.
$ ftsim event keypad 4 4 458792
$ ftsim key 0x246 0
KeyCode[0246] value[0]
# The removal prints nothing now, yet brings the first report's line feed.
$ ftsim jack remove

$ ftsim jack button D 0
jackKeyCode[D] value[0]
> key 0
Stop keypad test
$ ftsim key 28 1
ft>key 1
Start keypad test
# A restart arms the keypad's line feed again.
$ ftsim jack button D 1
ft>
jackKeyCode[D] value[1]
$ ftsim key 28 0

KeyCode[001c] value[0]
> q
@ exit 0
