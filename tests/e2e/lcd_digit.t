# One large digit in the middle of the screen, white on black or black on
# white; refused words print nothing and draw nothing.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>lcd_digit W 8
PASS
$ ftsim lcd --ascii 368 206 419 265 3
| ##################
| #######....#######
| #####........#####
| ###............###
| ###...######...###
| ###..########..###
| ###..########..###
| ###...######...###
| ###............###
| ####..........####
| ###............###
| ##....######....##
| ##...########...##
| ##..##########..##
| ##..##########..##
| ##...########...##
| ##.....####.....##
| ###............###
| #####........#####
| ##################
$ ftsim lcd --colours
| black 382716
| white 1284
# A picture of it in the build tree, for people to look at.
$ ftsim lcd lcd_digit_W8.png
# The image's corners stay background: its top-left corner is at 350,190.
$ ftsim lcd --pixel 350,190 449,289 349,240 450,240
| 350,190 black
| 449,289 black
| 349,240 black
| 450,240 black
ft>lcd_digit b 0
PASS
$ ftsim lcd --row 236
| 0-371 white
| 372-378 black
| 379-408 white
| 409-415 black
| 416-799 white
ft>lcd_digit W 10
ft>lcd_digit X 3
ft>lcd_digit W x
ft>lcd_digit w -1
ft>lcd_digit b
ft>lcd_digit
$ ftsim lcd --row 236
| 0-371 white
| 372-378 black
| 379-408 white
| 409-415 black
| 416-799 white
# Only the first letter of the colour word counts.
ft>lcd_digit White 1
PASS
$ ftsim lcd --row 250
| 0-391 black
| 392-399 white
| 400-799 black
ft>^D
@ exit 0
