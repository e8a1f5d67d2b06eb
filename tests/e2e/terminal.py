#!/usr/bin/env python3
"""The factory shell at a terminal, as an operator has it: for tests of what
only a terminal shows (line editing, Ctrl+C, Ctrl+D, redrawn prompts).

    with Terminal(ftsim, state) as t:      # powers the phone up on a new pty
        t.expect(rb"ft>")                 # waits for output matching a regex
        t.type("bt scan\\r")               # keys as typed (\\r is Enter)
        t.ctrl_c()                        # Ctrl+C through the terminal
        t.expect(rb"...")
        assert t.wait_exit() == 0

What the terminal showed since it was opened is `t.seen` (bytes, escape
sequences included); `t.expect` returns the text up to the end of its match
and consumes it, so each wait looks only at what came after the last one.
"""
import os
import pty
import re
import select
import signal
import subprocess
import time

TIMEOUT = float(os.environ.get("FT_TRANSCRIPT_TIMEOUT", "20"))


class TerminalError(Exception):
    pass


class Terminal:
    def __init__(self, ftsim=None, state=None, verb=("shell",), columns=200, argv=None, env=None):
        """Runs `ftsim --state STATE VERB...`, or any @p argv, on a new terminal."""
        self.master, slave = pty.openpty()
        # A wide screen keeps readline from wrapping long lines.
        import fcntl
        import struct
        import termios
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 50, columns, 0, 0))
        env = dict(env or os.environ, TERM="xterm")
        argv = argv or [ftsim, "--state", state, *verb]
        self.proc = subprocess.Popen(argv, stdin=slave, stdout=slave, stderr=slave,
                                     start_new_session=True, env=env,
                                     preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        os.close(slave)
        self.seen = b""
        self._unread = b""

    def __enter__(self):
        return self

    def __exit__(self, *exc):
        self.close()

    def _read(self, timeout):
        ready, _, _ = select.select([self.master], [], [], timeout)
        if not ready:
            return False
        try:
            chunk = os.read(self.master, 65536)
        except OSError:  # the other side closed
            chunk = b""
        if not chunk:
            return None
        self.seen += chunk
        self._unread += chunk
        return True

    def expect(self, pattern, timeout=TIMEOUT):
        regex = re.compile(pattern, re.S)
        deadline = time.monotonic() + timeout
        while True:
            m = regex.search(self._unread)
            if m:
                text = self._unread[:m.end()]
                self._unread = self._unread[m.end():]
                return text
            left = deadline - time.monotonic()
            if left <= 0 or self._read(left) is None:
                raise TerminalError(f"no {pattern!r} on the terminal; it showed after the last match:\n"
                                    f"{self._unread!r}")

    def type(self, text):
        os.write(self.master, text.encode() if isinstance(text, str) else text)

    def ctrl_c(self):
        self.type(b"\x03")

    def ctrl_c_at_prompt(self):
        """Ctrl+C at the prompt, which ends the shell; its exit status. Under
        ThreadSanitizer readline learns of the signal only with the next key;
        the plain shell may have ended before that key arrives."""
        self.ctrl_c()
        try:
            self.type("\r")
        except OSError:
            pass
        return self.wait_exit()

    def ctrl_d(self):
        self.type(b"\x04")

    def drain(self, seconds):
        """Reads whatever arrives for a while; returns it."""
        before = len(self._unread)
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            if self._read(deadline - time.monotonic()) is None:
                break
        return self._unread[before:]

    def wait_exit(self, timeout=TIMEOUT):
        deadline = time.monotonic() + timeout
        while self.proc.poll() is None and time.monotonic() < deadline:
            self._read(0.05)
        if self.proc.poll() is None:
            raise TerminalError("the phone's shell did not end")
        while self._read(0.05):
            pass
        return self.proc.returncode

    def close(self):
        if self.proc.poll() is None:
            # Only the process this harness started, by its id.
            self.proc.send_signal(signal.SIGTERM)
            try:
                self.proc.wait(5)
            except subprocess.TimeoutExpired:
                self.proc.kill()
                self.proc.wait()
        os.close(self.master)
