# The backlight: lit at level 20 by start-up, switched, dimmed and set raw
# within the phone's levels, 0 to 255; library failures show only as FAIL.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

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
$ ftsim get backlight.level
| 255
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
