// SPDX-License-Identifier: MIT
// CSingleTextObject: horizontal line text.
#include "layout/singletextobject.h"

#include "layout/blockmeasures.h"
#include "layout/outlinesum.h"
#include "layout/textrun.h"
#include "layout/texttools.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextDocument>
#include <QVector>

namespace {

// State across the blocks of one layout.
struct RowPass {
    RowPass(const TextLayout &start, const QPointF &at, LaidOutBlocks &laidOut,
            OutlineSource &outlineSource)
        : anchor(at)
        , dpi(start.dpi)
        , layout(start)
        , blocks(laidOut)
        , outlines(outlineSource)
    {
    }

    // What the row of a block depends on beside its content, and what it leaves behind.
    LayoutNumbers numbers() const { return {y, previousDescent, afterSpace}; }
    void goOnFrom(const LayoutNumbers &numbers);

    const QPointF anchor;
    const int dpi;
    qreal y = 0; // running offset of the baseline below the anchor
    qreal previousDescent = 0;
    qreal afterSpace = 0; // a block without the property repeats the last value
    bool isFirst = true;
    UnderlineThickness thickness;
    TextLayout layout;
    LaidOutBlocks &blocks;
    OutlineSource &outlines;
};

void RowPass::goOnFrom(const LayoutNumbers &numbers)
{
    y = numbers.at(0);
    previousDescent = numbers.at(1);
    afterSpace = numbers.at(2);
    isFirst = false;
}

// How far the row stands below the one before it, as its runs ask for it.
struct RowDistance {
    qreal fixed = 0;
    bool isAutomatic = false;
};

TextLine emptyRow(const QTextBlock &block, RowPass &pass, LineExtent &extent)
{
    const QTextCharFormat format = block.charFormat();
    TextLine line = emptyBlockLine(block, pass.dpi);

    const QFontMetricsF metrics(line.font);
    const qreal fixed = emptyBlockRowDistance(format, pass.dpi);
    pass.y += fixed != 0 ? fixed : pass.previousDescent + metrics.ascent();
    pass.previousDescent = metrics.descent();
    line.origin = pass.isFirst ? pass.anchor : QPointF(pass.anchor.x(), pass.y + pass.anchor.y());

    const RunStyle style = readRunStyle(format, pass.dpi);
    extent.ahead = metrics.ascent() * style.scaleY;
    extent.behind = metrics.descent() * style.scaleY;
    if (style.offset >= 0)
        extent.ahead += style.offset;
    else
        extent.behind -= style.offset;
    if (format.fontUnderline())
        extent.thickness = pass.thickness.of(format.font());
    return line;
}

// First pass: the runs, their text and the tallest font. Afterwards styles runs parallel to the
// line's fragments.
TextLine readRow(const QTextBlock &block, int dpi, QVector<RunStyle> &styles, RowDistance &distance)
{
    TextLine line;
    qreal tallest = 0;
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
        const TextFragment run = TextFragment::fromQtFragment(it.fragment());
        const RunStyle style = readRunStyle(run.format, dpi);
        const qreal height = QFontMetricsF(style.font).height();
        if (line.fragments.isEmpty() || height > tallest) {
            tallest = height;
            line.font = style.font;
        }
        if (style.rowSpacing > 0)
            distance.fixed = qMax(distance.fixed, style.rowSpacing);
        else
            distance.isAutomatic = true;
        line.length += run.text.length();
        line.text += run.text;
        line.fragments.append(run);
        styles.append(style);
    }
    line.position = line.fragments.first().position;
    return line;
}

// The first block's baseline is the anchor itself; every later row adds its distance.
void placeRow(TextLine &line, const RowDistance &distance, RowPass &pass)
{
    const QFontMetricsF metrics(line.font);
    if (!pass.isFirst) {
        const qreal automatic = metrics.ascent() + pass.previousDescent;
        if (!distance.isAutomatic)
            pass.y += distance.fixed;
        else if (distance.fixed == 0)
            pass.y += automatic;
        else
            pass.y += qMax(distance.fixed, automatic);
    }
    pass.previousDescent = metrics.descent();
    line.origin = QPointF(pass.anchor.x(), pass.y + pass.anchor.y());
}

// Second pass, one run: outline and measures, with the line still starting at the anchor.
void outlineRun(TextFragment &run, const RunStyle &style, const TextLine &line, LineExtent &extent,
                OutlineSource &outlines)
{
    const QPointF pen(line.origin.x() + extent.pen, line.origin.y());
    run.font = style.spacedFont();
    const QFontMetricsF metrics(run.font);
    qreal ascent = metrics.ascent() * style.scaleY;
    qreal descent = metrics.descent() * style.scaleY;
    if (style.offset >= 0)
        ascent += style.offset;
    else
        descent -= style.offset;

    run.scaleX = style.scaleX;
    run.scaleY = style.scaleY;
    run.path = scaleAbout(pen, run.scaleX, run.scaleY).map(outlines.text(pen, run.font, run.text));
    qreal movement = 0;
    if (style.isSuperscript || style.isSubscript) {
        run.scaleX *= 0.5;
        run.scaleY *= 0.5;
        movement = setSuperOrSubscript(run.path, pen, style.isSuperscript);
        if (style.isSubscript)
            descent += qAbs(movement);
    }
    run.path.translate(0, -style.offset);

    run.baseline = line.origin.y() - style.offset + movement;
    run.advance = outlines.width(run.font, metrics, run.text) * run.scaleX;
    run.start = pen.x();
    extent.pen += run.advance;
    extent.ahead = qMax(extent.ahead, ascent);
    extent.behind = qMax(extent.behind, descent);
}

