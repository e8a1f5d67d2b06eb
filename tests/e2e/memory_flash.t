# flash: the test file goes after each run, so the test passes twice in a row;
# a file that reads back wrong, or that the cache folder will not let go, fails.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>flash
PASS
ft>ft flash
PASS
$ ftsim exec -- sh -c 'ls -A /cache; echo end'
| end
# Nothing comes back from /dev/null, not even the terminating zero byte.
$ ftsim exec -- ln -s /dev/null /cache/test.txt
ft>flash
FAIL. The string in /cache/test.txt does not match the string that was written to the file
$ ftsim exec -- sh -c 'ls -A /cache; echo end'
| end
# A cache folder that may not be written: the file is truncated, written and
# read, but stays.
$ ftsim exec -- sh -c 'touch /cache/test.txt && chmod 555 /cache'
ft>flash
FAIL to remove /cache/test.txt file
$ ftsim exec -- sh -c 'chmod 755 /cache && stat -c "%n %s" /cache/test.txt && rm /cache/test.txt'
| /cache/test.txt 23
ft>flash
PASS
ft>q
@ exit 0
# A file made without any permission cannot be opened again to read it back;
# it is left in place.
$ ftsim exec -- sh -c 'umask 777; echo flash | ft; echo; stat -c "%n %a" /cache/test.txt; rm /cache/test.txt'
| Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
|
| ft>flash
| FAIL to open file /cache/test.txt for read operation
| ft>
| /cache/test.txt 0
# A cache partition that comes up read-only: nothing is created.
$ ftsim set cache readonly
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>flash
FAIL to open file /cache/test.txt for write operation
$ ftsim exec -- sh -c 'ls -A /cache; echo end'
| end
ft>q
@ exit 0
