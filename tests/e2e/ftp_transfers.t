# Transfers with the test network's FTP server inside the phone (127.0.0.1, account ft/ft): the clients'
# own messages on standard error, the verdicts, and server words refused before any client runs.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

# Right after power-up, while the server may still be starting, there and
# back: a binary file, which text mode would change; any 127/8 address.
ft>send ft ft /system/bin/ft "ft.bin 127.0.0.1
ft>get ft ft /data/ft.bin "ft.bin 127.3.2.1
PASS
$ ftsim exec -- cmp /system/bin/ft /data/ft.bin
# The regulatory label: its folder made 0700 when missing, else reused as it
# is; a shorter label replaces the one there whole.
ft>velor regulatory ft ft "ft.bin 127.0.0.1
PASS
$ ftsim exec -- stat -c %a /reserved/regulatoryLabels
| 700
$ ftsim exec -- chmod 755 /reserved/regulatoryLabels
ft>send ft ft /system/etc/group label.png 127.0.0.1
ft>velor regulatory ft ft label.png 127.0.0.1
PASS
$ ftsim exec -- stat -c %a /reserved/regulatoryLabels
| 755
$ ftsim exec -- cmp /system/etc/group /reserved/regulatoryLabels/regulatory_info.png
ft>velor regulatory ft ft nothere.png 127.0.0.1
command "ftpget -u ft -p ft 127.0.0.1 /reserved/regulatoryLabels/regulatory_info.png nothere.png" failed, check the input
FAIL
! ftpget: unexpected server response to RETR: 550 No such file or directory.
$ ftsim exec -- sh -c '> /sim/log'
$ ftsim exec -- rm -r /reserved/regulatoryLabels
$ ftsim exec -- chmod 555 /reserved
ft>velor regulatory ft ft label.png 127.0.0.1
velor_regulatory: failed to create target directory "/reserved/regulatoryLabels"
FAIL
$ ftsim exec -- chmod 755 /reserved
ft>send ft ft /system/etc/group x 10.0.0.256
Invalid remote IPAddr Server!!
ft>get ft ft /data/x x ::1
invalid server ip "::1"
FAIL
# The account is a condition, read at each login. Words reach the clients as
# typed, one argument each. An upload line of 255 characters is run, one of
# 256 refused; a download line is cut to 255, which names another file.
$ ftsim set ftp.user station-uuuuuuuuuuuuuuuuuuuuuu
$ ftsim set ftp.password "it's$(id)`id`;reboot"
$ ftsim exec -- cp /system/etc/group /data/lllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll
ft>get ft ft /data/x x 127.0.0.1
command "ftpget -u ft -p ft 127.0.0.1 /data/x x" failed, check the input
FAIL
! ftpget: unexpected server response to PASS: 530 Authentication failed.
ft>send station-uuuuuuuuuuuuuuuuuuuuuu it's$(id)`id`;reboot /data/lllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd 127.0.0.1
ft>send station-uuuuuuuuuuuuuuuuuuuuuu it's$(id)`id`;reboot /data/llllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd 127.0.0.1
Upload command line too long: at most 255 characters. Nothing was sent.
ft>get station-uuuuuuuuuuuuuuuuuuuuuu it's$(id)`id`;reboot /data/$HOME&ggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd 127.0.0.1
PASS
ft>get station-uuuuuuuuuuuuuuuuuuuuuu it's$(id)`id`;reboot /data/$HOME&gggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd 127.0.0.1
command "ftpget -u station-uuuuuuuuuuuuuuuuuuuuuu -p 'it'\''s$(id)`id`;reboot' 127.0.0.1 '/data/$HOME&gggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg' remote-ddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd" failed, check the input
FAIL
! ftpget: unexpected server response to RETR: 550 No such file or directory.
$ ftsim exec -- cmp /system/etc/group "/data/$HOME&ggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg"
$ ftsim log
| ftpget -u ft -p ft 127.0.0.1 /data/x x
| ftpput -u station-uuuuuuuuuuuuuuuuuuuuuu -p 'it'\''s$(id)`id`;reboot' 127.0.0.1 remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd /data/lllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll
| ftpget -u station-uuuuuuuuuuuuuuuuuuuuuu -p 'it'\''s$(id)`id`;reboot' 127.0.0.1 '/data/$HOME&ggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg' remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd
| ftpget -u station-uuuuuuuuuuuuuuuuuuuuuu -p 'it'\''s$(id)`id`;reboot' 127.0.0.1 '/data/$HOME&gggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg' remote-ddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd
ft>quit
@ exit 0
# A server that is down refuses the connection.
$ ftsim set ftp.server down
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>get ft ft /data/y ft.bin 127.0.0.1
command "ftpget -u ft -p ft 127.0.0.1 /data/y ft.bin" failed, check the input
FAIL
! ftpget: can't connect to remote host (127.0.0.1): Connection refused
ft>quit
@ exit 0
