// SPDX-License-Identifier: MIT
#include "layout/outlines.h"

#include "common/glyphoffset.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QTextLayout>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace {

struct CodeRange {
    ushort low;
    ushort high;
};

// Both ends included.
constexpr CodeRange simpleRanges[] = {
    {0x0020, 0x007E}, {0x00A0, 0x00AC}, {0x00AE, 0x024F}, {0x0386, 0x03FF}, {0x0400, 0x0482},
    {0x048A, 0x052F}, {0x2010, 0x2027}, {0x2030, 0x205E}, {0x3000, 0x3029}, {0x3030, 0x303F},
    {0x3041, 0x3096}, {0x309B, 0x30FF}, {0x3105, 0x312F}, {0x3400, 0x4DBF}, {0x4E00, 0x9FFF},
    {0xAC00, 0xD7A3}, {0xF900, 0xFAD9}, {0xFF01, 0xFFDC},
};

// Glyphs stand on a grid of 1/64 pixel, cut off toward zero, within the range of 26.6 fixed point.
constexpr qreal gridLimit = 1 << 24;

bool isWithinGrid(const QPointF &pen)
{
    return std::abs(pen.x()) < gridLimit && std::abs(pen.y()) < gridLimit;
}

qreal onGrid(qreal coordinate)
{
    return std::trunc(coordinate * 64) / 64;
}

// Elements of the glyphs that are kept from layout to layout: about 24 bytes each, some 40 a glyph.
constexpr int glyphElementLimit = 1 << 20;

// What addText() adds to the glyphs, or draws with glyphs of another size, is left to it.
bool isPlain(const QFont &font)
{
    return !font.underline() && !font.overline() && !font.strikeOut()
           && font.capitalization() == QFont::MixedCase;
}

struct PlacedGlyph {
    QPainterPath outline;
    QPointF place;
};

} // namespace

bool standsForItself(QChar character)
{
    const ushort code = character.unicode();
    for (const CodeRange &range : simpleRanges) {
        if (code <= range.high)
            return code >= range.low;
    }
    return false;
}

QPainterPath textOutline(const QPointF &pen, const QFont &font, const QString &text)
{
    takeGlyphOffsetsAway(font, text);
    QPainterPath outline;
    outline.addText(pen, font, text);
    return outline;
}

void OutlineSource::startLayout()
{
    m_characters.clear();
    m_widths.clear();
    if (m_glyphElements > glyphElementLimit) {
        m_glyphs.clear();
        m_glyphElements = 0;
    }
}

QPainterPath OutlineSource::text(const QPointF &pen, const QFont &font, const QString &text)
{
    // Left of 0 each script's part of the text would be cut off on its own.
    if (text.isEmpty() || pen.x() < 0 || !isWithinGrid(pen) || !isPlain(font)
        || !std::all_of(text.begin(), text.end(), standsForItself))
        return textOutline(pen, font, text);
    const QPainterPath outline = fromGlyphs(pen, font, text);
    // Also for blanks alone, which leave an element behind that stands for no ink.
    return outline.isEmpty() ? textOutline(pen, font, text) : outline;
}

// Shapes the text as addText() does and copies the glyphs to their places. Empty for text that has to
// be left to addText().
QPainterPath OutlineSource::fromGlyphs(const QPointF &pen, const QFont &font, const QString &text)
{
    QTextLayout shaper(text, font);
    shaper.setCacheEnabled(true);
    shaper.beginLayout();
    const QTextLine line = shaper.createLine();
    shaper.endLayout();

    const QPointF base(onGrid(pen.x()), onGrid(pen.y()) - line.ascent());
    QVector<PlacedGlyph> glyphs;
    int elements = 0;
    int withoutInk = 0;
    const QList<QGlyphRun> runs = shaper.glyphRuns();
    for (const QGlyphRun &run : runs) {
        const QRawFont rawFont = run.rawFont();
        const QVector<quint32> indexes = run.glyphIndexes();
        const QVector<QPointF> positions = run.positions();
        for (int i = 0; i < indexes.size(); ++i) {
            glyphs.append({glyph(rawFont, indexes.at(i)), base + positions.at(i)});
            elements += glyphs.last().outline.elementCount();
            withoutInk += glyphs.last().outline.isEmpty() ? 1 : 0;
        }
    }
    // More of them than blanks: glyphs that are pictures, which addText() traces.
    if (withoutInk > std::count_if(text.begin(), text.end(), [](QChar c) { return c.isSpace(); }))
        return QPainterPath();
    // Runs come font by font; simple text reads from left to right.
    if (runs.size() > 1) {
        std::stable_sort(glyphs.begin(), glyphs.end(),
                         [](const PlacedGlyph &a, const PlacedGlyph &b) {
                             return a.place.x() < b.place.x();
                         });
    }
    QPainterPath result;
    result.reserve(elements);
    for (const PlacedGlyph &placed : qAsConst(glyphs))
        result.addPath(placed.outline.translated(placed.place));
    return result;
}

QPainterPath OutlineSource::glyph(const QRawFont &font, quint32 index)
{
    QHash<quint32, QPainterPath> &glyphs = m_glyphs[font];
    const auto known = glyphs.find(index);
    if (known != glyphs.end())
        return *known;
    takeGlyphOffsetAway(font, index);
    const QPainterPath outline = font.pathForGlyph(index);
    m_glyphElements += outline.elementCount();
    glyphs.insert(index, outline);
    return outline;
}

QPainterPath OutlineSource::character(const QPointF &pen, const QFont &font, const QString &text)
{
    if (!isWithinGrid(pen) || !isPlain(font))
        return textOutline(pen, font, text);
    QHash<QString, QPainterPath> &characters = m_characters[font];
    auto known = characters.find(text);
    if (known == characters.end())
        known = characters.insert(text, textOutline(QPointF(0, 0), font, text));
    // Blanks leave an element behind that stands for no ink and has no place.
    return known->isEmpty() ? *known : known->translated(onGrid(pen.x()), onGrid(pen.y()));
}

qreal OutlineSource::characterWidth(const QFont &font, const QString &text)
{
    QHash<QString, qreal> &widths = m_widths[font];
    auto known = widths.find(text);
    if (known == widths.end())
        known = widths.insert(text, QFontMetricsF(font).horizontalAdvance(text));
    return *known;
}
