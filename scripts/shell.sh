#!/usr/bin/env bash
# Builds everything, then powers the simulated phone up and runs the factory
# shell on this terminal. Extra arguments go to ftsim (e.g. --state DIR).
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
"$here/scripts/setup.sh" "$here/build"
exec "$here/build/bin/ftsim" "$@" shell
