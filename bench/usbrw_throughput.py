#!/usr/bin/env python3
"""usbrw's throughput on the simulated stick against dd copying 5 MiB into
the same stick folder, in the same run.

    bench/usbrw_throughput.py BUILD_DIR [SECONDS]

usbrw runs at the phone's terminal for SECONDS (5 by default); the bytes it
wrote to the stick are the kernel's count for the shell (/proc/PID/io, wchar:
every block is written once, then read back and compared). Then dd copies a
5 MiB file into the stick's folder with usbrw's block size and with 1 MiB
blocks (the best of three each).
"""
import os
import re
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "e2e"))
from terminal import Terminal  # noqa: E402

MIB = 1 << 20


def main():
    if len(sys.argv) < 2:
        print(__doc__.strip(), file=sys.stderr)
        return 2
    ftsim = os.path.join(sys.argv[1], "bin", "ftsim")
    seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 5.0
    state = tempfile.mkdtemp(prefix="ft-bench-usbrw-")

    def run(*words):
        res = subprocess.run([ftsim, "--state", state, *words], capture_output=True, text=True, timeout=120)
        if res.returncode != 0:
            raise SystemExit(f"ftsim {' '.join(words)}: {res.stderr}")
        return res.stdout + res.stderr

    def written():
        io = run("exec", "--", "sh", "-c", "cat /proc/$(busybox pidof ft)/io")
        return int(re.search(r"wchar: (\d+)", io).group(1)), time.monotonic()

    try:
        run("reset")
        run("set", "usb.stick", "present")
        with Terminal(ftsim, state) as t:
            t.expect(rb"ft>")
            t.type("usbrw\r")
            t.expect(rb"Press Ctrl\+C to abort\r\n")
            first, start = written()
            time.sleep(seconds)
            last, end = written()
            t.ctrl_c()
            t.expect(rb"ft>")
            t.type("q\r")
            t.wait_exit()
        usbrw = (last - first) / MIB / (end - start)

        def dd(block):
            out = run("exec", "--", "sh", "-c",
                      "head -c 5M /dev/urandom > /tmp/source && "
                      f"dd if=/tmp/source of=/mnt/usbstick/copy bs={block} && rm /mnt/usbstick/copy")
            took = float(re.search(r"copied, ([0-9.e+-]+) s", out).group(1))
            return 5 / took

        dd_small = max(dd(512) for _ in range(3))
        dd_large = max(dd("1M") for _ in range(3))
        print(f"usbrw over {end - start:.1f} s:        {usbrw:8.1f} MiB/s written (each block read back too)")
        print(f"dd 5 MiB, 512-byte blocks: {dd_small:8.1f} MiB/s   usbrw / dd: {usbrw / dd_small:.2f}")
        print(f"dd 5 MiB, 1 MiB blocks:    {dd_large:8.1f} MiB/s   usbrw / dd: {usbrw / dd_large:.2f}")
    finally:
        subprocess.run(["rm", "-rf", "--one-file-system", state])
    return 0


if __name__ == "__main__":
    sys.exit(main())
