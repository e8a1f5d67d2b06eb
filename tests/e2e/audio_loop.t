# The codec after start-up, every input routed to every output (each start
# undoing the route before it), the argument checks and the +20 dB gain.
# 'ftsim mixer --on' lists the switches that are on: exactly the route. An
# empty line after a silent command waits for its prompt, so that the check
# after it sees what the command did.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

$ ftsim mixer
| PCM Playback Volume: 100 100
| Line DAC Playback Volume: 118 118
| Line Line2 Bypass Volume: 118 118
| Line PGA Bypass Volume: 118 118
| Mono DAC Playback Volume: 118
| Mono Line2 Bypass Volume: 118
| Mono PGA Bypass Volume: 118
| HP DAC Playback Volume: 118 118
| HP Line2 Bypass Volume: 118 118
| HP PGA Bypass Volume: 118 118
| Left Line Mixer Line2R Bypass Volume: 118
| Left Line Mixer PGAR Bypass Volume: 118
| Left Line Mixer DACR1 Playback Volume: 118
| Right Line Mixer Line2L Bypass Volume: 118
| Right Line Mixer PGAL Bypass Volume: 118
| Right Line Mixer DACL1 Playback Volume: 118
| Left HP Mixer Line2R Bypass Volume: 118
| Left HP Mixer PGAR Bypass Volume: 118
| Left HP Mixer DACR1 Playback Volume: 118
| Right HP Mixer Line2L Bypass Volume: 118
| Right HP Mixer PGAL Bypass Volume: 118
| Right HP Mixer DACL1 Playback Volume: 118
| PGA Capture Volume: 118 118
| Line Playback Switch: 0 0
| Mono Playback Switch: 0
| HP Playback Switch: 0 0
| PGA Capture Switch: 0 0
| Right PGA Mixer Line1R Switch: 0
| Right PGA Mixer Line2R Switch: 0
| Right PGA Mixer Line1L Switch: 0
| Right PGA Mixer Mic3L Switch: 0
| Right PGA Mixer Mic3R Switch: 0
| Left Line Mixer Line2L Bypass Switch: 0
| Left Line Mixer PGAL Bypass Switch: 0
| Left Line Mixer DACL1 Switch: 0
| Left Line Mixer Line2R Bypass Switch: 0
| Left Line Mixer DACR1 Switch: 0
| Left Line Mixer PGAR Bypass Switch: 0
| Right Line Mixer Line2L Bypass Switch: 0
| Right Line Mixer PGAL Bypass Switch: 0
| Right Line Mixer DACL1 Switch: 0
| Right Line Mixer Line2R Bypass Switch: 0
| Right Line Mixer DACR1 Switch: 0
| Right Line Mixer PGAR Bypass Switch: 0
| Mono Mixer Line2L Bypass Switch: 0
| Mono Mixer PGAL Bypass Switch: 0
| Mono Mixer DACL1 Switch: 0
| Mono Mixer Line2R Bypass Switch: 0
| Mono Mixer DACR1 Switch: 0
| Mono Mixer PGAR Bypass Switch: 0
| Left HP Mixer Line2L Bypass Switch: 0
| Left HP Mixer PGAL Bypass Switch: 0
| Left HP Mixer DACL1 Switch: 0
| Left HP Mixer Line2R Bypass Switch: 0
| Left HP Mixer DACR1 Switch: 0
| Left HP Mixer PGAR Bypass Switch: 0
| Right HP Mixer Line2L Bypass Switch: 0
| Right HP Mixer PGAL Bypass Switch: 0
| Right HP Mixer DACL1 Switch: 0
| Right HP Mixer Line2R Bypass Switch: 0
| Right HP Mixer DACR1 Switch: 0
| Right HP Mixer PGAR Bypass Switch: 0
$ ftsim mixer --on
$ ftsim get amp.enable
| 1
$ ftsim get amp.gain
| 0
# The amplifier's files are written directly, without a shell.
$ ftsim log
ft>loop 1 0 0
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 0 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1R Switch: 1
| Right Line Mixer PGAR Bypass Switch: 1
ft>loop 1 0 1
ft><enter>
$ ftsim mixer --on
| Mono Playback Switch: 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1R Switch: 1
| Mono Mixer PGAR Bypass Switch: 1
ft>loop 1 0 2
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 1 0
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1R Switch: 1
| Left Line Mixer PGAR Bypass Switch: 1
ft>loop 1 0 3
ft><enter>
$ ftsim mixer --on
| HP Playback Switch: 1 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1R Switch: 1
| Left HP Mixer PGAR Bypass Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
ft>loop 1 1 0
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 0 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line2R Switch: 1
| Right Line Mixer PGAR Bypass Switch: 1
ft>loop 1 1 1
ft><enter>
$ ftsim mixer --on
| Mono Playback Switch: 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line2R Switch: 1
| Mono Mixer PGAR Bypass Switch: 1
ft>loop 1 1 2
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 1 0
| PGA Capture Switch: 0 1
| Right PGA Mixer Line2R Switch: 1
| Left Line Mixer PGAR Bypass Switch: 1
ft>loop 1 1 3
ft><enter>
$ ftsim mixer --on
| HP Playback Switch: 1 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line2R Switch: 1
| Left HP Mixer PGAR Bypass Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
ft>loop 1 2 0
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 0 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1L Switch: 1
| Right Line Mixer PGAR Bypass Switch: 1
ft>loop 1 2 1
ft><enter>
$ ftsim mixer --on
| Mono Playback Switch: 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1L Switch: 1
| Mono Mixer PGAR Bypass Switch: 1
ft>loop 1 2 2
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 1 0
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1L Switch: 1
| Left Line Mixer PGAR Bypass Switch: 1
ft>loop 1 2 3
ft><enter>
$ ftsim mixer --on
| HP Playback Switch: 1 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1L Switch: 1
| Left HP Mixer PGAR Bypass Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
ft>loop 1 3 0
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 0 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Mic3L Switch: 1
| Right Line Mixer PGAR Bypass Switch: 1
ft>loop 1 3 1
ft><enter>
$ ftsim mixer --on
| Mono Playback Switch: 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Mic3L Switch: 1
| Mono Mixer PGAR Bypass Switch: 1
ft>loop 1 3 2
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 1 0
| PGA Capture Switch: 0 1
| Right PGA Mixer Mic3L Switch: 1
| Left Line Mixer PGAR Bypass Switch: 1
ft>loop 1 3 3
ft><enter>
$ ftsim mixer --on
| HP Playback Switch: 1 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Mic3L Switch: 1
| Left HP Mixer PGAR Bypass Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
# A start takes only the right PGA's bypass into the chosen mixers and only
# the chosen input into the PGA, whatever another program left switched on.
$ ftsim mixer "Left Line Mixer Line2L Bypass Switch" 1
$ ftsim mixer "Left Line Mixer PGAL Bypass Switch" 1
$ ftsim mixer "Left Line Mixer DACL1 Switch" 1
$ ftsim mixer "Left Line Mixer Line2R Bypass Switch" 1
$ ftsim mixer "Left Line Mixer DACR1 Switch" 1
$ ftsim mixer "Left Line Mixer PGAR Bypass Switch" 1
$ ftsim mixer "Right PGA Mixer Line1R Switch" 1
$ ftsim mixer "Right PGA Mixer Line2R Switch" 1
$ ftsim mixer "Right PGA Mixer Line1L Switch" 1
$ ftsim mixer "Right PGA Mixer Mic3L Switch" 1
$ ftsim mixer "Right PGA Mixer Mic3R Switch" 1
$ ftsim mixer "PGA Capture Switch" 1 1
ft>loop 1 1 2
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 1 0
| PGA Capture Switch: 0 1
| Right PGA Mixer Line2R Switch: 1
| Left Line Mixer PGAR Bypass Switch: 1
$ ftsim mixer "Left HP Mixer Line2L Bypass Switch" 1
$ ftsim mixer "Left HP Mixer PGAL Bypass Switch" 1
$ ftsim mixer "Left HP Mixer DACL1 Switch" 1
$ ftsim mixer "Left HP Mixer Line2R Bypass Switch" 1
$ ftsim mixer "Left HP Mixer DACR1 Switch" 1
$ ftsim mixer "Left HP Mixer PGAR Bypass Switch" 1
$ ftsim mixer "Right HP Mixer Line2L Bypass Switch" 1
$ ftsim mixer "Right HP Mixer PGAL Bypass Switch" 1
$ ftsim mixer "Right HP Mixer DACL1 Switch" 1
$ ftsim mixer "Right HP Mixer Line2R Bypass Switch" 1
$ ftsim mixer "Right HP Mixer DACR1 Switch" 1
$ ftsim mixer "Right HP Mixer PGAR Bypass Switch" 1
$ ftsim mixer "Right PGA Mixer Mic3R Switch" 1
ft>loop 1 2 3
ft><enter>
$ ftsim mixer --on
| HP Playback Switch: 1 1
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1L Switch: 1
| Left HP Mixer PGAR Bypass Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
# A stop undoes the route and nothing else; with none running there is
# nothing to stop.
$ ftsim mixer "Right Line Mixer DACR1 Switch" 1
$ ftsim mixer "Mono Playback Switch" 1
ft>loop 0
ft><enter>
$ ftsim mixer --on
| Mono Playback Switch: 1
| Right Line Mixer DACR1 Switch: 1
$ ftsim mixer "Right Line Mixer DACR1 Switch" 0
$ ftsim mixer "Mono Playback Switch" 0
ft>loop 0
Audio Loop not started!
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
$ ftsim mixer --on
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
ft>loop 1 4294967296 0
<input> and <output> must contain valid values (0, 1, 2 or 3)
$ ftsim mixer --on
# The +20 dB gain: amplifier gain and the DAC volume, whatever follows the first character.
ft>section508 1
ft><enter>
$ ftsim mixer "PCM Playback Volume"
| 127 127
$ ftsim get amp.gain
| 1
ft>section508 0
ft><enter>
$ ftsim mixer "PCM Playback Volume"
| 100 100
$ ftsim get amp.gain
| 0
ft>section508 10
ft><enter>
$ ftsim mixer "PCM Playback Volume"
| 127 127
ft>section508 x
FAIL
ft : Err Invalid action
ft>section508
FAIL
ft : Err Invalid action
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
