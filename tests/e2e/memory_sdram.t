# sdram: the type word is taken as atoi takes it, and only a real 0 asks for
# the short test; both tests pass on good memory.
$ ftsim get cache
| writable
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>sdram
FAIL. Invalid parameter.
ft>sdram x
FAIL. Invalid parameter.
ft>sdram -0
FAIL. Invalid parameter.
ft>sdram 2
FAIL. Type should be 0 or 1
ft>sdram -1
FAIL. Type should be 0 or 1
ft>sdram 99999999999
FAIL. Type should be 0 or 1
ft>sdram 0x
Test in progress... for mem block=67108864 Bytes and 4194304 Bytes. Please wait...
PASS
ft>sdram 0
Test in progress... for mem block=67108864 Bytes and 4194304 Bytes. Please wait...
PASS
ft>sdram 01
Test in progress... for mem block=67108864 Bytes and 4194304 Bytes. Please wait...
PASS
ft>ft sdram +1
Test in progress... for mem block=67108864 Bytes and 4194304 Bytes. Please wait...
PASS
ft>q
@ exit 0
