#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Writes the sample pages with text objects of the two older generations, byte by byte.

older-html.*      the oldest one: the text is HTML behind the common part of the record
older-document.*  the middle one: the text is a document string, and no key says which engine lays it out
Each page has a form in JSON and a binary one, with the same records in both.
Usage: makeolder.py [FOLDER]
"""
import json
import struct
import sys
from pathlib import Path

SERIF, HAN = "Noto Serif", "Noto Serif CJK SC"
ROWS, COLUMNS = 1, 2


# The stream form of a record: what a reader of QDataStream takes.

def text(value):
    data = value.encode("utf-16-be")
    return struct.pack(">I", len(data)) + data


def value(item):
    """A tagged value: 1 and QVariant's own form, or 3 and the pairs of a map."""
    if isinstance(item, dict):
        pairs = b"".join(text(key) + value(item[key]) for key in sorted(item))
        return struct.pack(">BI", 3, len(item)) + pairs
    kinds = {bool: (1, lambda v: struct.pack(">B", v)), int: (2, lambda v: struct.pack(">i", v)),
             float: (6, lambda v: struct.pack(">d", v)), str: (10, text)}
    kind, pack = kinds[type(item)]
    return struct.pack(">BIB", 1, kind, 0) + pack(item)


def stream_record(fields, tail):
    common = value(fields)
    return struct.pack(">IHI", 0x56584F42, 1, len(common)) + common + text(tail)


def common_fields(place, params):
    x, y, width, height, rotation = place
    return {"x": float(x), "y": float(y), "width": float(width), "height": float(height),
            "rotation": float(rotation), "z": 0.0, "locked": False, "created": True,
            "flip": False, "mirror": False, "params": params}


class TextObject:
    """One record in both forms; html is empty for the middle generation."""

    def __init__(self, name, place, params, html=""):
        self.name, self.html = name, html
        self.fields = common_fields(place, params)

    def json_form(self):
        plain = {key: int(item) if isinstance(item, float) and item == int(item) else item
                 for key, item in self.fields.items()}
        record = {"version": 1, **plain, "TextDPI": 96, "TextContent": self.html}
        return {"kind": "rich_text", "name": self.name, "record": record}

    def section(self):
        head = compact({"kind": "rich_text", "name": self.name, "record": {"TextDPI": 96}})
        return section(b"OBJT", counted(head) + stream_record(self.fields, self.html))


# The two forms of a page.

def compact(item):
    return json.dumps(item, ensure_ascii=False, separators=(",", ":"), sort_keys=True).encode()


def counted(data):
    return struct.pack(">I", len(data)) + data


def section(tag, content):
    return tag + counted(content)


def write_page(folder, name, sheet, objects):
    head = {"format": "vxpage", "version": 1, "page": sheet}
    whole = {**head, "objects": [item.json_form() for item in objects]}
    (folder / f"{name}.json").write_text(
        json.dumps(whole, ensure_ascii=False, indent=2) + "\n", encoding="utf-8")
    sections = [section(b"PAGE", compact(head)), *(item.section() for item in objects),
                section(b"END ", b"")]
    (folder / f"{name}.vxpage").write_bytes(
        b"\x89VXPAGE\r\n\n" + struct.pack(">I", 1) + b"".join(sections))


# The oldest generation.

def html_object(name, place, orientation, box, *paragraphs):
    body = "".join(f'<p align="{align}">{content}</p>' for align, content in paragraphs)
    html = ('<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0//EN"><html><body style="font-family:'
            f"'{SERIF}'; font-size:14pt;\">{body}</body></html>")
    return TextObject(name, place, {"TextOrientation": orientation, "text_wordwrap": box}, html)


def span(style, content):
    return f'<span style="{style}">{content}</span>'


