# The switch's link commands: link state and mode on the PC, LAN and CPU
# ports as the cables make them, automatic MDI/MDI-X through l2Init and per
# port, EEE, and l2resetSettings bringing every setting back.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>l2getLinkStatus 0

Getting linkStatus port=0 link status:(L2SW_LINK_DOWN)
PASS
ft>l2getLinkStatus 1

Getting linkStatus port=1 link status:(L2SW_LINK_UP)
PASS
ft>l2getLinkMode 0

Getting linkMode:  port=0   linkMode:(L2SW_LINK_MODE_AUTO)
Getting actualMode:port=0 actualMode:(L2SW_LINK_MODE_INVALID)
PASS
# A cable plugged into the PC port while the shell runs.
$ ftsim set switch.partner.pc 100
ft>l2getLinkMode 0

Getting linkMode:  port=0   linkMode:(L2SW_LINK_MODE_AUTO)
Getting actualMode:port=0 actualMode:(L2SW_LINK_MODE_100_FULL)
PASS
ft>l2setLinkMode 0 6
Setting linkMode to port=1 to (6)L2SW_LINK_MODE_1000_FULL
PASS
ft>l2getLinkMode 0

Getting linkMode:  port=0   linkMode:(L2SW_LINK_MODE_1000_FULL)
Getting actualMode:port=0 actualMode:(L2SW_LINK_MODE_INVALID)
PASS
ft>l2setLinkMode 0 4
Setting linkMode to port=1 to (4)L2SW_LINK_MODE_100_HALF
PASS
ft>l2getLinkMode 0

Getting linkMode:  port=0   linkMode:(L2SW_LINK_MODE_100_HALF)
Getting actualMode:port=0 actualMode:(L2SW_LINK_MODE_100_HALF)
PASS
# A port without 1000 Mb/s refuses that mode outright.
$ ftsim set switch.gigabit.pc no
ft>l2setLinkMode 0 6
Setting linkMode to port=1 to (6)L2SW_LINK_MODE_1000_FULL
rltkFTsetLinkMode() ERROR: ret=-1, errno=95 Operation not supported
$ ftsim set switch.partner.pc 10
ft>l2setLinkMode 0 1
Setting linkMode to port=1 to (1)L2SW_LINK_MODE_AUTO
PASS
ft>l2getLinkMode 0

Getting linkMode:  port=0   linkMode:(L2SW_LINK_MODE_AUTO)
Getting actualMode:port=0 actualMode:(L2SW_LINK_MODE_10_FULL)
PASS
# Forced states: down and disabled hold a port down whatever its cable,
# enable lets it link again. The CPU port answers by its identifier.
ft>l2setLinkStatus 1 2
Setting LinkStatus port=2 to (2)L2SW_LINK_DOWN
PASS
ft>l2getLinkStatus 1

Getting linkStatus port=1 link status:(L2SW_LINK_DOWN)
PASS
ft>l2setLinkStatus 1 3
Setting LinkStatus port=2 to (3)L2SW_LINK_ENABLE
PASS
ft>l2getLinkStatus 1

Getting linkStatus port=1 link status:(L2SW_LINK_UP)
PASS
ft>l2setLinkStatus 1 4
Setting LinkStatus port=2 to (4)L2SW_LINK_DISABLED
PASS
ft>l2getLinkStatus 1

Getting linkStatus port=1 link status:(L2SW_LINK_DISABLED)
PASS
ft>l2setLinkStatus 1 1
Setting LinkStatus port=2 to (1)L2SW_LINK_UP
PASS
ft>l2getLinkStatus 1

Getting linkStatus port=1 link status:(L2SW_LINK_UP)
PASS
ft>l2getRegValue 091a
PASS... rltkFTGetRegValue: 403
ft>l2setLinkStatus 2 4
Setting LinkStatus port=1024 to (4)L2SW_LINK_DISABLED
PASS
ft>l2setLinkMode 2 5
Setting linkMode to port=1024 to (5)L2SW_LINK_MODE_100_FULL
PASS
ft>l2getRegValue 0x091A
PASS... rltkFTGetRegValue: 3
# Automatic MDI/MDI-X: l2Init sets both PHY ports, l2setAutoMDIX one.
ft>l2getAutoMDIX 0

Got autoMDIXPort port=0 autoMDIXPort=(L2SW_AUTO_MDIX_ENABLED)
PASS
ft>l2Init 0

rltkFTEarlyInit() call L2Switch_EarlyInit(MDIX disable) !!
rltkFTEarlyInit() PASS
ft>l2getAutoMDIX 0

Got autoMDIXPort port=0 autoMDIXPort=(L2SW_AUTO_MDIX_DISABLED)
PASS
ft>l2getAutoMDIX 1

Got autoMDIXPort port=1 autoMDIXPort=(L2SW_AUTO_MDIX_DISABLED)
PASS
ft>l2setAutoMDIX 1 1
Setting autoMDIXPort port=1 to (L2SW_AUTO_MDIX_ENABLED)
PASS
ft>l2getAutoMDIX 1

Got autoMDIXPort port=1 autoMDIXPort=(L2SW_AUTO_MDIX_ENABLED)
PASS
ft>l2Init 1

rltkFTEarlyInit() call L2Switch_EarlyInit(MDIX enable)
rltkFTEarlyInit() PASS
ft>l2getAutoMDIX 0

Got autoMDIXPort port=0 autoMDIXPort=(L2SW_AUTO_MDIX_ENABLED)
PASS
ft>l2setAutoMDIX 0 0
Setting autoMDIXPort port=0 to (L2SW_AUTO_MDIX_DISABLED)
PASS
ft>l2GetEEEPort 1

Get EEE on Port=1 eeeMode:(L2SW_EEE_ENABLED)
PASS
ft>l2SetEEEPort 1 0
Setting EEE on port=1 to (L2SW_EEE_DISABLED)
PASS
ft>l2GetEEEPort 0

Get EEE on Port=0 eeeMode:(L2SW_EEE_ENABLED)
PASS
ft>l2GetEEEPort 1

Get EEE on Port=1 eeeMode:(L2SW_EEE_DISABLED)
PASS
# Back to the defaults: every mode, state, MDI/MDI-X and EEE setting.
ft>l2SetEEEPort 0 0
Setting EEE on port=0 to (L2SW_EEE_DISABLED)
PASS
ft>l2setLinkMode 1 3
Setting linkMode to port=2 to (3)L2SW_LINK_MODE_10_FULL
PASS
ft>l2resetSettings

Reset configuration of L2 Switch to its defaults....l2resetSettings() PASS
ft>l2getLinkMode 1

Getting linkMode:  port=1   linkMode:(L2SW_LINK_MODE_AUTO)
Getting actualMode:port=1 actualMode:(L2SW_LINK_MODE_1000_FULL)
PASS
ft>l2getAutoMDIX 0

Got autoMDIXPort port=0 autoMDIXPort=(L2SW_AUTO_MDIX_ENABLED)
PASS
ft>l2GetEEEPort 0

Get EEE on Port=0 eeeMode:(L2SW_EEE_ENABLED)
PASS
ft>l2getRegValue 91A
PASS... rltkFTGetRegValue: 403
ft>^D
@ exit 0
