#!/usr/bin/env bash
# Builds and runs every test: the plain build, then the same suite under
# AddressSanitizer with UndefinedBehaviorSanitizer, then ThreadSanitizer.
# FT_QUICK=1 runs the plain build only.
set -euo pipefail
cd "$(dirname "$0")/.."

run_suite() {
  local build=$1; shift
  scripts/setup.sh "$build" "$@"
  echo "== tests in $build"
  ctest --test-dir "$build" --output-on-failure -j "$(( $(nproc) * 2 ))"
}

run_suite build
if [ "${FT_QUICK:-0}" != 1 ]; then
  run_suite build-asan -DFT_SANITIZE=address,undefined
  run_suite build-tsan -DFT_SANITIZE=thread
fi
