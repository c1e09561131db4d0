#!/usr/bin/env bash
# Runs tarvo-docs over examples/: a check of every document, then the summary of each.
set -uo pipefail
tool="$1"
cd "$(dirname "$0")/.."

mapfile -t documents < <(find examples -maxdepth 1 -type f \( -name '*.json' -o -name '*.json.gz' \) | sort)
echo "== tarvo-docs check examples/"
"$tool" check "${documents[@]}"
status=$?
for document in "${documents[@]}"; do
  echo
  echo "== tarvo-docs summary $document"
  "$tool" summary "$document" || status=1
done
exit $status
