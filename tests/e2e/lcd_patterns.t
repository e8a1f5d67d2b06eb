# The backlight (lit at 20 by start-up, 0 to 255) and the patterns on the 800x480 panel.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim get backlight.power
| on
$ ftsim get backlight.level
| 20
ft>backlight off
PASS
$ ftsim get backlight.power
| off
ft>backlight on
PASS
$ ftsim get backlight.power
| on
ft>backlight dimmest
PASS
$ ftsim get backlight.level
| 1
ft>backlight brightest
PASS
$ ftsim get backlight.level
| 255
ft>backlight Off
backlight: unknown argument (Off)
FAIL
ft>rawbacklight 256
Valid brightness values are: [0 - 255]
FAIL
ft>rawbacklight -1
Valid brightness values are: [0 - 255]
FAIL
ft>rawbacklight dim
Valid brightness values are: [0 - 255]
FAIL
ft>rawbacklight 0
Valid brightness values are: [0 - 255]
PASS
$ ftsim get backlight.level
| 0
ft>rawbacklight 255
Valid brightness values are: [0 - 255]
PASS
# Without the maximum, rawbacklight passes any level on to the library.
$ ftsim fail Backlight_GetMaxBrightness -1 EIO
ft>backlight brightest
FAIL
ft>rawbacklight 100
PASS
$ ftsim fail BacklightOnOff 5
ft>backlight on
FAIL
ft>lcd fill 1
PASS
$ ftsim lcd --colours
| red 384000
ft>lcd fill 5
PASS
ft>lcd fill 0
FAIL Err invalid color=0
ft>lcd fill 6
FAIL Err invalid color=6
ft>lcd crosshair
PASS
$ ftsim lcd --column 10
| 0-239 white
| 240 black
| 241-479 white
# Framed cells, on white for black.
ft>lcd invertgrid 2
PASS
$ ftsim lcd --row 100
| 0 green
| 1-399 black
| 400 green
| 401-798 black
| 799 green
ft>lcd invertgrid 4
PASS
$ ftsim lcd --pixel 0,479 1,1
| 0,479 black
| 1,1 white
ft>lcd invertgrid 7
ft: Err color=7 is out of supported range.
ft>lcd half_filled
PASS
$ ftsim lcd --row 0
| 0-400 black
| 401-799 white
# Bar heights differ by at most one row; black and white unless both colours are given.
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
ft>lcd fl 3 1
PASS
$ ftsim lcd --pixel 799,159 799,160
| 799,159 black
| 799,160 white
ft>lcd fl 480 3 5
PASS
ft>lcd fl 0
ft lcd_fl: Error incorrect number of bars, num_of_bars=0.
ft>lcd fl 481 1 2
ft lcd_fl: Error incorrect number of bars, num_of_bars=481.
ft>lcd fl 3 1 6
ft lcd_fl: Error nColor1=1, nColor2=6 are out of supported range.
$ ftsim lcd --pixel 0,0 0,1 0,478 0,479
| 0,0 blue
| 0,1 white
| 0,478 blue
| 0,479 white
# Only the first letter of the colour word counts; refused words print nothing.
ft>lcd_digit White 8
PASS
$ ftsim lcd --colours
| black 382716
| white 1284
ft>lcd_digit w 9
PASS
ft>lcd_digit b 0
PASS
ft>lcd_digit W 10
ft>lcd_digit B -1
ft>lcd_digit X 3
ft>lcd_digit W x
$ ftsim lcd --row 236
| 0-371 white
| 372-378 black
| 379-408 white
| 409-415 black
| 416-799 white
ft>^D
@ exit 0
