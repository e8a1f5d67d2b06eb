# Headset jack on the entry model (other device names): plugs, buttons, unknown
# codes, and the first-report line feed the two flags share.
$ ftsim set model entry
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

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
# Buttons print nothing under detection alone, other record types are not
# looked at, and an unknown code prints under either flag.
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
$ ftsim key 2 1
ft>
KeyCode[0002] value[1]
# The removal prints nothing now, yet it brings the line feed: on a line the
# keypad has already ended, a blank line.
$ ftsim jack remove

$ ftsim jack button D 0
jackKeyCode[D] value[0]
> q
@ exit 0
