# Library failures in the switch diagnostics: each handler prints its own
# error line with the result, errno and its text (or its fixed line), after
# what it announced, and leaves the switch as it was.
$ ftsim fail L2Switch_EarlyInit -1 EIO
$ ftsim fail L2Switch_portResetCntrs -1 EBUSY
$ ftsim fail L2Switch_ResetSettings -1 EIO
$ ftsim fail L2Switch_GetMacAddr -1 ENODEV
$ ftsim fail L2Switch_print_mac_table -1 ENOSPC
$ ftsim fail L2Switch_GetRegValue -1 EFAULT
$ ftsim fail L2Switch_GetPhyRegValue -1 ETIMEDOUT
$ ftsim fail L2Switch_SetAutoMDIXPort -1 EIO
$ ftsim fail L2Switch_GetAutoMDIXPort -2 EAGAIN
$ ftsim fail L2Switch_SetLinkStatus -1 EPERM
$ ftsim fail L2Switch_GetLinkStatus -3 EIO
$ ftsim fail L2Switch_SetLinkMode -1 EOPNOTSUPP
$ ftsim fail L2Switch_GetPVID -1 EIO
$ ftsim fail L2Switch_GetPortPriority -1 ENXIO
$ ftsim fail L2Switch_DelAllRules -1 EROFS
$ ftsim fail L2Switch_GetGreenEthernetPort -1 EIO
$ ftsim fail L2Switch_SetGreenEthernetPort -1 EINVAL
$ ftsim fail L2Switch_GetEEEPort -1 EIO
$ ftsim fail L2Switch_SetEEEPort -1 EBUSY
$ ftsim fail L2Switch_rgmiiDelayExt_set -1 ERANGE
$ ftsim fail L2Switch_GetSSC -1 EIO
$ ftsim fail L2Switch_SetSSC -1 EACCES
$ ftsim fail L2Switch_GetLPI_Status -1 ENOSYS
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>l2Init 1

rltkFTEarlyInit() call L2Switch_EarlyInit(MDIX enable)
rltkFTEarlyInit() FAIL: L2Switch_EarlyInit() 
ft>l2portResetCntrs all
rltkFTportResetCntrs() ERROR: ret=-1, errno=16 Device or resource busy
ft>l2resetSettings
rltkFTResetSettings() FAIL: L2Switch_ResetSettings() 
ft>l2getmac 1
rltkFTGetMac() FAIL: L2Switch_GetMacAddr()
ft>l2printMacTable
rltkFTPrintMacTable() FAIL: L2Switch_print_mac_table()
ft>l2getRegValue 0x091A
rltkFTGetRegValue() FAIL: L2Switch_GetRegValue()
ft>l2getPhyRegValue 0 1
rltkFTGetPhyRegValue() FAIL: L2Switch_GetPhyRegValue()
ft>l2setAutoMDIX 0 0
Setting autoMDIXPort port=0 to (L2SW_AUTO_MDIX_DISABLED)
rltkFTsetAutoMDIX() ERROR: ret=-1, errno=5 Input/output error
ft>l2getAutoMDIX 0
rltkFTgetAutoMDIX() ERROR: ret=-2, errno=11 Resource temporarily unavailable
ft>l2setLinkStatus 1 2
Setting LinkStatus port=2 to (2)L2SW_LINK_DOWN
rltkFTsetLinkStatus() ERROR: ret=-1, errno=1 Operation not permitted
ft>l2getLinkStatus 1
rltkFTgetLinkStatus() ERROR: ret=-3, errno=5 Input/output error
ft>l2setLinkMode 1 2
Setting linkMode to port=2 to (2)L2SW_LINK_MODE_10_HALF
rltkFTsetLinkMode() ERROR: ret=-1, errno=95 Operation not supported
ft>l2GetPVID 2
rltkFTgetPVID() ERROR: ret=-1, errno=5 Input/output error
ft>l2GetPortPriority 0
rltkFTgetPortPriority() ERROR: ret=-1, errno=6 No such device or address
ft>l2DelAllRules
rltkFTdelAllRules() ERROR: ret=-1, errno=30 Read-only file system
ft>l2GetGreenEthernetPort

GetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .
rltkFTGetGreenEthernetPort() ERROR: ret=-1, errno=5 Input/output error
ft>l2SetGreenEthernetPort 0

SetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .
Setting Set Green Ethernet to GREEN_ETHERNET_DISABLED.
SetGreenEthernetPort() ERROR: ret=-1, errno=22 Invalid argument
ft>l2GetEEEPort 1
rltkFTGetEEEPort() ERROR: ret=-1, errno=5 Input/output error
ft>l2SetEEEPort 1 0
Setting EEE on port=1 to (L2SW_EEE_DISABLED)
rltkFTSetEEEPort() ERROR: ret=-1, errno=16 Device or resource busy
ft>l2rgmiiDelayExt_set 2 1 3
Setting rgmiiDelayExt on port=2 to (txDelay=1) and (rxDelay=3)
rltkFTrgmiiDelayExt_set() ERROR: ret=-1, errno=34 Numerical result out of range
ft>l2getSSC
rltkFTl2getSSC() ERROR: ret=-1, errno=5 Input/output error
ft>l2setSSC 1
Setting SSC to (L2SW_SSC_ENABLED)
rltkFTl2setSSC() ERROR: ret=-1, errno=13 Permission denied
ft>l2getLPIStatus
rltkFTl2getLPIStatus() ERROR: ret=-1, errno=38 Function not implemented
# The two reads of l2getLinkMode fail with lines of their own.
$ ftsim fail L2Switch_GetLinkMode -1 EIO
ft>l2getLinkMode 1
rltkFTgetLinkMode() ERROR: ret=-1, errno=5 Input/output error
$ ftsim unfail L2Switch_GetLinkMode
$ ftsim fail L2Switch_GetLinkMode_actual -1 EAGAIN
ft>l2getLinkMode 1
rltkFTgetLinkMode() (actualMode) ERROR: ret=-1, errno=11 Resource temporarily unavailable
$ ftsim unfail all
# Nothing was changed by the failed calls.
ft>l2getAutoMDIX 0

Got autoMDIXPort port=0 autoMDIXPort=(L2SW_AUTO_MDIX_ENABLED)
PASS
ft>l2getLinkStatus 1

Getting linkStatus port=1 link status:(L2SW_LINK_UP)
PASS
ft>l2getSSC

spread frequency (SSC) for Ethernet Switch : L2SW_SSC_DISABLED 
PASS
# A Green Ethernet mode the library should never give.
$ ftsim exec -- sh -c 'echo green 2 > /sim/switch'
ft>l2GetGreenEthernetPort

GetGreenEthernetPort(): proprietary Realtek feature, for 1000Mbit only .

Green Ethernet mode :2 

Green Ethernet mode :error !!! 
ft>^D
@ exit 0
