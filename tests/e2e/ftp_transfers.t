# Transfers with the test network's FTP server inside the phone (127.0.0.1,
# account ft/ft): the clients' own messages on standard error, the download's
# verdict, and server words refused before any client runs.
$ ftsim get ftp.user
| ft
$ ftsim get ftp.password
| ft
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

# Right after power-up: the server may still be starting.
ft>send ft ft /system/etc/group group.txt 127.0.0.1
ft>get ft ft /data/group.txt group.txt 127.0.0.1
PASS
$ ftsim exec -- cmp /system/etc/group /data/group.txt
# Any loopback address reaches the server.
ft>get ft ft /data/again.txt group.txt 127.3.2.1
PASS
$ ftsim exec -- cmp /system/etc/group /data/again.txt
ft>send ft wrong /system/etc/group x.txt 127.0.0.1
! ftpput: unexpected server response to PASS: 530 Authentication failed.
ft>get nobody ft /data/x.txt group.txt 127.0.0.1
command "ftpget -u nobody -p ft 127.0.0.1 /data/x.txt group.txt" failed, check the input
FAIL
! ftpget: unexpected server response to PASS: 530 Authentication failed.
ft>get ft ft /data/x.txt missing.txt 127.0.0.1
command "ftpget -u ft -p ft 127.0.0.1 /data/x.txt missing.txt" failed, check the input
FAIL
! ftpget: unexpected server response to RETR: 550 No such file or directory.
$! ftsim exec -- test -e /data/x.txt
ft>send ft ft /data/missing.txt x.txt 127.0.0.1
! ftpput: can't open '/data/missing.txt': No such file or directory
# Host names and malformed addresses run nothing.
ft>send user pass /sdcard/pic.jpg pic.jpg ftpserver
Invalid remote IPAddr Server!!
ft>send user pass /sdcard/pic.jpg pic.jpg 10.0.0.256
Invalid remote IPAddr Server!!
ft>get user pass /data/f.bin f.bin ftpserver
invalid server ip "ftpserver"
FAIL
ft>get user pass /data/f.bin f.bin ::1
invalid server ip "::1"
FAIL
ft>get
invalid server ip ""
FAIL
$ ftsim log
| ftpput -u ft -p ft 127.0.0.1 group.txt /system/etc/group
| ftpget -u ft -p ft 127.0.0.1 /data/group.txt group.txt
| ftpget -u ft -p ft 127.3.2.1 /data/again.txt group.txt
| ftpput -u ft -p wrong 127.0.0.1 x.txt /system/etc/group
| ftpget -u nobody -p ft 127.0.0.1 /data/x.txt group.txt
| ftpget -u ft -p ft 127.0.0.1 /data/x.txt missing.txt
| ftpput -u ft -p ft 127.0.0.1 x.txt /data/missing.txt
# The account is a condition, read at each login.
$ ftsim set ftp.user station
$ ftsim set ftp.password s3cret
ft>get ft ft /data/x.txt group.txt 127.0.0.1
command "ftpget -u ft -p ft 127.0.0.1 /data/x.txt group.txt" failed, check the input
FAIL
! ftpget: unexpected server response to PASS: 530 Authentication failed.
ft>get station s3cret /data/x.txt group.txt 127.0.0.1
PASS
ft>quit
@ exit 0
# A server that is down refuses the connection.
$ ftsim set ftp.server down
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>send station s3cret /system/etc/group group.txt 127.0.0.1
! ftpput: can't connect to remote host (127.0.0.1): Connection refused
ft>get station s3cret /data/y.txt group.txt 127.0.0.1
command "ftpget -u station -p s3cret 127.0.0.1 /data/y.txt group.txt" failed, check the input
FAIL
! ftpget: can't connect to remote host (127.0.0.1): Connection refused
ft>quit
@ exit 0
