# Without a programmed MAC there is no device key: the new seed stays and
# nothing else is made.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>program write ETHERADD 021234ABCDEF
PASS
ft>gencert
*ERROR* fact_device_key:get_mac_address():69 MAC is not programmed
*ERROR* fact_device_key:get_mac_address():70 Please program MAC before generating certificate
*ERROR* fact_device_key:gen_factory_device_key():269 Failed to get MAC of device
*ERROR* misc:gen_self_signed_cert():123 Unable to generate factory base64 device key
ft>^D
@ exit 0
$ ftsim exec -- ls /reserved/cp/certs
| factorySeed
$ ftsim exec -- stat -c "%a %s" /reserved/cp/certs/factorySeed
| 600 32
