# usb power, overcurrent and limit against every answer of the hardware library.
$ ftsim get usb.power
| on
$ ftsim get usb.limit
| 500
$ ftsim get usb.mode
| host
$ ftsim get usb.overcurrent
| no
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>usb power off
PASS
$ ftsim get usb.power
| off
ft>usb power on
PASS
$ ftsim get usb.power
| on
ft>usb power
FAIL
ft>usb power On
FAIL
# Any result from 0 up is success.
$ ftsim fail Usb_Port1_On 3
ft>usb power on
PASS
$ ftsim fail Usb_Port1_Off -1 EIO
ft>usb power off
FAIL
$ ftsim unfail all
$ ftsim set usb.mode device
ft>usb power on
USB port is in device mode. Could not provide power on USB port.
FAIL
ft>usb power off
USB port is in device mode. Could not provide power on USB port.
FAIL
$ ftsim get usb.power
| on
ft>usb overcurrent
No overcurrent detected
PASS
$ ftsim set usb.overcurrent yes
ft>usb overcurrent now
Overcurrent detected
PASS
# A success that left the fault value as it was says neither.
$ ftsim fail Usb_HadPowerFault 2
ft>usb overcurrent
PASS
$ ftsim fail Usb_HadPowerFault -1 EIO
ft>usb overcurrent
FAIL
ft>usb limit get
USB current limit is 500 mA
ft>usb limit low
USB port power limit was set to 100 mA
$ ftsim get usb.limit
| 100
ft>usb limit get
USB current limit is 100 mA
ft>usb limit high
USB port power limit was set to 500 mA
ft>usb limit get
USB current limit is 500 mA
ft>usb limit
Unknown action
ft>usb limit Low
Unknown action
$ ftsim fail Usb_SetCurrentLimit 1
ft>usb limit low
Usb_SetCurrentLimit() error
ft>usb limit high
Usb_SetCurrentLimit() error
$ ftsim get usb.limit
| 500
$ ftsim fail Usb_GetCurrentLimit -1 EIO
ft>usb limit get
Usb_getCurrentLimit() error
$ ftsim fail Usb_GetCurrentLimit -2
ft>usb limit get
Error unexpected value in Usb_getCurrentLimit(): -2
ft>usb reset
Not a valid command.
ft>usb
Not a valid command.
$ ftsim unfail all
$ ftsim set usb.mode host
ft>usb limit low
USB port power limit was set to 100 mA
ft>usb power off
PASS
ft>q
@ exit 0
# The hardware keeps its settings until the next power-up.
$ ftsim get usb.limit
| 100
$ ftsim exec -- true
$ ftsim get usb.limit
| 500
$ ftsim get usb.power
| on
