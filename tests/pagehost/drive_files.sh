#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Drives what the editor does with files, with real key and pointer events: a crash while the user types, files that
# are refused, the list of recent files, closing and opening again. Usage: drive_files.sh PAGEHOST WORK-FOLDER.
set -euo pipefail
# shellcheck source=drivelib.sh
. "$(dirname "$0")/drivelib.sh"

# The copy of the open page that the editor keeps; nothing when there is none.
copy_of_page() { find "$XDG_DATA_HOME" -name page.vxpage 2>/dev/null | head -1 || true; }

# Waits for a copy that is younger than the file $1, a minute at most.
wait_for_copy()
{
    local copy=
    for _ in $(seq 600); do
        copy=$(copy_of_page)
        [ -z "$copy" ] || [ ! "$copy" -nt "$1" ] || return 0
        sleep 0.1
    done
    fail "no copy of the page in a minute"
}

# refused FILE: the editor says what is wrong with it and shows an empty page.
refused()
{
    "$pagehost" "$1" 2>>pagehost.log &
    editor=$!
    focus "^Open"
    shot "refused-$1"
    keys Return
    focus "Untitled"
    quit_editor
}

cat >page.json <<'PAGE'
{ "format": "vxpage", "version": 1, "page": { "width": 800, "height": 600, "background": "#fffdf5" } }
PAGE
cp page.json first.json
start_screen

echo "kill -9 while typing"
start_editor "$work/page.json"
keys t
drag 300 180 800 420
typed "Hello brave new world"
touch typed
wait_for_copy typed
xdotool type --delay 20 " and more that may be lost" &
typing=$!
sleep 0.2
kill -9 "$editor"
wait "$editor" 2>/dev/null || true
editor=
wait "$typing" || true
cmp page.json first.json || fail "the file has changed although it was not saved"
[ -n "$(copy_of_page)" ] || fail "no copy is left"

echo "restart, recover"
"$pagehost" "$work/page.json" 2>>pagehost.log &
editor=$!
focus "Recover Pages"
shot 1-recover
keys Return
focus "page.json"
shot 2-recovered
keys ctrl+s
case $(text page.json) in
    "Hello brave new world"*) ;;
    *) fail "recovered: '$(text page.json)'" ;;
esac
recovered=$(strings page.json)
cmp page.json~ first.json || fail "the version so far is not kept"
[ -z "$(copy_of_page)" ] || fail "the copy stays after the page is saved"
canvas 3-saved

echo "close and open again"
quit_editor
start_editor "$work/page.json"
canvas 4-reopened
alike "the page after opening" 3-saved 4-reopened
same "document string after opening" "$(strings page.json)" "$recovered"
[ -z "$(copy_of_page)" ] || fail "a page that has not changed has a copy"

echo "recent files"
xdotool key --delay 100 alt+f
settle
shot 5-file-menu
keys r
shot 6-recent
keys Escape Escape Escape
quit_editor

echo "broken, cut, newer and foreign files"
printf '{ "format": "vxpage",\n  "version": ' >broken.json
printf '\x89VXPAGE\r\n\n\0\0\0\1PAGE\0\0\1' >cut.vxpage
printf '{ "format": "vxpage", "version": 7 }' >newer.json
cp 1-recover.png foreign.vxpage
for name in broken.json cut.vxpage newer.json foreign.vxpage; do
    refused "$name"
done

echo "later, and discard"
start_editor "$work/page.json"
keys t
drag 300 480 800 560
typed "Second"
touch typed
wait_for_copy typed
kill -9 "$editor"
wait "$editor" 2>/dev/null || true
"$pagehost" 2>>pagehost.log &
editor=$!
focus "Recover Pages"
keys Escape
focus "Untitled"
quit_editor
[ -n "$(copy_of_page)" ] || fail "a copy that is left for later has gone"
"$pagehost" 2>>pagehost.log &
editor=$!
focus "Recover Pages"
keys alt+d
focus "Discard"
shot 7-discard
keys Left space
focus "Untitled"
[ -z "$(copy_of_page)" ] || fail "a copy that is thrown away stays"
quit_editor

echo "in Chinese"
LC_ALL=zh_CN.UTF-8 "$pagehost" "$work/page.json" 2>>pagehost.log &
editor=$!
focus "page.json"
xdotool key --delay 100 alt+f
settle
shot 8-chinese
keys Escape Escape
quit_editor

echo "PASS"
