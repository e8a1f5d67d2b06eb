# The regulatory label: fetched into /reserved/regulatoryLabels, a folder
# made 0700 when missing and reused as it is when present.
$! ftsim exec -- test -e /reserved/regulatoryLabels
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>send ft ft /system/etc/passwd label.png 127.0.0.1
ft>velor regulatory ft ft label.png 127.0.0.1
PASS
$ ftsim exec -- stat -c "%a" /reserved/regulatoryLabels
| 700
$ ftsim exec -- cmp /system/etc/passwd /reserved/regulatoryLabels/regulatory_info.png
# A shorter label replaces it whole.
$ ftsim exec -- chmod 755 /reserved/regulatoryLabels
ft>send ft ft /system/etc/group label2.png 127.0.0.1
ft>velor regulatory ft ft label2.png 127.0.0.1
PASS
$ ftsim exec -- stat -c "%a" /reserved/regulatoryLabels
| 755
$ ftsim exec -- cmp /system/etc/group /reserved/regulatoryLabels/regulatory_info.png
# A label the server lacks leaves the one there as it was.
ft>velor regulatory ft ft nothere.png 127.0.0.1
command "ftpget -u ft -p ft 127.0.0.1 /reserved/regulatoryLabels/regulatory_info.png nothere.png" failed, check the input
FAIL
! ftpget: unexpected server response to RETR: 550 No such file or directory.
$ ftsim exec -- cmp /system/etc/group /reserved/regulatoryLabels/regulatory_info.png
ft>velor regulatory ft ft label.png ftpserver
invalid server ip "ftpserver"
FAIL
ft>velor label ft ft label.png 127.0.0.1
Not a valid command
# A /reserved that cannot be written: refused before any client runs.
$ ftsim exec -- rm -r /reserved/regulatoryLabels
$ ftsim exec -- chmod 555 /reserved
ft>velor regulatory ft ft label.png 127.0.0.1
velor_regulatory: failed to create target directory "/reserved/regulatoryLabels"
FAIL
$ ftsim exec -- chmod 755 /reserved
$ ftsim log
| ftpput -u ft -p ft 127.0.0.1 label.png /system/etc/passwd
| ftpget -u ft -p ft 127.0.0.1 /reserved/regulatoryLabels/regulatory_info.png label.png
| ftpput -u ft -p ft 127.0.0.1 label2.png /system/etc/group
| ftpget -u ft -p ft 127.0.0.1 /reserved/regulatoryLabels/regulatory_info.png label2.png
| ftpget -u ft -p ft 127.0.0.1 /reserved/regulatoryLabels/regulatory_info.png nothere.png
ft>quit
@ exit 0
