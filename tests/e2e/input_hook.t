# Hookswitch and EHS monitors: refused modes, the state query, switching
# reporting on and off, the single line feed before the first event of the
# process's life, and quitting while both threads wait in the library.
$ ftsim set hook off
@ shell
Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.

ft>hookswitch
hookswitchTest(): fail - incorrect parameter []
ft>hookswitch 10
hookswitchTest(): fail - incorrect parameter [10]
ft>hookswitch 3
hookswitchTest(): fail - incorrect parameter [3]
ft>ehs 2
ehsTest(): fail - incorrect parameter [2]
ft>ehs 01
ehsTest(): fail - incorrect parameter [01]
ft>ehs
ehsTest(): fail - incorrect parameter []
# The handset was lifted before power-up.
ft>hookswitch 2
HOOKSWITCH state: [OFF HOOK]
PASS
ft>hookswitch 0
Hookswitch test has already been stopped
ft>hookswitch 1
Start hookswitch test
ft>hookswitch 1
Hookswitch test has already been started
$ ftsim hook on
ft>
HOOKSWITCH event: [ON HOOK]
$ ftsim hook off
HOOKSWITCH event: [OFF HOOK]
> hookswitch 2
HOOKSWITCH state: [OFF HOOK]
PASS
ft>hookswitch 0
Stop hookswitch test
ft>hookswitch 1
Start hookswitch test
# No second line feed: it comes once in the life of the process, so this
# event lands on the prompt's line.
$ ftsim hook on
~ ft>HOOKSWITCH event: \[ON HOOK\]
> ehs 1
Start ehs test
ft>ehs 1
Ehs test has already been started
# The EHS monitor has a first event of its own.
$ ftsim ehs off
ft>
EHS event: [OFF HOOK]
$ ftsim ehs on
EHS event: [ON HOOK]
$ ftsim hook off
HOOKSWITCH event: [OFF HOOK]
> ehs 0
Stop ehs test
ft>ehs 0
Ehs test has already been stopped
# A state query that the library refuses.
$ ftsim fail CradleHookswitch_GetState 5 EIO
ft>hookswitch 2
FAIL
$ ftsim unfail all
ft>hookswitch 2
HOOKSWITCH state: [OFF HOOK]
PASS
ft>q
@ exit 0
$ ftsim get hook
| off
