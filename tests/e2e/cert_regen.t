# regenfipscert needs the bundle and the seed, works in production mode, and
# leaves no unpacked key or certificate behind.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>regenfipscert
*ERROR* misc:regen_fips_signed_cert():318 Factory cert not present return NULL
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
$ ftsim exec -- mv /reserved/cp/certs/factorySeed /reserved/seed
ft>regenfipscert
*ERROR* misc:regen_fips_signed_cert():323 Factory seed not present return NULL
$ ftsim exec -- mv /reserved/seed /reserved/cp/certs/factorySeed
ft>program write OPERATIONAL_MODE 1
PASS
ft>regenfipscert
~ \*ERROR\* misc:regen_fips_signed_cert\(\):361 Failed to do base64 key = [A-Za-z0-9+/]{43}=

~ \*ERROR\* misc:regen_fips_signed_cert\(\):380 key PEM [A-Za-z0-9+/]{43}=

*ERROR* misc:regen_fips_signed_cert():404 generated pkcs12
$ ftsim fail eeprom_read -1 5
ft>regenfipscert
*ERROR* fact_device_key:get_mac_address():64 Unable to read MAC from factory data
*ERROR* misc:regen_fips_signed_cert():348 Unable to get MAC
$ ftsim unfail all
$ ftsim exec -- truncate -s 20 /reserved/cp/certs/factorySeed
ft>regenfipscert
~ \*ERROR\* misc:get_factory_seed\(\):191 Read 20 bytes from /reserved/cp/certs/factorySeed: errno : \d+
*ERROR* misc:regen_fips_signed_cert():336 Failed to get seed of device
ft>^D
@ exit 0
$ ftsim exec -- ls /reserved/cp/certs
| factorySeed
| factorycert.p12
