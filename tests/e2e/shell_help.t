# The three help screens, byte for byte with their tabs, under every word that
# shows them, and a look-alike that does not. Each screen is kept once, in
# shell_help/; a difference shows as a diff of the whole session.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>help


< shell_help/main.txt
ft>h


< shell_help/main.txt
ft>?


< shell_help/main.txt
ft>ft help extra words


< shell_help/main.txt
ft>audio
< shell_help/audio.txt
ft>audio 1 2 3
< shell_help/audio.txt
ft>l2
< shell_help/l2.txt
ft>HELP
Not a valid command
ft>quit
@ exit 0
