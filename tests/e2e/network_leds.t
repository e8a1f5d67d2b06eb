# led sets every lamp of the phone; ethled steps the Ethernet LED test. Only
# a result of 0 passes led, any result of 0 or more passes ethled.
$ ftsim get leds
| off
$ ftsim get switch.ledtest
| none
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>led on
PASS
$ ftsim get leds
| on
ft>led flash
PASS
$ ftsim get leds
| flash 500/500
ft>led off
PASS
$ ftsim get leds
| off
ft>led blink
Incorrect parameter
FAIL
ft>led ON
Incorrect parameter
FAIL
ft>led
Incorrect parameter
FAIL
ft>ethled off
PASS
$ ftsim get switch.ledtest
| 1
ft>ethled on
PASS
$ ftsim get switch.ledtest
| 2
ft>ethled enable
PASS
$ ftsim get switch.ledtest
| 3
ft>ethled
FAIL
ft>ethled Off
FAIL
ft>ethled 1
FAIL
$ ftsim fail Led_SetSteadyStateAll 1
ft>led on
FAIL
$ ftsim fail Led_SetFlashStateAll -1 EIO
ft>led flash
FAIL
$ ftsim get leds
| off
$ ftsim fail L2SW_EthernetLedTest -1 EIO
ft>ethled on
FAIL
$ ftsim fail L2SW_EthernetLedTest 1
ft>ethled on
PASS
$ ftsim get switch.ledtest
| 3
ft>^D
@ exit 0
