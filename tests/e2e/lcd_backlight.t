# The backlight: lit at level 20 by start-up, switched, dimmed and set raw;
# library failures show only as FAIL.
$ ftsim set backlight.max 100
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim get backlight.level
| 20
ft>backlight off
PASS
$ ftsim get backlight.power
| off
ft>backlight brightest
PASS
$ ftsim get backlight.level
| 100
ft>backlight Off
backlight: unknown argument (Off)
FAIL
ft>rawbacklight 101
Valid brightness values are: [0 - 100]
FAIL
ft>rawbacklight dim
Valid brightness values are: [0 - 100]
FAIL
ft>rawbacklight 0
Valid brightness values are: [0 - 100]
PASS
$ ftsim get backlight.level
| 0
# Without the maximum, rawbacklight passes any level on to the library.
$ ftsim fail Backlight_GetMaxBrightness -1 EIO
ft>backlight brightest
FAIL
ft>rawbacklight 100
PASS
$ ftsim fail BacklightOnOff 5
ft>backlight on
FAIL
ft>^D
@ exit 0
