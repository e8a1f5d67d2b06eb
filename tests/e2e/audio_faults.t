# A codec that cannot be opened, like an absent one (whose mixer power-up takes away): start-up says so
# and the shell goes on. A codec that lacks a control: each operation stops at the first control it
# cannot find, names it, and leaves what it set.
$ ftsim fail mixer_open 0 ENODEV
$ ftsim exec -- sh -c 'echo q | /system/bin/ft'
| Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
| initialize_audio : mixer_open failed
| 
| ft>q
$ ftsim get amp.enable
| 0
$ ftsim unfail all
$ ftsim set codec absent
$ ftsim exec -- true
$! ftsim mixer
| ftsim: this phone has no codec (ftsim set codec present)
# Start-up stops at the first volume; the gain's control is looked up before
# the action is examined.
$ ftsim set codec present
$ ftsim set codec.missing "PCM Playback Volume;PGA Capture Switch"
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
initialize_audio: Failed to get mixer control for PCM Playback Volume

$ ftsim mixer "Line DAC Playback Volume"
| 0 0
$ ftsim get amp.enable
| 0
$! ftsim mixer "PCM Playback Volume"
| ftsim: the codec has no control named 'PCM Playback Volume'; 'ftsim mixer' lists them
ft>section508 x
audio_section508_gain: Failed to get mixer control for PCM Playback Volume
ft>loop 1 2 1
start_audio_loop : Failed to get mixer control for PGA Capture Switch
$ ftsim mixer --on
| Right PGA Mixer Line1L Switch: 1
# Running all the same, so the stop is tried, and then over.
ft>loop 0
stop_audio_loop : Failed to get mixer control for PGA Capture Switch
ft>loop 0
Audio Loop not started!
ft>q
@ exit 0
# ... or at a missing output switch, after the volumes. Composed names are
# named whole; both headphone mixers are set in turn.
$ ftsim set codec.missing "Mono Playback Switch;Left HP Mixer PGAR Bypass Switch;Right Line Mixer DACR1 Switch"
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
initialize_audio: Failed to get mixer control for Mono Playback Switch

$ ftsim mixer "PGA Capture Volume"
| 118 118
ft>loop 1 0 3
start_audio_loop : Failed to get mixer control for Left HP Mixer PGAR Bypass Switch
$ ftsim mixer --on
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1R Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
ft>loop 0
stop_audio_loop : Failed to get mixer control for Left HP Mixer PGAR Bypass Switch
ft>tone 1 0
audio_tone: Failed to get mixer control for Right Line Mixer DACR1 Switch
ft>tone 1 1
audio_tone: Failed to get mixer control for Mono Playback Switch
$ ftsim mixer --on
| Mono Mixer DACR1 Switch: 1
# The failed start had recorded its output; no thread was started.
ft>tone 0
audio_tone: Failed to get mixer control for Mono Playback Switch
ft>q
@ exit 0
$! ftsim audio never.wav
| ftsim: PCM device 5 was never opened on this phone
# A name the codec never had is a mistake of the test, refused at power-up.
$ ftsim set codec.missing "PGA Capture Switch;Bogus Switch"
$! ftsim exec -- true
| ftsim: cannot power the phone up: codec.missing names 'Bogus Switch', which is no control of the codec ('ftsim mixer' lists them)
