#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Measures on a virtual screen how long the editor takes from the start of its process to the picture of its page,
# each time as a new process: of an empty page, and of pages of 1 000 objects. How: startclock.cpp.
# Usage: editor_start.sh PAGEHOST WORK-FOLDER [TIMES]
set -euo pipefail
clock=$(cd "$(dirname "${1:?usage: editor_start.sh PAGEHOST WORK-FOLDER [TIMES]}")" && pwd)/startclock
set -- "$(cd "$(dirname "$1")" && pwd)/$(basename "$1")" "${@:2}"
times=${3:-9}
# shellcheck source=../tests/pagehost/drivelib.sh
. "$(dirname "$0")/../tests/pagehost/drivelib.sh"
start_screen
"$clock" "$pagehost" "$times"
