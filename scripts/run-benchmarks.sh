#!/usr/bin/env bash
# Runs every benchmark program of the build folder given (default: build).
set -euo pipefail
build=${1:-build}
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
status=0
for b in "$build"/bench/bench_*; do
  [ -f "$b" ] && [ -x "$b" ] || continue
  echo "== $(basename "$b")"
  "$b" --benchmark_counters_tabular=true || status=1
done
exit $status
