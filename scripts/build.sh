#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Configures and builds one preset into build/<preset>. Usage: build.sh PRESET [CMAKE-OPTION...]
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:?usage: build.sh PRESET [CMAKE-OPTION...]}
shift
cmake --preset "$preset" "$@" >/dev/null
cmake --build --preset "$preset"
