#!/usr/bin/env bash
# Writes src/shared/tarvo/include/tarvo_readwrite.h: every exported header of the library and
# of the platform libraries. A test fails when a header is missing from it.
set -euo pipefail
cd "$(dirname "$0")/.."
out=src/shared/tarvo/include/tarvo_readwrite.h
{
  echo "#ifndef TARVO_READWRITE_H"
  echo "#define TARVO_READWRITE_H"
  echo
  echo "// Everything tarvo_readwrite exports, with the public headers of its platform libraries."
  for dir in platform/common/include platform/streams/include platform/traffic/include platform/device/include \
             src/shared/tarvo/include; do
    [[ -d $dir ]] || continue
    echo
    for header in $(cd "$dir" && ls *.h | LC_ALL=C sort); do
      [[ $header == tarvo_readwrite.h ]] || echo "#include \"$header\""
    done
  done
  echo
  echo "#endif"
} > "$out"
