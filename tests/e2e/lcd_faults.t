# A phone without its framebuffer node: start-up reports it and goes on,
# every pattern reports FAIL, and the backlight still works.
$ ftsim set lcd.device absent
$ ftsim fail Backlight_Init -1 ENODEV
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
~ libvelor \(line \d+ of init_framebuffer in drvFB\.cpp\): open failed, errno=2
~ libvelor \(line \d+ of open_framebuffer in drvFB\.cpp\): open failed, errno=2

ft>lcd fill 1
~ libvelor \(line \d+ of open_framebuffer in drvFB\.cpp\): open failed, errno=2
FAIL
ft>lcd_digit W 1
~ libvelor \(line \d+ of open_framebuffer in drvFB\.cpp\): open failed, errno=2
FAIL
ft>lcd fl 2
~ libvelor \(line \d+ of open_framebuffer in drvFB\.cpp\): open failed, errno=2
FAIL
ft>backlight dimmest
PASS
ft>^D
@ exit 0
# Backlight_Init failed quietly: the backlight never came on.
$ ftsim get backlight.power
| off
$ ftsim get backlight.level
| 1
# Without the height cell every pattern is drawn in full but reports FAIL;
# the message has no line feed of its own.
$ ftsim unfail all
$ ftsim set lcd.device present
$ ftsim set lcd.devicetree no-vactive
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
~ libvelor \(line \d+ of get_resolution in drvFB\.cpp\): Failed to open /proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/vactive
ft>lcd fill 2
~ libvelor \(line \d+ of get_resolution in drvFB\.cpp\): Failed to open /proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/vactiveFAIL
$ ftsim lcd --colours
| green 384000
ft>^D
@ exit 0
# Without any device-tree cells both sizes fall back to the framebuffer's.
$ ftsim set lcd.devicetree absent
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
~ libvelor \(line \d+ of get_resolution in drvFB\.cpp\): Failed to open /proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/hactivelibvelor \(line \d+ of get_resolution in drvFB\.cpp\): Failed to open /proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/vactive
ft>lcd crosshair
~ libvelor \(line \d+ of get_resolution in drvFB\.cpp\): Failed to open /proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/hactivelibvelor \(line \d+ of get_resolution in drvFB\.cpp\): Failed to open /proc/device-tree/soc/i2c@9844000/dvo_to_mipi@E/display-timings/timing/vactiveFAIL
$ ftsim lcd --row 100
| 0-399 white
| 400 black
| 401-799 white
ft>^D
@ exit 0
# A panel showing part of a larger framebuffer: patterns use the visible
# size, rows lie a virtual width apart, and a panel under 100 pixels gets
# no digit, only its background.
$ ftsim set lcd.devicetree present
$ ftsim set lcd.size 90x60
$ ftsim set lcd.virtual 120x80
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim get lcd.pan
| 0,0 90x60
ft>lcd invertgrid 3
PASS
$ ftsim lcd --row 10
| 0 blue
| 1-44 black
| 45 blue
| 46-88 black
| 89 blue
$ ftsim lcd --column 10
| 0 blue
| 1-29 black
| 30 blue
| 31-58 black
| 59 blue
ft>lcd_digit b 5
PASS
$ ftsim lcd --colours
| white 5400
ft>lcd fl 61
ft lcd_fl: Error incorrect number of bars, num_of_bars=61.
ft>lcd fl 60
PASS
$ ftsim lcd --pixel 0,58 0,59
| 0,58 black
| 0,59 white
ft>^D
@ exit 0
