# A bare phone (a read-only cache, no camera nor its stack's folder, no USB
# stick): the refusals only a power-up without a part shows, and sdram, which
# takes its word as atoi does, only a real 0 asking for the short test.
$ ftsim set cache readonly
$ ftsim set camera absent
$ ftsim set camera.haldir absent
$ ftsim exec -- mkdir /data/usb_test
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
cameraInit(): Failed to create file /tmp/camhal/ft_specialresolution.txt (errno = No such file or directory).
              Camera will not use full resolutions.

ft>flash
FAIL to open file /cache/test.txt for write operation
ft>camera 0
Check whether camera module is detected on USB bus
and assigned to video device at folder /dev.
   >>> Failed to open camera device /dev/video0: No such file or directory.
FAIL
ft>usblist
No devices found.
# usbrw undoes what it did: the mount point goes, even one that was there.
ft>usbrw
USB device cannot be mounted or is not attached to the phone
$ ftsim exec -- sh -c 'ls -A /data; echo end'
| end
ft>sdram -0
FAIL. Invalid parameter.
ft>sdram 2
FAIL. Type should be 0 or 1
ft>sdram -1
FAIL. Type should be 0 or 1
ft>sdram 0x
Test in progress... for mem block=67108864 Bytes and 4194304 Bytes. Please wait...
PASS
ft>sdram +1
Test in progress... for mem block=67108864 Bytes and 4194304 Bytes. Please wait...
PASS
ft>q
@ exit 0
