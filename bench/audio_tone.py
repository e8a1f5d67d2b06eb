#!/usr/bin/env python3
"""What a playing dial tone costs the factory shell, seen from outside the
phone, and how soon "tone 0" ends the tone thread.

  CPU   the shell's CPU time over SECONDS of a playing tone against the same
        stretch idle, from /proc/PID/task/*/schedstat (nanoseconds) and
        /proc/PID/stat (clock ticks), as a share of the wall time and as a
        ratio to the idle figure;
  stop  the time from writing "tone 0" to the shell until its tone thread
        (named "tone") is gone from /proc/PID/task, over RUNS stops, against
        the time one buffer of the tone takes to play (the write the thread
        may be in when the flag is set).

Usage: bench/audio_tone.py [BUILD_DIR] [SECONDS] [RUNS]
"""
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

build = sys.argv[1] if len(sys.argv) > 1 else "build"
seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 10.0
runs = int(sys.argv[3]) if len(sys.argv) > 3 else 20
ftsim = os.path.realpath(os.path.join(build, "bin", "ftsim"))
BUFFER_SECONDS = 160 * 4 / 8000  # the tone's buffer at the dial tone's rate


def descendants(pid):
    children = {}
    for entry in os.listdir("/proc"):
        if not entry.isdigit():
            continue
        try:
            with open(f"/proc/{entry}/stat") as f:
                stat = f.read()
        except OSError:
            continue
        children.setdefault(int(stat[stat.rfind(")") + 2:].split()[1]), []).append(int(entry))
    todo, found = [pid], []
    while todo:
        p = todo.pop()
        found.append(p)
        todo += children.get(p, [])
    return found


def comm(path):
    try:
        with open(path) as f:
            return f.read().strip()
    except OSError:
        return None


def find_shell(ftsim_pid):
    for _ in range(200):
        for p in descendants(ftsim_pid):
            if comm(f"/proc/{p}/comm") == "ft":
                return p
        time.sleep(0.05)
    sys.exit("the factory shell did not start")


def cpu(pid):
    """(nanoseconds on the CPU of the threads alive now, clock ticks of the whole process)."""
    ns = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        try:
            with open(f"/proc/{pid}/task/{task}/schedstat") as f:
                ns += int(f.read().split()[0])
        except OSError:
            pass
    with open(f"/proc/{pid}/stat") as f:
        stat = f.read()
    fields = stat[stat.rfind(")") + 2:].split()
    return ns, int(fields[11]) + int(fields[12])


def tone_threads(pid):
    return sum(1 for t in os.listdir(f"/proc/{pid}/task") if comm(f"/proc/{pid}/task/{t}/comm") == "tone")


def wait_until(check, timeout=20.0, step=0.001):
    deadline = time.monotonic() + timeout
    while not check():
        if time.monotonic() > deadline:
            sys.exit("timed out")
        time.sleep(step)


def measure(pid, secs):
    ns0, ticks0 = cpu(pid)
    t0 = time.monotonic()
    time.sleep(secs)
    ns1, ticks1 = cpu(pid)
    wall = time.monotonic() - t0
    return (ns1 - ns0) / 1e9, (ticks1 - ticks0) / os.sysconf("SC_CLK_TCK"), wall


def main():
    state_dir = tempfile.mkdtemp(prefix="ft-bench-tone-")
    state = os.path.join(state_dir, "phone")
    try:
        subprocess.run([ftsim, "--state", state, "reset"], check=True)
        sh = subprocess.Popen([ftsim, "--state", state, "shell"], stdin=subprocess.PIPE,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        pid = find_shell(sh.pid)
        time.sleep(1.0)

        def type_line(text):
            sh.stdin.write(text.encode() + b"\n")
            sh.stdin.flush()

        idle_cpu, idle_ticks, idle_wall = measure(pid, seconds)
        type_line("tone 1 2")
        wait_until(lambda: tone_threads(pid) == 1)
        time.sleep(0.5)
        tone_cpu, tone_ticks, tone_wall = measure(pid, seconds)
        if tone_threads(pid) != 1:
            sys.exit("the tone thread ended while it should play")
        stops = []
        for i in range(runs):
            if i:
                type_line("tone 1 2")
                wait_until(lambda: tone_threads(pid) == 1)
            # Somewhere inside a buffer's write, as an operator's stop would be.
            time.sleep(0.3 + (i % 8) * BUFFER_SECONDS / 8)
            t0 = time.monotonic()
            type_line("tone 0")
            wait_until(lambda: tone_threads(pid) == 0, step=0.0002)
            stops.append(time.monotonic() - t0)
        type_line("quit")
        sh.stdin.close()
        sh.wait(timeout=20)

        print(f"idle {idle_wall:.1f} s: shell CPU {idle_cpu * 1e3:.2f} ms ({idle_ticks:.2f} s in ticks), "
              f"{idle_cpu / idle_wall:.6f} of the wall time")
        print(f"tone {tone_wall:.1f} s: shell CPU {tone_cpu * 1e3:.2f} ms ({tone_ticks:.2f} s in ticks), "
              f"{tone_cpu / tone_wall:.6f} of the wall time")
        ratio = f"{tone_cpu / idle_cpu:.1f}x" if idle_cpu > 0 else "idle used no CPU"
        print(f"tone against idle: {ratio}; the tone adds {(tone_cpu - idle_cpu) / tone_wall * 1e3:.3f} ms "
              f"of CPU per second played")
        med, worst = statistics.median(stops), max(stops)
        print(f"tone 0 to the thread's end over {runs} stops: median {med * 1e3:.1f} ms, "
              f"max {worst * 1e3:.1f} ms; one buffer plays {BUFFER_SECONDS * 1e3:.0f} ms "
              f"(median {med / BUFFER_SECONDS:.2f}, max {worst / BUFFER_SECONDS:.2f} of it)")
    finally:
        shutil.rmtree(state_dir, ignore_errors=True)


if __name__ == "__main__":
    main()
