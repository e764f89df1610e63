#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sets up, builds and renders the sample page. Arguments, if any, go to pagerender instead.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
./scripts/build.sh release

export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
if [ "$#" -gt 0 ]; then
    exec ./build/release/bin/pagerender "$@"
fi
mkdir -p out
./build/release/bin/pagerender --text samples/poem.txt \
    --font "Noto Serif CJK SC" --size 28 -o out/sample.png
echo "rendered to $PWD/out/sample.png"
