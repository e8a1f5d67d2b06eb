"""A fresh simulated phone for one test, and the factory shell on it as a
station drives it: standard input a pipe, standard output read as it comes."""
import os
import subprocess
import tempfile
import threading
import time

TIMEOUT = float(os.environ.get("FT_TRANSCRIPT_TIMEOUT", "20"))

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

    def session(self, data, timeout=TIMEOUT * 6):
        """Runs the shell on @p data (all of it sent at once, then end of
        input); returns standard output, standard error and the exit status."""
        with tempfile.TemporaryFile() as feed:
            feed.write(data)
            feed.seek(0)
            proc = subprocess.run([self.ftsim_path, "--state", self.state, "shell"], stdin=feed,
                                  capture_output=True, timeout=timeout)
        return proc.stdout, proc.stderr, proc.returncode

    def start(self):
        return Shell(self)


class Shell:
    """The shell on a pipe, its output gathered by a thread as it comes."""

    def __init__(self, phone):
        self.proc = subprocess.Popen([phone.ftsim_path, "--state", phone.state, "shell"], stdin=subprocess.PIPE,
                                     stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.out = b""
        self.cond = threading.Condition()
        self.reader = threading.Thread(target=self._pump, daemon=True)
        self.reader.start()
        self.err = b""
        self.err_reader = threading.Thread(target=self._pump_err, daemon=True)
        self.err_reader.start()

    def _pump(self):
        while True:
            chunk = os.read(self.proc.stdout.fileno(), 65536)
            with self.cond:
                if not chunk:
                    self.cond.notify_all()
                    return
                self.out += chunk
                self.cond.notify_all()

    def _pump_err(self):
        self.err = self.proc.stderr.read()

    def send(self, text):
        self.proc.stdin.write(text)
        self.proc.stdin.flush()

    def wait_for(self, done, timeout=TIMEOUT):
        """Waits until done(output so far) holds; returns the output."""
        deadline = time.monotonic() + timeout
        with self.cond:
            while not done(self.out):
                left = deadline - time.monotonic()
                if left <= 0 or not self.reader.is_alive():
                    raise AssertionError(f"the shell's output never got there; it is:\n{self.out[-2000:]!r}")
                self.cond.wait(left)
            return self.out

    def finish(self):
        """Ends the input; returns the exit status once the shell is gone."""
        self.proc.stdin.close()
        try:
            status = self.proc.wait(timeout=TIMEOUT)
        except subprocess.TimeoutExpired:
            self.proc.kill()
            self.proc.wait()
            raise AssertionError("the shell did not end")
        self.reader.join()
        self.err_reader.join()
        return status
