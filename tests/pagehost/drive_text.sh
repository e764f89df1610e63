#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Drives texts of the editor with the pointer, and text, objects and pictures from it to other programs and back.
# Usage: drive_text.sh PAGEHOST WORK-FOLDER.
set -euo pipefail
# shellcheck source=drivelib.sh
. "$(dirname "$0")/drivelib.sh"
need xclip identify

# give TEXT [TYPE]: another program has it on the clipboard.
give()
{
    printf %s "$1" | xclip -selection clipboard -t "${2:-UTF8_STRING}"
    wait_for "the clipboard" clipboard_has "${2:-UTF8_STRING}" "$1"
}
clipboard_has() { [ "$(timeout 30 xclip -selection clipboard -o -t "$1" 2>/dev/null || true)" = "$2" ]; }
has_picture() { timeout 30 xclip -selection clipboard -o -t TARGETS 2>/dev/null | grep -q image/png; }

# gives WHAT TEXT: the clipboard has it for other programs.
gives() { wait_for "$1: '$2'" clipboard_is "$2"; }

cat >page.json <<'PAGE'
{ "format": "vxpage", "version": 1, "page": { "width": 800, "height": 600, "background": "#fffdf5" } }
PAGE
cp page.json second.json
cat >words.json <<'PAGE'
{ "format": "vxpage", "version": 1, "page": { "width": 800, "height": 600, "background": "#fffdf5" },
  "objects": [
    { "kind": "rich_text", "x": 100, "y": 100, "text": "Hello brave\nnew world",
      "attributes": { "font_family": "DejaVu Sans Mono", "font_pointsize": 30 } } ] }
PAGE
start_screen

echo "a click makes line text, a drag makes a box"
start_editor "$work/page.json"
keys t
click 300 180
shot 1-clicked
typed "A line that goes on and on"
keys Escape Escape t
drag 200 300 420 480
typed "Words that wrap in a box"
shot 2-box
keys Escape Escape
save page.json
shot 3-both
python3 "$inspect" places page.json >places
sed -E 's/^line .* at ([0-9]+),.*/line at \1/' places >places.known
same "places" "$(cat places.known)" "line at 205
box 220x180 at 105,184"
same "texts" "$(text page.json)" "A line that goes on and on
Words that wrap in a box"
quit_editor

# Characters of 24 pixels, the first from 195 on; lines of some 47 pixels from 216 on.
echo "a double click takes a word"
start_editor "$work/words.json"
double_click 250 240
shot 4-edit
double_click 400 240
shot 5-word
keys ctrl+c
gives "the word" "brave"
double_click 350 288
keys ctrl+c
gives "the second word of the lower line" "world"

echo "a drag selects over lines, either way"
drag 338 240 267 288
shot 6-dragged
keys ctrl+c
gives "what was dragged over" "brave
new"
drag 290 288 197 240
keys ctrl+c
gives "what was dragged over backwards" "Hello brave
new "
typed "One "
shot 7-typed-over
save words.json
same "typed over a selection" "$(text words.json)" "One world"

echo "text of another program"
give "天气 & <weather>"
keys End ctrl+v
give "  more"
keys ctrl+shift+v
save words.json
same "pasted in the edit" "$(text words.json)" "One world天气 & <weather>  more"
shot 8-pasted
give "<html><body><b>bold</b> words</body></html>"
keys End ctrl+v
save words.json
same "pasted without its marks" "$(text words.json)" "One world天气 & <weather>  morebold words"
keys Escape Escape
click 700 640
give "A text of its own"
keys ctrl+v
shot 9-new-text
save words.json
same "objects" "$(python3 "$inspect" count words.json)" 2
same "the new text" "$(text words.json | tail -1)" "A text of its own"

echo "text with its formats from one text to the other; plain where it is asked for"
double_click 250 240
keys ctrl+a ctrl+shift+b ctrl+c Escape Escape
click 700 640
keys ctrl+v
save words.json
same "pasted in bold" "$(python3 "$inspect" formats words.json | grep -c '^bold: One world')" 2
keys Delete ctrl+shift+v
save words.json
same "pasted plainly" "$(python3 "$inspect" formats words.json | grep -c '^bold: One world')" 1
keys Delete

echo "a picture of a text"
click 250 240
keys alt+e i
wait_for "the picture" has_picture
timeout 30 xclip -selection clipboard -o -t image/png >picture.png
same "the picture" "$(identify -format '%m %[fx:w>100&&h>30]' picture.png)" "PNG 1"

echo "an object to a second editor and back"
keys ctrl+c
gives "the text of the object" "One world天气 & <weather>  morebold words"
first=$editor
start_editor "$work/second.json"
keys ctrl+v
shot 10-second-editor
save second.json
same "the object in the second editor" "$(text second.json)" "One world天气 & <weather>  morebold words"
same "its formats" "$(python3 "$inspect" formats second.json | grep '^bold')" \
    "bold: One world天气 & <weather>  morebold words"
keys ctrl+c
quit_editor
editor=$first
focus "words.json"
save words.json
quit_editor

echo "PASS"
