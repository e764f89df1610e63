// SPDX-License-Identifier: MIT
#include "warp/bezier.h"

#include <cmath>

void getCircleBezier(QPointF from, QPointF to, QPointF centre, QPointF &c1, QPointF &c2)
{
    const float centreX = float(centre.x());
    const float centreY = float(centre.y());
    const float ax = float(from.x()) - centreX;
    const float ay = float(from.y()) - centreY;
    const float bx = float(to.x()) - centreX;
    const float by = float(to.y()) - centreY;

    const float q1 = ax * ax + ay * ay;
    const float q2 = q1 + ax * bx + ay * by;
    // Deliberate: neither the root nor the denominator is tested, a degenerate arc is not finite.
    const float k = (std::sqrt((q1 + q1) * q2) - q2) * (4.0f / 3.0f) / (ax * by - ay * bx);

    // The ends as the differences give them back, not as they came in.
    const float fromX = ax + centreX;
    const float fromY = ay + centreY;
    const float toX = bx + centreX;
    const float toY = by + centreY;
    const float c1x = fromX - k * ay;
    const float c1y = fromY + k * ax;
    const float c2x = toX + k * by;
    const float c2y = toY - k * bx;
    c1 = QPointF(double(c1x), double(c1y));
    c2 = QPointF(double(c2x), double(c2y));
}
