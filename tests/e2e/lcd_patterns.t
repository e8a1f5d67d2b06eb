# The whole-screen patterns on the default 800x480 panel, and the colour
# words they refuse without touching the screen.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>lcd fill 1
PASS
$ ftsim lcd --colours
| red 384000
ft>ft lcd fill 2
PASS
$ ftsim lcd --pixel 0,0 799,479
| 0,0 green
| 799,479 green
ft>lcd fill 3
PASS
$ ftsim lcd --colours
| blue 384000
ft>lcd fill 5
PASS
$ ftsim lcd --colours
| white 384000
ft>lcd fill 4
PASS
$ ftsim lcd --colours
| black 384000
# Refused colours leave the black screen as it was.
ft>lcd fill 0
FAIL Err invalid color=0
ft>lcd fill 6
FAIL Err invalid color=6
ft>lcd fill x
FAIL Err invalid color=0
ft>lcd fill
FAIL Err invalid color=0
ft>lcd fill -1
FAIL Err invalid color=-1
$ ftsim lcd --colours
| black 384000
# A black crosshair through the centre of a white screen.
ft>lcd crosshair
PASS
$ ftsim lcd --row 100
| 0-399 white
| 400 black
| 401-799 white
$ ftsim lcd --column 10
| 0-239 white
| 240 black
| 241-479 white
$ ftsim lcd --row 240
| 0-799 black
# Four cells framed and divided by green lines on black.
ft>lcd invertgrid 2
PASS
$ ftsim lcd --row 100
| 0 green
| 1-399 black
| 400 green
| 401-798 black
| 799 green
$ ftsim lcd --column 100
| 0 green
| 1-239 black
| 240 green
| 241-478 black
| 479 green
$ ftsim lcd --row 479
| 0-799 green
# Black lines need a white background.
ft>lcd invertgrid 4
PASS
$ ftsim lcd --row 100
| 0 black
| 1-399 white
| 400 black
| 401-798 white
| 799 black
ft>lcd invertgrid 7
ft: Err color=7 is out of supported range.
ft>lcd invertgrid blue
ft: Err color=0 is out of supported range.
$ ftsim lcd --row 100
| 0 black
| 1-399 white
| 400 black
| 401-798 white
| 799 black
# The left part, up to and including the centre column, black; the rest white.
ft>lcd half_filled
PASS
$ ftsim lcd --row 0
| 0-400 black
| 401-799 white
$ ftsim lcd --colours
| black 192480
| white 191520
ft>lcd stripes
Not a valid command
ft>^D
@ exit 0
