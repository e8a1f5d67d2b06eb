# Without a codec, and with codecs that lack a control: each operation stops
# at the first control it cannot find, names it, and leaves what it set.
# An empty line after a silent command waits for its prompt.
$ ftsim set codec absent
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
initialize_audio : mixer_open failed

ft>loop 1 0 2
start_audio_loop : Failed to get mixer control for Right PGA Mixer Line1R Switch
# Marked running all the same, so the stop is tried.
ft>loop 0
stop_audio_loop : Failed to get mixer control for PGA Capture Switch
ft>loop 0
Audio Loop not started!
ft>section508 1
audio_section508_gain: Failed to get mixer control for PCM Playback Volume
ft>tone 1 2
audio_tone: Failed to get mixer control for Left Line Mixer DACR1 Switch
# The failed start had recorded its output.
ft>tone 0
audio_tone: Failed to get mixer control for Line Playback Switch
ft>q
@ exit 0
$! ftsim mixer
| ftsim: this phone has no codec (ftsim set codec present)
$ ftsim get amp.enable
| 0
$ ftsim get pcm.5
| closed
$ ftsim log
# A codec that cannot be opened is the same to the shell.
$ ftsim set codec present
$ ftsim fail mixer_open 0 ENODEV
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
initialize_audio : mixer_open failed

ft>section508 x
audio_section508_gain: Failed to get mixer control for PCM Playback Volume
ft>q
@ exit 0
$ ftsim unfail all
# Start-up stops at a missing volume: those before it are set, those after not.
$ ftsim set codec.missing "HP DAC Playback Volume"
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
initialize_audio: Failed to get mixer control for HP DAC Playback Volume

$ ftsim mixer "HP PGA Bypass Volume"
| 118 118
$ ftsim mixer "PGA Capture Volume"
| 0 0
$ ftsim get amp.enable
| 0
$! ftsim mixer "HP DAC Playback Volume"
| ftsim: the codec has no control named 'HP DAC Playback Volume'; 'ftsim mixer' lists them
ft>q
@ exit 0
# ... or at a missing output switch, after the outputs before it.
$ ftsim set codec.missing "Mono Playback Switch;Left HP Mixer PGAR Bypass Switch;Right Line Mixer DACR1 Switch"
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
initialize_audio: Failed to get mixer control for Mono Playback Switch

$ ftsim mixer "PGA Capture Volume"
| 118 118
$ ftsim log
# Composed names are named whole; both headphone mixers are set in turn.
ft>loop 1 0 3
start_audio_loop : Failed to get mixer control for Left HP Mixer PGAR Bypass Switch
ft><enter>
$ ftsim mixer --on
| PGA Capture Switch: 0 1
| Right PGA Mixer Line1R Switch: 1
| Right HP Mixer PGAR Bypass Switch: 1
ft>loop 0
stop_audio_loop : Failed to get mixer control for Left HP Mixer PGAR Bypass Switch
ft><enter>
$ ftsim mixer --on
ft>tone 1 0
audio_tone: Failed to get mixer control for Right Line Mixer DACR1 Switch
ft>tone 1 1
audio_tone: Failed to get mixer control for Mono Playback Switch
ft><enter>
$ ftsim mixer --on
| Mono Mixer DACR1 Switch: 1
ft>tone 0
audio_tone: Failed to get mixer control for Mono Playback Switch
ft>q
@ exit 0
# No thread was started.
$ ftsim get pcm.5
| closed
$! ftsim audio never.wav
| ftsim: PCM device 5 was never opened on this phone
# The gain's control is looked up before the action is examined.
$ ftsim set codec.missing "PCM Playback Volume;PGA Capture Switch"
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.
initialize_audio: Failed to get mixer control for PCM Playback Volume

ft>section508 x
audio_section508_gain: Failed to get mixer control for PCM Playback Volume
ft>loop 1 2 1
start_audio_loop : Failed to get mixer control for PGA Capture Switch
ft><enter>
$ ftsim mixer --on
| Right PGA Mixer Line1L Switch: 1
ft>loop 0
stop_audio_loop : Failed to get mixer control for PGA Capture Switch
ft>q
@ exit 0
# A name the codec never had is a mistake of the test, refused at power-up.
$ ftsim set codec.missing "PGA Capture Switch;Bogus Switch"
$! ftsim exec -- true
| ftsim: cannot power the phone up: codec.missing names 'Bogus Switch', which is no control of the codec ('ftsim mixer' lists them)
