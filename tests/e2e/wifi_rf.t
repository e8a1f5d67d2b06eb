# Antenna paths, signal scans and the access points' scan: each starts WiFi quietly first, even when its
# words are then refused. A tool that cannot be started fails the step, and leaves WiFi as it was.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim fail system -1 EAGAIN
ft>wifi start
wifi_load_driver: failed
ft: Err starting WiFi service
FAIL
ft: Err: failed to start WiFi service, retry.
$ ftsim unfail system
ft>wifi_rf scan ssid
ft: WiFi started.
ft wifi_rf scan: Error - filter_type and filter_value are required.
ft>wifi_rf scan bssid x
ft wifi_rf scan: Error - incorrect filter_type 'bssid'.
ft>wifi_rf scan mac 00:11:22:33:44:55 0
ft wifi_rf scan: Error iterations=<0> is out of supported range.
ft>wifi_rf scan ssid lab 3 4
ft wifi_rf scan: Error mode=<4> is out of supported range.
ft>wifi_rf scan ssid lab 3 -1
ft wifi_rf scan: Error mode=<-1> is out of supported range.
ft>wifi_rf cfg 4
ft wifi_rf cfg: Error TxPath=<4> is out of supported range.
ft>wifi_rf cfg 12
ft wifi_rf cfg: Error TxPath=<12> is out of supported range.
ft>wifi_rf cfg 1 03
ft wifi_rf cfg: Error RxPath=<03> is out of supported range.
ft>wifi_rf cfg
Mode of Tx path is 0x3
Mode of Rx path is 0x3
ft>wifi_rf cfg 2
Mode of Tx path is 0x2
Mode of Rx path is 0x2
ft>wifi_rf cfg 1 3
Mode of Tx path is 0x1
Mode of Rx path is 0x3
# By default one iteration in the mode set now; words reach the script as typed, whatever they hold.
ft>wifi_rf scan ssid a"b$(reboot);`id`\x
Scanning for ssid "a"b$(reboot);`id`\x", 1 iteration(s), antenna mode 0
No network matched ssid "a"b$(reboot);`id`\x" in 1 scan(s)
ft>wifi_rf scan ssid factory-lab 1 3
Scanning for ssid "factory-lab", 1 iteration(s), antenna mode 3
scan 1: signal level -42 dBm, quality 68/70
Average signal level: -42 dBm
Average quality: 68/70
ft>wifi_rf scan mac 02:00:00:00:aa:02 2 0
Scanning for mac "02:00:00:00:aa:02", 2 iteration(s), antenna mode 0
scan 1: signal level -71 dBm, quality 39/70
scan 2: signal level -71 dBm, quality 39/70
Average signal level: -71 dBm
Average quality: 39/70
# The access points in range are a condition: here one whose name the shell would read as syntax.
$ ftsim set wifi.aps "it's $(lab)/02:00:00:00:BB:01/-55/50"
ft>wifi scan
ft: Initiating wifi scan... 
wlan0     Scan completed :
          Cell 01 - Address: 02:00:00:00:BB:01
                    Channel:1
                    Frequency:2.412 GHz (Channel 1)
                    Quality=50/70  Signal level=-55 dBm  
                    Encryption key:on
                    ESSID:"it's $(lab)"
                    Mode:Master

ft: Done, check AP list above. 
$ ftsim log
| /system/bin/load_wireless_driver.sh --type wifi
| ip link set wlan0 up
| mlanutl wlan0 antcfg
| mlanutl wlan0 antcfg 2  
| mlanutl wlan0 antcfg
| mlanutl wlan0 antcfg 1 3
| mlanutl wlan0 antcfg
| /system/bin/wifi_rf_scan.sh --ssid "a\"b\$(reboot);\`id\`\\x" -n 1 --mode 0
| /system/bin/wifi_rf_scan.sh --ssid "factory-lab" -n 1 --mode 3
| /system/bin/wifi_rf_scan.sh --mac "02:00:00:00:aa:02" -n 2 --mode 0
| iwlist wlan0 scan
$ ftsim fail system -1 EAGAIN
ft>wifi mac_get
ft : MAC Address
FAIL
ft: Err getting WiFi MAC address 
ft>wifi scan
ft: Initiating wifi scan... 
FAIL
ft: Err scanning WiFi APs
ft>wifi_rf cfg 2
FAIL
ft: Err setting mode of Tx/Rx antenna
ft>wifi_rf scan ssid lab
FAIL
ft: Err scanning
ft>wifi stop
ft: Err stopping WiFi service errno = 11
FAIL
ft: Err: failed to stop WiFi service, retry.
$ ftsim unfail system
ft>quit
ft: WiFi stopped.
@ exit 0
