# gencert refuses to run outside factory mode or without a readable mode, and
# then leaves the device exactly as it was: no directory, no command run.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program write ETHERADD 02:12:34:ab:cd:ef
PASS
ft>program write OPERATIONAL_MODE 1
PASS
ft>gencert
*ERROR* misc:gen_self_signed_cert():97 gencert can only be executed in factory mode
ft>program write OPERATIONAL_MODE 0
PASS
$ ftsim fail eeprom_read -1 5
ft>gencert
*ERROR* misc:gen_self_signed_cert():92 Unable to read CONFIGDATA_OPERATIONAL_MODE
ft>^D
@ exit 0
$! ftsim exec -- test -e /reserved/cp
# Not a single command line went to the phone's tools.
$! ftsim exec -- test -s /sim/log
