# Horizontal bars: full-width bands from the top whose heights differ by at
# most one row, alternating two colours.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>lcd fl 7 1 2
PASS
$ ftsim lcd --column 0
| 0-67 red
| 68-136 green
| 137-204 red
| 205-273 green
| 274-341 red
| 342-410 green
| 411-479 red
$ ftsim lcd --row 300
| 0-799 red
# One bar and no colours: all black.
ft>lcd fl 1
PASS
$ ftsim lcd --colours
| black 384000
# Only one colour word: black and white.
ft>lcd fl 3 1
PASS
$ ftsim lcd --column 799
| 0-159 black
| 160-319 white
| 320-479 black
# The same colour twice: every bar in it.
ft>lcd fl 3 2 2
PASS
$ ftsim lcd --colours
| green 384000
# As many bars as rows: one row each.
ft>lcd fl 480 3 5
PASS
$ ftsim lcd --pixel 0,0 0,1 0,478 0,479
| 0,0 blue
| 0,1 white
| 0,478 blue
| 0,479 white
# Refusals draw nothing: the bars stay.
ft>lcd fl 0
ft lcd_fl: Error incorrect number of bars, num_of_bars=0.
ft>lcd fl 481 1 2
ft lcd_fl: Error incorrect number of bars, num_of_bars=481.
ft>lcd fl many
ft lcd_fl: Error incorrect number of bars, num_of_bars=0.
ft>lcd fl 3 1 6
ft lcd_fl: Error nColor1=1, nColor2=6 are out of supported range.
ft>lcd fl 3 red 2
ft lcd_fl: Error nColor1=0, nColor2=2 are out of supported range.
$ ftsim lcd --pixel 0,0 0,1
| 0,0 blue
| 0,1 white
ft>^D
@ exit 0