def html_page():
    title = span("font-size:30pt; color:#7a2531;", "The Old <u>Almanac</u>")
    sub = span("font-size:13pt; color:#555555;", "kept from year to year, <s>a penny</s> free")
    body = ("Sow <b>early</b> in a mild spring, and late when the <i>blackthorn</i> is still in "
            "flower. A wet June fills the barn; a dry one fills the cellar. What the frost has "
            "<u>spared</u> the " + span("color:#1f5e3a;", "caterpillar") + " will find.")
    poem = [("left", span(f"font-family:'{HAN}'; font-size:20pt;", line))
            for line in ("床前明月光，", "疑是<u>地上霜</u>。", "举头望明月，", "低头思故乡。")]
    return [
        html_object("title", (40, 30, 420, 90, 0), ROWS, False, ("center", title),
                    ("center", sub)),
        html_object("advice", (40, 170, 330, 300, 0), ROWS, True, ("left", body),
                    ("right", span("color:#555555;", "from the first page"))),
        html_object("poem", (400, 170, 230, 300, 0), COLUMNS, True, *poem),
    ]


# The middle generation.

def run(content, **attributes):
    plain = {"font_family": SERIF, "font_pointsize": 14, "font_rowspacing": 0,
             "pen_color": "#ff202020"}
    return {"content": content, **plain, **attributes}


def document_object(name, place, orientation, box, blocks):
    """blocks: pairs of the attributes of a paragraph and its runs."""
    document = {"block": [block for block, _ in blocks], "fragment": [runs for _, runs in blocks],
                "text_direction": orientation, "text_wordwrap": box}
    return TextObject(name, place, {
        "TextOrientation": orientation, "text_wordwrap": box, "text_defaultword": "",
        "text_defaultfollow": False, "document_dpi": 96,
        "document_data": compact(document).decode()})


def document_page():
    title = [({"textalignment": 4}, [
        run("H", font_pointsize=30), run("2", font_pointsize=30, text_subscript=True),
        run("O and E = mc", font_pointsize=30), run("2", font_pointsize=30, text_superscript=True)])]
    hyphens = [({"textalignment": 512, "text_ligature": True, "paragraph_first_indent": 18}, [
        run("Characteristically, the "), run("lighthousekeeper", font_underline=True),
        run(" answered with an "), run("extraordinarily", font_strikeout=True),
        run(" long enumeration of misunderstandings.")]),
        ({"textalignment": 1, "paragraph_left_indent": 24, "paragraph_after_space": 9}, [
            run("Whole words move here, and narrow "), run("letters", horizontal_scaled=60),
            run(" or "), run("spaced ones", selected_letterspacing=250), run(" stay so.")])]
    han = {"font_family": HAN, "font_pointsize": 15}
    marks = [({"textalignment": 1, "paragraph_head_tail_punctuation": 2}, [
        run("“海上生明月，天涯共此时。”《望月怀远》（节选）：情人怨遥夜，竟夕起相思。", **han)])]
    columns = [({"textalignment": 32, "paragraph_head_tail_punctuation": 2}, [
        run("灭烛怜光满，", **han), run("披衣觉露滋", font_underline=True, **han),
        run("。不堪盈手赠，", **han), run("还寝梦佳期", font_strikeout=True, **han),
        run("。 by lamplight", **han)]),
        ({"textalignment": 64}, [run("张九龄", **{**han, "pen_color": "#ff8c1d40"})])]
    return [
        document_object("formula", (40, 30, 380, 50, 0), ROWS, False, title),
        document_object("hyphens", (40, 110, 300, 270, 0), ROWS, True, hyphens),
        document_object("marks", (40, 380, 300, 150, 0), ROWS, True, marks),
        document_object("columns", (390, 110, 200, 300, 0), COLUMNS, True, columns),
        document_object("turned", (440, 470, 120, 24, -12), ROWS, False,
                        [({"textalignment": 1}, [run("turned", font_underline=True)])]),
    ]


def main():
    folder = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent)
    write_page(folder, "older-html",
               {"width": 660, "height": 500, "dpi": 96, "background": "#fffdf5"}, html_page())
    write_page(folder, "older-document",
               {"width": 640, "height": 560, "dpi": 96, "background": "#ffffff"}, document_page())


if __name__ == "__main__":
    main()
