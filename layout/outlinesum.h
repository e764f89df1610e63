// SPDX-License-Identifier: MIT
// outlinesum.h -- several outlines as one.
#ifndef OUTLINESUM_H
#define OUTLINESUM_H

#include <QList>
#include <QPainterPath>
#include <QRectF>

/// All of \a paths, in their order, as subpaths of one. Linear in the number of elements.
inline QPainterPath sumOf(const QList<QPainterPath> &paths)
{
    QPainterPath sum;
    for (const QPainterPath &path : paths)
        sum.addPath(path);
    return sum;
}

/// sumOf(paths).boundingRect(), bit for bit, from those paths alone that may touch the bounds. A path
/// that is shared with an earlier call keeps its own bounds.
QRectF boundsOf(const QList<QPainterPath> &paths);

#endif
