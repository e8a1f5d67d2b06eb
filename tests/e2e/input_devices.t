# A phone short of devices: start-up reports each one missing and goes on.
$ ftsim set watchdog absent
$ ftsim set keypad absent
$ ftsim set jack absent
$ ftsim set lcd.device absent
$ ftsim fail Backlight_Init -1 ENODEV
@ shell
Opening watchdog file at /dev/watchdog ... watchdog file could not be opened
keyTestInit(): fail - keypad device can't be opened
jackTestInit(): fail - 3.5 headset event device can't be opened
~ libvelor \(line \d+ of init_framebuffer in drvFB\.cpp\): open failed, errno=2
~ libvelor \(line \d+ of open_framebuffer in drvFB\.cpp\): open failed, errno=2

ft>key 1
keyTest(): fail - event device is not open
ft>jackkeydet 1
jackTest(): fail - event device is not open
ft>lcd fl 2
~ libvelor \(line \d+ of open_framebuffer in drvFB\.cpp\): open failed, errno=2
FAIL
ft>backlight dimmest
PASS
ft>q
@ exit 0
# Backlight_Init failed quietly: the backlight never came on.
$ ftsim get backlight.power
| off
