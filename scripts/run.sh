#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Sets up, builds and opens a copy of the sample page in the editor; without a display it renders the page to a
# picture and says where that is. Arguments, if any, go to pagerender instead.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
# Only what is started here: tests and benchmarks have scripts of their own.
./scripts/build.sh release -- --target vxarttext pagehost pagerender

if [ "$#" -gt 0 ]; then
    export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
    exec ./build/release/bin/pagerender "$@"
fi
mkdir -p out
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    [ -e out/page.json ] || cp samples/page.json out/page.json
    exec ./build/release/bin/pagehost out/page.json
fi
export LC_ALL=C.UTF-8 QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
./build/release/bin/pagerender samples/page.json -o out/page.png
echo "no display: rendered to $PWD/out/page.png"
