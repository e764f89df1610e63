#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Drives the editor in a window of a virtual screen with real key and pointer events, and compares what it
# saves. Usage: drive.sh PAGEHOST WORK-FOLDER. Ends with 77 (skipped) where a program that it needs is missing.
# The folder keeps the pages and pictures of the last run.
set -euo pipefail
pagehost=${1:?usage: drive.sh PAGEHOST WORK-FOLDER}
work=${2:?usage: drive.sh PAGEHOST WORK-FOLDER}
inspect=$(cd "$(dirname "$0")" && pwd)/inspect_page.py

for program in Xvfb xdotool import compare python3; do
    command -v "$program" >/dev/null || { echo "SKIP: $program is not installed"; exit 77; }
done

# Real keys are read when the program comes to them, with the modifiers that are down then: each group of keys
# has to be through before the next one.
pause=${VX_DRIVE_PAUSE:-0.4}

rm -rf "$work"
mkdir -p "$work"
cd "$work"
editor=
screen=

stop()
{
    [ -z "$editor" ] || kill "$editor" 2>/dev/null || true
    [ -z "$screen" ] || kill "$screen" 2>/dev/null || true
}
trap stop EXIT

fail()
{
    echo "FAIL: $*" >&2
    import -window root failure.png || true
    exit 1
}

start_screen()
{
    Xvfb -displayfd 3 -screen 0 1024x800x24 -nolisten tcp 3>display 2>xvfb.log &
    screen=$!
    for _ in $(seq 100); do
        [ -s display ] && break
        sleep 0.1
    done
    [ -s display ] || fail "no virtual screen"
    DISPLAY=:$(cat display)
    XDG_RUNTIME_DIR=$work/runtime
    HOME=$work/home
    mkdir -p -m 700 "$XDG_RUNTIME_DIR" "$HOME"
    export DISPLAY XDG_RUNTIME_DIR HOME QT_QPA_PLATFORM=xcb QT_IM_MODULE=none
}

# focus NAME: waits for a window whose title holds NAME and gives it the keys.
focus()
{
    local window=
    window=$(timeout 30 xdotool search --sync --onlyvisible --name "$1" | tail -1) || fail "no window '$1'"
    xdotool windowfocus --sync "$window"
    sleep "$pause"
}

start_editor()
{
    "$pagehost" "$1" 2>>pagehost.log &
    editor=$!
    focus "$(basename "$1")"
}

# Ends the editor, which has nothing to ask.
quit_editor()
{
    keys ctrl+q
    for _ in $(seq 100); do
        kill -0 "$editor" 2>/dev/null || break
        sleep 0.1
    done
    kill -0 "$editor" 2>/dev/null && fail "the editor does not end"
    wait "$editor" || fail "the editor ends with code $?"
    editor=
}

keys()
{
    local key
    for key in "$@"; do
        xdotool key --delay 40 "$key"
        sleep 0.1
    done
    sleep "$pause"
}

typed()
{
    xdotool type --delay 40 "$1"
    sleep "$pause"
}

# drag X1 Y1 X2 Y2
drag()
{
    xdotool mousemove "$1" "$2" mousedown 1
    xdotool mousemove $((($1 + $3) / 2)) $((($2 + $4) / 2)) mousemove "$3" "$4"
    sleep "$pause"
    xdotool mouseup 1
    sleep "$pause"
}

shot() { import -window root "$1.png"; }
# The canvas alone: menus and messages may differ.
canvas() { import -window root -crop 900x560+40+80 +repage "$1.png"; }

# save_as FILE: by the dialog.
save_as()
{
    keys ctrl+shift+s
    focus "Save As"
    keys ctrl+a
    typed "$work/$1"
    keys Return
    focus "$1"
    [ -s "$1" ] || fail "$1 is not written"
}

# same WHAT A B
same()
{
    [ "$2" = "$3" ] || fail "$1: '$2' is not '$3'"
}

double_click()
{
    xdotool mousemove "$1" "$2" click --repeat 2 --delay 60 1
    sleep "$pause"
}

# alike WHAT A B, of canvas pictures; unlike the same.
alike()
{
    local difference=
    difference=$(compare -metric AE "$2.png" "$3.png" null: 2>&1) || fail "$1: $difference pixels differ"
}
unlike()
{
    ! compare -metric AE "$2.png" "$3.png" null: >/dev/null 2>&1 || fail "$1: nothing differs"
}

strings() { python3 "$inspect" strings "$1"; }
text() { python3 "$inspect" text "$1"; }
art() { python3 "$inspect" art "$1"; }

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
keys ctrl+shift+u ctrl+shift+greater alt+Right ctrl+shift+c
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
xdotool mousemove 400 560 click 1
sleep "$pause"
shot 11-empty
keys Escape Escape ctrl+s
same "objects" "$(python3 "$inspect" count copy.json)" "1"

echo "the close question"
keys t
xdotool mousemove 400 560 click 1
sleep "$pause"
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
xdotool mousemove 500 640 click 1
sleep "$pause"
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
