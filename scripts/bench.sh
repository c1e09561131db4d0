#!/usr/bin/env bash
# Runs every benchmark program once.
set -euo pipefail
for bench in "$1"/*_bench; do
  echo "== $(basename "$bench")"
  "$bench" --benchmark_counters_tabular=true
done
