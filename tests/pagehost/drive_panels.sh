#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Drives panels of the editor: a slider of the warp, the search for a font, and the replacement of a missing one.
# Usage: drive_panels.sh PAGEHOST WORK-FOLDER.
set -euo pipefail
# shellcheck source=drivelib.sh
. "$(dirname "$0")/drivelib.sh"
samples=$here/../../samples

# Places in the window as it opens.
warp_tab="1022 763"
arch_style="1125 520"
family_field="1150 95"
replacement_field="1140 696"
replace_button="1075 727"
cancel_button="1222 727"

# slider NUMBER: "X Y" of its handle, found by the colour of the part that it has filled.
slider()
{
    import -window root -crop 300x300+1060+560 +repage slider.png
    convert slider.png txt: | awk -v number="$1" -F '[,: ]+' '
        /#38A1E3/ { if (!($2 in right)) rows[++count] = $2; right[$2] = $1 }
        END { row = rows[number]; if (count >= number) print 1060 + right[row] + 6, 560 + row }'
}

warp() { python3 "$inspect" warp "$1"; }
fonts() { python3 "$inspect" fonts "$1"; }

cat >page.json <<'PAGE'
{ "format": "vxpage", "version": 1, "page": { "width": 800, "height": 600, "background": "#fffdf5" },
  "objects": [
    { "kind": "rich_text", "x": 100, "y": 100, "text": "Hello brave",
      "attributes": { "font_family": "DejaVu Sans", "font_pointsize": 40 } } ] }
PAGE
start_screen

echo "a style of the gallery"
start_editor "$work/page.json"
click 250 250
# shellcheck disable=SC2086 # places are two words
{ click $warp_tab; click $arch_style; }
save page.json
same "the warp" "$(warp page.json)" "4 50 0 0"
canvas 1-bent
read -r x bend <<<"$(slider 1)" || fail "no slider"
[ -n "$bend" ] || fail "no slider"

echo "a drag of a slider is seen at once, and is one step"
xdotool mousemove "$x" "$bend" mousedown 1
for way in 8 20 40 60; do
    xdotool mousemove $((x - way)) "$bend"
    settle
done
canvas 2-in-drag
shot 2-in-drag-window
unlike "the text while the slider is dragged" 1-bent 2-in-drag
xdotool mouseup 1
settle
canvas 3-dragged
alike "the text after the drag" 2-in-drag 3-dragged
save page.json
bent=$(warp page.json)
[ "${bent#4 -}" != "$bent" ] || fail "the drag does not reach the warp: $bent"
keys ctrl+z
canvas 4-undone
alike "the text after undo" 1-bent 4-undone
save page.json
same "the warp after one undo" "$(warp page.json)" "4 50 0 0"
keys ctrl+shift+z
save page.json
same "the warp after redo" "$(warp page.json)" "$bent"
canvas 5-redone
alike "the text after redo" 3-dragged 5-redone

echo "Escape in the drag brings back what was there"
read -r x across <<<"$(slider 2)"
xdotool mousemove "$x" "$across" mousedown 1
xdotool mousemove $((x + 20)) "$across" mousemove $((x + 40)) "$across"
settle
canvas 6-in-drag
unlike "the text while the second slider is dragged" 5-redone 6-in-drag
keys Escape
canvas 7-escaped
alike "the text after Escape" 5-redone 7-escaped
xdotool mousemove $((x - 40)) "$across" mouseup 1
settle
save page.json
same "the warp after Escape" "$(warp page.json)" "$bent"
keys ctrl+z ctrl+z
save page.json
same "the warp after two undos" "$(warp page.json)" "0 0 0 0"
quit_editor

echo "a font is found by a part of its name, and is one step"
cp page.json family.json
start_editor "$work/family.json"
click 250 250
# shellcheck disable=SC2086
click $family_field
keys ctrl+a
typed "dejavu ser"
shot 8-found
keys Down Return
shot 9-taken
save family.json
same "the font that is chosen in the list" "$(fonts family.json)" "DejaVu Serif"
keys ctrl+z
save family.json
same "the font after one undo" "$(fonts family.json)" "DejaVu Sans"
quit_editor

# The page below the label, whose letters may stand a part of a pixel aside.
page_of_font() { import -window root -crop 600x240+200+332 +repage "$1.png"; }

echo "a missing font is shown in another face"
cp "$samples/missing-font.json" font.json
start_editor "$work/font.json"
page_of_font 10-missing
# shellcheck disable=SC2086
click $replacement_field
keys ctrl+a
typed "DejaVu Serif"
keys Return
shot 11-preview-window
page_of_font 11-preview
unlike "the text in a replacement" 10-missing 11-preview

echo "Cancel brings back its picture"
# shellcheck disable=SC2086
click $cancel_button
page_of_font 12-cancelled
alike "the text after Cancel" 10-missing 12-cancelled

echo "Replace is one step"
# shellcheck disable=SC2086
{ click $replacement_field; keys ctrl+a; typed "DejaVu Serif"; keys Return; click $replace_button; }
page_of_font 13-replaced
shot 13-replaced-window
save font.json
same "the font of the title" "$(fonts font.json)" "DejaVu Serif"
keys ctrl+z
page_of_font 14-undone
alike "the text after undo" 10-missing 14-undone
keys ctrl+shift+z
page_of_font 15-redone
alike "the text after redo" 13-replaced 15-redone
save font.json
quit_editor
same "the font in the file after redo" "$(fonts font.json)" "DejaVu Serif"
start_editor "$work/font.json"
shot 16-reopened-window
quit_editor

echo "PASS"
