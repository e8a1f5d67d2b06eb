# The peripherals on a phone as it comes, but for a USB stick on sdo (the last
# device tried) with a model name longer than sysfs keeps: the camera's actions
# in every order, flash, usblist, usbrw's ways of not starting or of ending at
# its first block (its runs: tests/peripherals/usbrw_terminal.py), the cradle,
# and usb power, overcurrent and limit against every answer of the library.
$ ftsim set usb.stick present
$ ftsim set usb.stick.device sdo
$ ftsim set usb.stick.model "A Model Name Longer Than Sixteen"
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim exec -- stat -c "%n %a %s" /tmp/camhal/ft_specialresolution.txt
| /tmp/camhal/ft_specialresolution.txt 666 0
# A detection that failed detected nothing.
$ ftsim set camera nocapture
ft>camera 0
Check whether camera module is detected on USB bus
and assigned to video device at folder /dev.
   >>> Video capture not supported.
FAIL
ft>camera 1
Enable camera module and show dynamic video on LCD panel.
   >>> Camera has not been detected on USB bus yet. Run 'ft camera 0' to detect it.
FAIL
$ ftsim set camera present
ft>camera 0
Check whether camera module is detected on USB bus
and assigned to video device at folder /dev.
PASS
ft>camera 1
Enable camera module and show dynamic video on LCD panel.
Starting: Intent { cmp=com.android.camera2/com.android.camera.CameraLauncher }
PASS
ft>camera 1
Enable camera module and show dynamic video on LCD panel.
   >>> Camera device is already opened.
FAIL
ft>camera 2
Take a picture and store it in a pre-defined location.
PASS
ft>camera 3
Disable camera module and stop showing dynamic video on LCD panel.
PASS
$ ftsim exec -- sh -c 'phone-state get camera.app; phone-state get camera.pictures'
| stopped
| 1
ft>camera 3
Disable camera module and stop showing dynamic video on LCD panel.
   >>> Camera device is not opened.
FAIL
ft>camera 4
FAIL
ft>camera 00
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
# Quit removes the marker: a second shell's quit leaves the folder empty.
$ ftsim exec -- sh -c 'echo q | ft >/dev/null; ls -A /tmp/camhal; echo end'
| end
ft>flash
PASS
# Nothing comes back from /dev/null, not even the terminating zero byte.
$ ftsim exec -- ln -s /dev/null /cache/test.txt
ft>flash
FAIL. The string in /cache/test.txt does not match the string that was written to the file
# A cache folder that may not be written: the file is written and read, but stays.
$ ftsim exec -- sh -c 'ls -A /cache; echo end; touch /cache/test.txt; chmod 555 /cache'
| end
ft>flash
FAIL to remove /cache/test.txt file
# A file made without any permission cannot be read back; it stays.
$ ftsim exec -- sh -c 'chmod 755 /cache; rm /cache/test.txt; umask 777; echo flash | ft | grep FAIL; stat -c "%n %a" /cache/test.txt; rm /cache/test.txt'
| FAIL to open file /cache/test.txt for read operation
| /cache/test.txt 0
ft>usblist
Attached devices:
host0:
A Model Name Lon
# The command ran in the host's folder, and the shell stays in the host list.
$ ftsim exec -- sh -c 'cd /proc/$(busybox pidof ft)/cwd && pwd -P; chmod 0 /sys/class/scsi_host'
| /sys/class/scsi_host
ft>usblist
FAIL to open dir /sys/class/scsi_host.
# A stick whose root folder cannot be read. Each failing usbrw undoes what it
# did before the next prompt: no mount, no mount point, the stick's files kept.
$ ftsim exec -- sh -c 'chmod 755 /sys/class/scsi_host; chmod 0 /mnt/usbstick'
ft>usbrw
FAIL to open dir /data/usb_test.
# A folder on the stick where the test file belongs.
$ ftsim exec -- sh -c 'chmod 755 /mnt/usbstick; find /data -mindepth 1; mkdir /mnt/usbstick/usbrw_test_file; echo end'
| end
ft>usbrw
FAIL to open file usbrw_test_file
# Blocks that read back different, in a second shell: it ends at the first.
$ ftsim set usb.stick.fault mismatch
$ ftsim exec -- sh -c 'find /data /mnt/usbstick -mindepth 1; rmdir /mnt/usbstick/*; echo usbrw | ft | grep -o "FAIL.*"; find /data /mnt/usbstick -mindepth 1; ln -s /nowhere /data/usb_test'
| /mnt/usbstick/usbrw_test_file
| FAIL. Read block does not match written blockft>
# A link to nowhere: not there for stat, but in the way of mkdir.
ft>usbrw
FAIL to create mount point.
ft>cradle 0
connected
PASS
ft>cradle 1
PASS
$ ftsim get cradle.charger
| on
$ ftsim set cradle disconnected
ft>cradle 0
disconnected
PASS
ft>cradle 2
Cradle is disconnected
FAIL
$ ftsim set cradle undefined
ft>cradle 0
Cradle state undefined
FAIL
$ ftsim set cradle connected
ft>cradle 2
PASS
$ ftsim get cradle.charger
| off
ft>cradle 3
Invalid <action>="3"
FAIL
$ ftsim fail BTHandsetCharger_SetState 1
ft>cradle 1
FAIL
$ ftsim fail BTHandsetCradle_IsConnected 1
ft>cradle 0
Failed to get the connection state of the BT handset cradle
FAIL
ft>usb power on
PASS
$ ftsim get usb.power
| on
ft>usb power off
PASS
$ ftsim get usb.power
| off
ft>usb power On
FAIL
# Any result from 0 up is success.
$ ftsim fail Usb_Port1_On 3
ft>usb power on
PASS
$ ftsim fail Usb_Port1_Off -1 EIO
ft>usb power off
FAIL
$ ftsim unfail all
$ ftsim set usb.mode device
ft>usb power on
USB port is in device mode. Could not provide power on USB port.
FAIL
$ ftsim get usb.power
| off
ft>usb overcurrent
No overcurrent detected
PASS
$ ftsim set usb.overcurrent yes
ft>usb overcurrent now
Overcurrent detected
PASS
# A success that left the fault value as it was says neither.
$ ftsim fail Usb_HadPowerFault 2
ft>usb overcurrent
PASS
$ ftsim fail Usb_HadPowerFault -1 EIO
ft>usb overcurrent
FAIL
ft>usb limit high
USB port power limit was set to 500 mA
ft>usb limit get
USB current limit is 500 mA
ft>usb limit low
USB port power limit was set to 100 mA
ft>usb limit get
USB current limit is 100 mA
ft>usb limit Low
Unknown action
$ ftsim fail Usb_SetCurrentLimit 1
ft>usb limit high
Usb_SetCurrentLimit() error
$ ftsim fail Usb_GetCurrentLimit -1 EIO
ft>usb limit get
Usb_getCurrentLimit() error
$ ftsim fail Usb_GetCurrentLimit -2
ft>usb limit get
Error unexpected value in Usb_getCurrentLimit(): -2
ft>usb reset
Not a valid command.
ft>q
@ exit 0
# The application and the port's settings last until the next power-up.
$ ftsim get camera.app
| running
$ ftsim exec -- sh -c 'for n in camera.app camera.pictures usb.limit usb.power; do phone-state get $n; done'
| stopped
| 0
| 500
| on
