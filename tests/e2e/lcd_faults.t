# Without its framebuffer node every pattern fails; the backlight still works.
$ ftsim set lcd.device absent
$ ftsim fail Backlight_Init -1 ENODEV
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
~ libvelor \(line \d+ of init_framebuffer in drvFB\.cpp\): open failed, errno=2
~ libvelor \(line \d+ of open_framebuffer in drvFB\.cpp\): open failed, errno=2

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
# Without the height cell a pattern is drawn in full but fails.
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
