# The backlight: lit at level 20 by start-up, switched, dimmed and set raw;
# library failures show only as FAIL.
$ ftsim set backlight.max 100
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>backlight off
PASS
$ ftsim get backlight.power
| off
$ ftsim get backlight.level
| 20
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
| 100
ft>backlight Off
backlight: unknown argument (Off)
FAIL
ft>backlight
backlight: unknown argument ()
FAIL
ft>rawbacklight 100
Valid brightness values are: [0 - 100]
PASS
ft>rawbacklight 101
Valid brightness values are: [0 - 100]
FAIL
ft>rawbacklight 0
Valid brightness values are: [0 - 100]
PASS
$ ftsim get backlight.level
| 0
ft>rawbacklight -3
Valid brightness values are: [0 - 100]
FAIL
ft>rawbacklight dim
Valid brightness values are: [0 - 100]
FAIL
ft>rawbacklight 42
Valid brightness values are: [0 - 100]
PASS
# Without the maximum: "brightest" fails and leaves the level alone, and
# rawbacklight passes any level on to the library, which refuses it.
$ ftsim fail Backlight_GetMaxBrightness -1 EIO
ft>backlight brightest
FAIL
$ ftsim get backlight.level
| 42
ft>rawbacklight 100
PASS
ft>rawbacklight 101
FAIL
$ ftsim get backlight.level
| 100
$ ftsim unfail all
$ ftsim fail BacklightOnOff 5
ft>backlight off
FAIL
$ ftsim get backlight.power
| on
$ ftsim fail Backlight_SetRawBrightness -1 EIO
ft>backlight dimmest
FAIL
ft>rawbacklight 7
Valid brightness values are: [0 - 100]
FAIL
ft>^D
@ exit 0
$ ftsim get backlight.level
| 100
