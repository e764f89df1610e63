#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Drives the editor in a window of a virtual screen with real key and pointer events, and compares what it
# saves. Usage: drive.sh PAGEHOST WORK-FOLDER.
set -euo pipefail
# shellcheck source=drivelib.sh
. "$(dirname "$0")/drivelib.sh"

cat >page.json <<'PAGE'
{ "format": "vxpage", "version": 1, "page": { "width": 800, "height": 600, "background": "#fffdf5" } }
PAGE

cp page.json page-empty.json
start_screen
start_editor "$work/page.json"

echo "draw a box, type"
keys t
drag 300 180 800 420
shot 1-drawn
typed "Hello brave new world"
shot 2-typed

echo "select with Shift, with the pointer; five keyboard commands"
keys shift+Left shift+Left shift+Left shift+Left shift+Left
shot 3-selected-with-shift
keys ctrl+shift+b
drag 301 205 375 206
shot 4-selected-with-pointer
keys ctrl+shift+u ctrl+shift+period alt+Right ctrl+shift+c
shot 5-commands

echo "cut, paste, save in the edit"
keys ctrl+x End ctrl+v
shot 6-pasted
keys ctrl+s
same "text saved in the edit" "$(text page.json)" " brave new worldHello"
python3 "$inspect" formats page.json >formats
same "formats" "$(cat formats)" "bold: world
underlined: Hello
larger: Hello
spaced: Hello
alignment: [4]"

echo "undo in the edit belongs to the text"
typed "!"
keys ctrl+z ctrl+s
same "text after undo in the edit" "$(text page.json)" " brave new worldHello"

echo "Escape, save"
keys Escape Escape ctrl+s
whole=$(strings page.json)
canvas 7-saved

echo "undo twice and redo twice on the page"
keys ctrl+z ctrl+z
canvas 8-undone
keys ctrl+s
[ "$(strings page.json)" != "$whole" ] || fail "two undos change nothing"
keys ctrl+shift+z ctrl+shift+z Escape ctrl+s
same "document string after undo and redo" "$(strings page.json)" "$whole"
canvas 9-redone

echo "save in the other form, close, open"
save_as copy.vxpage
quit_editor
start_editor "$work/copy.vxpage"
canvas 10-reopened
alike "the page after opening" 9-redone 10-reopened
save_as copy.json
same "document string after save, close, open, save" "$(strings copy.json)" "$whole"

echo "an empty text leaves nothing"
keys t
click 400 560
shot 11-empty
keys Escape Escape ctrl+s
same "objects" "$(python3 "$inspect" count copy.json)" "1"

echo "the close question"
keys t
click 400 560
typed "more"
keys ctrl+q
focus "Unsaved Changes"
shot 12-question
keys Escape
kill -0 "$editor" || fail "Cancel closes the editor"
focus "copy.json"
keys ctrl+s
same "objects" "$(python3 "$inspect" count copy.json)" "2"
quit_editor

echo "draw an art text"
cp page-empty.json art.json
start_editor "$work/art.json"
canvas 20-art-empty-page
keys a
drag 300 180 700 330
shot 21-art-drawn
same "art text that is drawn" "$(keys ctrl+s; art art.json)" '400x150 ""'

echo "double click, type, click away"
double_click 500 250
shot 22-art-edit
typed "Art Text"
shot 23-art-typed
click 500 640
canvas 24-art-written
unlike "the page with an art text" 20-art-empty-page 24-art-written
keys ctrl+s
same "art text that is written" "$(art art.json)" '400x150 "Art Text"'

echo "undo, redo"
keys ctrl+z
canvas 25-art-undone
unlike "the page after undo" 24-art-written 25-art-undone
keys ctrl+s
same "art text after undo" "$(art art.json)" '400x150 ""'
keys ctrl+z
canvas 26-art-gone
alike "the page after two undos" 20-art-empty-page 26-art-gone
keys ctrl+shift+z ctrl+shift+z Escape
canvas 27-art-redone
alike "the page after redo" 24-art-written 27-art-redone

echo "beside a rich text; save in the other form, close, open"
keys t
drag 300 420 800 560
typed "Beside an art text"
keys Escape Escape ctrl+s
canvas 28-art-and-text
whole=$(art art.json; strings art.json)
save_as art.vxpage
quit_editor
start_editor "$work/art.vxpage"
canvas 29-art-reopened
alike "the page with an art text after opening" 28-art-and-text 29-art-reopened
save_as art-copy.json
same "art text after save, close, open, save" "$(art art-copy.json; strings art-copy.json)" "$whole"
cmp art.json art-copy.json || fail "the page is not the same after it went through the other form"

echo "edit again, Escape"
double_click 500 250
keys ctrl+a
typed "New"
keys Escape ctrl+s
same "art text that is edited again" "$(art art-copy.json)" '400x150 "New"'
shot 30-art-edited-again
quit_editor

echo "a broken file"
printf '{ "format": "vxpage",\n  "version": ' >broken.json
"$pagehost" broken.json 2>>pagehost.log &
editor=$!
focus "Open"
shot 13-broken
keys Return
focus "Untitled"
quit_editor

echo "a missing library"
"$pagehost" --plugin "$work/none.so" 2>missing-library.log &
editor=$!
focus "pagehost"
shot 14-missing-library
keys Return
code=0
wait "$editor" || code=$?
editor=
same "exit code without the library" "$code" 4
grep -q "cannot be loaded" missing-library.log || fail "no message about the library"

echo "PASS"
