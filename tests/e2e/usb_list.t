# usblist: no SCSI host without a stick; with one, host0 and the model name as
# sysfs shows it (16 characters, blank-padded); a host folder that cannot be read.
$ ftsim get usb.stick
| none
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>usblist
No devices found.
ft>q
@ exit 0
$ ftsim set usb.stick present
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>usblist
Attached devices:
host0:
~ USB Flash Disk {2}
ft><enter>
$ ftsim log
| find device/target*/ -name model | xargs cat
# The command ran in the host's folder, and the shell stays in the host list.
$ ftsim exec -- sh -c 'cd /proc/$(busybox pidof ft)/cwd && pwd -P'
| /sys/class/scsi_host
$ ftsim exec -- chmod 0 /sys/class/scsi_host
ft>usblist
FAIL to open dir /sys/class/scsi_host.
$ ftsim exec -- chmod 755 /sys/class/scsi_host
ft>q
@ exit 0
$ ftsim set usb.stick.model "A Model Name Longer Than Sixteen"
$ ftsim set usb.stick.device sdo
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>ft usblist
Attached devices:
host0:
A Model Name Lon
$ ftsim exec -- ls /dev/block
| sdo1
ft>q
@ exit 0
