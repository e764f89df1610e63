#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The table of the keyboard in the edit of a rich text, for drive_keyboard.sh, which presses the keys.

keyboard.py pages    writes pages with a text for each row, page-1.json on, and prints for each row, parted by bars:
                     number, page, place of the text, what to type, keys from the end to one end of the selection,
                     keys with Shift to the other one, keys of the row
keyboard.py check    compares what the rows have left: the pages, their copies page-1-before.json on, from ahead of the
                     keys, and selected-N
"""
import json
import sys

LINE, BOX = ("line", "horizontal"), ("box", "horizontal")
COLUMNS, COLUMN_BOX = ("line", "vertical"), ("box", "vertical")

# In texts: ^ the caret, [ and ] what is selected, / the end of a paragraph; < and > a text that is selected as an
# object, out of its edit. A box has a word in each line.
# form, attributes, start, keys, what comes of it, attributes that have changed (":" before those of paragraphs)
ROWS = [
    # Commands, in the order of the manual. What is toggled goes on and off, what is stepped stops at its floor.
    (LINE, {}, "one [two^] six", "ctrl+shift+8", "one [two^] six", "two text_superscript=True"),
    (LINE, {"text_superscript": True}, "one [two^] six", "ctrl+shift+8", "one [two^] six",
     "two text_superscript=False"),
    (LINE, {"text_subscript": True}, "one [two^] six", "ctrl+shift+8", "one [two^] six",
     "two text_subscript=False two text_superscript=True"),
    (LINE, {}, "one [two^] six", "ctrl+shift+alt+8", "one [two^] six", "two text_subscript=True"),
    (LINE, {"text_superscript": True}, "one [two^] six", "ctrl+shift+alt+8", "one [two^] six",
     "two text_subscript=True two text_superscript=False"),
    (LINE, {}, "one [two^] six", "ctrl+shift+comma", "one [two^] six", "two font_pointsize=12"),
    (LINE, {}, "one [two^] six", "ctrl+shift+alt+comma ctrl+shift+alt+comma ctrl+shift+comma",
     "one [two^] six", "two font_pointsize=2"),
    (LINE, {}, "one [two^] six",
     "ctrl+shift+alt+comma ctrl+shift+alt+comma ctrl+shift+comma ctrl+shift+comma",
     "one [two^] six", "two font_pointsize=1"),
    (LINE, {}, "one [two^] six", "ctrl+shift+alt+comma", "one [two^] six", "two font_pointsize=9"),
    (LINE, {}, "one [two^] six", "ctrl+shift+alt+comma ctrl+shift+alt+comma ctrl+shift+alt+comma",
     "one [two^] six", "two font_pointsize=1"),
    (LINE, {}, "one [two^] six", "ctrl+shift+period", "one [two^] six", "two font_pointsize=16"),
    (LINE, {}, "one [two^] six", "ctrl+shift+period ctrl+a ctrl+shift+period", "[one two six^]",
     "two font_pointsize=16"),
    (LINE, {}, "one [two^] six", "ctrl+shift+alt+period", "one [two^] six",
     "two font_pointsize=19"),
    (LINE, {}, "one [two^] six", "ctrl+shift+slash", "one [two^] six", "two font_italic=True"),
    (LINE, {"font_italic": True}, "one [two^] six", "ctrl+shift+slash", "one [two^] six",
     "two font_italic=False"),
    (LINE, {"font_rowspacing": 30}, "[one^] two", "ctrl+shift+alt+a", "[one^] two",
     "one font_rowspacing=0"),
    (LINE, {}, "one [two^] six", "ctrl+shift+b", "one [two^] six", "two font_bold=True"),
    (LINE, {"font_bold": True}, "one [two^] six", "ctrl+shift+b", "one [two^] six",
     "two font_bold=False"),
    (LINE, {}, "one [two^] six", "ctrl+shift+b ctrl+a ctrl+shift+b", "[one two six^]",
     "one two six font_bold=True"),
    (LINE, {}, "one [two^] six", "ctrl+shift+c", "one [two^] six", ":1 textalignment=4"),
    (COLUMNS, {}, "one [two^]", "ctrl+shift+c", "one [two^]", ":1 textalignment=128"),
    (BOX, {}, "[five^] nine", "ctrl+shift+f", "[five^] nine", ":1 textalignment=8"),
    (COLUMN_BOX, {}, "[five^]", "ctrl+shift+f", "[five^]", ":1 textalignment=256"),
    (LINE, {}, "one [two^] six", "ctrl+shift+f", "one [two^] six", ""),
    (BOX, {}, "[five^] nine", "ctrl+shift+j", "[five^] nine", ":1 textalignment=512"),
    (COLUMN_BOX, {}, "[five^]", "ctrl+shift+j", "[five^]", ":1 textalignment=512"),
    (LINE, {}, "one [two^] six", "ctrl+shift+j", "one [two^] six", ""),
    (LINE, {}, "one [two^] six", "ctrl+shift+k", "one [two^] six", "two text_upper=True"),
    (LINE, {"text_upper": True}, "ONE [TWO^] SIX", "ctrl+shift+k", "ONE [TWO^] SIX",
     "TWO text_upper=False"),
    (LINE, {"textalignment": "center"}, "one ^two", "ctrl+shift+l", "one ^two", ":1 textalignment=1"),
    (COLUMNS, {"textalignment": "center"}, "one ^two", "ctrl+shift+l", "one ^two",
     ":1 textalignment=32"),
    (LINE, {"selected_letterspacing": 60}, "one [two^] six", "ctrl+shift+q", "one [two^] six",
     "two selected_letterspacing=0"),
    (LINE, {}, "one/t^wo", "ctrl+shift+r", "one/t^wo", ":2 textalignment=2"),
    (COLUMNS, {}, "one/t^wo", "ctrl+shift+r", "one/t^wo", ":2 textalignment=64"),
    (LINE, {}, "one [two^] six", "ctrl+shift+u", "one [two^] six", "two font_underline=True"),
    (LINE, {"font_underline": True}, "one [two^] six", "ctrl+shift+u", "one [two^] six",
     "two font_underline=False"),
    (LINE, {}, "one [two^] six", "ctrl+shift+backslash", "one [two^] six",
     "two font_strikeout=True"),
    (LINE, {"font_strikeout": True}, "one [two^] six", "ctrl+shift+backslash", "one [two^] six",
     "two font_strikeout=False"),
    (LINE, {"selected_letterspacing": 60}, "one [two^] six", "alt+Left", "one [two^] six",
     "two selected_letterspacing=40"),
    (LINE, {}, "one [two^] six", "alt+Left", "one [two^] six", ""),
    (LINE, {"selected_letterspacing": 60}, "one [two^] six", "ctrl+alt+Left", "one [two^] six",
     "two selected_letterspacing=-40"),
    (LINE, {}, "one [two^] six", "alt+Right", "one [two^] six", "two selected_letterspacing=20"),
    (LINE, {}, "one [two^] six", "ctrl+alt+Right", "one [two^] six",
     "two selected_letterspacing=100"),
    (LINE, {"font_rowspacing": 30}, "[one^] two", "alt+Up", "[one^] two", "one font_rowspacing=29"),
    (LINE, {"font_rowspacing": 1.5}, "[one^] two", "alt+Up", "[one^] two", "one font_rowspacing=1"),
    (LINE, {}, "[one^] two", "alt+Up", "[one^] two", ""),
    (LINE, {"font_rowspacing": 30}, "[one^] two", "ctrl+alt+Up", "[one^] two",
     "one font_rowspacing=25"),
    (LINE, {"font_rowspacing": 4}, "[one^] two", "ctrl+alt+Up", "[one^] two",
     "one font_rowspacing=1"),
    (LINE, {}, "one [two^] six", "alt+shift+Up", "one [two^] six", "two baseline_offset=2"),
    (LINE, {}, "[one^] two", "alt+Down", "[one^] two", "one font_rowspacing=1"),
    (LINE, {"font_rowspacing": 30}, "[one^] two", "ctrl+alt+Down", "[one^] two",
     "one font_rowspacing=35"),
    (LINE, {"baseline_offset": 3}, "one [two^] six", "alt+shift+Down", "one [two^] six",
     "two baseline_offset=1"),
    (LINE, {}, "one [two^] six", "alt+shift+Down", "one [two^] six", ""),
    # Other modifiers make text of these keys, or nothing at all.
    (LINE, {}, "one ^two", "shift+k shift+8 shift+comma", "one K*<^two", ""),
    (LINE, {}, "one [two^] six", "ctrl+k alt+b ctrl+j ctrl+alt+k", "one [two^] six", ""),
    # Standard keys.
    (LINE, {}, "on^e/two", "ctrl+a", "[one/two^]", ""),
    (LINE, {}, "on^e two", "q ctrl+z", "on^e two", ""),
    (LINE, {}, "on^e two", "q ctrl+z ctrl+shift+z", "onq^e two", ""),
    (LINE, {}, "one [two^] six", "ctrl+c End ctrl+v", "one two sixtwo^", ""),
    (LINE, {}, "one [two^] six", "ctrl+x", "one ^ six", ""),
    (LINE, {}, "one [two^] six", "ctrl+x Home ctrl+v", "two^one  six", ""),
    (LINE, {}, "one [two^] six", "ctrl+Insert Home shift+Insert", "two^one two six", ""),
    (LINE, {}, "one [two^] six", "shift+Delete", "one ^ six", ""),
    (LINE, {}, "[one^] two", "ctrl+shift+b ctrl+c End ctrl+v", "one twoone^",
     "one font_bold=True one font_bold=True"),
    # The ends of the paragraph, never with a selection.
    (LINE, {}, "one/tw^o/six", "ctrl+Home", "one/^two/six", ""),
    (LINE, {}, "one/tw^o/six", "ctrl+End", "one/two^/six", ""),
    (LINE, {}, "one/tw^o/six", "ctrl+shift+Home", "one/^two/six", ""),
    (LINE, {}, "one/[tw^]o/six", "ctrl+shift+End", "one/two^/six", ""),
    (BOX, {}, "five nine fo^ur", "ctrl+Home", "^five nine four", ""),
    # Deleting.
    (LINE, {}, "one ^two", "BackSpace", "one^two", ""),
    (LINE, {}, "one ^two", "shift+BackSpace", "one^two", ""),
    (LINE, {}, "one ^two", "ctrl+BackSpace alt+BackSpace", "one ^two", ""),
    (LINE, {}, "one/^two", "BackSpace", "one^two", ""),
    (LINE, {}, "^one", "BackSpace", "^one", ""),
    (LINE, {}, "one [two^] six", "BackSpace", "one ^ six", ""),
    (LINE, {}, "one ^two", "Delete", "one ^wo", ""),
    (LINE, {}, "one^", "Delete", "one^", ""),
    (LINE, {}, "[^one two]", "Delete Delete q", "q^", ""),
    (LINE, {}, "one [^two] six", "Delete", "one ^ six", ""),
    # Paragraphs and text.
    (LINE, {}, "one ^two", "Return", "one /^two", ""),
    (LINE, {}, "one [two^] six", "KP_Enter q", "one /q^ six", ""),
    (LINE, {}, "one ^two", "shift+Return", "one /^two", ""),
    (LINE, {"textalignment": "center"}, "one ^two", "Return", "one /^two", ""),
    (LINE, {}, "one ^two", "q space shift+w 1", "one q W1^two", ""),
    (LINE, {}, "one ^two", "Tab", "one \t^two", ""),
    (LINE, {}, "one [two^] six", "q", "one q^ six", ""),
    (LINE, {}, "[one^] two", "ctrl+shift+b ctrl+a q w", "qw^", "qw font_bold=True"),
    (LINE, {}, "one [two^] six", "ctrl+shift+k End q Left Left Left Left Left q",
     "one twoQ^ sixq", "twoQ text_upper=True"),
    (LINE, {}, "one ^two", "F5 Pause", "one ^two", ""),
    (LINE, {}, "one ^two", "Escape q", "<one ^two>", ""),
    (BOX, {}, "five ^nine", "Escape q", "<five ^nine>", ""),
    # Motion. On the seam of two lines the caret knows to which of them it belongs.
    (LINE, {}, "one/tw^o", "Home q", "one/q^two", ""),
    (LINE, {}, "one/tw^o", "End", "one/two^", ""),
    (LINE, {}, "one ^two", "Left", "one^ two", ""),
    (LINE, {}, "one ^two", "Right", "one t^wo", ""),
    (LINE, {}, "^one two", "Left", "^one two", ""),
    (LINE, {}, "one two^", "Right", "one two^", ""),
    (LINE, {}, "one/^two", "Left", "one^/two", ""),
    (LINE, {}, "one four/tw^o", "Up", "on^e four/two", ""),
    (LINE, {}, "two/one four^", "Up", "two^/one four", ""),
    (LINE, {}, "one/tw^o", "Down", "one/tw^o", ""),
    (LINE, {}, "on^e/two", "Up", "on^e/two", ""),
    (LINE, {}, "on^e/two", "Down", "one/tw^o", ""),
    (LINE, {}, "one four^/two", "Down", "one four/two^", ""),
    (LINE, {}, "one ^two", "KP_Left KP_Left", "on^e two", ""),
    (BOX, {}, "five ni^ne four", "Home", "five ^nine four", ""),
    (BOX, {}, "five ni^ne four", "End", "five nine ^four", ""),
    (BOX, {}, "five ni^ne four", "Up", "fi^ve nine four", ""),
    (BOX, {}, "five ni^ne four", "Down", "five nine fo^ur", ""),
    (BOX, {}, "five ni^ne four", "Home Down", "five nine ^four", ""),
    (BOX, {}, "five ni^ne four", "Home Down Up", "five ^nine four", ""),
    (BOX, {}, "five ni^ne four", "Home Home Up", "^five nine four", ""),
    (BOX, {}, "five ni^ne four", "End Up", "five ^nine four", ""),
    (COLUMNS, {}, "on^e/two", "Left", "one/tw^o", ""),
    (COLUMNS, {}, "one/tw^o", "Right", "on^e/two", ""),
    (COLUMNS, {}, "one/tw^o", "Up", "one/t^wo", ""),
    (COLUMNS, {}, "one/tw^o", "Down", "one/two^", ""),
    (COLUMNS, {}, "one/tw^o", "Home", "one/^two", ""),
    (COLUMNS, {}, "on^e/two", "End", "one^/two", ""),
    (COLUMNS, {}, "one/tw^o", "Left", "one/tw^o", ""),
    # Selecting with Shift.
    (LINE, {}, "one ^two", "shift+Left shift+Left", "on[^e ]two", ""),
    (LINE, {}, "one ^two", "shift+Right shift+Right", "one [tw^]o", ""),
    (LINE, {}, "one ^two", "shift+Right shift+Left shift+Left", "one[^ ]two", ""),
    (LINE, {}, "one [two^] six", "shift+Right", "one [two ^]six", ""),
    (LINE, {}, "one [^two] six", "shift+Right", "one t[^wo] six", ""),
    (LINE, {}, "on^e/two", "shift+Down", "on[e/tw^]o", ""),
    (LINE, {}, "one/tw^o", "shift+Up", "on[^e/tw]o", ""),
    (LINE, {}, "one/tw^o", "shift+Home", "one/[^tw]o", ""),
    (LINE, {}, "one/t^wo", "shift+End", "one/t[wo^]", ""),
    (COLUMNS, {}, "on^e/two", "shift+Left", "on[e/tw^]o", ""),
    (COLUMNS, {}, "on^e/two", "shift+Up", "o[^n]e/two", ""),
    (LINE, {}, "on[e^] two", "Left", "on^e two", ""),
    (LINE, {}, "[^one] two", "Left", "^one two", ""),
    (LINE, {}, "one [two^]", "Right", "one two^", ""),
    (LINE, {}, "one [two^] six", "Home q", "q^one two six", ""),
]

# The page as it stands in the window, and the place of a text on it.
PAGE_LEFT, PAGE_TOP = 95, 116
SLOT_WIDTH, SLOT_HEIGHT, ACROSS, DOWN = 190, 90, 4, 6
PER_PAGE = ACROSS * DOWN
MARKS = "[]^"


def unmarked(text):
    return "".join(character for character in text if character not in MARKS)


def marks(text):
    """Positions of caret, start and end of what is selected."""
    found, position = {}, 0
    for character in text:
        if character in MARKS:
            found[character] = position
        else:
            position += 1
    caret = found["^"]
    return caret, found.get("[", caret), found.get("]", caret)


def page_of(number):
    return number // PER_PAGE + 1


def place(number):
    slot = number % PER_PAGE
    return slot % ACROSS * SLOT_WIDTH + 10, slot // ACROSS * SLOT_HEIGHT + 10


def page_object(number, row):
    (layout, direction), attributes = row[0], row[1]
    x, y = place(number)
    written = {"kind": "rich_text", "name": str(number), "layout": layout, "direction": direction,
               "x": x, "y": y, "text": "xxxxxx",
               "attributes": {"font_family": "Noto Sans", "font_pointsize": 14, **attributes}}
    if layout == "box":
        written.update({"width": 60, "height": 80})
    return written


def steps(number, row):
    direction, start, pressed = row[0][1], row[2], row[3]
    back, onward = ("Left", "Right") if direction == "horizontal" else ("Up", "Down")
    caret, first, last = marks(start)
    anchor = first if caret == last else last
    x, y = place(number)
    to_anchor = [onward] + [back] * (len(unmarked(start)) - anchor)
    to_caret = [onward if caret > anchor else back] * abs(caret - anchor)
    return [number, page_of(number), PAGE_LEFT + x + 12, PAGE_TOP + y + 12,
            unmarked(start).lower(), " ".join(to_anchor), " ".join(to_caret), pressed]


def write_pages():
    for begin in range(0, len(ROWS), PER_PAGE):
        rows = range(begin, min(begin + PER_PAGE, len(ROWS)))
        page = {"format": "vxpage", "version": 1,
                "page": {"width": 800, "height": 600, "background": "#fffdf5"},
                "objects": [page_object(number, ROWS[number]) for number in rows]}
        with open(f"page-{page_of(begin)}.json", "w", encoding="utf-8") as file:
            json.dump(page, file)
    for number, row in enumerate(ROWS):
        print(*steps(number, row), sep="|")


def document(number, moment):
    with open(f"page-{page_of(number)}{moment}.json", encoding="utf-8") as file:
        objects = json.load(file)["objects"]
    record = next(item["record"] for item in objects if item["name"] == str(number))
    return json.loads(record["params"]["document_data"])


def text_of(saved):
    return "/".join("".join(run["content"] for run in block) for block in saved["fragment"])


def with_marks(text, caret, selected):
    if not selected:
        return f"{text[:caret]}^{text[caret:]}"
    if selected == text and 0 < caret < len(text):
        return f"<{text[:caret]}^{text[caret:]}>"
    if text[:caret].endswith(selected):
        first = caret - len(selected)
        return f"{text[:first]}[{selected}^]{text[caret:]}"
    last = caret + len(selected)
    return f"{text[:caret]}[^{text[caret:last]}]{text[last:]}"


def value_of(value):
    return f"{value:g}" if isinstance(value, (int, float)) and not isinstance(value, bool) else value


def changes(before, after):
    """Of a text that had one format, and paragraphs of one format, before."""
    was = before["fragment"][0][0]
    found = [f"{run['content']} {key}={value_of(run[key])}"
             for block in after["fragment"] for run in block for key in sorted(run)
             if key != "content" and run[key] != was[key]]
    was = before["block"][0]
    found += [f":{number} {key}={value_of(block[key])}"
              for number, block in enumerate(after["block"], 1) for key in sorted(block)
              if block[key] != was[key]]
    return " ".join(found)


def outcome(number):
    before, after = document(number, "-before"), document(number, "")
    with open(f"selected-{number}", encoding="utf-8") as file:
        selected = file.read().replace("\n", "/")
    marked = with_marks(text_of(after), after["cursor_position"], selected)
    return text_of(before), marked, changes(before, after)


def check():
    failed = 0
    for number, (form, attributes, start, pressed, result, changed) in enumerate(ROWS):
        expected = unmarked(start), result, changed
        found = outcome(number)
        if found != expected:
            failed += 1
            print(f"{number}: {' '.join(form)} {attributes} {start!r}, keys {pressed}:"
                  f"\n    expected {expected}\n    found    {found}")
    print(f"{len(ROWS)} rows, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(write_pages() if sys.argv[1] == "pages" else check())
