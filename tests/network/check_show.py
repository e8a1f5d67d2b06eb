#!/usr/bin/env python3
"""The wired network's lines of `ftsim show`: on a phone never powered up,
after a session has changed them, and after a power cycle, which brings all
but the cables (conditions) back as a boot does."""
import subprocess
import sys
import tempfile

FRESH = """\
switch PC (0x1): configured auto, actual none, link down, no test mode; cable: nothing
switch LAN (0x2): configured auto, actual 1000 full, link up, no test mode; cable: partner 1000
switch CPU (0x400): configured auto, actual 1000 full, link up, no test mode
eth0: up, 1000Mb/s full duplex, autoneg on, no address
leds: off; Ethernet LED test: none
"""
# In factory test, on a PC cable of 1000 Mb/s into a port without it.
SESSION = "ip 1 192.168.1.20\neth 0 100\neth 1 1002\nl2setLinkStatus 2 4\nsetport 1 11\nsetport 1 1\nled flash\nethled enable\n"
CHANGED = """\
switch PC (0x1): configured 100 full, actual 100 full, link up, no test mode; cable: partner 1000, port without 1000
switch LAN (0x2): configured auto, actual none, link down, test mode 2; cable: partner 1000
switch CPU (0x400): configured auto, actual disabled, link port disabled, no test mode
eth0: down, 10Mb/s half duplex, autoneg off, inet 192.168.1.20
leds: flash 500/500; Ethernet LED test: 3
"""
CYCLED = FRESH.replace("actual none, link down, no test mode; cable: nothing",
                       "actual 100 full, link up, no test mode; cable: partner 1000, port without 1000")


def main():
    ftsim = [sys.argv[sys.argv.index("--ftsim") + 1], "--state", tempfile.mkdtemp(prefix="ft-show-")]
    run = lambda *words: subprocess.run(ftsim + list(words), check=True, capture_output=True, timeout=120).stdout
    failed = False
    for what, want, *steps in [("never powered up", FRESH, ["reset"]),
                               ("after a session", CHANGED, ["set", "switch.gigabit.pc", "no"],
                                ["set", "switch.partner.pc", "1000"],
                                ["exec", "--", "sh", "-c", f"touch /tmp/factorytest.txt; printf '{SESSION}' | ft"]),
                               ("after a power cycle", CYCLED, ["exec", "--", "true"])]:
        for step in steps:
            run(*step)
        got = "".join(l + "\n" for l in run("show").decode().splitlines() if l.startswith(("switch ", "eth0:", "leds:")))
        if got != want:
            failed = True
            print(f"{what}: expected\n{want}got\n{got}")
    subprocess.run(["rm", "-rf", ftsim[2]])
    print("FAILED" if failed else "ok")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
