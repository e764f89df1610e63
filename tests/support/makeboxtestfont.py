#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Builds BoxTest.ttf, the font of squares that the layout tests measure with.

1024 units an em, ascent 768, descent 256: at 8, 16 and 32 px every advance and every line measure
is a whole number. Usage: makeboxtestfont.py [OUTPUT.ttf]
"""
import sys
from pathlib import Path

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen

EM = 1024
ASCENT, DESCENT = 768, 256
NARROW, WIDE = 512, 1024
COMMON_HAN = ("中文国人天地日月山水火木金土春夏秋冬风花雪夜东南西北上下左右大小高长明光白"
              "黄河江海云雨田心手口目耳足父母子女我你他她是不有无来去出入生死年时分秒字词"
              "句章书写读版本竖横排行頁頭國語漢東京學校")


def box(left, bottom, right, top):
    """A rectangle as a TrueType glyph, clockwise from its lower left corner."""
    pen = TTGlyphPen(None)
    pen.moveTo((left, bottom))
    for point in ((left, top), (right, top), (right, bottom)):
        pen.lineTo(point)
    pen.closePath()
    return pen.glyph()


def narrow_glyph(code):
    """A Latin glyph: low for marks at the base line, below it for letters with a tail."""
    char = chr(code)
    if char in " \u00a0":
        return TTGlyphPen(None).glyph()
    if char in ".,":
        return box(64, 0, 192, 128)
    if char in "-_":
        return box(64, 192, 448, 256)
    if char in "gpqyj":
        return box(64, -128, 448, 384)
    if char in "aceimnorsuvwxz":
        return box(64, 0, 448, 384)
    return box(64, 0, 448, 512)


def wide_glyph(code):
    """A full-width glyph: a small box in its corner for stops, half a cell for brackets."""
    char = chr(code)
    if char == "\u3000":
        return TTGlyphPen(None).glyph()
    if char in "、。，．":
        return box(64, -128, 320, 128)
    if char in "（「『【《〈〔［｛":
        return box(512, -128, 960, 768)
    if char in "）」』】》〉〕］｝":
        return box(64, -128, 512, 768)
    return box(64, -128, 960, 768)


def wide_codes():
    ranges = ((0x2014, 0x2014), (0x2026, 0x2026), (0x3000, 0x301F), (0x3041, 0x3096),
              (0x3099, 0x30FF), (0x4E00, 0x4EFF), (0xFF01, 0xFF5E))
    codes = {code for first, last in ranges for code in range(first, last + 1)}
    return sorted(codes | {ord(char) for char in COMMON_HAN} | {0x20000})


def build(path):
    glyphs = {".notdef": box(0, 0, 512, 512)}
    metrics = {".notdef": NARROW}
    cmap = {}
    for code in list(range(0x20, 0x7F)) + list(range(0xA0, 0x100)):
        name = f"uni{code:04X}"
        cmap[code], glyphs[name], metrics[name] = name, narrow_glyph(code), NARROW
    for code in wide_codes():
        name = f"uni{code:04X}" if code < 0x10000 else f"u{code:05X}"
        cmap[code], glyphs[name], metrics[name] = name, wide_glyph(code), WIDE

    font = FontBuilder(EM, isTTF=True)
    font.setupGlyphOrder(list(glyphs))
    font.setupCharacterMap(cmap)
    font.setupGlyf(glyphs)
    table = font.font["glyf"]
    bearings = {name: getattr(table[name], "xMin", 0) if table[name].numberOfContours else 0
                for name in glyphs}
    font.setupHorizontalMetrics({name: (metrics[name], bearings[name]) for name in glyphs})
    font.setupHorizontalHeader(ascent=ASCENT, descent=-DESCENT, lineGap=0)
    font.setupNameTable({"familyName": "BoxTest", "styleName": "Regular",
                         "uniqueFontIdentifier": "BoxTest-1.0", "fullName": "BoxTest",
                         "psName": "BoxTest-Regular", "version": "Version 1.0"})
    font.setupOS2(version=4, sTypoAscender=ASCENT, sTypoDescender=-DESCENT, sTypoLineGap=0,
                  usWinAscent=ASCENT, usWinDescent=DESCENT, sxHeight=384, sCapHeight=512,
                  xAvgCharWidth=NARROW, yStrikeoutSize=64, yStrikeoutPosition=256, fsType=0,
                  fsSelection=0xC0,
                  ulUnicodeRange1=0x00000003, ulUnicodeRange2=0x08070000)
    font.setupPost(underlinePosition=-128, underlineThickness=64)
    font.setupHead(unitsPerEm=EM, created=0, modified=0)
    font.font.recalcTimestamp = False
    font.save(path)


if __name__ == "__main__":
    build(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).with_name("BoxTest.ttf"))
