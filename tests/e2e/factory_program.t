# Factory data: values as typed and quoted, read back after a power cycle; the store refusing.
$! ftsim fail nosuch_operation -1 EIO
| ftsim: no library operation named 'nosuch_operation'; 'ftsim fail --points' lists them
$! ftsim fail eeprom_read x
| ftsim: RESULT must be an integer, not 'x'
$! ftsim fail eeprom_read -1 ENOTANERRNO
| ftsim: ERRNO must be a name such as EIO or a number, not 'ENOTANERRNO'
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program write SN_UNIT "AB  12"
PASS
ft>program writecommit HW_VER 1.0
PASS
ft>program write ETHERADD 00:11:22:33:44:55 ignored words
PASS
ft>program write ID_LCD_GLASS
FAIL
ft>program writecommit etheradd 1
FAIL
ft>program read NO_SUCH_FIELD
ft>program commit
PASS
ft>program reset nvdata
Not supporting reset of nvdata
ft>program reset all
Invalid target!
ft>program list ALL
Invalid target!
# A field holds 31 characters, as the shell's read buffers do.
ft>program write EEA_PRODUCT 01234567890123456789012345678901
FAIL
ft>program write EEA_PRODUCT 0123456789012345678901234567890
PASS
ft>info
~ Factory Test [A-Z][a-z]{2} [ 0-9]\d \d{4} \d\d:\d\d:\d\d
Model = "<NOT Initialized>"
LCD = "<NOT Initialized>"
HW Version = "1.0"
Gen Version = "<NOT Initialized>"
MAC = "00:11:22:33:44:55"
Operational Mode = "0"
ConfigData Des Support = "<NOT Initialized>"
ft>^D
@ exit 0
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program read EEA_PRODUCT
EEA_PRODUCT = "0123456789012345678901234567890"
$ ftsim fail eeprom_write -1 EIO
ft>program write SN_UNIT M2
FAIL
$ ftsim fail eeprom_read -1 EIO
$ ftsim fail
| eeprom_write -1 EIO
| eeprom_read -1 EIO
ft>program read SN_UNIT
ft>info
~ Factory Test [A-Z][a-z]{2} [ 0-9]\d \d{4} \d\d:\d\d:\d\d
ft>production
Factory Mode
# A read that reports a positive result still counts as failed.
$ ftsim fail eeprom_read 1
ft>program read SN_UNIT
$ ftsim unfail eeprom_read
$! ftsim unfail eeprom_read
| ftsim: 'eeprom_read' is not set to fail
ft>program read SN_UNIT
SN_UNIT = "AB 12"
# The store refuses the switch into production mode: no message, no reboot.
$ ftsim fail eeprom_set_rw_mode -1 EROFS
ft>production 1
ft>production 0
Factory Mode
$ ftsim unfail all
$ ftsim fail
ft>production 7
ft>production 1
Production Mode Enabled
Rebooting...
! ftsim: the phone rebooted; run 'ftsim shell' to power it up again
@ exit 0
$ ftsim get watchdog.written
| V
# A write cut short by a power cut leaves its temporary file; power-up clears it.
$ ftsim exec -- sh -c 'echo torn > /sim/eeprom.tmp-Ab3dE6gH'
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>production
Production Mode
ft>production 1
Production Mode is already enabled
$! ftsim exec -- test -e /sim/eeprom.tmp-Ab3dE6gH
ft>^D
@ exit 0
$ ftsim log
| reboot
