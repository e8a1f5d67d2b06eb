#!/usr/bin/env python3
"""Moves files between a simulated phone and its test network's FTP server
and compares them byte for byte on the host side: the server's folder is
STATE/ftp, the phone's /data and /reserved are STATE/persist/data and
STATE/persist/reserved. The files hold every byte value, and line ends of
both kinds, so a transfer in text mode could not pass."""
import argparse
import os
import random
import re
import stat
import subprocess
import sys
import tempfile


def check(cond, what):
    if not cond:
        raise AssertionError(what)


def payload(seed, size):
    rng = random.Random(seed)
    return bytes(range(256)) + b"\r\n\n\r" + bytes(rng.randrange(256) for _ in range(size))


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--ftsim", required=True)
    args = ap.parse_args()
    state = tempfile.mkdtemp(prefix="ft-ftp-")

    def ftsim(*words, stdin=None):
        res = subprocess.run([args.ftsim, "--state", state, *words], input=stdin, capture_output=True, timeout=120)
        check(res.returncode == 0, f"ftsim {words[0]} exited {res.returncode}: {res.stderr.decode()}")
        return res.stdout.decode(), res.stderr.decode()

    def read(*parts):
        with open(os.path.join(state, *parts), "rb") as f:
            return f.read()

    try:
        ftsim("reset")
        os.makedirs(os.path.join(state, "ftp"))
        data, label = payload(1, 300000), payload(2, 40000)
        with open(os.path.join(state, "ftp", "data.bin"), "wb") as f:
            f.write(data)
        with open(os.path.join(state, "ftp", "label.png"), "wb") as f:
            f.write(label)

        # Down from the server, back up under another name, and the label.
        out, err = ftsim("shell", stdin=b"get ft ft /data/data.bin data.bin 127.0.0.1\n"
                                        b"send ft ft /data/data.bin back.bin 127.0.0.1\n"
                                        b"velor regulatory ft ft label.png 127.0.0.1\n"
                                        b"quit\n")
        check(err == "", f"the clients complained:\n{err}")
        check(re.search(r"^ft>get .*\nPASS\nft>send .*\nft>velor .*\nPASS\nft>quit\n$", out, re.M), out)
        check(read("persist", "data", "data.bin") == data, "the download differs from the server's file")
        check(read("ftp", "back.bin") == data, "the upload differs from the phone's file")
        labels = os.path.join(state, "persist", "reserved", "regulatoryLabels")
        check(read(labels, "regulatory_info.png") == label, "the label differs from the server's file")
        check(stat.S_IMODE(os.stat(labels).st_mode) == 0o700, "the label's folder is not 0700")
    except AssertionError as e:
        print(f"FAILED: {e}")
        return 1
    finally:
        subprocess.run(["rm", "-rf", "--one-file-system", state])
    print("ok")
    return 0


if __name__ == "__main__":
    sys.exit(main())
