# The tone's argument checks, its route on each output, stops with and
# without the output word, and the warn script's command lines. Between a
# start and the next, 'ftsim audio --wait' waits for the tone thread to open
# and to close the device: a start while the last thread still plays would
# find the device busy. An empty line after a silent command waits for its
# prompt.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>tone
<action> must contain valid values (0 or 1)
ft>tone 0
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 1
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 1 4
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 1 -1
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 1 4294967299
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 2 1
<action> must contain valid values (0 or 1)
ft>tone -1 1
<action> must contain valid values (0 or 1)
ft><enter>
$ ftsim mixer --on
$ ftsim get pcm.5
| closed
ft>tone 1 3
ft><enter>
$ ftsim audio --wait open
$ ftsim get pcm.5
| S16_LE 1ch 8000Hz
$ ftsim mixer --on
| HP Playback Switch: 1 1
| Right HP Mixer DACR1 Switch: 1
# A stop without the output word stops the output of the last start; the
# DAC stays in the output's mixer.
ft>tone 0
ft><enter>
$ ftsim mixer --on
| Right HP Mixer DACR1 Switch: 1
$ ftsim audio --wait closed
# ... and forgets it.
ft>tone 0
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 1 0
ft><enter>
$ ftsim audio --wait open
$ ftsim mixer --on
| Line Playback Switch: 0 1
| Right Line Mixer DACR1 Switch: 1
| Right HP Mixer DACR1 Switch: 1
ft>tone 0 0
ft><enter>
$ ftsim mixer --on
| Right Line Mixer DACR1 Switch: 1
| Right HP Mixer DACR1 Switch: 1
$ ftsim audio --wait closed
ft>tone 1 1
ft><enter>
$ ftsim audio --wait open
$ ftsim mixer --on
| Mono Playback Switch: 1
| Right Line Mixer DACR1 Switch: 1
| Mono Mixer DACR1 Switch: 1
| Right HP Mixer DACR1 Switch: 1
# A non-number action is 0: a stop, here of output 1.
ft>tone x 1
ft><enter>
$ ftsim mixer "Mono Playback Switch"
| 0
$ ftsim audio --wait closed
ft>tone 1 2
ft><enter>
$ ftsim audio --wait open
$ ftsim mixer --on
| Line Playback Switch: 1 0
| Left Line Mixer DACR1 Switch: 1
| Right Line Mixer DACR1 Switch: 1
| Mono Mixer DACR1 Switch: 1
| Right HP Mixer DACR1 Switch: 1
# A loop to the tone's output takes the DAC out of that output's mixer.
ft>loop 1 0 2
ft><enter>
$ ftsim mixer --on
| Line Playback Switch: 1 0
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1R Switch: 1
| Left Line Mixer PGAR Bypass Switch: 1
| Right Line Mixer DACR1 Switch: 1
| Mono Mixer DACR1 Switch: 1
| Right HP Mixer DACR1 Switch: 1
ft>tone 0
ft><enter>
$ ftsim audio --wait closed
$ ftsim mixer "Line Playback Switch"
| 0 0
# Warn hands the script the seven words as typed; a word that is not plain
# reaches it as one argument, and an empty word moves the following ones
# forward.
ft>warn 10.0.0.7 tester secret warn.wav 100 119 rec.wav
ft>warn 10.0.0.7 tester pa$$'w;rd`id`
ft>warn
# Quoting makes a line longer than its words: a line of 511 characters is
# run, one of 512 is not (cut short, it would hand over other arguments).
ft>warn ''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''' xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx a a a a a
ft>warn ''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''' xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx a a a a a
ft><enter>
$ ftsim log
| /system/bin/audio_warn.sh 10.0.0.7 tester secret warn.wav 100 119 rec.wav
| audio_warn.sh $1: 10.0.0.7
| audio_warn.sh $2: tester
| audio_warn.sh $3: secret
| audio_warn.sh $4: warn.wav
| audio_warn.sh $5: 100
| audio_warn.sh $6: 119
| audio_warn.sh $7: rec.wav
| /system/bin/audio_warn.sh 10.0.0.7 tester 'pa$$'\''w;rd`id`'    
| audio_warn.sh $1: 10.0.0.7
| audio_warn.sh $2: tester
| audio_warn.sh $3: pa$$'w;rd`id`
| /system/bin/audio_warn.sh       
| audio_warn.sh: no arguments
| /system/bin/audio_warn.sh ''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\''' xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx a a a a a
| audio_warn.sh $1: '''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''
| audio_warn.sh $2: xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
| audio_warn.sh $3: a
| audio_warn.sh $4: a
| audio_warn.sh $5: a
| audio_warn.sh $6: a
| audio_warn.sh $7: a
ft>q
@ exit 0
