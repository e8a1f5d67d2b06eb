# Words as typed reach the clients as one argument each, whatever they
# hold, and an upload line too long for its buffer runs nothing.
$ ftsim set ftp.user station-uuuuuuuuuuuuuuuuuuuuuu
$ ftsim exec -- cp /system/etc/group /data/llllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

# 255 characters fit the line. An upload of 256 is refused; a download is
# cut to 255, so it asks for a remote name the server does not have.
ft>send station-uuuuuuuuuuuuuuuuuuuuuu ft /data/llllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd 127.0.0.1
ft>send station-uuuuuuuuuuuuuuuuuuuuuu ft /data/lllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd 127.0.0.1
Upload command line too long: at most 255 characters. Nothing was sent.
ft>get station-uuuuuuuuuuuuuuuuuuuuuu ft /data/gggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd 127.0.0.1
PASS
ft>get station-uuuuuuuuuuuuuuuuuuuuuu ft /data/ggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd 127.0.0.1
command "ftpget -u station-uuuuuuuuuuuuuuuuuuuuuu -p ft 127.0.0.1 /data/ggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-ddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd" failed, check the input
FAIL
! ftpget: unexpected server response to RETR: 550 No such file or directory.
$ ftsim exec -- cmp /system/etc/group /data/gggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg
$ ftsim log
| ftpput -u station-uuuuuuuuuuuuuuuuuuuuuu -p ft 127.0.0.1 remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd /data/llllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll
| ftpget -u station-uuuuuuuuuuuuuuuuuuuuuu -p ft 127.0.0.1 /data/gggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd
| ftpget -u station-uuuuuuuuuuuuuuuuuuuuuu -p ft 127.0.0.1 /data/ggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-ddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd
# A password the shell would read as two commands: the server sees it whole.
$ ftsim set ftp.user ft
$ ftsim set ftp.password "p;reboot"
ft>send ft p;reboot /system/etc/group q.txt 127.0.0.1
ft>get ft p;reboot /data/q.txt q.txt 127.0.0.1
PASS
$ ftsim exec -- cmp /system/etc/group /data/q.txt
$ ftsim set ftp.password "it's$(id)`id`"
ft>send ft it's$(id)`id` /system/etc/passwd "q.txt 127.0.0.1
ft>get ft it's$(id)`id` /data/$HOME&x "q.txt 127.0.0.1
PASS
$ ftsim exec -- cmp /system/etc/passwd "/data/$HOME&x"
$ ftsim log
| ftpput -u station-uuuuuuuuuuuuuuuuuuuuuu -p ft 127.0.0.1 remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd /data/llllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllllll
| ftpget -u station-uuuuuuuuuuuuuuuuuuuuuu -p ft 127.0.0.1 /data/gggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd
| ftpget -u station-uuuuuuuuuuuuuuuuuuuuuu -p ft 127.0.0.1 /data/ggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggggg remote-ddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd
| ftpput -u ft -p 'p;reboot' 127.0.0.1 q.txt /system/etc/group
| ftpget -u ft -p 'p;reboot' 127.0.0.1 /data/q.txt q.txt
| ftpput -u ft -p 'it'\''s$(id)`id`' 127.0.0.1 '"q.txt' /system/etc/passwd
| ftpget -u ft -p 'it'\''s$(id)`id`' 127.0.0.1 '/data/$HOME&x' '"q.txt'
ft>quit
@ exit 0
