# Sub-command words and the groups' messages (the switch's word checks: tests/shell).
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>wifi Start
Not a valid command option. Please check ft help for wifi command options.
ft>wifi_rf
Not a valid command option. Please check ft help for wifi_rf command options.
ft>bt on2
Not a valid command option. Please check ft help for BT command options.
ft>mfg
Not a valid command option. Please check ft help for mfg command options.
ft>mfg wifi starts
Not a valid command option. Please check ft help for mfg command options.
ft>mfg bt wifi start
Bluetooth is not supported yet. Please check ft help for mfg command options.
ft>mfg wifi start
ft>mfg wifi stop extra
ft>lcd fills 1
Not a valid command
ft>program writes SN_UNIT x
Not a valid command
ft>velor regulatoryx a b c d
Not a valid command
ft>quit now please
@ exit 0
$ ftsim log
| /system/bin/wifi_reg_test.sh start
| /system/bin/wifi_reg_test.sh stop
