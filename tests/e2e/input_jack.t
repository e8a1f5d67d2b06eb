# Headset jack monitor: plug detection with each kind of plug, the headset
# buttons, records that mean nothing to the jack, the two reporting flags and
# their shared first-report line feed.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>jackdet 2
Incorrect parameter
ft>jackkeydet
Incorrect parameter
ft>jackdet 1
Start jackdet test
$ ftsim jack insert ctia
ft>
JACK = CTIA
$ ftsim jack remove
JACK = none
$ ftsim jack insert omtp
JACK = OMTP
$ ftsim jack remove
JACK = none
$ ftsim jack insert nomic
JACK = no mic
# The jack is already in: a repeated insertion starts no evaluation, and the
# removal after it is the next thing printed.
$ ftsim jack insert nomic
$ ftsim jack remove
JACK = none
$ ftsim jack insert mic
JACK = mic
$ ftsim jack remove
JACK = none
# A type query that fails shows the headset as one with a microphone.
$ ftsim fail Jack_GetHeadsetType 1 EIO
$ ftsim jack insert ctia
JACK = mic
$ ftsim unfail all
$ ftsim jack remove
JACK = none
# Buttons print nothing while only detection is on; an unknown code is
# reported whatever the flags.
$ ftsim jack button A 1
$ ftsim event jack 5 3 0
Unknown jack event: keyCode[0003] value[0]
# Other record types are not looked at.
$ ftsim event jack 4 3 0
$ ftsim event jack 1 600 1
Unknown jack event: keyCode[0258] value[1]
> jackkeydet 1
Start jackkeydet test
$ ftsim jack button A 1
ft>
jackKeyCode[A] value[1]
$ ftsim jack button B 0
jackKeyCode[B] value[0]
$ ftsim jack button C 1
jackKeyCode[C] value[1]
$ ftsim jack button D 1
jackKeyCode[D] value[1]
$ ftsim jack insert omtp
JACK = OMTP
> jackdet 0
Stop jackdet test
# Only buttons now: the removal prints nothing, yet its first record is the
# first one processed after the command, so it brings the line feed.
$ ftsim jack remove
$ ftsim jack button D 0
ft>
jackKeyCode[D] value[0]
> jackkeydet 0
Stop jackkeydet test
# Detection alone: a button press is processed, prints no line of its own,
# but brings the line feed.
ft>jackdet 1
Start jackdet test
$ ftsim jack button C 0
$ ftsim jack insert ctia
ft>
JACK = CTIA
> q
@ exit 0
