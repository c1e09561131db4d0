#!/usr/bin/env bash
# Runs tarvo-docs over examples/: a check of every document, then the summary of each.
set -uo pipefail
tool="$1"
cd "$(dirname "$0")/.."

mapfile -t documents < <(find examples -maxdepth 1 -type f \( -name '*.json' -o -name '*.json.gz' \) | sort)
echo "== tarvo-docs check examples/"
"$tool" check "${documents[@]}"
status=$?
# Results are read against the documents they refer to.
inputs_of() {
  case "$1" in
    examples/noc_solution.json|examples/noc_constraints.json) echo "--traffic examples/noc_traffic.json" ;;
    examples/compiler_solution.json)
      echo "--arch examples/logical_arch.json --traffic examples/kpe_array_traffic.json" ;;
  esac
}
for document in "${documents[@]}"; do
  read -r -a inputs <<< "$(inputs_of "$document")"
  echo
  echo "== tarvo-docs summary ${inputs[*]} $document"
  "$tool" summary "${inputs[@]}" "$document" || status=1
done
exit $status
