// SPDX-License-Identifier: MIT
#include "layout/outlinesum.h"

#include <QVector>

namespace {
// Bounds are kept as a corner and a size: a right edge is known up to rounding.
constexpr qreal margin = 1e-6;

// Beyond this the margin would be lost in rounding.
constexpr qreal farthest = 1e9;

/// False too for what is not a number.
bool isInside(const QRectF &rect, const QRectF &bounds)
{
    return rect.left() >= bounds.left() && rect.top() >= bounds.top()
           && rect.right() < bounds.right() - margin && rect.bottom() < bounds.bottom() - margin;
}

bool isNear(const QRectF &rect)
{
    return rect.left() > -farthest && rect.top() > -farthest && rect.right() < farthest
           && rect.bottom() < farthest;
}

/// A sum drops a move at the end of what is added to.
bool endsInMove(const QPainterPath &path)
{
    return path.elementCount() > 0 && path.elementAt(path.elementCount() - 1).isMoveTo();
}
} // namespace

QRectF boundsOf(const QList<QPainterPath> &paths)
{
    if (paths.size() < 3)
        return sumOf(paths).boundingRect();
    // The last line and the first one span most of a text: begun with them, little else touches.
    QRectF bounds = paths.first().boundingRect() | paths.last().boundingRect();
    QList<QPainterPath> touching;
    for (int i = 0; i < paths.size(); ++i) {
        const QPainterPath &path = paths.at(i);
        if (path.isEmpty())
            continue;
        const QRectF own = path.boundingRect();
        if (endsInMove(path) || !isNear(own))
            return sumOf(paths).boundingRect();
        const bool isEnd = i == 0 || i == paths.size() - 1;
        if (!isEnd && isInside(own, bounds))
            continue;
        bounds |= own;
        touching.append(path);
    }
    return sumOf(touching).boundingRect();
}
