# Cameras that are not there, cannot capture, and a camera stack without its folder.
$ ftsim set camera absent
$ ftsim set camera.haldir absent
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
cameraInit(): Failed to create file /tmp/camhal/ft_specialresolution.txt (errno = No such file or directory).
              Camera will not use full resolutions.

ft>camera 0
Check whether camera module is detected on USB bus
and assigned to video device at folder /dev.
   >>> Failed to open camera device /dev/video0: No such file or directory.
FAIL
ft>q
@ exit 0
$ ftsim set camera nocapture
$ ftsim set camera.haldir present
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>camera 0
Check whether camera module is detected on USB bus
and assigned to video device at folder /dev.
   >>> Video capture not supported.
FAIL
ft>camera 1
Enable camera module and show dynamic video on LCD panel.
   >>> Camera has not been detected on USB bus yet. Run 'ft camera 0' to detect it.
FAIL
$ ftsim set camera stale
ft>camera 0
Check whether camera module is detected on USB bus
and assigned to video device at folder /dev.
   >>> Failed to query the capabilities of the camera.
FAIL
ft>q
@ exit 0
