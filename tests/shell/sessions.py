#!/usr/bin/env python3
"""The shell's input on the simulated phone: on a station's pipe no byte is an
editing key and an event always starts a line of its own; at an operator's
terminal readline edits, recalls and redraws. Usage: --ftsim FTSIM CASE"""
import argparse
import os
import re
import subprocess
import sys
import threading

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
import phone as ph  # noqa: E402  (it makes tests/e2e importable)
from terminal import Terminal  # noqa: E402
from transcript import show_difference  # noqa: E402

NOT_VALID = b"Not a valid command\n"


def pipe(ftsim):
    pairs = [
        (b"program write SN_UNIT OLD", b"PASS\n"),
        (b"program write SN_UNIT NEW", b"PASS\n"),
        # Each of these once acted as readline's key: Ctrl-P twice re-ran the
        # OLD write, Ctrl-R swallowed the next line, Ctrl-D ended the session.
        (b"\x10\x10", NOT_VALID),
        (b"\x12", NOT_VALID),
        (b"\x04", NOT_VALID),
        (b"key \x04", b"Incorrect parameter\n"),
        (b"\x1b[A", NOT_VALID),
        (b"ft\tinfo", NOT_VALID),
        (b"produc\rtion", NOT_VALID),
        (b"program read SN_UNIT", b'SN_UNIT = "NEW"\n'),
        (b"program write SN_UNIT A\x01B\x7fC\x1b", b"PASS\n"),
        (b"program write SN_UNIT a\x00b", b"NUL character in the line. Nothing was run.\n"),
        (b"program read SN_UNIT", b'SN_UNIT = "A\x01B\x7fC\x1b"\n'),
        # A station's CR LF ends a line as LF alone does.
        (b"production\r", b"Factory Mode\n"),
        (b"\r", b""),
    ]
    with ph.Phone(ftsim) as p:
        out, err, status = p.session(b"".join(line + b"\n" for line, _ in pairs) + b"production")
        expected = ph.BANNER + b"".join(b"ft>" + line.rstrip(b"\r") + b"\n" + answer for line, answer in pairs)
        assert out == expected + b"ft>production\nFactory Mode\nft>", out
        assert (err, status) == (b"", 0), (err, status)
        # Random bytes that made readline free memory twice; found by a
        # generator of noisy station input, and shrunk.
        data = open(os.path.join(HERE, "readline_double_free.in"), "rb").read()
        out, err, status = p.session(data)
        assert (err, status, out.count(b"\nft>")) == (b"", 0, data.count(b"\n") + 1), (err, status, out)


EVENTS = 400


def event_storm(ftsim):
    """Hundreds of key events while a station runs commands: each event a whole
    line, none lost, and the commands' lines whole and in order around them."""
    with ph.Phone(ftsim) as phone:
        out, _, _ = phone.session(b"program list all\n")
        answers = {b"production": b"Factory Mode\n", b"program read SN_UNIT": b'SN_UNIT = "<NOT Initialized>"\n',
                   b"key 1": b"Start keypad test\n",
                   b"program list all": out[len(ph.BANNER) + len(b"ft>program list all\n"):-len(b"ft>")]}
        assert answers[b"program list all"].count(b"\n") == 34, out

        shell = ph.Shell(phone)
        shell.send(b"key 1\n")
        shell.wait_for(lambda o: o.endswith(b"Start keypad test\nft>"))
        presser = threading.Thread(target=lambda: [phone.ftsim("key", str(i + 1), str(i % 2)) for i in range(EVENTS)])
        presser.start()
        cycle = [b"production", b"program list all", b"program read SN_UNIT", b"key 1"]
        sent = [b"key 1"]
        while presser.is_alive():
            prompts = shell.out.data.count(b"ft>")
            sent.append(cycle[len(sent) % len(cycle)])
            shell.send(sent[-1] + b"\n")
            shell.wait_for(lambda o, n=prompts: o.count(b"ft>") > n)
        presser.join()
        shell.wait_for(lambda o: o.count(b"KeyCode") >= EVENTS)
        status = shell.finish()
    assert status == 0 and shell.err.data == b"", (status, shell.err.data)
    events = re.findall(rb"(?m)^KeyCode\[([0-9a-f]{4})\] value\[(\d+)\]$", shell.out.data)
    assert [(int(c, 16), int(v)) for c, v in events] == [(i + 1, i % 2) for i in range(EVENTS)], len(events)
    # Without the events the station's session is whole: a prompt an event
    # ended is the only difference, and a first report's feed the only blank line.
    left = re.sub(rb"(?m)^(KeyCode.*)?\n", b"", shell.out.data).replace(b"ft>\n", b"ft>")
    expected = ph.BANNER.rstrip(b"\n") + b"\n" + b"".join(b"ft>" + c + b"\n" + answers[c] for c in sent) + b"ft>"
    assert left == expected, show_difference(expected, left)


