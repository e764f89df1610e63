#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Composes Chinese in the editor by the input method of a desktop, with real keys: what is composed, where the
# candidates are shown, and what becomes of a composition that is left. Usage: drive_compose.sh PAGEHOST WORK-FOLDER.
set -euo pipefail
[ -n "${VX_DRIVE_BUS:-}" ] || { command -v dbus-run-session >/dev/null && exec env VX_DRIVE_BUS=1 dbus-run-session -- "$0" "$@"; }
# shellcheck source=drivelib.sh
. "$(dirname "$0")/drivelib.sh"
settings=/usr/libexec/ibus-memconf # which live as long as the program
need xclip dbus-run-session ibus ibus-daemon "$settings" /usr/libexec/ibus-engine-libpinyin

start_input_method()
{
    export QT_IM_MODULE=ibus XDG_CACHE_HOME=$HOME/cache GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1
    ibus-daemon --replace --config="$settings" >ibus.log 2>&1 &
    companions+=($!)
    wait_for "the input method" has_engine
}
has_engine()
{
    ibus engine libpinyin >>engine.log 2>&1 || true # which fails after it has done so
    [ "$(ibus engine 2>>engine.log)" = libpinyin ]
}

# The window of the candidates, a line X=... Y=... WIDTH=... HEIGHT=...
candidates()
{
    local found= shown=
    shown=$(xdotool search --onlyvisible --class ibus-ui-gtk3 2>/dev/null || true)
    for found in $shown; do
        xdotool getwindowgeometry --shell "$found" | tr '\n' ' '
        return
    done
}
are_shown() { [ -n "$(candidates)" ]; }
are_gone() { [ -z "$(candidates)" ]; }

# compose LETTERS: they stand as a proposal at the caret.
compose()
{
    xdotool type --delay 20 "$1"
    wait_for "candidates for $1" are_shown
    settle
}

# choose: takes the first of the candidates.
choose()
{
    xdotool key space
    wait_for "the candidates to go" are_gone
    settle
}

# becomes FILE TEXT: the text of the page, as soon as the input method has given all of it.
becomes()
{
    wait_for "the text '$2'" is_text "$1" "$2"
}
is_text() { save "$1" && [ "$(text "$1" 2>>pagehost.log)" = "$2" ]; }

# holds TEXT: the text in its edit, as other programs get it.
holds()
{
    keys ctrl+a ctrl+c End
    clipboard_is "$1"
}

# near WHAT LEFT TOP RIGHT BOTTOM: the corner of the candidates comes to lie there. They follow the caret a
# little behind the keys.
near()
{
    wait_for "the candidates $1" lie_in "$2" "$3" "$4" "$5"
}
lie_in()
{
    local X=0 Y=0 WIDTH=0 HEIGHT=0 WINDOW= SCREEN=
    eval "$(candidates)"
    [ "$X" -ge "$1" ] && [ "$Y" -ge "$2" ] && [ "$X" -le "$3" ] && [ "$Y" -le "$4" ]
}

cat >page.json <<'PAGE'
{ "format": "vxpage", "version": 1, "page": { "width": 800, "height": 600, "background": "#fffdf5" } }
PAGE
start_screen
start_input_method
start_editor "$work/page.json"

# Digits are typed past the input method.
echo "a sentence"
keys t
drag 300 180 800 420
wait_for "the input method of the text" has_engine
compose jintiantianqihenhao
shot 1-composing
near "at the caret" 400 200 620 300
choose
becomes page.json "今天天气很好"
shot 2-composed

echo "one undo takes it back"
compose xiexie
choose
wait_for "the text in the edit" holds "今天天气很好谢谢"
keys ctrl+z
wait_for "undo in the edit" holds "今天天气很好"
keys ctrl+shift+z
wait_for "redo in the edit" holds "今天天气很好谢谢"
keys BackSpace BackSpace

echo "in the middle of the text, the second candidate"
xdotool key Left Left
settle
compose ma
xdotool key 2
wait_for "the candidates to go" are_gone
typed 7
shot 3-middle
case $(save page.json; text page.json) in
    今天天气[!a-z]7很好) ;;
    *) fail "in the middle: $(text page.json)" ;;
esac

echo "Escape drops what is composed, and not the edit"
keys BackSpace BackSpace
compose nihao
shot 4-escape
xdotool key Escape
wait_for "the candidates to go" are_gone
becomes page.json "今天天气很好"
typed 7
becomes page.json "今天天气7很好"
keys BackSpace

echo "in place of what is selected"
xdotool keydown shift key Right
settle
xdotool keyup shift
compose bu
choose
becomes page.json "今天天气不好"

echo "a click leaves it in the text, whole"
compose shifen
shot 5-ahead-of-click
click 318 205
wait_for "the candidates to go" are_gone
shot 6-clicked
keys End
typed 7
settle
shot 7-after-click
save page.json
case $(text page.json) in
    今天天气不[!a-z]*[!a-z]好7) ;;
    *) fail "after the click: $(text page.json)" ;;
esac

echo "and so does a click on the page"
compose nihao
click 500 640
wait_for "the candidates to go" are_gone
shot 8-clicked-outside
save page.json
case $(text page.json) in
    *好7你好) ;;
    *) fail "after the click on the page: $(text page.json)" ;;
esac
quit_editor

echo "in columns, enlarged"
cat >columns.json <<'PAGE'
{ "format": "vxpage", "version": 1, "page": { "width": 800, "height": 600, "background": "#fffdf5" },
  "objects": [
    { "kind": "rich_text", "layout": "box", "direction": "vertical", "x": 60, "y": 60, "width": 120, "height": 200,
      "text": "天气", "attributes": { "font_family": "Noto Sans CJK SC" } } ] }
PAGE
start_editor "$work/columns.json"
double_click 260 200
wait_for "the input method of the text" has_engine
keys Down Down
compose henhao
shot 9-columns
choose
becomes columns.json "天气很好"
quit_editor

echo "PASS"
