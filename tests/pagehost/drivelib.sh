# SPDX-License-Identifier: MIT
# Of the scripts that drive the editor in a window of a virtual screen: the screen, keys, pointer, pictures, and what
# pages hold. To be sourced by bash with the arguments PAGEHOST WORK-FOLDER; ends with 77 (skipped) where a program that
# it needs is missing. The folder keeps the pages and pictures of the last run.
set -euo pipefail
pagehost=${1:?usage: $(basename "$0") PAGEHOST WORK-FOLDER}
work=${2:?usage: $(basename "$0") PAGEHOST WORK-FOLDER}
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
inspect=$here/inspect_page.py

# need PROGRAM...: the script is skipped without them.
need()
{
    local program=
    for program in "$@"; do
        command -v "$program" >/dev/null || { echo "SKIP: $program is not installed"; exit 77; }
    done
}
need Xvfb xdotool import compare python3

rm -rf "$work"
mkdir -p "$work"
cd "$work"
editor=
screen=
window=
companions=() # other programs, to be ended

stop()
{
    [ -z "$editor" ] || kill "$editor" 2>/dev/null || true
    [ "${#companions[@]}" -eq 0 ] || kill "${companions[@]}" 2>/dev/null || true
    [ -z "$screen" ] || kill "$screen" 2>/dev/null || true
}
trap stop EXIT

fail()
{
    echo "FAIL: $*" >&2
    import -window root failure.png || true
    exit 1
}

# wait_for WHAT COMMAND...: until the command ends well, a minute at most.
wait_for()
{
    local what=$1 end=$((SECONDS + 60))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || fail "waited in vain for $what"
        sleep 0.1
    done
}

start_screen()
{
    # Pixels of the screen are those of the page at 96 dots per inch alone: other densities make the window larger.
    # A screen tells its size in whole millimetres; this one, 381 by 254, is of just that density.
    Xvfb -displayfd 3 -screen 0 1440x960x24 -dpi 96 -nolisten tcp 3>display 2>xvfb.log &
    screen=$!
    wait_for "the virtual screen" test -s display
    DISPLAY=:$(cat display)
    XDG_RUNTIME_DIR=$work/runtime
    HOME=$work/home
    mkdir -p -m 700 "$XDG_RUNTIME_DIR" "$HOME"
    XDG_CONFIG_HOME=$HOME/config
    XDG_DATA_HOME=$HOME/data
    export DISPLAY XDG_RUNTIME_DIR XDG_CONFIG_HOME XDG_DATA_HOME HOME QT_QPA_PLATFORM=xcb QT_IM_MODULE=none
    coproc settling { python3 "$here/settle.py" 2>&1; }
}

# Waits until the editor has been through all keys and pointer events, and has painted.
settle()
{
    local answer=
    echo "$window" 60 >&"${settling[1]}"
    read -r answer <&"${settling[0]}" || true
    [ "$answer" = settled ] || fail "the editor does not answer: $answer"
}

# focus NAME: waits for a window whose title holds NAME and gives it the keys.
focus()
{
    window=$(timeout 60 xdotool search --sync --onlyvisible --name "$1" | tail -1) || fail "no window '$1'"
    xdotool windowfocus --sync "$window"
    settle
}

# start_editor FILE: at the left upper corner of the screen, wherever the last one has been.
start_editor()
{
    "$pagehost" "$1" 2>>pagehost.log &
    editor=$!
    focus "$(basename "$1")"
    xdotool windowmove "$window" 0 0
    settle
}

# Ends the editor, which has nothing to ask.
quit_editor()
{
    xdotool key ctrl+q
    wait_for "the end of the editor" has_ended "$editor"
    wait "$editor" || fail "the editor ends with code $?"
    editor=
}
has_ended() { ! kill -0 "$1" 2>/dev/null; }

# keys KEY...: presses them one by one, as ctrl+shift+b. The editor asks which modifiers are down when it comes to a
# key, so they stay down until then. A key is named as it is without Shift: comma, not less.
keys()
{
    local key= name= modifier= down=() up=()
    for key in "$@"; do
        down=()
        up=()
        name=${key##*+}
        for modifier in $(tr + ' ' <<<"${key%"$name"}"); do
            down+=(keydown "$modifier")
            up+=(keyup "$modifier")
        done
        xdotool "${down[@]}" key "$name"
        settle
        [ "${#up[@]}" -eq 0 ] || { xdotool "${up[@]}"; settle; }
    done
}

typed()
{
    xdotool type --delay 5 "$1"
    settle
}

# click X Y
click()
{
    xdotool mousemove "$1" "$2" click 1
    settle
}

# drag X1 Y1 X2 Y2
drag()
{
    xdotool mousemove "$1" "$2" mousedown 1
    xdotool mousemove $((($1 + $3) / 2)) $((($2 + $4) / 2)) mousemove "$3" "$4"
    settle
    xdotool mouseup 1
    settle
}

shot() { import -window root "$1.png"; }
# The canvas alone: menus and messages may differ.
canvas() { import -window root -crop 900x560+40+80 +repage "$1.png"; }

# The text of the clipboard, as another program gets it.
clipboard() { timeout 30 xclip -selection clipboard -o 2>/dev/null || true; }
clipboard_is() { [ "$(clipboard)" = "$1" ]; }

# save FILE, the open one.
save()
{
    local inode=
    inode=$(stat -c %i "$1")
    keys ctrl+s
    wait_for "$1 to be saved" is_new_file "$1" "$inode"
}
is_new_file() { [ "$(stat -c %i "$1")" != "$2" ]; }

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
    settle
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
