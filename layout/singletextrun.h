// SPDX-License-Identifier: MIT
#ifndef SINGLETEXTRUN_H
#define SINGLETEXTRUN_H

#include "layout/runstyle.h"
#include "layout/textlayout.h"

#include <QTransform>

// What the horizontal and the vertical layout of line text truly share.

/// Scale about a fixed point.
inline QTransform scaleAbout(const QPointF &point, qreal sx, qreal sy)
{
    QTransform stretch;
    stretch.translate(point.x(), point.y());
    stretch.scale(sx, sy);
    stretch.translate(-point.x(), -point.y());
    return stretch;
}

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

/// The fragment that stands for an empty block.
inline TextFragment emptyBlockFragment(int position, const QTextCharFormat &format)
{
    TextFragment placeholder;
    placeholder.position = position;
    placeholder.format = format;
    placeholder.isEmptyBlock = true;
    return placeholder;
}

/// Union of the boxes of all lines.
inline QRectF unitedLineRects(const QList<TextLine> &lines)
{
    QRectF united;
    for (const TextLine &line : lines)
        united |= line.rect;
    return united;
}

#endif // SINGLETEXTRUN_H
