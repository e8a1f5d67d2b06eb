# setport: eth0's status before and after each mode, through the phone's
# ethtool and ifconfig; the words refused run nothing. The log shows the
# command lines exactly as the shell formatted them.
$ ftsim get eth0.link
| up
$ ftsim get eth0.speed
| 1000
$ ftsim get eth0.duplex
| full
$ ftsim get eth0.autoneg
| on
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>setport 1 10

Ethernet status , Before:
	Speed: 1000Mb/s
	Duplex: Full
	Auto-negotiation: on
	Link detected: yes

Ethernet status , After:
	Speed: 10Mb/s
	Duplex: Full
	Auto-negotiation: off
	Link detected: yes
PASS
ft>setport 1 11

Ethernet status , Before:
	Speed: 10Mb/s
	Duplex: Full
	Auto-negotiation: off
	Link detected: yes

Ethernet status , After:
	Speed: 10Mb/s
	Duplex: Half
	Auto-negotiation: off
	Link detected: yes
PASS
ft>setport 1 100

Ethernet status , Before:
	Speed: 10Mb/s
	Duplex: Half
	Auto-negotiation: off
	Link detected: yes

Ethernet status , After:
	Speed: 100Mb/s
	Duplex: Full
	Auto-negotiation: off
	Link detected: yes
PASS
ft>setport 1 101

Ethernet status , Before:
	Speed: 100Mb/s
	Duplex: Full
	Auto-negotiation: off
	Link detected: yes

Ethernet status , After:
	Speed: 100Mb/s
	Duplex: Half
	Auto-negotiation: off
	Link detected: yes
PASS
ft>setport 1 1000

Ethernet status , Before:
	Speed: 100Mb/s
	Duplex: Half
	Auto-negotiation: off
	Link detected: yes

Ethernet status , After:
	Speed: 1000Mb/s
	Duplex: Full
	Auto-negotiation: on
	Link detected: yes
PASS
ft>setport 1 1

Ethernet status , Before:
	Speed: 1000Mb/s
	Duplex: Full
	Auto-negotiation: on
	Link detected: yes

Ethernet status , After:
	Speed: Unknown!
	Duplex: Unknown! (255)
	Auto-negotiation: on
	Link detected: no
PASS
$ ftsim get eth0.link
| down
# Down and up again, autonegotiating.
ft>setport 1 0

Ethernet status , Before:
	Speed: Unknown!
	Duplex: Unknown! (255)
	Auto-negotiation: on
	Link detected: no

Ethernet status , After:
	Speed: 1000Mb/s
	Duplex: Full
	Auto-negotiation: on
	Link detected: yes
PASS
ft>setport 0 0
FAIL : port not valid !!!
ft>setport 2 1000
FAIL : port not valid !!!
ft>setport 1
FAIL : port not valid !!
ft>setport x 1
FAIL : port not valid !!
ft>setport 1 x
FAIL : port not valid !!
ft>setport 1 5
FAIL : mode not valid
ft>setport 1 1001
FAIL : mode not valid
ft>setport 1 -1
FAIL : mode not valid
ft>^D
@ exit 0
# Each line the shell ran, then each stand-in's own call.
$ ftsim log
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool -s eth0 speed 10 duplex full autoneg off
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool -s eth0 speed 10 duplex half autoneg off
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool -s eth0 speed 100 duplex full autoneg off
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool -s eth0 speed 100 duplex half autoneg off
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool -s eth0 speed 1000 duplex full autoneg on
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ifconfig eth0 down
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
| ifconfig eth0 down;ethtool -s eth0 autoneg on;ifconfig eth0 up
| ethtool eth0 | grep -E 'Duplex|Speed|Link detected|Auto-negotiation'
