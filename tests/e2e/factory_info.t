# A fresh phone: start-up, the identity screen, and end of input on a pipe.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>info
~ Factory Test [A-Z][a-z]{2} [ 0-9]\d \d{4} \d\d:\d\d:\d\d
Model = "<NOT Initialized>"
LCD = "<NOT Initialized>"
HW Version = "<NOT Initialized>"
Gen Version = "<NOT Initialized>"
MAC = "<NOT Initialized>"
Operational Mode = "0"
ConfigData Des Support = "<NOT Initialized>"
ft>^D
@ exit 0
$ ftsim get watchdog.written
| V
