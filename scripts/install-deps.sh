#!/usr/bin/env bash
# Installs the Debian packages the build needs, and only those that are missing.
# Usage: scripts/install-deps.sh [--fuzz]   (--fuzz adds clang for the libFuzzer harnesses)
set -euo pipefail

packages=(cmake make g++ rapidjson-dev libboost-dev libboost-iostreams-dev libboost-filesystem-dev
          zlib1g-dev libgtest-dev libgmock-dev libbenchmark-dev
          libcli11-dev libvalijson-dev
          python3 python3-dev pybind11-dev python3-pybind11 python3-pytest python3-jsonschema)
if [[ "${1:-}" == "--fuzz" ]]; then
  packages+=(clang libclang-rt-dev)
fi

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[[ $(id -u) -ne 0 ]] && sudo="sudo"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
