#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sets up, builds one preset and runs all tests. Usage: test.sh [PRESET], debug when not told.
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:-debug}
options=()
[ "${VX_WERROR:-OFF}" = ON ] && options+=(-DVX_WERROR=ON)
./scripts/setup.sh
./scripts/build.sh "$preset" "${options[@]}"
ctest --preset "$preset" -j "$(nproc)"
