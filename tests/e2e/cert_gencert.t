# A factory-mode phone with a programmed MAC gets its seed and bundle, the
# identity block and the DES support flag; the loose files are gone.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program write ETHERADD 02:12:34:ab:cd:ef
PASS
ft>program write SN_UNIT 4711
PASS
ft>gencert
~ Thumbprint: [0-9A-F]{2}(:[0-9A-F]{2}){31}
MAC = "02:12:34:ab:cd:ef"
Serial# = "4711"
Product = "<NOT Initialized>"
Model = "<NOT Initialized>"
Hardware = "<NOT Initialized>"
ft>program read CONFIGDATA_DES_SUPPORT
CONFIGDATA_DES_SUPPORT = "1"
ft>^D
@ exit 0
$ ftsim exec -- ls /reserved/cp/certs
| factorySeed
| factorycert.p12
$ ftsim exec -- stat -c "%a %s %n" /reserved/cp/certs/factorySeed
| 600 32 /reserved/cp/certs/factorySeed
