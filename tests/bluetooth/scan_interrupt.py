#!/usr/bin/env python3
"""Ctrl+C at the terminal of the phone's console, as an operator types it:
during a scan it ends the discovery and the shell goes on; a second one
during the same scan (here while the scan waits for a discovery it could not
cancel) ends the shell; once a scan is over, Ctrl+C has its default effect
again. Also the phone's Bluetooth defaults, `ftsim show` while a discovery
runs, and a scan that finds more devices than the table's 20 rows."""
import argparse
import os
import re
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "shell"))
from phone import Phone  # noqa: E402  (it puts tests/e2e on the path too)
from terminal import Terminal  # noqa: E402

PROMPT = rb"(\x1b\[\?2004h)?ft>"
SIGINT_STATUS = 130


def check(cond, what):
    if not cond:
        raise AssertionError(what)


def clean(t):
    check(b"Sanitizer" not in t.seen, "a sanitizer spoke:\n" + t.seen.decode(errors="replace"))


def get(phone, name):
    return phone.ftsim("get", name).decode().strip()


def initialized(phone):
    t = Terminal(phone.ftsim_path, phone.state)
    t.expect(rb"ft>")
    t.type("bt init\r")
    t.expect(rb"BT interface initialized\r\nPASS\r\n" + PROMPT)
    return t


def scan_until_all_found(t):
    t.type("bt scan\r")
    t.expect(rb"BT state changed: ON\r\nBT discovery STARTED\r\nName +Address +Class +Type +RSSI\r\n"
             rb"Meeting Room Speaker 02:4B:10:DA:71:13 0x240414 BREDR -52\r\n"
             rb"Badge Tag            06:3C:22:6B:0E:91 BLE   -77\r\n"
             rb"Unknown              0A:5E:31:8A:21:04 0x5A020C DUAL  -64\r\n")


def cancelled_scan_and_show(phone):
    """One Ctrl+C ends the discovery; the second, while the scan waits for a
    discovery it could not cancel, ends the shell."""
    for name, default in (("bt.discovery_ms", "3000"), ("bt.driver.busy", "0"), ("bt.addr_loader", "0")):
        check(get(phone, name) == default, f"{name} is {get(phone, name)} on a fresh phone")
    show = phone.ftsim("show").decode()
    check("bluetooth: module present, driver unloaded, HAL present (stack stopped), adapter off, "
          "address 00:11:22:AA:BB:CC\nbluetooth devices in range: 3\n"
          "  02:4B:10:DA:71:13 \"Meeting Room Speaker\" class 0x240414 BR/EDR RSSI -52\n"
          "  06:3C:22:6B:0E:91 \"Badge Tag\" LE RSSI -77\n"
          "  0A:5E:31:8A:21:04 class 0x5A020C dual mode RSSI -64\n" in show, "show on a fresh phone:\n" + show)
    # Long enough that only Ctrl+C ends it.
    phone.ftsim("set", "bt.discovery_ms", "600000")
    with initialized(phone) as t:
        scan_until_all_found(t)
        show = phone.ftsim("show").decode()
        check("bluetooth: module present, driver loaded, HAL present (stack running), adapter on, discovering, "
              "address 00:11:22:AA:BB:CC\n" in show, "show: driver, adapter, discovery:\n" + show)
        t.ctrl_c()
        after = t.expect(rb"ft>")
        check(re.fullmatch(rb"\^CBT discovery STOPPED\r\nBT state changed: OFF\r\n" + PROMPT, after),
              f"the cancelled scan printed {after!r}")
        check(get(phone, "bt.discovering") == "no" and get(phone, "bt.adapter") == "off", "discovery and adapter")

        # The shell goes on: the next scan finds the devices afresh.
        phone.ftsim("fail", "bt_cancel_discovery", "1")
        scan_until_all_found(t)
        t.ctrl_c()
        t.expect(rb"\^CBT: failed to cancel discovery or already finished\r\n")
        # The scan waits for the discovery to end: the HAL's thread still
        # fills the table. A shell that went on would show its prompt at once.
        check(get(phone, "bt.discovering") == "yes", "the discovery runs on")
        waiting = t.drain(0.5)
        check(b"ft>" not in waiting and b"STOPPED" not in waiting, f"the scan went on: {waiting!r}")
        t.ctrl_c()
        status = t.wait_exit()
        check(status == SIGINT_STATUS, f"the second Ctrl+C: exit status {status}")
        clean(t)


def full_table_and_default_action(phone):
    """A scan lists 20 of 21 devices; once it ran its course, SIGINT's
    default action is back."""
    phone.ftsim("set", "bt.discovery_ms", "800")
    phone.ftsim("set", "bt.devices", ";".join(f"02:00:00:00:00:{i:02X},name=Device {i:02d},rssi=-{40 + i}"
                                              for i in range(1, 22)))
    with initialized(phone) as t:
        t.type("bt scan\r")
        t.expect(rb"BT state changed: ON\r\nBT discovery STARTED\r\n")
        rows = b"".join(b"Device %02d            02:00:00:00:00:%02X -%d\r\n" % (i, i, 40 + i) for i in range(1, 21))
        table = t.expect(rb"ft>")
        check(re.fullmatch(rb"Name +Address +Class +Type +RSSI\r\n" + re.escape(rows) +
                           rb"BT discovery STOPPED\r\nBT state changed: OFF\r\n" + PROMPT, table),
              f"the scan printed {table!r}")
        status = t.ctrl_c_at_prompt()
        check(status == SIGINT_STATUS, f"Ctrl+C at the prompt: exit status {status}")
        clean(t)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args = ap.parse_args()
    for case in (cancelled_scan_and_show, full_table_and_default_action):
        with Phone(args.ftsim) as phone:
            case(phone)
            print(f"ok {case.__name__}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
