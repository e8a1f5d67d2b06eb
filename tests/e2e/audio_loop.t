# Every input and every output routed once (each start undoing the route
# before it), the argument checks and the +20 dB gain. 'ftsim mixer --on'
# lists the switches that are on: exactly the route.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>loop 1 0 1
$ ftsim mixer --on
| Mono Playback Switch: 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1R Switch: 1
| Mono Mixer PGAR Bypass Switch: 1
ft>loop 1 1 2
$ ftsim mixer --on
| Line Playback Switch: 1 0
| PGA Capture Switch: 0 1
| Right PGA Mixer Line2R Switch: 1
| Left Line Mixer PGAR Bypass Switch: 1
ft>loop 1 3 0
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 0 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Mic3L Switch: 1
| Right Line Mixer PGAR Bypass Switch: 1
# A start takes only the right PGA's bypass into the chosen mixers and only
# the chosen input into the PGA, whatever another program left on; a stop
# undoes the route and nothing else.
$ ftsim exec -- sed -i '/Right PGA\|HP Mixer\|Mono Playback/s/ 0/ 1/g' /sim/audio/mixer
ft>loop 1 2 3
$ ftsim mixer --on
| Mono Playback Switch: 1
| HP Playback Switch: 1 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1L Switch: 1
| Left HP Mixer PGAR Bypass Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
ft>loop 0
$ ftsim mixer --on
| Mono Playback Switch: 1
# A non-number is 0: a stop.
ft>loop x 1 2
Audio Loop not started!
ft>loop 2 0 2
Invalid command - Invalid Action
ft>loop -1
Invalid command - Invalid Action
# The numbers are checked only after a running loop was stopped.
ft>loop 1 1 1
ft>loop 1
<input> and <output> must both be specified to start the test
ft>loop 0
Audio Loop not started!
ft>loop 1 0
<input> and <output> must contain valid values (0, 1, 2 or 3)
ft>loop 1  2
<input> and <output> must contain valid values (0, 1, 2 or 3)
ft>loop 1 4 0
<input> and <output> must contain valid values (0, 1, 2 or 3)
ft>loop 1 0 4
<input> and <output> must contain valid values (0, 1, 2 or 3)
ft>loop 1 -1 0
<input> and <output> must contain valid values (0, 1, 2 or 3)
ft>loop 1 0 -1
<input> and <output> must contain valid values (0, 1, 2 or 3)
# The +20 dB gain, the amplifier's and the DAC's, whatever follows the first character.
ft>section508 1
ft>section508 0
ft><enter>
$ ftsim mixer "PCM Playback Volume"
| 100 100
$ ftsim get amp.gain
| 0
ft>section508 10
ft>section508 2
FAIL
ft : Err Invalid action
$ ftsim mixer "PCM Playback Volume"
| 127 127
$ ftsim get amp.gain
| 1
# A shell started on a codec left with a route on and the gain up puts it
# back into its known state: every output off, the DAC volume at 100.
ft>loop 1 3 3
ft><enter>
$ ftsim exec -- sh -c 'echo q | /system/bin/ft'
| Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
| 
| ft>q
$ ftsim mixer --on
| PGA Capture Switch: 0 1
| Right PGA Mixer Mic3L Switch: 1
| Left HP Mixer PGAR Bypass Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
$ ftsim mixer "PCM Playback Volume"
| 100 100
ft>q
@ exit 0
