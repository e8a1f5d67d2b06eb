# A failure after the bundle was made takes back the seed and the bundle, also
# those of an earlier run, and every loose file: no half-made identity stays.
# The command removes its loose files after its last line: an empty line waits
# for the next prompt before the files are looked at.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program write ETHERADD 02:12:34:ab:cd:ef
PASS
ft>gencert
~ Thumbprint: [0-9A-F:]{95}
MAC = "02:12:34:ab:cd:ef"
Serial# = "<NOT Initialized>"
Product = "<NOT Initialized>"
Model = "<NOT Initialized>"
Hardware = "<NOT Initialized>"
ft><enter>
$ ftsim exec -- ls /reserved/cp/certs
| factorySeed
| factorycert.p12
$ ftsim fail eeprom_write -1 5
ft>gencert
~ Thumbprint: [0-9A-F:]{95}
MAC = "02:12:34:ab:cd:ef"
Serial# = "<NOT Initialized>"
Product = "<NOT Initialized>"
Model = "<NOT Initialized>"
Hardware = "<NOT Initialized>"
*ERROR* misc:gen_self_signed_cert():172 Unable to update CONFIGDATA_DES_SUPPORT
ft>^D
@ exit 0
$ ftsim exec -- find /reserved/cp
| /reserved/cp
| /reserved/cp/certs
