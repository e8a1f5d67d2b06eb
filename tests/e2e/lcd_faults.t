# Without the panel's height cell a pattern is drawn in full but fails.
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
