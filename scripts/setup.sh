#!/usr/bin/env bash
# Installs what a fresh Debian machine lacks, then configures and builds.
# Usage: scripts/setup.sh [BUILD_DIR [extra cmake arguments]]
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(g++ cmake ninja-build pkg-config libreadline-dev libssl-dev openssl libpng-dev libgtest-dev libbenchmark-dev
          bubblewrap busybox python3 python3-pyftpdlib)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "setup: installing ${missing[*]}"
  sudo_cmd=()
  [ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get update -qq
  "${sudo_cmd[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
fi

build=${1:-build}
shift || true
cmake -S . -B "$build" -G Ninja "$@" >/dev/null
ninja -C "$build"
