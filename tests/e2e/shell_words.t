# Blank lines, leading ft words, exact command words, and lines refused whole.
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft><enter>
ft>     
ft>ft ft
ft>productions
Not a valid command
ft>prod
Not a valid command
ft>xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy zzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzzz
Line too long: at most 255 characters. Nothing was run.
ft>program write SN_UNIT aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa
Word too long: at most 99 characters. Nothing was run.
ft>program write SN_UNIT w w w w w w w w w w w w w w w w w w w w w 
Too many words: at most 20. Nothing was run.
ft>program write SN_UNIT "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"
Value too long: at most 99 characters between the quotes. Nothing was written.
ft>program read SN_UNIT
SN_UNIT = "<NOT Initialized>"
ft>^D
@ exit 0
