# usbrw's ways of not starting, each undoing what it had done: the mount point
# goes (even one that was there before), the mount goes, the stick's own
# files stay. (The clean-up follows the message: the next prompt shows it
# done.) The runs themselves are in tests/peripherals/usbrw_terminal.py.
$ ftsim exec -- mkdir /data/usb_test
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>usbrw
USB device cannot be mounted or is not attached to the phone
ft><enter>
$ ftsim exec -- sh -c 'ls -A /data; echo end'
| end
# A link to nowhere: not there for stat, but in the way of mkdir.
$ ftsim exec -- ln -s /nowhere /data/usb_test
ft>usbrw
FAIL to create mount point.
ft><enter>
$ ftsim exec -- sh -c 'ls -A /data; rm /data/usb_test; echo end'
| usb_test
| end
ft>q
@ exit 0
# A stick whose root folder cannot be read.
$ ftsim set usb.stick present
$ ftsim exec -- chmod 0 /mnt/usbstick
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>usbrw
FAIL to open dir /data/usb_test.
ft><enter>
$ ftsim get usb.mounted
| no
$ ftsim exec -- sh -c 'chmod 755 /mnt/usbstick; ls -A /data; echo end'
| end
# A folder on the stick where the test file belongs.
$ ftsim exec -- mkdir /mnt/usbstick/usbrw_test_file
ft>usbrw
FAIL to open file usbrw_test_file
ft><enter>
$ ftsim get usb.mounted
| no
$ ftsim exec -- sh -c 'ls -A /data /mnt/usbstick'
| /data:
|
| /mnt/usbstick:
| usbrw_test_file
ft>q
@ exit 0
