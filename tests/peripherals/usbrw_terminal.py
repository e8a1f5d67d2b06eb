#!/usr/bin/env python3
"""usbrw at the phone's terminal: ended by Ctrl+C (twice while a write
stalls), an I/O error and a stick pulled out, each leaving no mount, mount
point or test file, and Ctrl+C its default effect. Also the peripherals'
defaults, as a fresh phone's `ftsim show` and usblist tell them."""
import argparse
import os
import re
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "shell"))
from phone import Phone  # noqa: E402  (it puts tests/e2e on the path too)
from terminal import Terminal  # noqa: E402

TEST_FILE = "usbrw_test_file"
TERMINAL_ONLY = re.compile(rb"\r|\x1b\[[0-9;?]*[A-Za-z]")


def check(cond, what):
    if not cond:
        raise AssertionError(what)


def wait_until(cond, seconds):
    deadline = time.monotonic() + seconds
    while not cond() and time.monotonic() < deadline:
        time.sleep(0.05)
    return cond()


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    with Phone(ap.parse_args().ftsim) as phone:
        run = lambda *words: phone.ftsim(*words).decode()  # noqa: E731
        show = run("show")
        check("USB stick: none\nUSB port: host mode, power on, current limit 500 mA, no overcurrent\n"
              "camera: present, application stopped, pictures taken 0\ncradle: connected, charger off\n"
              "/cache: writable\n" in show, "a fresh phone's show:\n" + show)
        run("set", "usb.stick", "present")
        test_file = os.path.join(phone.state, "usb", TEST_FILE)
        show_usb = lambda: [l for l in run("show").splitlines() if l.startswith("USB stick:")][0]  # noqa: E731

        def start():
            t.type("usbrw\r")
            t.expect(rb"USB test in progress\.\.\. Press Ctrl\+C to abort\r\n")

        def full_pass():
            check(wait_until(lambda: os.path.exists(test_file) and os.path.getsize(test_file) == 2048 * 512, 20),
                  "the test never wrote a whole pass to the stick")

        def ended_by(message, stick_keeps=()):
            # The prompt follows the test's message directly; nothing of the run is left.
            text = TERMINAL_ONLY.sub(b"", t.expect(rb"ft>"))
            check(text == message + b"ft>", f"the test ended with {text!r}")
            check(run("get", "usb.mounted") == "no\n" and run("get", "usb.mount.options") == "\n", "still mounted")
            check(not os.path.lexists(os.path.join(phone.state, "persist/data/usb_test")), "the mount point remains")
            files = os.listdir(os.path.dirname(test_file))
            check(files == list(stick_keeps), f"the stick holds {files}")

        with Terminal(phone.ftsim_path, phone.state) as t:
            t.expect(rb"ft>")
            check(show_usb() == 'USB stick: present as /dev/block/sda1, "USB Flash Disk", not mounted', show_usb())
            # The default model as sysfs shows it: blank-padded to 16 characters.
            t.type("usblist\r")
            t.expect(rb"\r\nhost0:\r\nUSB Flash Disk  \r\n")
            # Ctrl+C, once a pass went by. The mount is the phone's, not the shell's alone.
            start()
            full_pass()
            check(show_usb().endswith(", mounted on /data/usb_test (rw,nosuid,sync)"), show_usb())
            # The mount point the test made is for root alone.
            mode = os.stat(os.path.join(phone.state, "persist/data/usb_test")).st_mode & 0o7777
            check(mode == 0o700, f"the mount point was made with mode {mode:o}")
            check(run("exec", "--", "ls", "/data/usb_test") == TEST_FILE + "\n", "the mount point shows no test file")
            t.ctrl_c()
            ended_by(b"^C")

            run("set", "usb.stick.fault", "ioerror")
            start()
            ended_by(b"Error: Input/output error")

            # A second Ctrl+C while a stalled write holds up the first (a kernel
            # that does not name where a task waits gets a few seconds).
            run("set", "usb.stick.fault", "stall")
            start()
            wait_until(lambda: "nanosleep" in run("exec", "--", "sh", "-c", "cat /proc/$(busybox pidof ft)/wchan"), 3)
            t.ctrl_c()
            # The terminal raises the signal before it echoes ^C; the second
            # Ctrl+C must not find the first still pending, or the two are one.
            t.expect(rb"\^C")
            pending = lambda: run("exec", "--", "sh", "-c",  # noqa: E731
                                  "grep -E '^(SigPnd|ShdPnd)' /proc/$(busybox pidof ft)/status").split()
            check(wait_until(lambda: all(int(v, 16) & 2 == 0 for v in pending()[1::2]), 10),
                  "the first Ctrl+C stayed pending")
            t.ctrl_c()
            t.expect(rb"signal_handler: signal already received\.\r\n")
            run("set", "usb.stick.fault", "none")
            ended_by(b"")

            # Pulled out while it runs: the stick keeps what it had when it went.
            start()
            full_pass()
            run("set", "usb.stick", "none")
            ended_by(b"Error: Input/output error", [TEST_FILE])
            check(show_usb() == "USB stick: none", show_usb())

            # Between tests Ctrl+C ends the shell (at once, or under ThreadSanitizer at the next key).
            status = t.ctrl_c_at_prompt()
            check(status == 128 + 2, f"the shell ended with {status} after Ctrl+C at the prompt")
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
