#!/usr/bin/env bash
# Runs every benchmark program of the build folder given (default: build).
# Fails when a program fails or a benchmark reports an error.
set -euo pipefail
build=${1:-build}
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
log=$(mktemp)
trap 'rm -f "$log"' EXIT
status=0
for b in "$build"/bench/bench_*; do
  [ -f "$b" ] && [ -x "$b" ] || continue
  echo "== $(basename "$b")"
  "$b" --benchmark_counters_tabular=true | tee "$log" || status=1
  if grep -q "ERROR OCCURRED" "$log"; then status=1; fi
done
exit $status
