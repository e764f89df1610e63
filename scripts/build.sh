#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Configures and builds one preset into build/<preset>. Usage:
# build.sh PRESET [CMAKE-OPTION...] [-- BUILD-OPTION...]
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:?usage: build.sh PRESET [CMAKE-OPTION...]}
shift
options=()
while [ "$#" -gt 0 ] && [ "$1" != -- ]; do
    options+=("$1")
    shift
done
[ "$#" -eq 0 ] || shift
cmake --preset "$preset" "${options[@]}" >/dev/null
cmake --build --preset "$preset" "$@"