void outlineRow(TextLine &line, const QVector<RunStyle> &styles, RowPass &pass, LineExtent &extent)
{
    for (int i = 0; i < line.fragments.size(); ++i) {
        const QTextCharFormat &format = line.fragments.at(i).format;
        if (format.fontUnderline())
            extent.thickness = qMax(extent.thickness, pass.thickness.of(format.font()));
        addLeadingGap(line, i, styles.at(i).gap, extent);
        outlineRun(line.fragments[i], styles.at(i), line, extent, pass.outlines);
    }
}

// Aligns the row at the anchor and collects its outlines.
void shiftRow(TextLine &line, const BlockMeasures &measures, qreal pen)
{
    qreal shift = measures.left;
    if (line.alignment == Qt::AlignRight)
        shift = -pen - measures.right;
    else if (line.alignment == Qt::AlignHCenter)
        shift = -pen / 2;
    shift += measures.indent;
    for (TextFragment &run : line.fragments) {
        run.path.translate(shift, 0);
        run.path.setFillRule(Qt::WindingFill);
        run.start += shift;
        line.path.addPath(run.path);
    }
}

// The thickness of underlines is inside the box of the row.
void closeRow(TextLine &line, const LineExtent &extent)
{
    const qreal top = line.origin.y() - extent.ahead;
    const qreal height = extent.ahead + extent.behind + extent.thickness;
    if (line.isEmptyBlock) {
        line.rect = QRectF(line.origin.x(), top, 0, height);
        return;
    }
    const TextFragment &last = line.fragments.last();
    qreal left = line.fragments.first().start;
    for (int i = 1; i < line.fragments.size() - 1; ++i)
        left = qMin(left, line.fragments.at(i).start);
    qreal right = last.start + last.advance;
    for (const TextFragment &run : qAsConst(line.fragments))
        right = qMax(right, run.start + run.advance);
    if (!last.path.isEmpty())
        right = qMax(right, last.path.boundingRect().right());
    line.rect = QRectF(left, top, right - left, height);
}

void layOutBlock(const QTextBlock &block, RowPass &pass)
{
    const BlockMeasures measures = readBlockMeasures(block.blockFormat(), pass.dpi, pass.isFirst);
    pass.y += measures.before + pass.afterSpace;

    LineExtent extent;
    TextLine line;
    if (block.begin().atEnd()) {
        line = emptyRow(block, pass, extent);
        line.alignment = horizontalLineAlignment(block.blockFormat());
    } else {
        QVector<RunStyle> styles;
        RowDistance distance;
        line = readRow(block, pass.dpi, styles, distance);
        line.alignment = horizontalLineAlignment(block.blockFormat());
        placeRow(line, distance, pass);
        outlineRow(line, styles, pass, extent);
        shiftRow(line, measures, extent.pen);
    }
    closeRow(line, extent);
    pass.afterSpace = measures.after.value_or(pass.afterSpace);
    pass.isFirst = false;
    pass.layout.lines.append(line);
}

// Ink below the last box counts, ink beside or above the boxes does not.
QRectF textRect(const TextLayout &layout)
{
    QList<QPainterPath> outlines;
    for (const TextLine &line : layout.lines) {
        for (const TextFragment &run : line.fragments) {
            if (!run.path.isEmpty())
                outlines.append(run.path);
        }
    }
    QRectF rect = unitedLineRects(layout.lines);
    const qreal inkBottom = boundsOf(outlines).bottom();
    if (!outlines.isEmpty() && inkBottom > rect.bottom())
        rect.setBottom(inkBottom);
    return rect;
}

} // namespace

CSingleTextObject::CSingleTextObject(CWordProcess *object)
    : CTextObjectBase(object)
{
}

void CSingleTextObject::startBlocks()
{
    if (m_outlines.startLayout())
        m_blocks.clear();
    const QPointF anchor = textOffset();
    m_blocks.startLayout({qreal(orientation()), qreal(dpi()), anchor.x(), anchor.y()},
                         document()->blockCount());
}

// A page holds many short lines: only the one that is edited keeps its glyphs.
void CSingleTextObject::endBlocks()
{
    m_blocks.endLayout();
    if (!isEdited())
        m_outlines.clear();
}

void CSingleTextObject::horizontalLayout()
{
    startBlocks();
    RowPass pass(startLayout(), textOffset(), m_blocks, m_outlines);
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        layOutOrTake(block, pass, layOutBlock);
    endBlocks();
    const QRectF rect = textRect(pass.layout);
    updateData(pass.layout, rect, rect, QPainterPath());
}
