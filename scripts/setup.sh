#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the packages of packages.txt that are missing. Asks for nothing when all are there.
set -euo pipefail
cd "$(dirname "$0")/.."

missing=()
while read -r package; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done < <(sed 's/#.*//' packages.txt | grep -v '^[[:space:]]*$')
[ "${#missing[@]}" -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "setup: needs root or sudo to install: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
echo "setup: installing ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}"
