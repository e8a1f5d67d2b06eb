# The camera's actions in every order: nothing before a detection, start and
# stop in turn, pictures only while started; the marker file from start-up to quit.
$ ftsim get camera
| present
$ ftsim get camera.app
| stopped
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim exec -- stat -c "%n %a %s" /tmp/camhal/ft_specialresolution.txt
| /tmp/camhal/ft_specialresolution.txt 666 0
ft>camera 1
Enable camera module and show dynamic video on LCD panel.
   >>> Camera has not been detected on USB bus yet. Run 'ft camera 0' to detect it.
FAIL
ft>camera 2
Take a picture and store it in a pre-defined location.
   >>> Camera has not been detected on USB bus yet. Run 'ft camera 0' to detect it.
FAIL
ft>camera 3
Disable camera module and stop showing dynamic video on LCD panel.
   >>> Camera has not been detected on USB bus yet. Run 'ft camera 0' to detect it.
FAIL
ft>camera 0
Check whether camera module is detected on USB bus
and assigned to video device at folder /dev.
PASS
ft>camera 2
Take a picture and store it in a pre-defined location.
   >>> Camera device is not opened.
FAIL
ft>camera 3
Disable camera module and stop showing dynamic video on LCD panel.
   >>> Camera device is not opened.
FAIL
ft>camera 1
Enable camera module and show dynamic video on LCD panel.
Starting: Intent { cmp=com.android.camera2/com.android.camera.CameraLauncher }
PASS
$ ftsim get camera.app
| running
ft>camera 1
Enable camera module and show dynamic video on LCD panel.
   >>> Camera device is already opened.
FAIL
ft>camera 2
Take a picture and store it in a pre-defined location.
PASS
ft>ft camera 2
Take a picture and store it in a pre-defined location.
PASS
$ ftsim get camera.pictures
| 2
ft>camera 3
Disable camera module and stop showing dynamic video on LCD panel.
PASS
$ ftsim get camera.app
| stopped
ft>camera 3
Disable camera module and stop showing dynamic video on LCD panel.
   >>> Camera device is not opened.
FAIL
ft>camera 2
Take a picture and store it in a pre-defined location.
   >>> Camera device is not opened.
FAIL
$ ftsim log
| am start -n com.android.camera2/com.android.camera.CameraLauncher
| input keyevent 27
| input keyevent 27
| am force-stop com.android.camera2
ft>camera 4
FAIL
ft>camera 00
FAIL
ft>camera x
FAIL
ft>camera
FAIL
# A detection that fails later leaves the earlier one in force.
$ ftsim set camera stale
ft>camera 0
Check whether camera module is detected on USB bus
and assigned to video device at folder /dev.
   >>> Failed to query the capabilities of the camera.
FAIL
ft>camera 1
Enable camera module and show dynamic video on LCD panel.
Starting: Intent { cmp=com.android.camera2/com.android.camera.CameraLauncher }
PASS
# Quit removes the marker: a second shell in the same phone quits, and the
# folder is left empty.
$ ftsim exec -- sh -c 'echo q | ft >/dev/null; ls -A /tmp/camhal; echo end'
| end
ft>q
@ exit 0
# The application runs on until the phone is powered down.
$ ftsim get camera.app
| running
$ ftsim exec -- true
$ ftsim get camera.app
| stopped
$ ftsim get camera.pictures
| 0
