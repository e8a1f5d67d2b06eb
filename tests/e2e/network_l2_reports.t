# The three reports (port counters, VLAN members, ACL rules): the library
# prints them while the report marker exists, made at least a second before
# the call and removed after it; a marker that cannot be made stops the
# report, one that cannot be removed is reported. The counter reset, and
# the rules deleted and restored.
$ ftsim get switch.report
| none
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>l2portCntrs 1
Port 0x2 (LAN) counters:
 ifInOctets            : 1284736
 ifInUcastPkts         : 8120
 ifOutOctets           : 502211
 ifOutUcastPkts        : 7904
 dot3StatsFCSErrors    : 0
 etherStatsDropEvents  : 0

FTportCntrs(): PASS
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && echo $1 $2 marker held'
| portCntrs 0x2 marker held
$ ftsim exec -- test ! -e /tmp/specialFTfile.txt
ft>l2portResetCntrs 1

rltkFTportResetCntrs(): PASS
ft>l2portCntrs 1
Port 0x2 (LAN) counters:
 ifInOctets            : 0
 ifInUcastPkts         : 0
 ifOutOctets           : 0
 ifOutUcastPkts        : 0
 dot3StatsFCSErrors    : 0
 etherStatsDropEvents  : 0

FTportCntrs(): PASS
ft>l2portCntrs 2
Port 0x400 (CPU) counters:
 ifInOctets            : 502211
 ifInUcastPkts         : 7904
 ifOutOctets           : 1161480
 ifOutUcastPkts        : 7310
 dot3StatsFCSErrors    : 0
 etherStatsDropEvents  : 0

FTportCntrs(): PASS
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && echo $1 $2 marker held'
| portCntrs 0x400 marker held
ft>l2portResetCntrs all

rltkFTportResetCntrs(): PASS
ft>l2portCntrs 2
Port 0x400 (CPU) counters:
 ifInOctets            : 0
 ifInUcastPkts         : 0
 ifOutOctets           : 0
 ifOutUcastPkts        : 0
 dot3StatsFCSErrors    : 0
 etherStatsDropEvents  : 0

FTportCntrs(): PASS
ft>l2portResetCntrs 0

rltkFTportResetCntrs(): PASS
# VLAN 9999 stands for all of them; a word without digits is VLAN 0.
ft>l2GetVlan_mbrCfg all
VLAN member configuration:
 VLAN    1: members 0x403, untagged 0x403, FID 0

l2getVlanMbrCfg PASS
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && echo $1 $2 marker held'
| VlanMbrCfg 9999 marker held
$ ftsim exec -- test ! -e /tmp/specialFTfile.txt
ft>l2GetVlan_mbrCfg 4095
VLAN member configuration:
 VLAN 4095: not configured

l2getVlanMbrCfg PASS
ft>l2GetVlan_mbrCfg vlan
VLAN member configuration:
 VLAN    0: not configured

l2getVlanMbrCfg PASS
ft>l2ShowAllRules
ACL rules: 2
 rule 0: ethertype 0x88cc (LLDP), any port -> trap to CPU
 rule 1: ethertype 0x888e (EAPOL), any port -> trap to CPU
PASS
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && echo $1 $2 marker held'
| ShowAllRules - marker held
$ ftsim exec -- test ! -e /tmp/specialFTfile.txt
ft>l2DelAllRules
PASS
ft>l2ShowAllRules
ACL rules: 0
PASS
ft>l2resetSettings

Reset configuration of L2 Switch to its defaults....l2resetSettings() PASS
ft>l2ShowAllRules
ACL rules: 2
 rule 0: ethertype 0x88cc (LLDP), any port -> trap to CPU
 rule 1: ethertype 0x888e (EAPOL), any port -> trap to CPU
PASS
# A /tmp that cannot be written: no marker, no report.
$ ftsim exec -- chmod 555 /tmp
ft>l2portCntrs 1

 createFile(): Failed to create the special file..... 
createFile() ERROR!!! (command not run because the special file not created!!!
l2portCntrs() FAILED, cannot create the file !!!!
ft>l2GetVlan_mbrCfg 5

 createFile(): Failed to create the special file..... 
createFile() ERROR!!! (command not run because the special file not created!!!
l2getVlanMbrCfg() FAILED, cannot create the file !!!!
ft>l2ShowAllRules

 createFile(): Failed to create the special file..... 
createFile() ERROR!!! (command not run because the special file not created!!!
l2ShowAllRules() FAILED, cannot create the file !!!!
# The last report is still the one before.
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && echo $1 $2 marker held'
| ShowAllRules - marker held
# A marker left from before, in a /tmp that cannot be written: the report
# runs, the marker stays, and each command says so; the result is still 0.
$ ftsim exec -- sh -c 'chmod 755 /tmp && touch /tmp/specialFTfile.txt && chmod 555 /tmp'
ft>l2portCntrs 1
Port 0x2 (LAN) counters:
 ifInOctets            : 0
 ifInUcastPkts         : 0
 ifOutOctets           : 0
 ifOutUcastPkts        : 0
 dot3StatsFCSErrors    : 0
 etherStatsDropEvents  : 0
deleteFile(): Unable to delete the file - please delete the file /tmp/specialFTfile.txt !!!

deleteFile(): Must delete the file manually from /tmp/specialFTfile.txt !!!

l2portCntrs() - cannot delete file ... 
! Error: Permission denied
ft>l2GetVlan_mbrCfg 5
VLAN member configuration:
 VLAN    5: not configured
deleteFile(): Unable to delete the file - please delete the file /tmp/specialFTfile.txt !!!

deleteFile(): Must delete the file manually from /tmp/specialFTfile.txt !!!

l2getVlanMbrCfg() - cannot delete file ... 
! Error: Permission denied
ft>l2ShowAllRules
ACL rules: 2
 rule 0: ethertype 0x88cc (LLDP), any port -> trap to CPU
 rule 1: ethertype 0x888e (EAPOL), any port -> trap to CPU
deleteFile(): Unable to delete the file - please delete the file /tmp/specialFTfile.txt !!!

deleteFile(): Must delete the file manually from /tmp/specialFTfile.txt !!!

l2ShowAllRules() - cannot delete file ... 
! Error: Permission denied
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && echo $1 $2 marker held'
| ShowAllRules - marker held
$ ftsim exec -- sh -c 'chmod 755 /tmp && rm /tmp/specialFTfile.txt'
# A report that fails prints its error line and removes the marker too.
$ ftsim fail L2Switch_portCntrs -1 EIO
ft>l2portCntrs 1
rltkFTportCntrs() ERROR: ret=-1, errno=5 Input/output error
$ ftsim exec -- test ! -e /tmp/specialFTfile.txt
$ ftsim fail L2Switch_VlanMbrCfg -22 EINVAL
ft>l2GetVlan_mbrCfg 5
rltkFTgetVlanMbrCfg() ERROR: ret=-22, errno=22 Invalid argument
$ ftsim exec -- test ! -e /tmp/specialFTfile.txt
$ ftsim fail L2Switch_ShowAllRules -1 ENODEV
ft>l2ShowAllRules
rltkFTshowAllRules() ERROR: ret=-1, errno=19 No such device
$ ftsim exec -- test ! -e /tmp/specialFTfile.txt
ft>^D
@ exit 0
