# The three help screens, byte for byte (tabs included), under every word that shows them.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>help


==========================================================================
		Factory Test Help
==========================================================================
	ft info 
		- Output basic information about the phone
	ft flash
		- Performs a Flash test
	ft program write <logical addr> <value>
		<logical addr> - Identifies the parameter to be programmed
		<value> - The string value to be saved to the specified location
		- Used to program data on the phone.
	ft program writecommit <logical addr> <value>
		<logical addr> - Identifies the parameter to be programmed
		<value> - The string value to be saved to the specified location
		- Used to program data on the phone (Immediate save to flash)
	ft program commit
		- Used to save all cached programmed values permanently to Flash
	ft program list <target>
		<target> = [ ict | all ]
	ft program read <logical_addr>
		<logical_addr> - Identifies the parameter value to be read
		- Displays the contents of a specific parameter value
	ft production <action>
		<action> = [ 0 | 1 ]
	ft hookswitch <mode>
		<mode> = 
			0 - Stop hookswitch events reporting
			1 - Start hookswitch events reporting
			2 - Get current state of cradle hookswitch (ON HOOK or OFF HOOK)
	ft ehs <mode>
		<mode> = 
			0 - Stop ehs events reporting
			1 - Start ehs events reporting
	ft ip <action> <ip address>
		<action> = 
			0 - Get IP 
			1 - Set IP
	ft key <mode>
		<mode> = 
			0 - Stop Button Reporting
			1 - Start Button Reporting
	ft jackdet <mode>
		<mode> = 
			0 - Stop 3.5 Headset Detection
			1 - Start 3.5 Headset Detection
	ft jackkeydet <mode>
		<mode> = 
			0 - Stop 3.5 Headset Button Reporting
			1 - Start 3.5 Headset Button Reporting
	ft ping <ip address>
		<ip address> - A valid IP address to be pinged
	ft led <pattern>
		<pattern> = [ on | off | flash ]
		- Sets state of all LEDs in accordance with pattern
	ft backlight <brightness>
		<brightness> = [ off | on | dimmest | brightest ]
			[ off | on ] - Turn backlight power on/off (current brightness level is not changed)
			dimmest - Set brightness level to minimum
			brightest - Set brightness level to maximum
	ft rawbacklight <brightness>
		<brightness> = [ >= 0 ]
			0 is the special value - brightness will be set to 0, backlight will be disabled
	ft lcd fill <color>
		<color> = [ 1-5: Red, Green, Blue, Black, White ]
	ft lcd crosshair
	ft lcd invertgrid <color>
		<color> = [ 1-5: Red, Green, Blue, Black, White ]
	ft lcd half_filled
	ft lcd fl <number of bars> <color1> <color2>
		<color> = [ 1-5: Red, Green, Blue, Black, White ]
	ft lcd_digit <color> <digit>
		<color> = [ W | B ]
		<digit> = [ 0 - 9 ]
	ft sdram <type>
		<type> = 
			0 - short 
			1 - long
	ft usb power <action>
		<action> = [ off | on ]
	ft usb overcurrent
	ft usb limit <action>
		<action> = [ low | high | get ]
	ft usblist
	ft usbrw
	ft wifi cap
	ft wifi mac_get
			conflicts with mfg tests
	ft wifi scan
			conflicts with mfg tests
	ft wifi start
			conflicts with mfg tests
	ft wifi stop
	ft wifi_rf cfg [[TxPath] RxPath]
			conflicts with mfg tests
		<TxPath | RxPath> = [ 1 | 2 | 3 ]
			1 - Path A
			2 - Path B
			3 - Path A+B
		- Used to set/get the mode of Tx/Rx antenna
			If no Rx Path is provided, then Tx and Rx Paths are set to the same value
			If no Rx Path and Tx Path are provided, then current settings are shown

	ft wifi_rf scan <filter_type> <filter_value> [[iterations] mode]
			conflicts with mfg tests
		<filter_type> = [ mac | ssid ]
			mac - use mac address to scan
			ssid - use ssid name to scan
		<filter_value> - mac address or ssid name to scan
		<iterations> - number of scanning attempts
		<mode> = [ 1 | 2 | 3 ]
			1 - Path A
			2 - Path B
			3 - Path A+B
		- Scans wifi network for specified SSID or MAC, then shows average signal level and quality
			By default 1 scanning attempt is performed and currently configured mode is used
	ft bt cap
		- Check that Bluetooth chip is present
	ft bt init
		- Initialize Bluetooth - should be called before executing bt tests
			conflicts with mfg tests
	ft bt on
		- Enables Bluetooth
			conflicts with mfg tests
	ft bt off
		- Disables Bluetooth
	ft bt mac_get
		- Gets the address of the Bluetooth adapter
	ft bt scan
		- Performs discovery for Bluetooth devices, displays the results
	ft mfg wifi start
	ft mfg wifi stop
	ft camera <action>
		<action> = 
			0 - Check whether camera module is detected on USB bus
				and assigned to video device at folder /dev
			1 - Enable camera module and show dynamic video on LCD panel
			2 - Take a picture and store it in a pre-defined location
			3 - Disable camera module

	ft cradle <action>
		<action> = 
			0 - Check whether BT handset cradle is connected
			1 - Turn the charger ON
			2 - Turn the charger OFF

	ft setport <port> <mode>
		<port> = 1 (LAN port)

		<mode> = 
			1    - Interface-DOWN
			0    - Auto-Negotiation and Interface-UP
			1000 - 1000Mbit full duplex
			100  - 100Mbit full duplex
			101  - 100Mbit half duplex
			10   - 10Mbit full duplex
			11   - 10Mbit half duplex

	ft send <username> <password> <localFile> <destFile> <remoteIPAddrServer>
		<username> - ftp user name
		<password> - ftp password

		<localFile> - local side file location and name
		<destFile> - remote side FTP file name

		<remoteIPAddrServer> - ftp server ip address
		- Used to upload a picture to a FTP server.
	ft get <username> <password> <local_path> <remote_path> <server_ip>
		<username> - ftp user name
		<password> - ftp password

		<local_path> - local side file location and name
		<remote_path> - remote side FTP file name

		<server_ip> - ftp server ip address
		- Used to get a file from an FTP server.
	ft velor regulatory <username> <password> <remote_path> <server_ip>
		<username> - ftp user name
		<password> - ftp password

		<remote_path> - remote side FTP file name

		<server_ip> - ftp server ip address
		- Used to upload a regulatory info file from an FTP server to the phone.
	ft gencert 
		- Generate self-signed certificate for DES
	ft regenfipscert 
		- ReGenerate self-signed certificate for DES for FIPS support

	ft eth <port> <mode>
		<port> = 
			0 - (PC port)
			1 - (LAN port)
		<mode> = 
			1 - Disable Port
			0 - Autonegotiate
			1000 - 1000 Mbit full duplex
			1001 - Gigabit test mode No.1 (transmit waveform test)
			1002 - Gigabit test mode No.2 (master transmit jitter test
			1003 - Gigabit test mode No.3 (slave transmit jitter test
			1004 - Gigabit test mode No.4 (transmitter distortion test
			100  - 100 Mbit full duplex
			101  - 100 Mbit half duplex
			10   - 10 Mbit full duplex
			11   - 10 Mbit half duplex

ft>h
= help
ft>?
= help
ft>ft help extra words
= help
ft>audio
==========================================================================
		Factory Test Audio Help
==========================================================================
	ft loop <action> <input> <output>
		<action> - 0=Stop, 1=Start
		<input> - [0-3] 0=Handset, 1=Wired Headset, 2=Speakerphone microphone, 3=3.5mm Headset
		<output> - [0-3] 0=Handset, 1=Wired Headset, 2=Speakerphone, 3=3.5mm Headset
	ft section508 <action> 
		+20 db gain, <action> 0=Off, 1=On
	ft tone <action> <device>
		<action> - 0=Stop, 1=Start
		<device> - [0-2] 0=Handset, 1=Headset, 2=Speakerphone, 3=3.5mm Headset
	ft warn <ftpIP> <username> <password> <playbackFile> <playbackVolume> <captureVolume> <captureFile>
		<ftpIP> - ftp server ip address
		<username> - ftp user name
		<password> - ftp password
		<playbackFile> - wave file name to pull onto the device 
		<playbackVolume> - gains (0-127)
		<captureVolume> - gains (0-119)
		<captureFile> - output file name to upload to ftp server

ft>audio 1 2 3
= audio
ft>l2
==========================================================================
		Factory l2 Help
==========================================================================
	ft l2Init <mode> 
		<mode> - 0=MDIX disable, 1=MDIX enable
	ft l2portCntrs <port> 
		<port> - 0=port_PC, 1=port_LAN , 2=port_CPU
	ft l2portResetCntrs <port> 
		<port> - 0=port_PC, 1=port_LAN , 2=port_CPU , 3=all
	ft l2resetSettings 
		Reset configuration of L2 Switch to its defaults.
	ft l2setAutoMDIX <port> <mode>
		<port> - 0=port_PC, 1=port_LAN 
		<mode> - [0-1] 0=L2SW_AUTO_MDIX_DISABLED, 1=L2SW_AUTO_MDIX_ENABLED
	ft l2getAutoMDIX <port> 
		<port> - 0=port_PC, 1=port_LAN 
	ft l2setLinkStatus <port> <status>
		<port> - 0=port_PC, 1=port_LAN , 2=port_CPU
		<status> - [1-4] 1=L2SW_LINK_UP, 2=L2SW_LINK_DOWN, 3=L2SW_LINK_ENABLE, 4=L2SW_LINK_DISABLED
	ft l2getLinkStatus <port> 
		<port> - 0=port_PC, 1=port_LAN 
	ft l2setLinkMode <port> <status>
		<port> - 0=port_PC, 1=port_LAN , 2=port_CPU
		<status> - [1-6] 1=L2SW_LINK_MODE_AUTO, 2=L2SW_LINK_MODE_10_HALF, 3=L2SW_LINK_MODE_10_FULL
		                 4=L2SW_LINK_MODE_100_HALF, 5=L2SW_LINK_MODE_100_FULL, 6=L2SW_LINK_MODE_1000_FULL
	ft l2getLinkMode <port> 
		<port> - 0=port_PC, 1=port_LAN 
	ft l2GetPVID <port> 
		<port> - 0=port_PC, 1=port_LAN , 2=port_CPU
	ft l2GetVlan_mbrCfg <index> 
		<index> = 0-4095 or all 
	ft l2GetPortPriority <port> 
		<port> - 0=port_PC, 1=port_LAN , 2=port_CPU
	ft l2getmac <port> 
		<port> - 0=port_PC, 1=port_LAN
	ft l2printMacTable 	it will print mac table from switch

	ft l2getRegValue <Switch Register>	print switch register value, eg: 0x091A
	ft l2getPhyRegValue <port> <phy-register> 	print PHY registers value 
		<port> - 0=port_PC, 1=port_LAN 
		<phy-register> - between 0-15.

==========================================================================
		Factory ACL Rules Help
==========================================================================
	ft l2ShowAllRules 
		List all ACL rules to log.
	ft l2DelAllRules 
		Delete all ACL rules.
==========================================================================
		Factory EEE / GreenEthernet Help
==========================================================================
	ft l2GetGreenEthernetPort 
				 Get Green Ethernet mode  (proprietary Realtek feature, for 1000Mbit only)

	ft l2SetGreenEthernetPort <greenethernetMode> 
		<greenethernetMode> GREEN_ETHERNET_DISABLED=0, GREEN_ETHERNET_ENABLED=1 
		 Set Green Ethernet mode (proprietary Realtek feature, for 1000Mbit only)

	ft l2GetEEEPort <port> 
		<port> - 0=port_PC, 1=port_LAN 
		 Get EEE mode.

	ft l2SetEEEPort <port> <mode>
		<port> - 0=port_PC, 1=port_LAN 
		<mode> - [0-1] 0=L2SW_EEE_DISABLED, 1=L2SW_EEE_ENABLED
		 Set EEE mode.

==========================================================================
		Factory RGMII interface
==========================================================================
	ft l2rgmiiDelayExt_set <port> <txDelay> <rxDelay>
		<port> - 2=port_CPU
		<txDelay> - [0-1] TX delay value, 1 for delay 2ns and 0 for no-delay
		<rxDelay> - [0-7] delay value, 0~7 for delay setup
==========================================================================
		Factory spread frequency (SSC) for Ethernet Switch
==========================================================================
	ft l2getSSC 	print SSC status for Ethernet Switch
	ft l2setSSC <SSC Status>	 <SSC Status> - 0=Disable, 1=Enable
==========================================================================
		Factory LPI (Low Power Insert) status Ethernet Port Switch
==========================================================================
	ft l2getLPIStatus 	print LPI status for Ethernet Switch
==========================================================================
ft>HELP
Not a valid command
ft>quit
@ exit 0
