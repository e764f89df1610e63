// SPDX-License-Identifier: MIT
// wholenumbers.h -- real points and rectangles as whole ones, for any number.
#ifndef WHOLENUMBERS_H
#define WHOLENUMBERS_H

#include "common/truncated.h"

#include <QPointF>
#include <QRectF>

#include <cmath>
#include <limits>

/// qRound(), saturating; 0 for not-a-number.
inline int nearest(double value)
{
    return truncated(std::floor(value + 0.5));
}

/// QPointF::toPoint() of any point.
inline QPoint nearest(const QPointF &point)
{
    return QPoint(nearest(point.x()), nearest(point.y()));
}

/// QRectF::toRect() of any rectangle.
inline QRect nearest(const QRectF &rect)
{
    const QPoint behind = nearest(rect.bottomRight());
    const int least = std::numeric_limits<int>::min();
    return QRect(nearest(rect.topLeft()),
                 QPoint(behind.x() - (behind.x() > least), behind.y() - (behind.y() > least)));
}

#endif
