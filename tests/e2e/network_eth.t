# eth: every mode on the LAN port (1000 Mb/s at both ends of its cable) and
# on the PC port (nothing plugged in), the three read-back lines with the
# switch port identifier, and the verdict on the configured mode; the words
# refused; a port without 1000 Mb/s; library failures, each with its own line.
$ ftsim get switch.gigabit.lan
| yes
$ ftsim get switch.gigabit.pc
| yes
$ ftsim get switch.partner.lan
| 1000
$ ftsim get switch.partner.pc
| none
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>eth 1 1000

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_1000_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_1000_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
# Link down passes on the state read back, whatever mode is configured.
ft>eth 1 1

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_1000_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_DISABLED)

GetLinkStatus() port=2 link status:(L2SW_LINK_DOWN)
PASS
# Every speed mode first forces the link up again.
ft>eth 1 0

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_AUTO)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_1000_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
ft>eth 1 100

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_100_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_100_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
ft>eth 1 101

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_100_HALF)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_100_HALF)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
ft>eth 1 10

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_10_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_10_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
ft>eth 1 11

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_10_HALF)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_10_HALF)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
# The transmitter test modes leave the configured mode alone and stay on
# after the command; a PHY sending a test waveform has no link.
ft>eth 1 1001

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_10_HALF)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_INVALID)

GetLinkStatus() port=2 link status:(L2SW_LINK_DOWN)
PASS
ft>eth 1 1004

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_10_HALF)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_INVALID)

GetLinkStatus() port=2 link status:(L2SW_LINK_DOWN)
PASS
ft>l2getLinkMode 1

Getting linkMode:  port=1   linkMode:(L2SW_LINK_MODE_10_HALF)
Getting actualMode:port=1 actualMode:(L2SW_LINK_MODE_INVALID)
PASS
ft>eth 1 0

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_AUTO)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_1000_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
# Nothing on the PC port's cable: the configured mode passes, the link stays down.
ft>eth 0 1000

GetLinkMode() port=1 link mode:(L2SW_LINK_MODE_1000_FULL)

GetLinkMode() port=1 actual linkmode:(L2SW_LINK_MODE_INVALID)

GetLinkStatus() port=1 link status:(L2SW_LINK_DOWN)
PASS
ft>eth 0
FAIL: eth() port not found...
ft>eth x 0
FAIL: eth() port not found...
ft>eth 0 x
FAIL: eth() port not found...
ft>eth 2 0
FAIL: eth() port not exist!!
ft>eth -1 0
FAIL: eth() port not exist!!
ft>eth 1 102
FAIL: in eth() NA!!!!
ft>eth 1 103
FAIL: in eth() NA!!!!
ft>eth 1 1005
FAIL: not match ..
ft>eth 1 5
FAIL: not match ..
# A LAN port without 1000 Mb/s: autonegotiation settles on 100, and the
# gigabit modes change nothing but the link that 1000 forces up first.
$ ftsim set switch.gigabit.lan no
ft>eth 1 0

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_AUTO)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_100_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
ft>eth 1 1

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_AUTO)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_DISABLED)

GetLinkStatus() port=2 link status:(L2SW_LINK_DOWN)
PASS
ft>eth 1 1000
FAIL: not match ..
ft>l2getLinkStatus 1

Getting linkStatus port=1 link status:(L2SW_LINK_UP)
PASS
ft>eth 1 1001
FAIL: not match ..
ft>l2getLinkMode 1

Getting linkMode:  port=1   linkMode:(L2SW_LINK_MODE_AUTO)
Getting actualMode:port=1 actualMode:(L2SW_LINK_MODE_100_FULL)
PASS
$ ftsim set switch.gigabit.lan yes
# Library failures end the command with their own line.
$ ftsim fail L2Switch_EarlyInit -1 EIO
ft>eth 1 100
FAIL: L2Switch_EarlyInit() 
$ ftsim unfail all
$ ftsim fail L2Switch_IsSwitchPortSupport1G -5 ENODEV
ft>eth 1 100
FAIL: L2Switch_IsSwitchPortSupport1G()!!
$ ftsim unfail all
$ ftsim fail L2Switch_SetLinkMode -1 EIO
ft>eth 1 100
FAIL: setLink...
$ ftsim unfail all
$ ftsim fail L2Switch_SetTestMode -1 EIO
ft>eth 1 1003
FAIL: setLink...
$ ftsim unfail all
# The link forced up before a failed mode change stays up.
$ ftsim fail L2Switch_SetLinkStatus -1 EIO
ft>eth 1 1
FAIL: setLink...
ft>eth 1 10

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_10_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_10_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
# A call that reports success but changes nothing fails the verdict.
$ ftsim fail L2Switch_SetLinkStatus 0
ft>eth 1 1

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_10_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_10_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
FAIL: to set ft eth...
$ ftsim unfail all
$ ftsim fail L2Switch_SetLinkMode 1
ft>eth 1 100

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_10_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_10_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
FAIL: to set ft eth...
$ ftsim unfail all
$ ftsim fail L2Switch_GetLinkMode -1 EBUSY
ft>eth 1 100
FAIL: in GetLinkMode()!!!!
$ ftsim unfail all
$ ftsim fail L2Switch_GetLinkMode_actual -1 EBUSY
ft>eth 1 100

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_100_FULL)
FAIL: in GetLinkMode()-actualMode!!!!
$ ftsim unfail all
$ ftsim fail L2Switch_GetLinkStatus -2 ETIMEDOUT
ft>eth 1 100

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_100_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_100_FULL)
FAIL: in GetLinkStatus(rtk_port=2, status=0)!!!
$ ftsim unfail all
$ ftsim fail L2Switch_GetTestMode -1 EIO
ft>eth 1 100

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_100_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_100_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
FAIL: GetTestMode()!!!
$ ftsim unfail all
# The channel's result is not looked at.
$ ftsim fail Net_fd_init -1 ENOENT
ft>eth 1 0

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_AUTO)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_1000_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
ft>^D
@ exit 0
