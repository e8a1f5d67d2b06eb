# Scans: an adapter that was on stays on, a device found twice, what a report
# may lack or hold beyond the table's reach, and the HAL's refusals. (The
# default devices, a full table and Ctrl+C: tests/bluetooth/scan_interrupt.py.)
# Ten refusals of the driver's removal leave it loaded at quit.
$ ftsim set bt.driver.busy 10
$ ftsim set bt.discovery_ms 1000
$ ftsim set bt.devices "0A:0B:0C:0D:0E:0F,name=Late Name,class=1F00,type=1,rssi=-40,twice"
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>bt init
BT interface initialized
PASS
ft>bt on
BT state changed: ON
# Alone in the table, the device found twice brings the header again; the
# first line ends in a blank.
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
ft>q
@ exit 0
$ ftsim get bt.driver.refused
| 10
$ ftsim get bt.driver
| loaded
