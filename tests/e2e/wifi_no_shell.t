# The system shell cannot be started (ftsim fail system): each WiFi step
# that runs a tool reports it, ends in FAIL, and leaves the flag as it was.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim fail system -1 EAGAIN
ft>wifi start
wifi_load_driver: failed
ft: Err starting WiFi service
FAIL
ft: Err: failed to start WiFi service, retry.
$ ftsim unfail system
ft>wifi start
ft: WiFi started.
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
# Still started: with the shell back, the stop goes through.
$ ftsim unfail system
ft>wifi stop
ft: WiFi stopped.
ft>quit
@ exit 0
