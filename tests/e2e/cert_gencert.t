# gencert's refusals, the seed and bundle it leaves and nothing else, regenfipscert
# in production mode; a failure after the bundle was made takes both back.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>regenfipscert
*ERROR* misc:regen_fips_signed_cert():318 Factory cert not present return NULL
ft>program write OPERATIONAL_MODE 1
PASS
ft>gencert
*ERROR* misc:gen_self_signed_cert():97 gencert can only be executed in factory mode
$ ftsim fail eeprom_read -1 5
ft>gencert
*ERROR* misc:gen_self_signed_cert():92 Unable to read CONFIGDATA_OPERATIONAL_MODE
$ ftsim unfail all
# Refused, it ran no command line and made no directory.
$! ftsim exec -- test -s /sim/log
$! ftsim exec -- test -e /reserved/cp
ft>program write OPERATIONAL_MODE 0
PASS
ft>program write ETHERADD 021234ABCDEF
PASS
ft>gencert
*ERROR* fact_device_key:get_mac_address():69 MAC is not programmed
*ERROR* fact_device_key:get_mac_address():70 Please program MAC before generating certificate
*ERROR* fact_device_key:gen_factory_device_key():269 Failed to get MAC of device
*ERROR* misc:gen_self_signed_cert():123 Unable to generate factory base64 device key
$ ftsim exec -- ls /reserved/cp/certs
| factorySeed
ft>program write ETHERADD 02:12:34:ab:cd:ef
PASS
ft>gencert
~ Thumbprint: [0-9A-F]{2}(:[0-9A-F]{2}){31}
MAC = "02:12:34:ab:cd:ef"
Serial# = "<NOT Initialized>"
Product = "<NOT Initialized>"
Model = "<NOT Initialized>"
Hardware = "<NOT Initialized>"
ft>program read CONFIGDATA_DES_SUPPORT
CONFIGDATA_DES_SUPPORT = "1"
$ ftsim exec -- ls /reserved/cp/certs
| factorySeed
| factorycert.p12
$ ftsim exec -- stat -c "%a %s" /reserved/cp/certs/factorySeed
| 600 32
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
ft>program write OPERATIONAL_MODE 0
PASS
$ ftsim exec -- ls /reserved/cp/certs
| factorySeed
| factorycert.p12
# The regeneration reads the seed before it looks at the MAC.
$ ftsim exec -- truncate -s 20 /reserved/cp/certs/factorySeed
ft>program write ETHERADD 02:12:34:ab:cd:e
PASS
ft>regenfipscert
~ \*ERROR\* misc:get_factory_seed\(\):191 Read 20 bytes from /reserved/cp/certs/factorySeed: errno : \d+
*ERROR* misc:regen_fips_signed_cert():336 Failed to get seed of device
$ ftsim exec -- truncate -s 32 /reserved/cp/certs/factorySeed
ft>regenfipscert
*ERROR* fact_device_key:get_mac_address():69 MAC is not programmed
*ERROR* fact_device_key:get_mac_address():70 Please program MAC before generating certificate
*ERROR* misc:regen_fips_signed_cert():348 Unable to get MAC
ft>program write ETHERADD 02:12:34:ab:cd:ef
PASS
$ ftsim fail eeprom_write -1 5
ft>gencert
~ Thumbprint: [0-9A-F]{2}(:[0-9A-F]{2}){31}
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
