# The wired ports through the simulated switch and the phone's ethtool,
# ifconfig and ping, and the lamps; the switch channel fails all along.
$ ftsim fail Net_fd_init -1 ENOENT
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>eth 1 1000

GetLinkMode() port=2 link mode:(L2SW_LINK_MODE_1000_FULL)

GetLinkMode() port=2 actual linkmode:(L2SW_LINK_MODE_1000_FULL)

GetLinkStatus() port=2 link status:(L2SW_LINK_UP)
PASS
ft>setport 1 11

Ethernet status , Before:
	Speed: 1000Mb/s
	Duplex: Full
	Auto-negotiation: on
	Link detected: yes

Ethernet status , After:
	Speed: 10Mb/s
	Duplex: Half
	Auto-negotiation: off
	Link detected: yes
PASS
# The other modes from the phone's own shell: eth0's status after each.
$ ftsim exec -- sh -c 'for m in 1000 10 100 101 1 0; do echo $m $(echo "setport 1 $m" | ft | tail -6 | head -4); done'
| 1000 Speed: 1000Mb/s Duplex: Full Auto-negotiation: on Link detected: yes
| 10 Speed: 10Mb/s Duplex: Full Auto-negotiation: off Link detected: yes
| 100 Speed: 100Mb/s Duplex: Full Auto-negotiation: off Link detected: yes
| 101 Speed: 100Mb/s Duplex: Half Auto-negotiation: off Link detected: yes
| 1 Speed: Unknown! Duplex: Unknown! (255) Auto-negotiation: off Link detected: no
| 0 Speed: 1000Mb/s Duplex: Full Auto-negotiation: on Link detected: yes
ft>ip 0
eth0      Link encap:Ethernet  HWaddr 02:1a:2b:3c:4d:00
          UP BROADCAST RUNNING MULTICAST  MTU:1500  Metric:1
          RX packets:0 errors:0 dropped:0 overruns:0 frame:0
          TX packets:0 errors:0 dropped:0 overruns:0 carrier:0
          collisions:0 txqueuelen:1000
          RX bytes:0 TX bytes:0

PASS
# Outside factory test the endpoint application is handed the address.
ft>ip 1 255.255.255.255
Broadcasting: Intent { act=com.velor.endpoint.intent.action.ftcommand flg=0x400000 (has extras) }
Broadcast completed: result=0
PASS
$ ftsim exec -- touch /tmp/factorytest.txt
ft>ip 1 192.168.1.20
PASS
$ ftsim exec -- sh -c 'ifconfig eth0 | grep inet'
|           inet addr:192.168.1.20  Bcast:192.168.1.255  Mask:255.255.255.0
ft>ip 1 10.1.2.3
PASS
$ ftsim exec -- sh -c 'ifconfig eth0 | grep inet'
|           inet addr:10.1.2.3  Bcast:10.255.255.255  Mask:255.0.0.0
# Only the phone's own addresses answer: 127/8, and eth0's.
ft>ping 10.1.2.3
PING 10.1.2.3 (10.1.2.3) 56(84) bytes of data.

--- 10.1.2.3 ping statistics ---
4 packets transmitted, 4 received, 0% packet loss, time 3003ms
rtt min/avg/max/mdev = 0.035/0.046/0.058/0.009 ms
$ ftsim exec -- sh -c 'for a in 127.255.255.254 128.0.0.1; do echo "ping $a" | ft | grep transmitted; done'
| 4 packets transmitted, 4 received, 0% packet loss, time 3003ms
| 4 packets transmitted, 0 received, 100% packet loss, time 3003ms
$ ftsim exec -- grep -e ^am -e down /sim/log
| ifconfig eth0 down
| ifconfig eth0 down;ethtool -s eth0 autoneg on;ifconfig eth0 up
| am broadcast -a com.velor.endpoint.intent.action.ftcommand -e "ip" '255.255.255.255'
ft>led on
PASS
ft>ethled off
PASS
$ ftsim exec -- sh -c 'echo $(phone-state get leds) $(phone-state get switch.ledtest)'
| on 1
ft>led off
PASS
ft>ethled on
PASS
$ ftsim exec -- sh -c 'echo $(phone-state get leds) $(phone-state get switch.ledtest)'
| off 2
# Without a system shell setport and ip fail with its error; ping says nothing.
$ ftsim fail system -1 EAGAIN
ft>setport 1 10

Ethernet status , Before:
FAIL: Resource temporarily unavailable 
ft>ip 0
FAIL
ft>ping 127.0.0.1
ft>^D
@ exit 0
