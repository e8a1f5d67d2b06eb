# The tone's argument checks, its route, its stops, and the warn script's command lines. 'ftsim audio
# --wait' waits for the tone thread to open and to close the device: a start while the last thread still
# plays would find the device busy.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>tone
<action> must contain valid values (0 or 1)
ft>tone 0
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 1 4
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 1 -1
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 2 1
<action> must contain valid values (0 or 1)
ft>tone -1 1
<action> must contain valid values (0 or 1)
ft>tone 1 3
$ ftsim audio --wait open
$ ftsim mixer --on
| HP Playback Switch: 1 1
| Right HP Mixer DACR1 Switch: 1
# A stop without the output word stops the output of the last start, and
# forgets it; the DAC stays in the output's mixer.
ft>tone 0
$ ftsim audio --wait closed
$ ftsim mixer --on
| Right HP Mixer DACR1 Switch: 1
ft>tone 0
<output> must contain valid values (0, 1, 2 or 3)
ft>tone 1 1
$ ftsim audio --wait open
$ ftsim mixer --on
| Mono Playback Switch: 1
| Mono Mixer DACR1 Switch: 1
| Right HP Mixer DACR1 Switch: 1
# A non-number action is 0: a stop, here of output 1.
ft>tone x 1
$ ftsim audio --wait closed
$ ftsim mixer "Mono Playback Switch"
| 0
# Warn hands the script the seven words as typed, each one argument; empty words are left out. Quoting
# makes a line longer than its words: one of 511 characters is run, one of 512 is not (cut short, it would
# hand over other arguments).
ft>warn 10.0.0.7 tester pa$$'w;rd`id` warn.wav 100 119 rec.wav
ft>warn
ft>warn ''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''' xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
ft>warn ''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''' xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
$ ftsim log
| /system/bin/audio_warn.sh 10.0.0.7 tester 'pa$$'\''w;rd`id`' warn.wav 100 119 rec.wav
| audio_warn.sh $1: 10.0.0.7
| audio_warn.sh $2: tester
| audio_warn.sh $3: pa$$'w;rd`id`
| audio_warn.sh $4: warn.wav
| audio_warn.sh $5: 100
| audio_warn.sh $6: 119
| audio_warn.sh $7: rec.wav
| /system/bin/audio_warn.sh       
| audio_warn.sh: no arguments
| /system/bin/audio_warn.sh ''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\'''\''' xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx     
| audio_warn.sh $1: '''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''''
| audio_warn.sh $2: xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
ft>q
@ exit 0
# The dial tone condition is the phone's to write too: only 'ftsim set'
# copies a file of the host into the phone.
$ ftsim exec -- sh -c 'echo /etc/passwd > /sim/conditions/audio.dialtone'
$! ftsim exec -- test -e /system/media/audio/ui/dialtone.wav
