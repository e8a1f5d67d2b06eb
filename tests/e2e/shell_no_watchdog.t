# A phone without a watchdog device still gets a working shell.
$ ftsim set watchdog absent
@ shell
Opening watchdog file at /dev/watchdog ... watchdog file could not be opened

ft>production
Factory Mode
ft>q
@ exit 0
