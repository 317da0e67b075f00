#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need, where missing.
set -euo pipefail

packages=(build-essential cmake ninja-build qt6-base-dev libqt6sql6-sqlite libsqlite3-dev
          fonts-liberation2 poppler-utils strace python3)

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" \
        || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

run_as_root=()
[ "$(id -u)" -eq 0 ] || run_as_root=(sudo)
echo "Installing: ${missing[*]}"
"${run_as_root[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${run_as_root[@]}" apt-get install -y -qq --no-install-recommends \
    "${missing[@]}"
