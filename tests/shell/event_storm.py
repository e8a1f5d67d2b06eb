#!/usr/bin/env python3
"""Hundreds of key events while a station runs commands on the pipe: every
event line starts a line of its own, none is lost, none is cut, and the
commands' own lines come out whole and in order around them."""
import argparse
import os
import re
import subprocess
import sys
import threading

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import phone as ph  # noqa: E402

EVENTS = 400
EVENT = re.compile(rb"KeyCode\[([0-9a-f]{4})\] value\[(\d+)\]")


def expected_answer(command, list_all):
    if command == b"production":
        return b"Factory Mode\n"
    if command == b"program read SN_UNIT":
        return b'SN_UNIT = "<NOT Initialized>"\n'
    if command == b"key 1":
        return b"Start keypad test\n"
    if command == b"program list all":
        return list_all
    raise ValueError(command)


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args = ap.parse_args()

    with ph.Phone(args.ftsim) as phone:
        # What "program list all" prints on a fresh phone, from a quiet session.
        out, _, _ = phone.session(b"program list all\n")
        list_all = out[len(ph.BANNER) + len(b"ft>program list all\n"):-len(b"ft>")]
        assert list_all.count(b"\n") == 34, list_all

        shell = ph.Shell(phone)
        shell.wait_for(lambda o: o.endswith(b"ft>"))
        shell.send(b"key 1\n")
        shell.wait_for(lambda o: o.endswith(b"Start keypad test\nft>"))

        failures = []

        def press():
            # Key codes 1..EVENTS in order, pressed and released in turn.
            try:
                for i in range(EVENTS):
                    phone.ftsim("key", str(i + 1), str(i % 2))
            except Exception as e:  # reported below, after the shell ends
                failures.append(e)

        presser = threading.Thread(target=press)
        presser.start()
        # A station's loop: a command, then wait for the next prompt.
        cycle = [b"production", b"program list all", b"program read SN_UNIT", b"key 1"]
        sent = [b"key 1"]
        while presser.is_alive():
            command = cycle[len(sent) % len(cycle)]
            prompts = shell.out.data.count(b"ft>")
            shell.send(command + b"\n")
            sent.append(command)
            shell.wait_for(lambda o, n=prompts: o.count(b"ft>") > n)
        presser.join()
        shell.wait_for(lambda o: len(EVENT.findall(o)) >= EVENTS)
        shell.send(b"q\n")
        sent.append(b"q")
        status = shell.finish()
        out = shell.out.data

    assert not failures, failures
    assert status == 0 and shell.err.data == b"", (status, shell.err.data)

    # Every event is a whole line of its own, in the order pressed.
    events = []
    rest = []
    for line in out.split(b"\n"):
        m = EVENT.fullmatch(line)
        if m:
            events.append((int(m.group(1), 16), int(m.group(2))))
        else:
            assert b"KeyCode" not in line, f"an event line glued to another: {line!r}"
            rest.append(line)
    assert events == [(i + 1, i % 2) for i in range(EVENTS)], f"{len(events)} events, not as pressed"

    # Without the events, what is left is the station's session, whole: a
    # prompt an event ended is the only difference, and a first report's
    # line feed the only blank line.
    left = b"\n".join(l for l in rest if l != b"").replace(b"ft>\n", b"ft>")
    expected = ph.BANNER.rstrip(b"\n") + b"\n" + b"".join(
        b"ft>" + c + b"\n" + (expected_answer(c, list_all) if c != b"q" else b"") for c in sent)
    assert left + b"\n" == expected, "the commands' lines differ:\n" + "\n".join(
        f"{a!r} | {b!r}" for a, b in zip(left.split(b"\n"), expected.split(b"\n")) if a != b)[:3000]
    ended = out.count(b"ft>\n")
    print(f"ok: {EVENTS} events, {len(sent)} commands, {ended} prompts ended by an event")
    return 0


if __name__ == "__main__":
    sys.exit(main())
