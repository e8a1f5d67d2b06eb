#!/usr/bin/env python3
"""The wired network's lines of `ftsim show`: the switch ports, eth0 and the
lamps, on a phone never powered up and after a session has changed them,
and a fresh power-up bringing them back as a boot does."""
import argparse
import shutil
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

# After "ip 1 192.168.1.20" in factory test, on a PC cable of 1000 Mb/s
# into a port without it.
ADDRESSED = """\
switch PC (0x1): configured auto, actual 100 full, link up, no test mode; cable: partner 1000, port without 1000
switch LAN (0x2): configured auto, actual 1000 full, link up, no test mode; cable: partner 1000
switch CPU (0x400): configured auto, actual 1000 full, link up, no test mode
eth0: up, 1000Mb/s full duplex, autoneg on, inet 192.168.1.20
leds: off; Ethernet LED test: none
"""

# After SESSION, powered up afresh: the address is gone with the last boot.
CHANGED = """\
switch PC (0x1): configured 100 full, actual 100 full, link up, no test mode; cable: partner 1000, port without 1000
switch LAN (0x2): configured auto, actual none, link down, test mode 2; cable: partner 1000
switch CPU (0x400): configured auto, actual disabled, link port disabled, no test mode
eth0: down, 10Mb/s half duplex, autoneg off, no address
leds: flash 500/500; Ethernet LED test: 3
"""

SESSION = """\
eth 0 100
eth 1 1002
l2setLinkStatus 2 4
setport 1 11
setport 1 1
led flash
ethled enable
"""


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args = ap.parse_args()
    state = tempfile.mkdtemp(prefix="ft-show-")

    def ftsim(*words, stdin=None):
        res = subprocess.run([args.ftsim, "--state", state, *words], input=stdin, capture_output=True, timeout=120)
        if res.returncode != 0:
            raise AssertionError(f"ftsim {' '.join(words)}: {res.stderr.decode()}")
        return res.stdout.decode()

    def network_lines():
        return "".join(l + "\n" for l in ftsim("show").splitlines() if l.startswith(("switch ", "eth0:", "leds:")))

    failed = False

    def expect(what, want, got):
        nonlocal failed
        if want != got:
            failed = True
            print(f"{what}: expected\n{want}got\n{got}")

    try:
        ftsim("reset")
        expect("a phone never powered up", FRESH, network_lines())
        ftsim("set", "switch.gigabit.pc", "no")
        ftsim("set", "switch.partner.pc", "1000")
        ftsim("exec", "--", "sh", "-c", "touch /tmp/factorytest.txt; echo 'ip 1 192.168.1.20' | ft >/dev/null")
        expect("after ip in factory test", ADDRESSED, network_lines())
        ftsim("shell", stdin=SESSION.encode())
        expect("after a session", CHANGED, network_lines())
        # A power cycle: the switch, eth0 and the lamps come up as at any boot.
        ftsim("exec", "--", "true")
        expect("after a power cycle", ADDRESSED.replace("inet 192.168.1.20", "no address"), network_lines())
    finally:
        shutil.rmtree(state, ignore_errors=True)
    print("FAILED" if failed else "ok")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
