#!/usr/bin/env python3
"""usbrw at the phone's terminal, as an operator runs it: ended by Ctrl+C, by
a block that reads back different, by an I/O error and by a stick pulled out,
with a second Ctrl+C while the test is still stopping. Every way out leaves
no mount, no mount point and no test file in the phone, and afterwards
Ctrl+C has its default effect again."""
import argparse
import os
import re
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "e2e"))
from terminal import Terminal  # noqa: E402

PROGRESS = rb"USB test in progress\.\.\. Press Ctrl\+C to abort\r\n"
PROMPT = rb"ft>"
# What the terminal adds: carriage returns, and readline's mode switches.
TERMINAL_ONLY = re.compile(rb"\r|\x1b\[[0-9;?]*[A-Za-z]")
TEST_FILE = "usbrw_test_file"
PASS_BYTES = 2048 * 512


def check(cond, what):
    if not cond:
        raise AssertionError(what)


class Phone:
    def __init__(self, ftsim):
        self.ftsim = ftsim
        self.state = tempfile.mkdtemp(prefix="ft-usbrw-")
        self.stick = os.path.join(self.state, "usb")

    def run(self, *words):
        res = subprocess.run([self.ftsim, "--state", self.state, *words], capture_output=True, text=True, timeout=60)
        check(res.returncode == 0, f"ftsim {' '.join(words)}: {res.stderr}")
        return res.stdout

    def show_usb(self):
        return [l for l in self.run("show").splitlines() if l.startswith("USB stick:")][0]

    def stick_files(self):
        return sorted(os.listdir(self.stick))

    def wait_for_full_pass(self):
        """Until the test file on the stick holds a whole pass."""
        path = os.path.join(self.stick, TEST_FILE)
        deadline = time.monotonic() + 20
        while time.monotonic() < deadline:
            if os.path.exists(path) and os.path.getsize(path) == PASS_BYTES:
                return
            time.sleep(0.05)
        raise AssertionError("the test never wrote a whole pass to the stick")

    def wait_for_stalled_write(self):
        """Until the shell's thread sleeps in the stalled stick's write. A
        kernel that does not name where a task waits gets a few seconds."""
        deadline = time.monotonic() + 3
        while time.monotonic() < deadline:
            if "nanosleep" in self.run("exec", "--", "sh", "-c", "cat /proc/$(busybox pidof ft)/wchan"):
                return
            time.sleep(0.05)

    def check_undone(self, stick_keeps=()):
        """No mount, no mount point, and on the stick only what was there."""
        check(self.run("get", "usb.mounted") == "no\n", "the stick is still mounted")
        check(self.run("get", "usb.mount.options") == "\n", "the mount's options remain")
        check(not os.path.lexists(os.path.join(self.state, "persist/data/usb_test")), "the mount point remains")
        check(self.stick_files() == sorted(stick_keeps), f"the stick holds {self.stick_files()}")

    def close(self):
        subprocess.run(["rm", "-rf", "--one-file-system", self.state])


def ended_by(t, message):
    """The prompt follows the test's message (if any) directly, with nothing else."""
    text = TERMINAL_ONLY.sub(b"", t.expect(PROMPT))
    check(text == message + b"ft>", f"the test ended with {text!r}")


def start(t):
    t.type("usbrw\r")
    t.expect(rb"usbrw\r\n")
    t.expect(PROGRESS)


def ctrl_c_and_faults(ftsim):
    phone = Phone(ftsim)
    try:
        phone.run("reset")
        phone.run("set", "usb.stick", "present")
        with Terminal(ftsim, phone.state) as t:
            t.expect(PROMPT)
            before = phone.show_usb()
            print("before:", before)
            check(before == 'USB stick: present as /dev/block/sda1, "USB Flash Disk", not mounted', before)

            # Ctrl+C, once a pass went by.
            start(t)
            phone.wait_for_full_pass()
            during = phone.show_usb()
            print("during:", during)
            check(during.endswith(", mounted on /data/usb_test (rw,nosuid,sync)"), during)
            # The mount is the phone's, not the shell's alone.
            check(phone.run("exec", "--", "ls", "/data/usb_test") == TEST_FILE + "\n", "the mount point shows no test file")
            t.ctrl_c()
            ended_by(t, b"^C")
            after = phone.show_usb()
            print("after: ", after)
            check(after == before, after)
            phone.check_undone()

            # A block that reads back different ends the run at its first block.
            phone.run("set", "usb.stick.fault", "mismatch")
            start(t)
            ended_by(t, b"FAIL. Read block does not match written block")
            phone.check_undone()

            phone.run("set", "usb.stick.fault", "ioerror")
            start(t)
            ended_by(t, b"Error: Input/output error")
            phone.check_undone()

            # A second Ctrl+C while the first is still being answered: the
            # write in progress hangs until the stick recovers.
            phone.run("set", "usb.stick.fault", "stall")
            start(t)
            phone.wait_for_stalled_write()
            t.ctrl_c()
            time.sleep(0.3)
            t.ctrl_c()
            t.expect(rb"signal_handler: signal already received\.\r\n")
            phone.run("set", "usb.stick.fault", "none")
            ended_by(t, b"")
            phone.check_undone()

            # Pulled out while it runs: nothing more reaches the stick, which
            # keeps what was on it when it went.
            start(t)
            phone.wait_for_full_pass()
            phone.run("set", "usb.stick", "none")
            ended_by(t, b"Error: Input/output error")
            phone.check_undone(stick_keeps=[TEST_FILE])
            check(phone.show_usb() == "USB stick: none", phone.show_usb())

            # A second run without a stick: the first run's handles are long gone.
            t.type("usbrw\r")
            t.expect(rb"usbrw\r\n")
            ended_by(t, b"USB device cannot be mounted or is not attached to the phone\n")
            phone.check_undone(stick_keeps=[TEST_FILE])

            # Back in: the next run replaces the old file and removes its own.
            phone.run("set", "usb.stick", "present")
            start(t)
            t.ctrl_c()
            ended_by(t, b"^C")
            phone.check_undone()

            # Between tests Ctrl+C ends the shell, as by default. (readline
            # acts on it at once, or, under ThreadSanitizer, at the next key.)
            t.ctrl_c()
            time.sleep(0.2)
            try:
                t.type("\r")
            except OSError:
                pass
            status = t.wait_exit()
            check(status == 128 + 2, f"the shell ended with {status} after Ctrl+C at the prompt")
    finally:
        phone.close()


def last_candidate(ftsim):
    """The stick on sdo, the last device tried; a mount point that was there
    before goes too."""
    phone = Phone(ftsim)
    try:
        phone.run("reset")
        phone.run("set", "usb.stick", "present")
        phone.run("set", "usb.stick.device", "sdo")
        phone.run("exec", "--", "mkdir", "/data/usb_test")
        with Terminal(ftsim, phone.state) as t:
            t.expect(PROMPT)
            start(t)
            check(phone.run("get", "usb.mounted") == "/data/usb_test\n", "sdo1 was not mounted")
            check(phone.show_usb().startswith("USB stick: present as /dev/block/sdo1"), phone.show_usb())
            t.ctrl_c()
            ended_by(t, b"^C")
            phone.check_undone()
            t.type("q\r")
            check(t.wait_exit() == 0, "quit did not end the shell")
    finally:
        phone.close()


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args = ap.parse_args()
    ctrl_c_and_faults(args.ftsim)
    last_candidate(args.ftsim)
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
