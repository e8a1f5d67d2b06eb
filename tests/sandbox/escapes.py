#!/usr/bin/env python3
"""Ways out of the simulated phone, each tried as a hostile program inside it
would, each checked on the host side: the host's files, folders and terminal
stay untouched.

Every attempt plants something in the phone's hardware folder (/sim inside,
STATE/hw outside) or uses the terminal, then runs the host-side verb that
used to follow it. A canary file and folder outside the state folder stand
for the host.
"""
import argparse
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "e2e"))
from terminal import Terminal  # noqa: E402

FTSIM = None
SECRET = "host-secret-7f3a\n"


class Escapes(unittest.TestCase):
    def setUp(self):
        self.host = tempfile.mkdtemp(prefix="ft-host-")
        self.state = os.path.join(self.host, "phone")
        self.canary = os.path.join(self.host, "canary")
        self.folder = os.path.join(self.host, "folder")
        with open(self.canary, "w") as f:
            f.write(SECRET)
        os.mkdir(self.folder)
        self.ftsim("reset")

    def tearDown(self):
        shutil.rmtree(self.host, ignore_errors=True)

    def ftsim(self, *args, ok=True, stdin=subprocess.DEVNULL):
        res = subprocess.run([FTSIM, "--state", self.state, *args], capture_output=True, text=True,
                             stdin=stdin, timeout=60)
        if ok is not None:
            self.assertEqual(res.returncode == 0, ok, f"ftsim {' '.join(args)}: {res.stdout}{res.stderr}")
        return res

    def plant(self, script):
        """Runs a shell script inside the phone, as any program of it could."""
        self.ftsim("exec", "--", "sh", "-c", script)

    def assert_host_untouched(self):
        with open(self.canary) as f:
            self.assertEqual(f.read(), SECRET, "the host file was changed")
        self.assertEqual(os.listdir(self.folder), [], "files appeared in the host folder")

    # --- 2. Host-side verbs must not follow what the phone plants.

    def test_log_does_not_print_a_linked_host_file(self):
        self.plant(f"ln -sf {self.canary} /sim/log")
        res = self.ftsim("log", ok=False)
        self.assertNotIn("host-secret", res.stdout + res.stderr)
        self.assertIn("not a file the phone wrote", res.stderr)

    def test_conditions_and_observed_state_do_not_follow_links(self):
        self.plant(f"rm -rf /sim/observed /sim/conditions; ln -s {self.folder} /sim/observed;"
                   f" ln -s {self.folder} /sim/conditions; ln -sf {self.canary} /sim/fail")
        self.ftsim("get", "jack.plug")
        self.ftsim("jack", "insert", "mic", ok=False)
        self.ftsim("set", "keypad", "absent", ok=False)
        self.ftsim("fail", "eeprom_read", "-1", "EIO", ok=False)
        self.ftsim("show")
        self.assert_host_untouched()

    def test_event_sources_replaced_by_links_are_not_written(self):
        self.plant(f"ln -sf {self.canary} /sim/events/cradle; ln -sf {self.canary} /sim/dev/input/event0")
        self.ftsim("hook", "off", ok=False)
        self.ftsim("key", "2", "1", ok=False)
        self.assert_host_untouched()

    def test_reset_removes_links_not_what_they_point_at(self):
        self.plant(f"ln -s {self.folder} /sim/planted; ln -s {self.canary} /data/planted")
        with open(os.path.join(self.folder, "keep"), "w") as f:
            f.write("x")
        self.ftsim("reset")
        self.assertEqual(os.listdir(self.folder), ["keep"])
        os.remove(os.path.join(self.folder, "keep"))
        self.assert_host_untouched()

    def test_snapshot_reads_no_linked_framebuffer(self):
        # A host file of the framebuffer's very size, so that only the link stops it.
        host_fb = os.path.join(self.host, "fb")
        with open(host_fb, "wb") as f:
            f.write(b"\xff" * (4 * 800 * 480))
        self.plant(f"ln -sf {host_fb} /sim/dev/fb0")
        png = os.path.join(self.host, "out.png")
        self.ftsim("lcd", png, ok=False)
        self.assertFalse(os.path.exists(png))

    # --- 3. A power-up binds only real folders of the state folder.

    def test_power_up_refuses_a_bind_source_linked_to_the_host(self):
        self.plant(f"mv /sim/dev /sim/dev.old; mkdir /sim/dev; ln -s {self.folder} /sim/dev/input")
        res = self.ftsim("exec", "--", "sh", "-c", "touch /dev/input/x", ok=False)
        self.assertIn("ftsim reset", res.stderr)
        self.assert_host_untouched()
        # A fresh phone is whole again.
        self.ftsim("reset")
        self.ftsim("exec", "--", "test", "-p", "/dev/input/event0")

    # --- 1. Nothing inside may type into the operator's terminal.

    def test_no_input_pushed_into_the_terminal(self):
        # At the terminal (the operator's interactive use) and with the
        # terminal only on standard output (a script's use).
        for stdin, fd in (("", 0), ("</dev/null", 1)):
            with self.subTest(stdin=stdin or "terminal"):
                inject = ("import fcntl, termios\n"
                          "try:\n"
                          f"    [fcntl.ioctl({fd}, termios.TIOCSTI, bytes([c])) for c in b'echo INJECTED\\n']\n"
                          "    print('pushed')\n"
                          "except OSError as e:\n"
                          "    print('refused', e.errno)\n")
                # The host shell reads one line from its terminal after the
                # phone is gone: whatever the phone pushed would arrive there.
                script = (f"{FTSIM} --state {self.state} exec -- python3 -c \"$INJECT\" {stdin}; "
                          "read -t 2 line; echo \"after:[$line]\"")
                with Terminal(argv=["/bin/bash", "-c", script], env=dict(os.environ, INJECT=inject)) as t:
                    out = t.expect(rb"after:\[[^\]]*\]")
                self.assertIn(b"refused 1", out)
                self.assertIn(b"after:[]", out)

    # --- 4. No host secrets, no new user namespaces.

    def test_host_secrets_and_user_namespaces_out_of_reach(self):
        res = self.ftsim("exec", "--", "sh", "-c",
                         "ls /etc; test -e /etc/shadow && echo shadow; unshare -U true && echo userns; "
                         "cat /proc/self/status | grep CapEff", ok=None)
        self.assertNotIn("shadow", res.stdout)
        self.assertNotIn("userns", res.stdout)
        self.assertIn("CapEff:\t0000000000000000", res.stdout)
        for name in ("shadow", "gshadow", "sudoers", "ssh"):
            self.assertNotIn(name + "\n", res.stdout)


def main():
    global FTSIM
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args, rest = ap.parse_known_args()
    FTSIM = os.path.abspath(args.ftsim)
    unittest.main(argv=[sys.argv[0]] + rest, verbosity=2)


if __name__ == "__main__":
    main()
