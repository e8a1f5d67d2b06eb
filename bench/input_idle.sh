#!/usr/bin/env bash
# Idle cost of the event monitors, seen from outside the phone: the shell's
# CPU time (utime+stime from /proc/PID/stat) over an idle stretch with all
# four monitors reporting, as a share of the wall time, and how long "quit"
# takes while every monitor waits.
# Usage: bench/input_idle.sh [BUILD_DIR] [SECONDS]
set -euo pipefail
build=${1:-build}
secs=${2:-10}
ftsim=$(realpath "$build/bin/ftsim")
state=$(mktemp -d /tmp/ft-idle-XXXXXX)
fifo=$state.in
mkfifo "$fifo"
trap 'exec 3>&- 2>/dev/null || true; rm -rf "$state" "$fifo" "$state.out"' EXIT

"$ftsim" --state "$state" reset
"$ftsim" --state "$state" shell <"$fifo" >"$state.out" 2>&1 &
shell_pid=$!
exec 3>"$fifo"
printf 'key 1\njackdet 1\njackkeydet 1\nhookswitch 1\nehs 1\n' >&3

# The shell is a descendant of the ftsim we started (ftsim, bwrap, bwrap, ft).
descendants() {
  local kids
  kids=$(ps -o pid= --ppid "$1" 2>/dev/null || true)
  for k in $kids; do echo "$k"; descendants "$k"; done
}
ft_pid=
for _ in $(seq 100); do
  for p in $(descendants "$shell_pid"); do
    [ "$(cat "/proc/$p/comm" 2>/dev/null)" = ft ] && { ft_pid=$p; break 2; }
  done
  sleep 0.05
done
[ -n "$ft_pid" ] || { echo "shell not found" >&2; exit 1; }
sleep 0.5

ticks() { awk '{print $14 + $15}' "/proc/$1/stat"; }
hz=$(getconf CLK_TCK)
threads=$(ls "/proc/$ft_pid/task" | wc -l)
before=$(ticks "$ft_pid")
t0=$(date +%s.%N)
sleep "$secs"
after=$(ticks "$ft_pid")
t1=$(date +%s.%N)
used=$((after - before))
awk -v u="$used" -v hz="$hz" -v a="$t0" -v b="$t1" -v th="$threads" 'BEGIN {
  wall = b - a; cpu = u / hz
  printf "idle %.1f s with %d threads: shell CPU %.3f s (%d ticks), %.5f of the wall time\n", wall, th, cpu, u, cpu / wall }'

q0=$(date +%s.%N)
printf 'quit\n' >&3
wait "$shell_pid"
q1=$(date +%s.%N)
awk -v a="$q0" -v b="$q1" 'BEGIN { printf "quit with all monitors waiting: %.3f s\n", b - a }'
