# Each switch command once, from the switch as it leaves the factory, with a
# failing channel. The library prints the reports while the report marker
# exists, made a second before the call and removed after it: one that cannot
# be made stops the report, one that cannot be removed is reported.
$ ftsim fail Net_fd_init -1 ENOENT
$ ftsim get switch.report
| none
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>l2getRegValue 91a
PASS... rltkFTGetRegValue: 402
ft>l2getPhyRegValue 1 1
PASS... rltkFTGetPhyRegValue: phyReg[1]= 0x0000792d.
ft>l2GetPVID 0

GetPVID on port=0 vlanID:(1)
PASS
ft>l2GetPortPriority 2

PortPriority on port=2 priority:(0)
PASS
# Port 1 reads the CPU port's address, the phone's own.
ft>l2getmac 1

Mac Addr: 02:1a:2b:3c:4d:00
PASS
ft>l2getAutoMDIX 0

Got autoMDIXPort port=0 autoMDIXPort=(L2SW_AUTO_MDIX_ENABLED)
PASS
ft>l2GetEEEPort 0

Get EEE on Port=0 eeeMode:(L2SW_EEE_ENABLED)
PASS
ft>l2getLPIStatus

LPI status for 1G: (L2SW_LPI_LOW) 
LPI status for 100M: (L2SW_LPI_REGULAR) 
PASS
ft>l2GetGreenEthernetPort

GetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .

Green Ethernet mode :1 

Green Ethernet mode L2SW_GREEN_ETHERNET_ENABLED 
PASS
ft>l2getSSC

spread frequency (SSC) for Ethernet Switch : L2SW_SSC_DISABLED 
PASS
ft>l2Init 0

rltkFTEarlyInit() call L2Switch_EarlyInit(MDIX disable) !!
rltkFTEarlyInit() PASS
ft>l2setAutoMDIX 1 1
Setting autoMDIXPort port=1 to (L2SW_AUTO_MDIX_ENABLED)
PASS
ft>l2SetEEEPort 1 0
Setting EEE on port=1 to (L2SW_EEE_DISABLED)
PASS
ft>l2SetGreenEthernetPort 0

SetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .
Setting Set Green Ethernet to GREEN_ETHERNET_DISABLED.
PASS
ft>l2setSSC 1
Setting SSC to (L2SW_SSC_ENABLED)
PASS
ft>l2rgmiiDelayExt_set 2 0 7
Setting rgmiiDelayExt on port=2 to (txDelay=0) and (rxDelay=7)
PASS
$ ftsim exec -- grep -E '^(pc.mdix|lan.mdix|lan.eee|green|ssc|cpu..xdelay)' /sim/switch
| pc.mdix 0
| lan.mdix 1
| lan.eee 0
| green 0
| ssc 1
| cpu.txdelay 0
| cpu.rxdelay 7
ft>l2setLinkStatus 1 2
Setting LinkStatus port=2 to (2)L2SW_LINK_DOWN
PASS
ft>l2getLinkStatus 1

Getting linkStatus port=1 link status:(L2SW_LINK_DOWN)
PASS
# A cable plugged into the PC port while the shell runs.
$ ftsim set switch.partner.pc 100
ft>l2getLinkMode 0

Getting linkMode:  port=0   linkMode:(L2SW_LINK_MODE_AUTO)
Getting actualMode:port=0 actualMode:(L2SW_LINK_MODE_100_FULL)
PASS
# The MAC table goes to the kernel log: the processor's address, and the
# partner that is linked (the PC's; the LAN port is down).
ft>l2printMacTable
PASS... Please check dmesg for output
$ ftsim exec -- sh -c "dmesg | sed 's/^\[[ 0-9.]*\] //'"
| l2switch: MAC address table:
| l2switch:   02:1a:2b:3c:4d:00  port 0x400  vid 1  static
| l2switch:   02:5e:10:00:00:01  port 0x1    vid 1  dynamic
| l2switch: 2 entries
ft>l2setLinkMode 0 6
Setting linkMode to port=1 to (6)L2SW_LINK_MODE_1000_FULL
PASS
ft>l2resetSettings

Reset configuration of L2 Switch to its defaults....l2resetSettings() PASS
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
# A marker left from before in a /tmp that cannot be written: the report
# runs, the marker stays, and each command says so; the result is still 0.
$ ftsim exec -- sh -c 'chmod 755 /tmp && touch /tmp/specialFTfile.txt && chmod 555 /tmp'
ft>l2portCntrs 2
Port 0x400 (CPU) counters:
 ifInOctets            : 502211
 ifInUcastPkts         : 7904
 ifOutOctets           : 1161480
 ifOutUcastPkts        : 7310
 dot3StatsFCSErrors    : 0
 etherStatsDropEvents  : 0
deleteFile(): Unable to delete the file - please delete the file /tmp/specialFTfile.txt !!!

deleteFile(): Must delete the file manually from /tmp/specialFTfile.txt !!!

l2portCntrs() - cannot delete file ... 
! Error: Permission denied
ft>l2GetVlan_mbrCfg 4095
VLAN member configuration:
 VLAN 4095: not configured
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
$ ftsim exec -- sh -c 'chmod 755 /tmp && rm /tmp/specialFTfile.txt'
ft>l2portCntrs 1
Port 0x2 (LAN) counters:
 ifInOctets            : 1284736
 ifInUcastPkts         : 8120
 ifOutOctets           : 502211
 ifOutUcastPkts        : 7904
 dot3StatsFCSErrors    : 0
 etherStatsDropEvents  : 0

FTportCntrs(): PASS
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && [ ! -e /tmp/specialFTfile.txt ] && echo $1 $2 marker held'
| portCntrs 0x2 marker held
ft>l2portResetCntrs 1

rltkFTportResetCntrs(): PASS
$ ftsim exec -- grep -E '^(lan|cpu).ifInOctets' /sim/switch
| lan.ifInOctets 0
| cpu.ifInOctets 502211
ft>l2portResetCntrs all

rltkFTportResetCntrs(): PASS
$ ftsim exec -- grep cpu.ifInOctets /sim/switch
| cpu.ifInOctets 0
# VLAN 9999 stands for all of them.
ft>l2GetVlan_mbrCfg all
VLAN member configuration:
 VLAN    1: members 0x403, untagged 0x403, FID 0

l2getVlanMbrCfg PASS
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && [ ! -e /tmp/specialFTfile.txt ] && echo $1 $2 marker held'
| VlanMbrCfg 9999 marker held
ft>l2DelAllRules
PASS
ft>l2ShowAllRules
ACL rules: 0
PASS
$ ftsim exec -- sh -c 'set -- $(phone-state get switch.report); [ ${3#marker=} -ge 1000 ] && [ ! -e /tmp/specialFTfile.txt ] && echo $1 $2 marker held'
| ShowAllRules - marker held
# A report that fails prints its error line and removes the marker too.
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
