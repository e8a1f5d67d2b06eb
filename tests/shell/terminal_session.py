#!/usr/bin/env python3
"""The shell at a terminal keeps its line editor: an event that arrives while
the operator types shows below the half-typed line, and the prompt with that
line (and the cursor where it was) is drawn again under it; history, Ctrl+D
and Ctrl+C stay as an operator knows them."""
import argparse
import os
import signal
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, HERE)
sys.path.insert(0, os.path.join(HERE, "..", "e2e"))
import phone as ph  # noqa: E402
from terminal import Terminal  # noqa: E402

# What readline writes around a finished line on this terminal type.
DONE = rb"\r\n(?:\x1b\[\?2004l\r)?"
PROMPT = rb"(?:\x1b\[\?2004h)?ft>"


def event_redraws_the_line(ftsim):
    with ph.Phone(ftsim) as phone, Terminal(ftsim, phone.state) as t:
        t.expect(PROMPT)
        t.type("key 1\r")
        t.expect(rb"Start keypad test\r\n" + PROMPT)
        # The first report after the command: its own line feed ends the
        # half-typed line, then the event, then the prompt and the line again.
        t.type("progam")
        t.expect(rb"progam")
        phone.ftsim("key", "2", "1")
        t.expect(rb"\A\r\nKeyCode\[0002\] value\[1\]\r\nft>progam\Z")
        # A later report: the line is ended for it all the same.
        phone.ftsim("key", "2", "0")
        t.expect(rb"\A\r\nKeyCode\[0002\] value\[0\]\r\nft>progam\Z")
        # The cursor two to the left: the line is drawn whole and the cursor
        # goes back where it was, so what is typed next lands there.
        t.type("\x02\x02")
        t.expect(rb"\x08\x08")
        phone.ftsim("key", "3", "1")
        t.expect(rb"\A(?:am|\x1b\[2C)?\r\nKeyCode\[0003\] value\[1\]\r\nft>progam\x08\x08\Z")
        t.type("r\x05 read SN_UNIT\r")
        t.expect(DONE + rb'SN_UNIT = "<NOT Initialized>"\r\n' + PROMPT)
        t.type("q\r")
        assert t.wait_exit() == 0


def editing_history_and_end_of_input(ftsim):
    with ph.Phone(ftsim) as phone, Terminal(ftsim, phone.state) as t:
        t.expect(PROMPT)
        t.type("production\r")
        t.expect(rb"Factory Mode\r\n" + PROMPT)
        # Ctrl-P recalls the line; Ctrl-A and a typed word edit it.
        t.type("\x10")
        t.expect(rb"production")
        t.type("\x01ft \r")
        t.expect(DONE + rb"Factory Mode\r\n" + PROMPT)
        # Ctrl-D on an empty line shows the prompt again.
        t.ctrl_d()
        t.expect(PROMPT)
        # ... and the lines after it end as before it, without a blank line.
        t.type("program read SN_UNIT\r")
        t.expect(rb"program read SN_UNIT" + DONE + rb'SN_UNIT = "<NOT Initialized>"\r\n' + PROMPT)
        # Ctrl+C has its default effect: the shell ends at once.
        t.type("prod")
        t.ctrl_c()
        status = t.wait_exit()
        assert status == 128 + 2, status
        assert b"Not a valid command" not in t.seen, "the half-typed line never ran"


def shell_pid(t):
    """The factory shell among the processes the terminal's ftsim started."""
    children = {}
    for entry in os.listdir("/proc"):
        if not entry.isdigit():
            continue
        try:
            with open(f"/proc/{entry}/stat") as f:
                parent = f.read().rsplit(")", 1)[1].split()[1]
            with open(f"/proc/{entry}/cmdline", "rb") as f:
                command = f.read()
        except OSError:
            continue
        children.setdefault(parent, []).append((entry, command))
    todo = [str(t.proc.pid)]
    while todo:
        for pid, command in children.get(todo.pop(), []):
            if command == b"/system/bin/ft\0":
                return int(pid)
            todo.append(pid)
    raise AssertionError("no shell among the phone's processes")


def interrupt_restores_the_terminal(ftsim):
    # SIGINT to the shell alone, as readline meets Ctrl+C: the terminal is
    # given back (the line editor's modes off) before the shell ends of it.
    with ph.Phone(ftsim) as phone, Terminal(ftsim, phone.state) as t:
        t.expect(PROMPT)
        t.type("prod")
        t.expect(rb"prod")
        os.kill(shell_pid(t), signal.SIGINT)
        t.expect(rb"\A\^C\x1b\[\?2004l\r")
        assert t.wait_exit() == 128 + 2


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args = ap.parse_args()
    for check in (event_redraws_the_line, editing_history_and_end_of_input, interrupt_restores_the_terminal):
        check(args.ftsim)
        print(f"ok {check.__name__}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
