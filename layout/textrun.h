// SPDX-License-Identifier: MIT
#ifndef TEXTRUN_H
#define TEXTRUN_H

#include "layout/outlines.h"
#include "layout/runstyle.h"
#include "layout/textlayout.h"

#include <QTransform>

class QTextBlock;

// What the layouts of line text and of box text, in both directions, truly share.

/// Scale about a fixed point.
inline QTransform scaleAbout(const QPointF &point, qreal sx, qreal sy)
{
    QTransform stretch;
    stretch.translate(point.x(), point.y());
    stretch.scale(sx, sy);
    stretch.translate(-point.x(), -point.y());
    return stretch;
}

/// Lays the outline of text with its pen at \a pen on its side, for a column: turned clockwise about
/// the pen and moved left by \a halfCapital, half the height of a capital letter, which centres it.
QPainterPath sidewaysOutline(const QPainterPath &outline, const QPointF &pen, qreal halfCapital);

/// Half the height of an "A" in \a font.
qreal halfCapitalHeight(const QFont &font);

/// Sets the outline of a character with its pen at \a pen upright into a column: \a width centres it
/// across, and its ink is centred in a cell that begins at the pen and is \a cell high.
QPainterPath uprightOutline(QPainterPath outline, const QPointF &pen, qreal width, qreal cell);

/// Halves \a outline about \a pen and raises or lowers it as superscript or subscript of
/// horizontal text. \return the movement, positive is down
qreal setSuperOrSubscript(QPainterPath &outline, const QPointF &pen, bool isSuperscript);

/// Extent of a line while its runs are placed. Across the line the two halves are ascent and
/// descent of a row, or the right and left half of a column.
struct LineExtent {
    qreal pen = 0;       ///< length of the placed runs
    qreal ahead = 0;     ///< ascent, right half
    qreal behind = 0;    ///< descent, left half
    qreal thickness = 0; ///< greatest underline thickness
    bool isUnderlined = false;
};

/// Adds the gap ahead of run \a index: it widens the run before it, if any, and moves the pen.
inline void addLeadingGap(TextLine &line, int index, qreal gap, LineExtent &extent)
{
    if (gap == 0)
        return;
    if (index > 0)
        line.fragments[index - 1].advance += gap;
    extent.pen += gap;
}

/// The line that stands for an empty block, with its one fragment and its font; not placed yet.
TextLine emptyBlockLine(const QTextBlock &block, int dpi);

/// Union of the boxes of all lines.
inline QRectF unitedLineRects(const QList<TextLine> &lines)
{
    QRectF united;
    for (const TextLine &line : lines)
        united |= line.rect;
    return united;
}

#endif // TEXTRUN_H
