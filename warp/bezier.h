// SPDX-License-Identifier: MIT
// bezier.h -- cubic curves: the arc, the point on a curve, the curve through four points.
#ifndef WARP_BEZIER_H
#define WARP_BEZIER_H

#include <QPointF>

/// Control points of one cubic that approximates the circular arc around \a centre from \a from to
/// \a to, in single precision throughout. The three points on one line, or \a from equal to \a to,
/// give control points that are not finite.
void getCircleBezier(QPointF from, QPointF to, QPointF centre, QPointF &c1, QPointF &c2);

/// Control points \a c1 and \a c2 of the cubic from \a p0 to \a p3 that passes \a p1 at the
/// parameter 1/3 and \a p2 at 2/3. The four points are only read.
void get_control_points(QPointF &p0, QPointF &p1, QPointF &p2, QPointF &p3, QPointF &c1,
                        QPointF &c2);

/// The point at \a t of the cubic \a p0, \a p1, \a p2, \a p3: weights in single precision, sums in
/// double. \a t is not limited to 0 to 1.
QPointF calculateBezierPoint(const QPointF &p0, const QPointF &p1, const QPointF &p2,
                             const QPointF &p3, float t);

#endif // WARP_BEZIER_H
