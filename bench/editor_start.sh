#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Measures on a virtual screen how long the editor takes from its start to the window of a page, each time as a new
# process: of an empty page, and of a page of 1 000 objects. Usage: editor_start.sh PAGEHOST WORK-FOLDER [TIMES]
set -euo pipefail
times=${3:-9}
# shellcheck source=../tests/pagehost/drivelib.sh
. "$(dirname "$0")/../tests/pagehost/drivelib.sh"

python3 - >many.json <<'PAGE'
import json
texts = [{"kind": "rich_text", "x": 40 * (i % 25), "y": 20 * (i // 25), "text": f"object {i}",
          "attributes": {"font_pointsize": 8}} for i in range(1000)]
print(json.dumps({"format": "vxpage", "version": 1, "page": {"width": 1000, "height": 800}, "objects": texts}))
PAGE
echo '{ "format": "vxpage", "version": 1, "page": { "width": 1000, "height": 800 } }' >none.json

# median NAME FILE: of the milliseconds from the start to a window that names the page.
median()
{
    local began=
    for _ in $(seq "$times"); do
        began=$(date +%s%N)
        "$pagehost" "$work/$2" 2>>pagehost.log &
        editor=$!
        timeout 60 xdotool search --sync --onlyvisible --name "$2" >/dev/null
        echo $((($(date +%s%N) - began) / 1000000))
        kill "$editor"
        wait "$editor" 2>/dev/null || true
        editor=
    done | sort -n | sed -n "$((times / 2 + 1))p" | sed "s/\$/ ms: $1/"
}

start_screen
median "start, empty page" none.json
median "start, page of 1 000 objects" many.json
