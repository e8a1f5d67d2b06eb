#!/usr/bin/env python3
"""Plays a golden transcript of a factory-shell session on a fresh simulated phone.

A transcript is what an operator would see, plus what happens around it:

    # a comment
    $ ftsim set watchdog absent     run ftsim on this test's phone; it must succeed
    $! ftsim fail nosuch 1          ... or must fail
    | text                          expected output of the preceding host command, line by line
    @ shell                         power the phone up and start the factory shell
    ft>info                         the prompt, then the operator types "info" and Enter
    ft><enter>                      the prompt, then Enter on an empty line
    ft>                             the prompt, then output arrives before anything is typed
    ft>^D                           the prompt, then end of input (stdin is closed)
    > text                          the operator types "text" and Enter at a prompt already
                                    shown, after background output (the prompt is not repeated)
    ~ REGEX                         one line of the shell's output that matches REGEX (Python syntax)
    < FILE                          the shell's output goes on with the content of FILE, exactly
                                    (FILE beside the transcript: for text shown more than once)
    ! text                          expected line on the shell's standard error
    @ exit 0                        the session ends with this status
    any other line                  expected output of the shell, exactly

The shell's output must match the transcript byte for byte and in full: a line
it printed that the transcript does not list is a failure too.
"""
import argparse
import difflib
import os
import re
import shlex
import subprocess
import sys
import tempfile
import threading
import time

TIMEOUT = float(os.environ.get("FT_TRANSCRIPT_TIMEOUT", "20"))


class Stream:
    """Collects what a pipe delivers, for waiting on and comparing."""

    def __init__(self, pipe):
        self.data = b""
        self.cond = threading.Condition()
        self.closed = False
        self.thread = threading.Thread(target=self._pump, args=(pipe,), daemon=True)
        self.thread.start()

    def _pump(self, pipe):
        while True:
            chunk = os.read(pipe.fileno(), 65536)
            with self.cond:
                if not chunk:
                    self.closed = True
                    self.cond.notify_all()
                    return
                self.data += chunk
                self.cond.notify_all()

    def wait_for(self, length, timeout):
        deadline = time.monotonic() + timeout
        with self.cond:
            while len(self.data) < length and not self.closed:
                left = deadline - time.monotonic()
                if left <= 0:
                    break
                self.cond.wait(left)
            return self.data


class Failure(Exception):
    pass


def show_difference(expected, actual):
    return "\n".join(difflib.unified_diff(expected.decode(errors="replace").split("\n"),
                                           actual.decode(errors="replace").split("\n"),
                                           "expected", "actual", lineterm=""))


