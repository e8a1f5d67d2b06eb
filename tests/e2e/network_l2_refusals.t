# The shell's word checks in front of the switch commands: each refused
# word prints its command's line and calls nothing: no setting is saved and
# no report made. Port words are checked before the others.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>l2portCntrs 00

l2portCntrs() FAIL. port not valid ! 
ft>l2portCntrs

l2portCntrs() FAIL. port not valid ! 
ft>l2portResetCntrs 4

l2portResetCntrs() FAIL. port not valid ! 
ft>l2portResetCntrs ALL

l2portResetCntrs() FAIL. port not valid ! 
ft>l2getmac 2

l2getmac() FAIL. port not valid ! 
ft>l2getPhyRegValue 2 0

l2getPhyRegValue() FAIL. port not valid ! 
ft>l2Init 2

l2Init() FAIL. port not valid ! 
ft>l2Init +1

l2Init() FAIL. port not valid ! 
ft>l2setAutoMDIX

l2setAutoMDIX() FAIL. port not valid ! 
ft>l2getAutoMDIX 2

l2getAutoMDIX() FAIL. port not valid ! 
ft>l2setLinkStatus 3 1

l2setLinkStatus() FAIL. port not valid ! 
ft>l2setLinkStatus 0 0

l2setLinkStatus() FAIL. status not valid ! 
ft>l2setLinkStatus 0

l2setLinkStatus() FAIL. status not valid ! 
ft>l2getLinkStatus 2

l2getLinkStatus() FAIL. port not valid ! 
ft>l2setLinkMode 3 1

l2setLinkMode() FAIL. port not valid ! 
ft>l2setLinkMode 0 0

l2setLinkMode() FAIL. status not valid ! 
ft>l2getLinkMode 2

l2getLinkMode() FAIL. port not valid ! 
ft>l2getLinkMode 01

l2getLinkMode() FAIL. port not valid ! 
ft>l2GetPVID

l2GetPVID() FAIL. port not valid ! 
ft>l2GetPortPriority 3

l2GetPortPriority() FAIL. port not valid ! 
ft>l2SetGreenEthernetPort

l2SetGreenEthernetPort() FAIL. mode not valid !
ft>l2GetEEEPort 2

l2GetEEEPort() FAIL. port not valid ! 
ft>l2SetEEEPort 2 0

l2SetEEEPort() FAIL. port not valid ! 
ft>l2SetEEEPort 1 2

l2SetEEEPort() FAIL. mode not valid ! 
ft>l2rgmiiDelayExt_set 0 0 0

l2rgmiiDelayExt_set() FAIL. port not valid (only cpu_port (2) ) ! 
ft>l2rgmiiDelayExt_set 2 01 0

l2rgmiiDelayExt_set() FAIL. txDelay not valid ! 
ft>l2setSSC

l2setSSC() FAIL. SSC status not valid ! 
$ ftsim exec -- test ! -e /sim/switch
ft>^D
@ exit 0
$ ftsim get switch.report
| none
