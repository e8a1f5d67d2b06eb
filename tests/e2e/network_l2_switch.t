# The switch's other settings and registers: VLAN ID and priority of every
# port, Green Ethernet, SSC, LPI as the links and EEE make it, the CPU
# port's RGMII delays, switch and PHY registers, the MAC addresses and the
# MAC table in the kernel log. Values the shell passes on unchecked reach
# the library as typed, and the library refuses what is out of its range.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>l2GetPVID 0

GetPVID on port=0 vlanID:(1)
PASS
ft>l2GetPVID 2

GetPVID on port=2 vlanID:(1)
PASS
ft>l2GetPortPriority 1

PortPriority on port=1 priority:(0)
PASS
ft>l2GetPortPriority 2

PortPriority on port=2 priority:(0)
PASS
ft>l2GetGreenEthernetPort

GetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .

Green Ethernet mode :1 

Green Ethernet mode L2SW_GREEN_ETHERNET_ENABLED 
PASS
ft>l2SetGreenEthernetPort 0

SetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .
Setting Set Green Ethernet to GREEN_ETHERNET_DISABLED.
PASS
ft>l2GetGreenEthernetPort

GetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .

Green Ethernet mode :0 

Green Ethernet mode L2SW_GREEN_ETHERNET_DISABLED 
PASS
ft>l2SetGreenEthernetPort 1

SetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .
Setting Set Green Ethernet to GREEN_ETHERNET_ENABLED.
PASS
ft>l2getSSC

spread frequency (SSC) for Ethernet Switch : L2SW_SSC_DISABLED 
PASS
ft>l2setSSC 1
Setting SSC to (L2SW_SSC_ENABLED)
PASS
ft>l2getSSC

spread frequency (SSC) for Ethernet Switch : L2SW_SSC_ENABLED 
PASS
ft>l2setSSC 0
Setting SSC to (L2SW_SSC_DISABLED)
PASS
# An idle link with EEE rests in low power idle at its speed.
ft>l2getLPIStatus

LPI status for 1G: (L2SW_LPI_LOW) 
LPI status for 100M: (L2SW_LPI_REGULAR) 
PASS
$ ftsim set switch.partner.pc 100
ft>l2getLPIStatus

LPI status for 1G: (L2SW_LPI_LOW) 
LPI status for 100M: (L2SW_LPI_LOW) 
PASS
ft>l2SetEEEPort 0 0
Setting EEE on port=0 to (L2SW_EEE_DISABLED)
PASS
ft>l2SetEEEPort 1 0
Setting EEE on port=1 to (L2SW_EEE_DISABLED)
PASS
ft>l2getLPIStatus

LPI status for 1G: (L2SW_LPI_REGULAR) 
LPI status for 100M: (L2SW_LPI_REGULAR) 
PASS
ft>l2rgmiiDelayExt_set 2 1 9
Setting rgmiiDelayExt on port=2 to (txDelay=1) and (rxDelay=9)
rltkFTrgmiiDelayExt_set() ERROR: ret=-1, errno=22 Invalid argument
ft>l2rgmiiDelayExt_set 2 0 8
Setting rgmiiDelayExt on port=2 to (txDelay=0) and (rxDelay=8)
rltkFTrgmiiDelayExt_set() ERROR: ret=-1, errno=22 Invalid argument
ft>l2rgmiiDelayExt_set 2 1 7
Setting rgmiiDelayExt on port=2 to (txDelay=1) and (rxDelay=7)
PASS
ft>l2rgmiiDelayExt_set 2 0 -1
Setting rgmiiDelayExt on port=2 to (txDelay=0) and (rxDelay=-1)
rltkFTrgmiiDelayExt_set() ERROR: ret=-1, errno=22 Invalid argument
ft>l2rgmiiDelayExt_set 2 0 anything
Setting rgmiiDelayExt on port=2 to (txDelay=0) and (rxDelay=0)
PASS
$ ftsim exec -- grep delay /sim/switch
| cpu.txdelay 0
| cpu.rxdelay 0
# Registers: the address is hexadecimal, with or without 0x.
ft>l2getRegValue 0x1300
PASS... rltkFTGetRegValue: 5a31
ft>l2getRegValue ffff
PASS... rltkFTGetRegValue: 0
ft>l2getRegValue 10000
rltkFTGetRegValue() FAIL: L2Switch_GetRegValue()
ft>l2getRegValue
PASS... rltkFTGetRegValue: 0
# PHY registers follow the port: control, and status with its link bit.
ft>l2getPhyRegValue 1 0
PASS... rltkFTGetPhyRegValue: phyReg[0]= 0x00001140.
ft>l2getPhyRegValue 1 1
PASS... rltkFTGetPhyRegValue: phyReg[1]= 0x0000792d.
ft>l2getPhyRegValue 1 10
PASS... rltkFTGetPhyRegValue: phyReg[10]= 0x00003c00.
ft>l2getPhyRegValue 0 10
PASS... rltkFTGetPhyRegValue: phyReg[10]= 0x00000000.
ft>l2getPhyRegValue 0 31
PASS... rltkFTGetPhyRegValue: phyReg[31]= 0x00000000.
ft>l2getPhyRegValue 0 32
rltkFTGetPhyRegValue() FAIL: L2Switch_GetPhyRegValue()
ft>l2getPhyRegValue 0 -1
rltkFTGetPhyRegValue() FAIL: L2Switch_GetPhyRegValue()
ft>l2setLinkStatus 1 2
Setting LinkStatus port=2 to (2)L2SW_LINK_DOWN
PASS
ft>l2getPhyRegValue 1 1
PASS... rltkFTGetPhyRegValue: phyReg[1]= 0x00007909.
ft>l2getPhyRegValue 1 0
PASS... rltkFTGetPhyRegValue: phyReg[0]= 0x00001900.
# Port 1 reads the CPU port's address, the phone's own.
ft>l2getmac 0

Mac Addr: 02:1a:2b:3c:4d:01
PASS
ft>l2getmac 1

Mac Addr: 02:1a:2b:3c:4d:00
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
ft>^D
@ exit 0
