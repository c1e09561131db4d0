#!/usr/bin/env bash
# Runs every libFuzzer harness for the given seconds on a copy of its seed corpus.
set -euo pipefail
dir="$1"
seconds="$2"
cd "$(dirname "$0")/.."
for harness in "$dir"/*_fuzz; do
  name=$(basename "$harness" _fuzz)
  work=$(mktemp -d)
  [[ -d fuzz/corpus/$name ]] && cp -r "fuzz/corpus/$name/." "$work/"
  echo "== $name: $seconds s"
  "$harness" -max_total_time="$seconds" -rss_limit_mb=4096 -print_final_stats=1 "$work" 2>&1 | tail -n 4
  rm -rf "$work"
done
