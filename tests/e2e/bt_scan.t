# Scans: the default devices, a device found twice, what a report may lack
# or hold beyond the table's reach, and 25 devices of which 20 are listed.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>bt init
BT interface initialized
PASS
# The scan switches the adapter on for itself, and off again after.
ft>bt scan
BT state changed: ON
BT discovery STARTED
Name                 Address           Class    Type  RSSI
Meeting Room Speaker 02:4B:10:DA:71:13 0x240414 BREDR -52
Badge Tag            06:3C:22:6B:0E:91 BLE   -77
Unknown              0A:5E:31:8A:21:04 0x5A020C DUAL  -64
BT discovery STOPPED
BT state changed: OFF
$ ftsim get bt.discovering
| no
# An adapter that was on stays on. Alone in the table, the device found
# twice brings the header again; the first line ends in a blank.
$ ftsim set bt.discovery_ms 1000
$ ftsim set bt.devices "0A:0B:0C:0D:0E:0F,name=Late Name,class=1F00,type=1,rssi=-40,twice"
ft>bt on
BT state changed: ON
ft>bt scan
BT discovery STARTED
Name                 Address           Class    Type  RSSI
Unknown              0A:0B:0C:0D:0E:0F 
Name                 Address           Class    Type  RSSI
Late Name            0A:0B:0C:0D:0E:0F 0x001F00 BREDR -40
BT discovery STOPPED
# The longest name whole, a longer one cut to it; a type of no known kind;
# a device that tells its RSSI only, and one that tells nothing but its
# address, twice: the second report brings nothing new and is not shown.
$ ftsim set bt.devices "12:00:00:00:00:01,name=A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest k;12:00:00:00:00:02,name=ZA name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest k,type=7;12:00:00:00:00:03,rssi=-128;12:00:00:00:00:04,twice"
ft>bt scan
BT discovery STARTED
Name                 Address           Class    Type  RSSI
A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest k 12:00:00:00:00:01 
ZA name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest kind a device may tell A name of the longest  12:00:00:00:00:02 Unknown 
Unknown              12:00:00:00:00:03 -128
Unknown              12:00:00:00:00:04 
BT discovery STOPPED
$ ftsim set bt.devices "02:00:00:00:00:01,name=Device 01,rssi=-41;02:00:00:00:00:02,name=Device 02,rssi=-42;02:00:00:00:00:03,name=Device 03,rssi=-43;02:00:00:00:00:04,name=Device 04,rssi=-44;02:00:00:00:00:05,name=Device 05,rssi=-45;02:00:00:00:00:06,name=Device 06,rssi=-46;02:00:00:00:00:07,name=Device 07,rssi=-47;02:00:00:00:00:08,name=Device 08,rssi=-48;02:00:00:00:00:09,name=Device 09,rssi=-49;02:00:00:00:00:0A,name=Device 10,rssi=-50;02:00:00:00:00:0B,name=Device 11,rssi=-51;02:00:00:00:00:0C,name=Device 12,rssi=-52;02:00:00:00:00:0D,name=Device 13,rssi=-53;02:00:00:00:00:0E,name=Device 14,rssi=-54;02:00:00:00:00:0F,name=Device 15,rssi=-55;02:00:00:00:00:10,name=Device 16,rssi=-56;02:00:00:00:00:11,name=Device 17,rssi=-57;02:00:00:00:00:12,name=Device 18,rssi=-58;02:00:00:00:00:13,name=Device 19,rssi=-59;02:00:00:00:00:14,name=Device 20,rssi=-60;02:00:00:00:00:15,name=Device 21,rssi=-61;02:00:00:00:00:16,name=Device 22,rssi=-62;02:00:00:00:00:17,name=Device 23,rssi=-63;02:00:00:00:00:18,name=Device 24,rssi=-64;02:00:00:00:00:19,name=Device 25,rssi=-65"
ft>bt scan
BT discovery STARTED
Name                 Address           Class    Type  RSSI
Device 01            02:00:00:00:00:01 -41
Device 02            02:00:00:00:00:02 -42
Device 03            02:00:00:00:00:03 -43
Device 04            02:00:00:00:00:04 -44
Device 05            02:00:00:00:00:05 -45
Device 06            02:00:00:00:00:06 -46
Device 07            02:00:00:00:00:07 -47
Device 08            02:00:00:00:00:08 -48
Device 09            02:00:00:00:00:09 -49
Device 10            02:00:00:00:00:0A -50
Device 11            02:00:00:00:00:0B -51
Device 12            02:00:00:00:00:0C -52
Device 13            02:00:00:00:00:0D -53
Device 14            02:00:00:00:00:0E -54
Device 15            02:00:00:00:00:0F -55
Device 16            02:00:00:00:00:10 -56
Device 17            02:00:00:00:00:11 -57
Device 18            02:00:00:00:00:12 -58
Device 19            02:00:00:00:00:13 -59
Device 20            02:00:00:00:00:14 -60
BT discovery STOPPED
# The HAL refuses the discovery: the adapter stays as it was.
$ ftsim fail bt_start_discovery 1
ft>bt scan
ft>bt off
BT state changed: OFF
ft>bt scan
BT state changed: ON
BT state changed: OFF
$ ftsim unfail all
$ ftsim fail bt_enable 1
ft>bt scan
$ ftsim get bt.adapter
| off
ft>q
@ exit 0
