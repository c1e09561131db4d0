#!/usr/bin/env bash
# Runs every benchmark program once, then the whole-process benchmark of tarvo-docs.
# Usage: bench.sh BENCH_DIR [SCALE]; SCALE (above 0, at most 1) shrinks the generated documents
# of the whole-process run for a quick look, 1 gives the published sizes.
set -euo pipefail
bench_dir=$1
scale=${2:-1}
for bench in "$bench_dir"/*_bench; do
  echo "== $(basename "$bench")"
  "$bench" --benchmark_counters_tabular=true
done
echo "== whole process"
/usr/bin/python3 "$(dirname "$0")/../bench/whole_process.py" --build "$bench_dir/.." --scale "$scale"
