// SPDX-License-Identifier: MIT
// textlayoutbars.cpp -- TextLine: the bars under (or left of) underlined stretches.
// Reads: fragments, font, origin, path. Runs that follow each other share one bar, so that a
// stretch split by changes of format has no seam. Strike bars belong to single runs: textlayout.cpp.
#include "layout/textlayout.h"

#include "layout/textproperties.h"
#include "layout/texttools.h"

#include <QFontMetricsF>

#include <algorithm>
#include <limits>

namespace {

// One bar. Horizontal: left x, width, y of the bottom edge. Vertical: top y, height, x of the right
// edge.
struct _line_property {
    qreal start;
    qreal length;
    qreal across;
    QBrush brush;
};

// The bars of one line. A group is a stretch of bars with one value of `across`, which is known
// when the group ends.
class BarList
{
public:
    void beginGroup(const TextFragment &run, qreal across)
    {
        settleGroup();
        m_groupBegin = m_bars.size();
        appendBar(run, across);
    }

    // The group goes on: the last bar grows, a change of colour begins another one.
    void extendGroup(const TextFragment &run, qreal across)
    {
        _line_property &bar = m_bars.last();
        if (bar.brush == brushOf(run)) {
            bar.length += run.advance;
            bar.across = across;
        } else {
            appendBar(run, across);
        }
    }

    // The value that the present group has come to.
    qreal across() const { return m_bars.last().across; }

    const QList<_line_property> &finished()
    {
        settleGroup();
        return m_bars;
    }

private:
    static QBrush brushOf(const TextFragment &run)
    {
        return run.format.brushProperty(QTextFormat::ForegroundBrush);
    }

    void appendBar(const TextFragment &run, qreal across)
    {
        m_bars.append({run.start, run.advance, across, brushOf(run)});
    }

    void settleGroup()
    {
        for (int i = m_groupBegin; i < m_bars.size(); ++i)
            m_bars[i].across = m_bars.last().across;
    }

    QList<_line_property> m_bars;
    int m_groupBegin = 0;
};

void appendPiece(const QRectF &rect, const QBrush &brush, QList<QPainterPath> &paths,
                 QList<QBrush> &brushes)
{
    QPainterPath bar;
    bar.addRect(rect);
    paths.append(bar);
    brushes.append(brush);
}

qreal scaledDescent(const TextFragment &run)
{
    return QFontMetricsF(run.font).descent() * run.scaleY;
}

// What sets a run of a row apart from its neighbours.
struct Shift {
    bool isSuper = false;
    bool isSub = false;
    qreal offset = 0;

    static Shift of(const QTextCharFormat &format)
    {
        const QTextCharFormat::VerticalAlignment alignment = format.verticalAlignment();
        return {alignment == QTextCharFormat::AlignSuperScript,
                alignment == QTextCharFormat::AlignSubScript,
                format.property(TextProperty::BaselineOffset).toReal()};
    }
    bool isAny() const { return isSuper || isSub || offset != 0; }
    bool operator==(const Shift &other) const
    {
        return isSuper == other.isSuper && isSub == other.isSub && offset == other.offset;
    }
};

// An outline without ink has no edge; nothing lies further right than this.
constexpr qreal NoEdge = std::numeric_limits<qreal>::infinity();

qreal leftEdge(const QPainterPath &outline)
{
    return outline.isEmpty() ? NoEdge : outline.boundingRect().left();
}

} // namespace

void TextLine::horizontalUnderlinePath(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                                       const QList<int> &indices) const
{
    UnderlineThickness measured;
    horizontalUnderlinePath(paths, brushes, indices, measured);
}

void TextLine::horizontalUnderlinePath(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                                       const QList<int> &indices,
                                       UnderlineThickness &measured) const
{
    if (indices.isEmpty())
        return;
    qreal descent = scaledDescent(fragments.first());
    for (const TextFragment &run : fragments)
        descent = std::max(descent, scaledDescent(run));
    const qreal common = origin.y() + descent;

    BarList bars;
    Shift group;
    int previous = indices.first() - 2; // no neighbour of the first
    for (const int index : indices) {
        const TextFragment &run = fragments.at(index);
        const Shift shift = Shift::of(run.format);
        const qreal own = run.baseline + scaledDescent(run);
        if (index == previous + 1 && shift == group)
            bars.extendGroup(run, std::max(bars.across(), own));
        else
            bars.beginGroup(run, shift.isAny() ? own : common);
        group = shift;
        previous = index;
    }

    // The bottom edge lies on the line of the descent: deliberate, the bar overlaps descenders.
    const qreal thickness = measured.of(font);
    for (const _line_property &bar : bars.finished()) {
        appendPiece(QRectF(bar.start, bar.across - thickness, bar.length, thickness), bar.brush,
                    paths, brushes);
    }
}

void TextLine::verticalUnderlinePath(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                                     const QList<int> &indices) const
{
    UnderlineThickness measured;
    verticalUnderlinePath(paths, brushes, indices, measured);
}

void TextLine::verticalUnderlinePath(QList<QPainterPath> &paths, QList<QBrush> &brushes,
                                     const QList<int> &indices, UnderlineThickness &measured) const
{
    if (indices.isEmpty())
        return;
    BarList bars;
    bool groupIsSuper = false;
    int previous = indices.first() - 2; // no neighbour of the first
    for (const int index : indices) {
        const TextFragment &run = fragments.at(index);
        // Deliberate: neither subscript nor an offset sets a run of a column apart.
        const bool isSuper = run.format.verticalAlignment() == QTextCharFormat::AlignSuperScript;
        const qreal left = leftEdge(run.path);
        if (index == previous + 1 && isSuper == groupIsSuper)
            bars.extendGroup(run, std::min(bars.across(), left));
        else
            bars.beginGroup(run, left);
        groupIsSuper = isSuper;
        previous = index;
    }

    const qreal thickness = measured.of(font);
    for (const _line_property &bar : bars.finished()) {
        // Blanks alone have no ink to stand beside: the ink of the column serves.
        const qreal right = bar.across == NoEdge ? path.boundingRect().left() : bar.across;
        appendPiece(QRectF(right - thickness, bar.start, thickness, bar.length), bar.brush, paths,
                    brushes);
    }
}
