// SPDX-License-Identifier: MIT
// bezier.h -- cubic curves: the arc, the point on a curve, the curve through four points.
#ifndef WARP_BEZIER_H
#define WARP_BEZIER_H

#include <QPointF>

/// Control points of one cubic that approximates the circular arc around \a centre from \a from to
/// \a to, in single precision throughout. The three points on one line, or \a from equal to \a to,
/// give control points that are not finite.
void getCircleBezier(QPointF from, QPointF to, QPointF centre, QPointF &c1, QPointF &c2);

// The two below run for every curve of every outline: inline, so that the weights of a constant
// parameter are constants.

/// Control points \a c1 and \a c2 of the cubic from \a p0 to \a p3 that passes \a p1 at the
/// parameter 1/3 and \a p2 at 2/3. The four points are only read.
inline void get_control_points(QPointF &p0, QPointF &p1, QPointF &p2, QPointF &p3, QPointF &c1,
                               QPointF &c2)
{
    constexpr double NearEnd = 8.0 / 27.0; // weight of the nearer end at a third of the way
    constexpr double FarEnd = 1.0 / 27.0;
    const QPointF a = p1 - p0 * NearEnd - p3 * FarEnd;
    const QPointF b = p2 - p0 * FarEnd - p3 * NearEnd;
    c1 = a * 3.0 - b * 1.5;
    c2 = b * 3.0 - a * 1.5;
}

/// The point at \a t of the cubic \a p0, \a p1, \a p2, \a p3: weights in single precision, sums in
/// double. \a t is not limited to 0 to 1.
inline QPointF calculateBezierPoint(const QPointF &p0, const QPointF &p1, const QPointF &p2,
                                    const QPointF &p3, float t)
{
    const float s = 1.0f - t;
    const float weight0 = s * s * s;
    const float weight1 = (s * s * 3.0f) * t;
    const float weight2 = (s * 3.0f) * (t * t);
    const float weight3 = t * (t * t);
    return p0 * weight0 + p1 * weight1 + p2 * weight2 + p3 * weight3;
}

#endif // WARP_BEZIER_H
