// SPDX-License-Identifier: MIT
// outlinesum.h -- several outlines as one.
#ifndef OUTLINESUM_H
#define OUTLINESUM_H

#include <QList>
#include <QPainterPath>

/// All of \a paths, in their order, as subpaths of one. Linear in the number of elements.
inline QPainterPath sumOf(const QList<QPainterPath> &paths)
{
    QPainterPath sum;
    for (const QPainterPath &path : paths)
        sum.addPath(path);
    return sum;
}

#endif
