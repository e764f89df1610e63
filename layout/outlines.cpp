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

// Characters of the texts whose widths are kept, and glyphs of the texts that are kept shaped.
constexpr int measuredLimit = 1 << 20;
constexpr int shapedLimit = 1 << 17;

// Elements of the upright characters that are kept.
constexpr int characterElementLimit = 1 << 19;

bool areSame(const QPointF &a, const QPointF &b)
{
    return a.x() == b.x() && a.y() == b.y();
}

// What addText() adds to the glyphs, or draws with glyphs of another size, is left to it.
bool isPlain(const QFont &font)
{
    return !font.underline() && !font.overline() && !font.strikeOut()
           && font.capitalization() == QFont::MixedCase;
}

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

bool FontWatch::haveChanged()
{
    const QRawFont former = m_probe;
    m_probe = QRawFont::fromFont(QFont());
    return m_probe != former;
}

bool operator==(const FontText &a, const FontText &b)
{
    return a.text == b.text && a.font == b.font;
}

uint qHash(const FontText &key, uint seed)
{
    // Fonts are few: their size tells most of them apart.
    return qHash(key.text, seed) ^ uint(key.font.pixelSize());
}

OutlineSource::OutlineSource()
    : m_measured(measuredLimit)
    , m_shaped(shapedLimit)
    , m_characters(characterElementLimit)
{
}

OutlineSource::Glyph::Glyph(const QPainterPath &path)
    : m_path(path)
{
    for (int i = 1; i + 2 < path.elementCount(); ++i) {
        if (!path.elementAt(i).isCurveTo())
            continue;
        const QPointF start = path.elementAt(i - 1);
        const QPointF first = path.elementAt(i);
        const QPointF second = path.elementAt(i + 1);
        const QPointF end = path.elementAt(i + 2);
        const QPointF about = (3 * first - start) / 2 * 64;
        const QPointF control(std::round(about.x()) / 64, std::round(about.y()) / 64);
        if (areSame((2 * control + start) / 3, first) && areSame((2 * control + end) / 3, second))
            m_quadratic.append({i, control});
        i += 2;
    }
}

QPainterPath OutlineSource::Glyph::at(const QPointF &place) const
{
    QPainterPath raised = m_path.translated(place);
    for (const Curve &curve : m_quadratic) {
        const QPointF start = raised.elementAt(curve.element - 1);
        const QPointF end = raised.elementAt(curve.element + 2);
        const QPointF control = 2 * (curve.control + place);
        const QPointF first = (control + start) / 3;
        const QPointF second = (control + end) / 3;
        raised.setElementPositionAt(curve.element, first.x(), first.y());
        raised.setElementPositionAt(curve.element + 1, second.x(), second.y());
    }
    return raised;
}

bool OutlineSource::startLayout()
{
    const bool fontsHaveChanged = m_fonts.haveChanged();
    if (fontsHaveChanged)
        clear();
    if (m_glyphElements > glyphElementLimit)
        clearGlyphs();
    return fontsHaveChanged;
}

void OutlineSource::clear()
{
    m_measured.clear();
    m_characters.clear();
    clearGlyphs();
}

// Shaped texts share the outlines of their glyphs, which would stay with them.
void OutlineSource::clearGlyphs()
{
    m_shaped.clear();
    m_glyphs.clear();
    m_glyphElements = 0;
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

// Shapes the text as addText() does.
OutlineSource::ShapedText OutlineSource::shape(const QFont &font, const QString &text)
{
    QTextLayout shaper(text, font);
    shaper.setCacheEnabled(true);
    shaper.beginLayout();
    const QTextLine line = shaper.createLine();
    shaper.endLayout();

    ShapedText shaped;
    shaped.ascent = line.ascent();
    int withoutInk = 0;
    const QList<QGlyphRun> runs = shaper.glyphRuns();
    shaped.hasSeveralRuns = runs.size() > 1;
    for (const QGlyphRun &run : runs) {
        const QRawFont rawFont = run.rawFont();
        const QVector<quint32> indexes = run.glyphIndexes();
        const QVector<QPointF> positions = run.positions();
        for (int i = 0; i < indexes.size(); ++i) {
            shaped.glyphs.append({glyph(rawFont, indexes.at(i)), positions.at(i)});
            const QPainterPath &outline = shaped.glyphs.last().glyph.path();
            shaped.elements += outline.elementCount();
            withoutInk += outline.isEmpty() ? 1 : 0;
        }
    }
    // More of them than blanks: glyphs that are pictures, which addText() traces.
    if (withoutInk > std::count_if(text.begin(), text.end(), [](QChar c) { return c.isSpace(); }))
        return ShapedText();
    return shaped;
}

// Copies the glyphs to their places. Empty for text that has to be left to addText().
QPainterPath OutlineSource::fromGlyphs(const QPointF &pen, const QFont &font, const QString &text)
{
    const FontText key{font, text};
    const ShapedText *shaped = m_shaped.find(key);
    if (!shaped)
        shaped = m_shaped.insert(key, shape(font, text), text.length());

    const QPointF base(onGrid(pen.x()), onGrid(pen.y()) - shaped->ascent);
    QVector<PlacedGlyph> glyphs = shaped->glyphs;
    for (PlacedGlyph &placed : glyphs)
        placed.place = base + placed.place;
    // Runs come font by font; simple text reads from left to right.
    if (shaped->hasSeveralRuns) {
        std::stable_sort(glyphs.begin(), glyphs.end(),
                         [](const PlacedGlyph &a, const PlacedGlyph &b) {
                             return a.place.x() < b.place.x();
                         });
    }
    QPainterPath result;
    result.reserve(shaped->elements);
    for (const PlacedGlyph &placed : qAsConst(glyphs))
        result.addPath(placed.glyph.at(placed.place));
    return result;
}

OutlineSource::Glyph OutlineSource::glyph(const QRawFont &font, quint32 index)
{
    QHash<quint32, Glyph> &glyphs = m_glyphs[font];
    const auto known = glyphs.find(index);
    if (known != glyphs.end())
        return *known;
    takeGlyphOffsetAway(font, index);
    const QPainterPath outline = font.pathForGlyph(index);
    m_glyphElements += outline.elementCount();
    return *glyphs.insert(index, Glyph(outline));
}

QPainterPath OutlineSource::character(const QPointF &pen, const QFont &font, const QString &text)
{
    if (!isWithinGrid(pen) || !isPlain(font))
        return textOutline(pen, font, text);
    const FontText key{font, text};
    const Glyph *known = m_characters.find(key);
    if (!known) {
        const QPainterPath outline = textOutline(QPointF(0, 0), font, text);
        known = m_characters.insert(key, Glyph(outline), outline.elementCount());
    }
    // Blanks leave an element behind that stands for no ink and has no place.
    return known->path().isEmpty() ? known->path()
                                   : known->at(QPointF(onGrid(pen.x()), onGrid(pen.y())));
}

qreal OutlineSource::width(const QFont &font, const QFontMetricsF &metrics, const QString &text)
{
    if (const qreal *known = m_measured.find({font, text}))
        return *known;
    const FontText key{font, QString(text.constData(), text.length())}; // never raw data
    return *m_measured.insert(key, metrics.horizontalAdvance(text), text.length());
}

qreal OutlineSource::width(const QFont &font, const QString &text)
{
    return width(font, QFontMetricsF(font), text);
}
