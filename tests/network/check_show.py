#!/usr/bin/env python3
"""The wired network's lines of `ftsim show`: on a phone never powered up,
after a session has changed them, and after a power cycle, which brings all
but the cables (conditions) back as a boot does."""
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "shell"))
from phone import Phone  # noqa: E402

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
    failed = False
    with Phone(sys.argv[sys.argv.index("--ftsim") + 1]) as phone:
        for what, want, *steps in [("never powered up", FRESH),
                                   ("after a session", CHANGED, ["set", "switch.gigabit.pc", "no"],
                                    ["set", "switch.partner.pc", "1000"],
                                    ["exec", "--", "sh", "-c", f"touch /tmp/factorytest.txt; printf '{SESSION}' | ft"]),
                                   ("after a power cycle", CYCLED, ["exec", "--", "true"])]:
            for step in steps:
                phone.ftsim(*step)
            got = "".join(l + "\n" for l in phone.ftsim("show").decode().splitlines()
                          if l.startswith(("switch ", "eth0:", "leds:")))
            if got != want:
                failed = True
                print(f"{what}: expected\n{want}got\n{got}")
    print("FAILED" if failed else "ok")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
