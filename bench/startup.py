#!/usr/bin/env python3
"""Start-up cost of the factory shell inside the simulated phone.

Both figures include powering the phone up (the container); the difference is
what the shell's own start-up adds:
  shell  time from spawning `ftsim shell` until the first "ft>" arrives
  bash   time for `ftsim exec -- bash -c exit` to finish
Runs alternate so that machine noise hits both alike; medians are reported,
with the shell's figure as a ratio of bash's.

Usage: bench/startup.py [BUILD_DIR] [RUNS]
"""
import os, statistics, subprocess, sys, tempfile, time

build = sys.argv[1] if len(sys.argv) > 1 else "build"
runs = int(sys.argv[2]) if len(sys.argv) > 2 else 20
ftsim = os.path.realpath(os.path.join(build, "bin", "ftsim"))


def to_prompt(state):
    start = time.monotonic()
    p = subprocess.Popen([ftsim, "--state", state, "shell"], stdin=subprocess.PIPE,
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    seen = b""
    while b"ft>" not in seen:
        chunk = os.read(p.stdout.fileno(), 4096)
        if not chunk:
            sys.exit("the shell ended before its first prompt")
        seen += chunk
    elapsed = time.monotonic() - start
    p.stdin.write(b"quit\n")
    p.stdin.close()
    p.stdout.read()
    p.wait()
    return elapsed


def bash_exit(state):
    start = time.monotonic()
    subprocess.run([ftsim, "--state", state, "exec", "--", "bash", "-c", "exit"], check=True)
    return time.monotonic() - start


with tempfile.TemporaryDirectory(prefix="ft-startup-") as state:
    subprocess.run([ftsim, "--state", state, "reset"], check=True)
    to_prompt(state), bash_exit(state)  # warm the page cache for both
    shell, bash = [], []
    for _ in range(runs):
        shell.append(to_prompt(state))
        bash.append(bash_exit(state))

s, b = statistics.median(shell), statistics.median(bash)
print(f"runs: {runs}")
print(f"ftsim shell to first prompt: median {s * 1000:.1f} ms")
print(f"ftsim exec bash -c exit:     median {b * 1000:.1f} ms")
print(f"ratio shell/bash: {s / b:.2f}")
