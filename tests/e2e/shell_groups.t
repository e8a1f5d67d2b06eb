# Sub-command words, the messages of the command groups, and the exact-word
# checks the shell makes before any Ethernet switch handler runs.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>wifi
Not a valid command option. Please check ft help for wifi command options.
ft>wifi Start
Not a valid command option. Please check ft help for wifi command options.
ft>wifi_rf
Not a valid command option. Please check ft help for wifi_rf command options.
ft>bt on2
Not a valid command option. Please check ft help for BT command options.
ft>mfg
Not a valid command option. Please check ft help for mfg command options.
ft>mfg wifi
Not a valid command option. Please check ft help for mfg command options.
ft>mfg wifi starts
Not a valid command option. Please check ft help for mfg command options.
ft>mfg bt wifi start
Bluetooth is not supported yet. Please check ft help for mfg command options.
ft>mfg wifi start
ft>mfg wifi stop extra
ft>lcd
Not a valid command
ft>lcd fills 1
Not a valid command
ft>program
Not a valid command
ft>program writes SN_UNIT x
Not a valid command
ft>velor
Not a valid command
ft>velor regulatoryx a b c d
Not a valid command
ft>l2portResetCntrs 3

l2portResetCntrs() FAIL. port not valid ! 
ft>l2portCntrs all

l2portCntrs() FAIL. port not valid ! 
ft>l2getmac 00

l2getmac() FAIL. port not valid ! 
ft>l2setAutoMDIX 2 0

l2setAutoMDIX() FAIL. port not valid ! 
ft>l2setAutoMDIX 1 2

l2setAutoMDIX() FAIL. mode not valid ! 
ft>l2setAutoMDIX 9 9

l2setAutoMDIX() FAIL. port not valid ! 
ft>l2setLinkStatus 2 5

l2setLinkStatus() FAIL. status not valid ! 
ft>l2setLinkMode 2 7

l2setLinkMode() FAIL. status not valid ! 
ft>l2GetPVID 3

l2GetPVID() FAIL. port not valid ! 
ft>l2GetVlan_mbrCfg 4096

l2GetVlan_mbrCfg() FAIL. parameter not valid ! 
ft>l2GetVlan_mbrCfg -1

l2GetVlan_mbrCfg() FAIL. parameter not valid ! 
ft>l2GetVlan_mbrCfg

l2GetVlan_mbrCfg() FAIL. parameter not valid ! 
ft>l2SetGreenEthernetPort 2

l2SetGreenEthernetPort() FAIL. mode not valid !
ft>l2rgmiiDelayExt_set 1 0 0

l2rgmiiDelayExt_set() FAIL. port not valid (only cpu_port (2) ) ! 
ft>l2rgmiiDelayExt_set 2 2 0

l2rgmiiDelayExt_set() FAIL. txDelay not valid ! 
ft>l2setSSC on

l2setSSC() FAIL. SSC status not valid ! 
ft>quit now please
@ exit 0
$ ftsim log
| /system/bin/wifi_reg_test.sh start
| /system/bin/wifi_reg_test.sh stop