DONE = rb"\r\n(?:\x1b\[\?2004l\r)?"  # what readline writes after a finished line
PROMPT = rb"(?:\x1b\[\?2004h)?ft>"


def terminal(ftsim):
    with ph.Phone(ftsim) as phone, Terminal(ftsim, phone.state) as t:
        t.expect(PROMPT)
        t.type("key 1\r")
        t.expect(rb"Start keypad test\r\n" + PROMPT)
        # An event goes below the half-typed line, which is drawn again: after
        # the first report (which brings its own line feed) and a later one.
        t.type("progam")
        t.expect(rb"progam")
        phone.ftsim("key", "2", "1")
        t.expect(rb"\A\r\nKeyCode\[0002\] value\[1\]\r\nft>progam\Z")
        phone.ftsim("key", "2", "0")
        t.expect(rb"\A\r\nKeyCode\[0002\] value\[0\]\r\nft>progam\Z")
        # The cursor two to the left goes back there after the redraw.
        t.type("\x02\x02")
        t.expect(rb"\x08\x08")
        phone.ftsim("key", "3", "1")
        t.expect(rb"\A(?:am|\x1b\[2C)?\r\nKeyCode\[0003\] value\[1\]\r\nft>progam\x08\x08\Z")
        t.type("r\x05 read SN_UNIT\r")
        t.expect(DONE + rb'SN_UNIT = "<NOT Initialized>"\r\n' + PROMPT)
        # History and editing: Ctrl-P recalls the line, Ctrl-A goes to its start.
        t.type("\x10")
        t.expect(rb"program read SN_UNIT")
        t.type("\x01ft \r")
        t.expect(DONE + rb'SN_UNIT = "<NOT Initialized>"\r\n' + PROMPT)
        # A command that left its line open: the next report starts one line
        # below it, not two.
        phone.ftsim("set", "usb.stick", "present")
        phone.ftsim("set", "usb.stick.fault", "ioerror")
        t.type("usbrw\r")
        t.expect(rb"Error: Input/output error" + PROMPT)
        phone.ftsim("key", "4", "1")
        t.expect(rb"\A\r\nKeyCode\[0004\] value\[1\]\r\nft>\Z")
        # Ctrl-D on an empty line shows the prompt again, and leaves no blank
        # line after the lines that follow.
        t.ctrl_d()
        t.expect(PROMPT)
        t.type("production\r")
        t.expect(rb"\Aproduction" + DONE + rb"Factory Mode\r\n" + PROMPT)
        # SIGINT, as readline meets Ctrl+C: the shell ends at once, the terminal's
        # modes given back first, the half-typed line never run (kill may die with it).
        t.type("prod")
        t.expect(rb"prod")
        pid = phone.ftsim("exec", "--", "pgrep", "-x", "ft").decode().strip()
        subprocess.run([ftsim, "--state", phone.state, "exec", "--", "kill", "-INT", pid], capture_output=True)
        t.expect(rb"\A\^C\x1b\[\?2004l\r")
        assert t.wait_exit() == 128 + 2
        assert b"Not a valid command" not in t.seen


if __name__ == "__main__":
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    ap.add_argument("case", choices=["pipe", "event_storm", "terminal"])
    args = ap.parse_args()
    globals()[args.case](args.ftsim)
    print(f"ok {args.case}")
