# Switching to production mode stores the mode, reboots the phone and is
# remembered across the power cycle; a second switch does not reboot again.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>production
Factory Mode
ft>production 0
Factory Mode
ft>production 7
ft>production 1
Production Mode Enabled
Rebooting...
! ftsim: the phone rebooted; run 'ftsim shell' to power it up again
@ exit 0
$ ftsim log
| reboot
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>production
Production Mode
ft>production 1
Production Mode is already enabled
ft>info
~ Factory Test .*
Model = "<NOT Initialized>"
LCD = "<NOT Initialized>"
HW Version = "<NOT Initialized>"
Gen Version = "<NOT Initialized>"
MAC = "<NOT Initialized>"
Operational Mode = "1"
ConfigData Des Support = "<NOT Initialized>"
ft>quit
@ exit 0
$ ftsim log
| reboot
