#!/usr/bin/env python3
"""Ctrl+C at the terminal of the phone's console, as an operator types it:
during a scan it ends the discovery and the shell goes on; a second one
during the same scan (here while the scan waits for a discovery it could not
cancel) ends the shell; once a scan is over, Ctrl+C has its default effect
again. Also `ftsim show` while a discovery runs."""
import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "e2e"))
from terminal import Terminal  # noqa: E402

DEVICES = [rb"Meeting Room Speaker 02:4B:10:DA:71:13 0x240414 BREDR -52\r\n",
           rb"Badge Tag            06:3C:22:6B:0E:91 BLE   -77\r\n",
           rb"Unknown              0A:5E:31:8A:21:04 0x5A020C DUAL  -64\r\n"]
SIGINT_STATUS = 130


def check(cond, what):
    if not cond:
        raise AssertionError(what)


class Phone:
    def __init__(self, ftsim):
        self.ftsim = ftsim
        self.state = tempfile.mkdtemp(prefix="ft-bt-")

    def run(self, *words):
        res = subprocess.run([self.ftsim, "--state", self.state, *words], capture_output=True, text=True, timeout=60)
        check(res.returncode == 0, f"ftsim {' '.join(words)}: {res.stderr}")
        return res.stdout

    def get(self, name):
        return self.run("get", name).strip()

    def terminal(self):
        return Terminal(self.ftsim, self.state)

    def remove(self):
        shutil.rmtree(self.state, ignore_errors=True)


def initialized(t):
    t.expect(rb"ft>")
    t.type("bt init\r")
    t.expect(rb"BT interface initialized\r\nPASS\r\n")
    t.expect(rb"ft>")


def scan_until_all_found(t):
    t.type("bt scan\r")
    t.expect(rb"BT state changed: ON\r\nBT discovery STARTED\r\nName +Address +Class +Type +RSSI\r\n" +
             b"".join(DEVICES))


def clean(t):
    check(b"ThreadSanitizer" not in t.seen and b"Sanitizer" not in t.seen, "a sanitizer spoke:\n" +
          t.seen.decode(errors="replace"))


def cancelled_scan_and_show(phone):
    """One Ctrl+C ends the discovery; the second, while the scan waits for a
    discovery it could not cancel, ends the shell."""
    # Long enough that only Ctrl+C ends it.
    phone.run("set", "bt.discovery_ms", "600000")
    with phone.terminal() as t:
        initialized(t)
        scan_until_all_found(t)
        show = phone.run("show")
        print(show)
        check("bluetooth: module present, driver loaded, HAL present (stack running), adapter on, discovering, "
              "address 00:11:22:AA:BB:CC\n" in show, "show: driver, adapter, discovery")
        check("bluetooth devices in range: 3\n"
              "  02:4B:10:DA:71:13 \"Meeting Room Speaker\" class 0x240414 BR/EDR RSSI -52\n"
              "  06:3C:22:6B:0E:91 \"Badge Tag\" LE RSSI -77\n"
              "  0A:5E:31:8A:21:04 class 0x5A020C dual mode RSSI -64\n" in show, "show: the devices in range")

        t.ctrl_c()
        after = t.expect(rb"ft>")
        check(re.fullmatch(rb"\^CBT discovery STOPPED\r\nBT state changed: OFF\r\n(\x1b\[\?2004h)?ft>", after),
              f"the cancelled scan printed {after!r}")
        check(phone.get("bt.discovering") == "no" and phone.get("bt.adapter") == "off", "discovery and adapter")

        # The shell goes on: the next scan finds the devices afresh.
        phone.run("fail", "bt_cancel_discovery", "1")
        scan_until_all_found(t)
        t.ctrl_c()
        t.expect(rb"\^CBT: failed to cancel discovery or already finished\r\n")
        # The scan waits for the discovery to end: the HAL's thread still
        # fills the table. A shell that went on would show its prompt at once.
        check(phone.get("bt.discovering") == "yes", "the discovery runs on")
        waiting = t.drain(0.5)
        check(b"ft>" not in waiting and b"STOPPED" not in waiting, f"the scan went on: {waiting!r}")
        t.ctrl_c()
        status = t.wait_exit()
        check(status == SIGINT_STATUS, f"the second Ctrl+C: exit status {status}")
        clean(t)


def default_action_after_scan(phone):
    """A scan that ran its course puts SIGINT's default action back."""
    phone.run("set", "bt.discovery_ms", "800")
    phone.run("set", "bt.devices", "")
    with phone.terminal() as t:
        initialized(t)
        t.type("bt scan\r")
        t.expect(rb"BT discovery STARTED\r\nBT discovery STOPPED\r\nBT state changed: OFF\r\n")
        t.expect(rb"ft>")
        t.ctrl_c()
        # Under ThreadSanitizer readline learns of the signal only with the
        # next key; the plain shell has ended before that key arrives.
        t.type("\r")
        status = t.wait_exit()
        check(status == SIGINT_STATUS, f"Ctrl+C at the prompt: exit status {status}")
        clean(t)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args = ap.parse_args()
    for case in (cancelled_scan_and_show, default_action_after_scan):
        phone = Phone(args.ftsim)
        try:
            case(phone)
            print(f"ok {case.__name__}")
        finally:
            phone.remove()
    return 0


if __name__ == "__main__":
    sys.exit(main())
