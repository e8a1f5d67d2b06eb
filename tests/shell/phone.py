"""A fresh simulated phone for one test, and the factory shell on it as a
station drives it: standard input a pipe, standard output read as it comes."""
import os
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "e2e"))
from transcript import TIMEOUT, Stream  # noqa: E402

BANNER = b"Opening watchdog file at /dev/watchdog ... Disabling watchdog timer.\n\n"


class Phone:
    def __init__(self, ftsim):
        self.ftsim_path = ftsim
        self.state = tempfile.mkdtemp(prefix="ft-phone-")
        self.ftsim("reset")

    def __enter__(self):
        return self

    def __exit__(self, *exc):
        subprocess.run(["rm", "-rf", "--one-file-system", self.state])

    def ftsim(self, *args):
        return subprocess.run([self.ftsim_path, "--state", self.state, *args], check=True, capture_output=True,
                              timeout=TIMEOUT).stdout

    def session(self, data):
        """The shell on @p data, then end of input: standard output, standard error, exit status."""
        proc = subprocess.run([self.ftsim_path, "--state", self.state, "shell"], input=data, capture_output=True,
                              timeout=TIMEOUT * 6)
        return proc.stdout, proc.stderr, proc.returncode


class Shell:
    """The shell on a pipe, its output gathered as it comes."""

    def __init__(self, phone):
        self.proc = subprocess.Popen([phone.ftsim_path, "--state", phone.state, "shell"], stdin=subprocess.PIPE,
                                     stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.out, self.err = Stream(self.proc.stdout), Stream(self.proc.stderr)

    def send(self, text):
        self.proc.stdin.write(text)
        self.proc.stdin.flush()

    def wait_for(self, done):  # until done(output so far) holds
        deadline = time.monotonic() + TIMEOUT
        while not done(out := self.out.wait_for(0, 0)):
            if self.out.closed or time.monotonic() > deadline:
                raise AssertionError(f"the shell's output never got there; it ends:\n{out[-2000:]!r}")
            self.out.wait_for(len(out) + 1, 0.05)
        return out

    def finish(self):  # ends the input; the exit status
        self.proc.stdin.close()
        try:
            status = self.proc.wait(timeout=TIMEOUT)
        except subprocess.TimeoutExpired:
            self.proc.kill()  # the phone goes with it
            raise AssertionError("the shell did not end")
        self.out.thread.join()
        self.err.thread.join()
        return status
