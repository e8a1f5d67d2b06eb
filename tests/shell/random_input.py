#!/usr/bin/env python3
"""Random input for the factory shell on a pipe, as a station with a noisy line
might send it: command words mixed with control bytes, editing-key sequences,
bytes above 127, blank runs and lines far over the shell's limits.

    random_input.py --ftsim FTSIM --lines 100000 --seed 7     one session, figures on stdout
    random_input.py --ftsim FTSIM --replay FILE                 the same for a saved input
    random_input.py --lines 3000 --seed 7 --save FILE           write an input, run nothing
    random_input.py --ftsim FTSIM --replay FILE --shrink OUT    smallest part that still crashes

A session passes when the shell read every line (one prompt per line, and the
last prompt at the end of input), ended with status 0 and wrote nothing on its
standard error. The generated input never holds a q, so no line can quit.
"""
import argparse
import os
import random
import re
import subprocess
import sys
import tempfile

# Words of real commands that neither wait nor change the phone for long
# (not production: followed by any word from 1 up, it reboots the phone).
COMMANDS = [b"info", b"program read SN_UNIT", b"program list", b"program write SN_UNIT X1",
            b"key 1", b"key 0", b"hookswitch 2", b"jackdet 1", b"help", b"lcd", b"ft", b"ft ft", b"l2GetPVID 3",
            b"wifi", b"mfg bt"]
# Keys an editor would act on: history, search, undo, yank, macros, meta keys.
SEQUENCES = [b"\x1b[A", b"\x1b[B", b"\x1b[C", b"\x1b[D", b"\x1b[3~", b"\x1b[H", b"\x1b[F", b"\x1br", b"\x1b.",
             b"\x1b_", b"\x1b<", b"\x1b>", b"\x1bp", b"\x1bn", b"\x1by", b"\x1bu", b"\x1bl", b"\x1bc", b"\x1bt",
             b"\x1b\x7f", b"\x1b-", b"\x1b3", b"\x1b9", b"\x1b*", b"\x1b=", b"\x1b?", b"\x1b#", b"\x18\x15",
             b"\x18(", b"\x18)", b"\x18e", b"\x18\x18", b"\x18\x07", b"\x1b\x12", b"\x1b\x19", b"\x1d", b"\x1b\x1d",
             b"\x1f", b"\x0f", b"\x17"]
FILLER = bytes(c for c in range(0x21, 0x7f) if c not in b"qQ")
CONTROL = bytes(c for c in range(0x20) if c != 0x0a) + b"\x7f"


def random_line(rng, allow):
    """One line without its line feed."""
    roll = rng.random()
    if roll < 0.002:  # far over the line limit
        return bytes(rng.choice(FILLER) for _ in range(rng.randint(256, 6000)))
    parts = []
    for _ in range(rng.randint(0, 8)):
        kind = rng.random()
        if kind < 0.25:
            parts.append(rng.choice(COMMANDS))
        elif kind < 0.45:
            parts.append(bytes(rng.choice(FILLER) for _ in range(rng.randint(1, 12))))
        elif kind < 0.55:
            parts.append(b" " * rng.randint(1, 4))
        elif kind < 0.75:
            parts.append(bytes([rng.choice(allow)]))
        elif kind < 0.95:
            parts.append(rng.choice(SEQUENCES))
        else:
            parts.append(bytes([rng.randint(0x80, 0xff)]))
    return b"".join(parts)


def generate(lines, seed, avoid=b""):
    rng = random.Random(seed)
    allow = bytes(c for c in CONTROL if c not in avoid)
    return b"".join(random_line(rng, allow) + b"\n" for _ in range(lines))


SANITIZER = re.compile(rb"ERROR: AddressSanitizer|ERROR: LeakSanitizer|runtime error:|WARNING: ThreadSanitizer")


def run(ftsim, data, timeout):
    """Runs one session on a fresh phone; returns its figures."""
    state = tempfile.mkdtemp(prefix="ft-random-")
    try:
        subprocess.run([ftsim, "--state", state, "reset"], check=True, capture_output=True)
        with tempfile.TemporaryFile() as feed:
            feed.write(data)
            feed.seek(0)
            # A file is no terminal either, and spares a writer thread.
            proc = subprocess.Popen([ftsim, "--state", state, "shell"], stdin=feed, stdout=subprocess.PIPE,
                                    stderr=subprocess.PIPE)
            hung = False
            try:
                out, err = proc.communicate(timeout=timeout)
            except subprocess.TimeoutExpired:
                hung = True
                proc.kill()  # the phone goes with it
                out, err = proc.communicate()
    finally:
        subprocess.run(["rm", "-rf", "--one-file-system", state])
    prompts = out.count(b"\nft>")
    return {
        "lines": data.count(b"\n"),
        "executed": max(prompts - 1, 0),
        "status": proc.returncode,
        "hung": hung,
        "sanitizer_reports": len(SANITIZER.findall(err)),
        "stderr": err,
        "stdout": out,
    }


def passed(figures):
    return (not figures["hung"] and figures["status"] == 0 and figures["executed"] == figures["lines"] and not figures["stderr"])


def crashed(figures):
    return figures["hung"] or figures["status"] != 0 or figures["sanitizer_reports"] > 0


def shrink(ftsim, data, timeout):
    """Drops chunks of lines while the shell still crashes (a plain delta
    debugging pass, chunks halving down to single lines)."""
    lines = data.split(b"\n")[:-1]
    chunk = max(len(lines) // 2, 1)
    while True:
        i = 0
        while i < len(lines):
            trial = lines[:i] + lines[i + chunk:]
            if trial and crashed(run(ftsim, b"".join(l + b"\n" for l in trial), timeout)):
                lines = trial
                print(f"shrink: {len(lines)} lines", file=sys.stderr)
            else:
                i += chunk
        if chunk == 1:
            return b"".join(l + b"\n" for l in lines)
        chunk = max(chunk // 2, 1)


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--ftsim")
    ap.add_argument("--lines", type=int, default=3000)
    ap.add_argument("--seed", type=int, default=1)
    ap.add_argument("--avoid", default="", help="control bytes left out, as hex (04 keeps an old shell reading)")
    ap.add_argument("--replay", help="run this input instead of a generated one")
    ap.add_argument("--save", help="write the input here")
    ap.add_argument("--shrink", help="write the smallest part of the input that still crashes the shell here")
    ap.add_argument("--timeout", type=float, default=600)
    ap.add_argument("--show-stderr", action="store_true", help="print the start of the shell's standard error")
    args = ap.parse_args()

    if args.replay:
        with open(args.replay, "rb") as f:
            data = f.read()
    else:
        data = generate(args.lines, args.seed, bytes.fromhex(args.avoid))
    if args.save:
        with open(args.save, "wb") as f:
            f.write(data)
    if not args.ftsim:
        return 0
    figures = run(args.ftsim, data, args.timeout)
    status = figures["status"]
    how = f"signal {-status}" if status < 0 else f"status {status}"
    if figures["hung"]:
        how = f"none: no end within {args.timeout:.0f} s, killed"
    print(f"lines sent {figures['lines']}, executed {figures['executed']}, exit {how}, "
          f"sanitizer reports {figures['sanitizer_reports']}, stderr bytes {len(figures['stderr'])}")
    if figures["stderr"] and args.show_stderr:
        sys.stdout.write(figures["stderr"][:4000].decode(errors="replace"))
    ok = passed(figures)
    if crashed(figures) and args.shrink:
        with open(args.shrink, "wb") as f:
            f.write(shrink(args.ftsim, data, args.timeout))
    return 0 if ok else 1


if __name__ == "__main__":
    sys.exit(main())