class Session:
    def __init__(self, ftsim, state):
        self.proc = subprocess.Popen([ftsim, "--state", state, "shell"], stdin=subprocess.PIPE,
                                     stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.out = Stream(self.proc.stdout)
        self.err = Stream(self.proc.stderr)
        self.parts = []  # (literal bytes, regex source or None)
        self.expected_err = b""

    def expect(self, literal):
        self.parts.append((literal, None))

    def expect_match(self, pattern):
        self.parts.append((b"", pattern.encode()))

    @property
    def expected(self):
        """The expected text, with each pattern line shown as written."""
        return b"".join(lit if pat is None else b"~ " + pat + b"\n" for lit, pat in self.parts)

    def _matches(self, actual):
        """Whether actual is exactly the expected text, patterns matched line by line."""
        regex = b"".join(re.escape(lit) if pat is None else pat + b"\n" for lit, pat in self.parts)
        return re.fullmatch(regex, actual) is not None

    def sync(self, where):
        # Wait for as many lines as expected, and the unfinished last line.
        expected = b"".join(lit if pat is None else b"x\n" for lit, pat in self.parts)
        lines = expected.count(b"\n")
        tail = len(expected) - (expected.rfind(b"\n") + 1)
        deadline = time.monotonic() + TIMEOUT
        while True:
            actual = self.out.wait_for(0, 0)
            cut = -1
            for _ in range(lines):
                cut = actual.find(b"\n", cut + 1)
                if cut < 0:
                    break
            if cut >= 0 or lines == 0:
                upto = cut + 1 + tail
                if len(actual) >= upto:
                    if self._matches(actual[:upto]):
                        return
                    break
            if self.out.closed or time.monotonic() > deadline:
                break
            self.out.wait_for(len(actual) + 1, 0.05)
        raise Failure(f"{where}: the shell's output differs\n" + show_difference(self.expected, actual))

    def type(self, text, where):
        self.sync(where)
        self.proc.stdin.write(text)
        self.proc.stdin.flush()

    def end_input(self, where):
        self.sync(where)
        self.proc.stdin.close()

    def finish(self, status, where):
        try:
            rc = self.proc.wait(timeout=TIMEOUT)
        except subprocess.TimeoutExpired:
            self.proc.kill()
            self.proc.wait()
            raise Failure(f"{where}: the shell did not end within {TIMEOUT:.0f} s")
        self.out.thread.join()
        self.err.thread.join()
        if not self._matches(self.out.data):
            raise Failure(f"{where}: the shell's output differs\n" + show_difference(self.expected, self.out.data))
        if self.err.data != self.expected_err:
            raise Failure(f"{where}: the shell's standard error differs\n" +
                          show_difference(self.expected_err, self.err.data))
        if status is not None and rc != status:
            raise Failure(f"{where}: exit status {rc}, expected {status}")


def run_host(ftsim, state, line, expect_ok, expected_lines, where):
    words = shlex.split(line)
    if not words or words[0] != "ftsim":
        raise Failure(f"{where}: host steps run ftsim only: {line!r}")
    res = subprocess.run([ftsim, "--state", state] + words[1:], capture_output=True, timeout=TIMEOUT)
    if (res.returncode == 0) != expect_ok:
        raise Failure(f"{where}: '{line}' exited {res.returncode}\n{res.stderr.decode(errors='replace')}")
    if expected_lines is not None:
        got = (res.stdout + res.stderr).decode(errors="replace")
        want = "".join(l + "\n" for l in expected_lines)
        if got != want:
            raise Failure(f"{where}: '{line}' printed\n" + show_difference(want.encode(), got.encode()))


def next_line(lines, i):
    """The next line at or after i that is not a comment ("" at the end)."""
    while i < len(lines) and lines[i].startswith("#"):
        i += 1
    return lines[i] if i < len(lines) else ""


def play(path, ftsim):
    with open(path, "rb") as f:
        lines = f.read().decode().split("\n")
    if lines and lines[-1] == "":
        lines.pop()
    state = tempfile.mkdtemp(prefix="ft-phone-")
    try:
        run_host(ftsim, state, "ftsim reset", True, None, f"{path}:start")
        session = None
        prompt_shown = False
        i = 0
        while i < len(lines):
            line = lines[i]
            where = f"{path}:{i + 1}"
            i += 1
            if line.startswith("#"):
                continue
            if line.startswith("$ ") or line.startswith("$! "):
                expected = []
                while i < len(lines) and lines[i].startswith("|"):
                    expected.append(lines[i][2:] if lines[i].startswith("| ") else lines[i][1:])
                    i += 1
                if session:
                    # A host step whose next line is a prompt acts once that
                    # prompt is shown: an event it causes must find the shell
                    # waiting, as an operator's would.
                    if next_line(lines, i).startswith("ft>"):
                        session.expect(b"ft>")
                        prompt_shown = True
                    session.sync(where)
                run_host(ftsim, state, line.split(" ", 1)[1], line.startswith("$ "),
                         expected if expected else None, where)
            elif line == "@ shell":
                if session:
                    raise Failure(f"{where}: a session is still running")
                session = Session(ftsim, state)
            elif line.startswith("@ exit"):
                if not session:
                    raise Failure(f"{where}: no session")
                session.finish(int(line.split()[2]), where)
                session = None
            elif session is None:
                raise Failure(f"{where}: shell output outside a session: {line!r}")
            elif line.startswith("~ "):
                session.expect_match(line[2:])
            elif line.startswith("< "):
                with open(os.path.join(os.path.dirname(path), line[2:]), "rb") as f:
                    session.expect(f.read())
            elif line.startswith("! "):
                session.expected_err += line[2:].encode() + b"\n"
            elif line.startswith("> "):
                typed = line[2:].encode() + b"\n"
                session.type(typed, where)
                session.expect(typed)
            elif line.startswith("ft>"):
                typed = line[3:]
                if not prompt_shown:
                    session.expect(b"ft>")
                prompt_shown = False
                if typed == "^D":
                    session.end_input(where)
                elif typed == "":
                    session.expect(b"\n")
                elif typed == "<enter>":
                    session.type(b"\n", where)
                    session.expect(b"\n")
                else:
                    session.type(typed.encode() + b"\n", where)
                    session.expect(typed.encode() + b"\n")
            else:
                session.expect(line.encode() + b"\n")
        if session:
            raise Failure(f"{path}: the transcript ends inside a session; end it with '@ exit N'")
    finally:
        subprocess.run(["rm", "-rf", "--one-file-system", state])


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    ap.add_argument("transcripts", nargs="+")
    args = ap.parse_args()
    failed = 0
    for t in args.transcripts:
        try:
            play(t, args.ftsim)
            print(f"ok {t}")
        except (Failure, subprocess.TimeoutExpired) as e:
            failed += 1
            print(f"FAILED {t}\n{e}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
