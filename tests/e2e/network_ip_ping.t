# ip: eth0's configuration, and a new address handed to the endpoint
# application by broadcast, or set with ifconfig while the factory-test
# marker exists; ping answers from the phone's own addresses only. Words
# that are no address run nothing.
$ ftsim get eth0.address
| 
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>ip 0
eth0      Link encap:Ethernet  HWaddr 02:1a:2b:3c:4d:00
          UP BROADCAST RUNNING MULTICAST  MTU:1500  Metric:1
          RX packets:0 errors:0 dropped:0 overruns:0 frame:0
          TX packets:0 errors:0 dropped:0 overruns:0 carrier:0
          collisions:0 txqueuelen:1000
          RX bytes:0 TX bytes:0

PASS
ft>ip 1 192.168.1.20
Broadcasting: Intent { act=com.velor.endpoint.intent.action.ftcommand flg=0x400000 (has extras) }
Broadcast completed: result=0
PASS
ft>ip 1 255.255.255.255
Broadcasting: Intent { act=com.velor.endpoint.intent.action.ftcommand flg=0x400000 (has extras) }
Broadcast completed: result=0
PASS
$ ftsim get eth0.address
| 
$ ftsim exec -- touch /tmp/factorytest.txt
ft>ip 1 192.168.1.20
PASS
ft>ip 0
eth0      Link encap:Ethernet  HWaddr 02:1a:2b:3c:4d:00
          inet addr:192.168.1.20  Bcast:192.168.1.255  Mask:255.255.255.0
          UP BROADCAST RUNNING MULTICAST  MTU:1500  Metric:1
          RX packets:0 errors:0 dropped:0 overruns:0 frame:0
          TX packets:0 errors:0 dropped:0 overruns:0 carrier:0
          collisions:0 txqueuelen:1000
          RX bytes:0 TX bytes:0

PASS
ft>ip 1 10.0.0.256
FAIL
ft>ip 1 10.0.0
FAIL
ft>ip 1 host
FAIL
ft>ip 1
FAIL
ft>ip 2 10.0.0.1
FAIL
ft>ip x
FAIL
ft>ip
FAIL
ft>ping 192.168.1.20
PING 192.168.1.20 (192.168.1.20) 56(84) bytes of data.

--- 192.168.1.20 ping statistics ---
4 packets transmitted, 4 received, 0% packet loss, time 3003ms
rtt min/avg/max/mdev = 0.035/0.046/0.058/0.009 ms
ft>ping 127.0.0.1
PING 127.0.0.1 (127.0.0.1) 56(84) bytes of data.

--- 127.0.0.1 ping statistics ---
4 packets transmitted, 4 received, 0% packet loss, time 3003ms
rtt min/avg/max/mdev = 0.035/0.046/0.058/0.009 ms
ft>ping 127.255.255.254
PING 127.255.255.254 (127.255.255.254) 56(84) bytes of data.

--- 127.255.255.254 ping statistics ---
4 packets transmitted, 4 received, 0% packet loss, time 3003ms
rtt min/avg/max/mdev = 0.035/0.046/0.058/0.009 ms
ft>ping 128.0.0.1
PING 128.0.0.1 (128.0.0.1) 56(84) bytes of data.

--- 128.0.0.1 ping statistics ---
4 packets transmitted, 0 received, 100% packet loss, time 3003ms
ft>ping 10.0.0.1
PING 10.0.0.1 (10.0.0.1) 56(84) bytes of data.

--- 10.0.0.1 ping statistics ---
4 packets transmitted, 0 received, 100% packet loss, time 3003ms
ft>ping host
Invalid IP address
ft>ping 10.0.0.256
Invalid IP address
ft>ping
Invalid IP address
# A class A address gets the class A mask.
ft>ip 1 10.1.2.3
PASS
ft>ip 0
eth0      Link encap:Ethernet  HWaddr 02:1a:2b:3c:4d:00
          inet addr:10.1.2.3  Bcast:10.255.255.255  Mask:255.0.0.0
          UP BROADCAST RUNNING MULTICAST  MTU:1500  Metric:1
          RX packets:0 errors:0 dropped:0 overruns:0 frame:0
          TX packets:0 errors:0 dropped:0 overruns:0 carrier:0
          collisions:0 txqueuelen:1000
          RX bytes:0 TX bytes:0

PASS
# The old address is no longer the phone's.
ft>ping 192.168.1.20
PING 192.168.1.20 (192.168.1.20) 56(84) bytes of data.

--- 192.168.1.20 ping statistics ---
4 packets transmitted, 0 received, 100% packet loss, time 3003ms
ft>^D
@ exit 0
$ ftsim get eth0.address
| 10.1.2.3
$ ftsim log
| ifconfig eth0
| am broadcast -a com.velor.endpoint.intent.action.ftcommand -e "ip" '192.168.1.20'
| am broadcast -a com.velor.endpoint.intent.action.ftcommand -e "ip" '255.255.255.255'
| ifconfig eth0 192.168.1.20
| ifconfig eth0
| ping -q -c 4 192.168.1.20
| ping -q -c 4 127.0.0.1
| ping -q -c 4 127.255.255.254
| ping -q -c 4 128.0.0.1
| ping -q -c 4 10.0.0.1
| ifconfig eth0 10.1.2.3
| ifconfig eth0
| ping -q -c 4 192.168.1.20
