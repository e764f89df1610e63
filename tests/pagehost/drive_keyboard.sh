#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Presses every key of the table in keyboard.py in the edit of a text, and compares the text, the caret, what is
# selected and the attributes with the table. Usage: drive_keyboard.sh PAGEHOST WORK-FOLDER.
set -euo pipefail
# shellcheck source=drivelib.sh
. "$(dirname "$0")/drivelib.sh"
need xclip

# What is selected goes to the file $1: nothing is copied where nothing is selected.
put_selected()
{
    printf nothing | xclip -selection clipboard
    wait_for "the clipboard" clipboard_is nothing
    keys ctrl+c
    clipboard >"$1"
    [ "$(cat "$1")" != nothing ] || : >"$1"
}

# Calls $2 for each row of page $1.
for_rows_of()
{
    local row= page= x= y= text= back= forth= pressed=
    while IFS='|' read -r -u 9 row page x y text back forth pressed; do
        [ "$page" != "$1" ] || "$2"
    done 9<steps
}

type_text()
{
    double_click "$x" "$y"
    keys ctrl+a
    while [ "$text" != "${text#*/}" ]; do
        typed "${text%%/*}"
        keys Return
        text=${text#*/}
    done
    typed "$text"
    keys Escape
}

# shellcheck disable=SC2086 # lists of keys
press_keys()
{
    double_click "$x" "$y"
    keys ctrl+a
    xdotool key --delay 0 $back
    settle
    [ -z "$forth" ] || { xdotool keydown shift key --delay 0 $forth; settle; xdotool keyup shift; }
    keys $pressed
    put_selected "selected-$row"
    keys Escape
}

python3 "$here/keyboard.py" pages >steps
start_screen
for page in $(cut -d '|' -f 2 steps | uniq); do
    echo "page $page"
    start_editor "$work/page-$page.json"
    for_rows_of "$page" type_text
    save "page-$page.json"
    cp "page-$page.json" "page-$page-before.json"
    for_rows_of "$page" press_keys
    shot "page-$page"
    save "page-$page.json"
    quit_editor
done
python3 "$here/keyboard.py" check || fail "the keyboard is not that of the table"

echo "PASS"
