// SPDX-License-Identifier: MIT
#ifndef WARP_TEXTBEZIER_H
#define WARP_TEXTBEZIER_H

#include <QPolygonF>

/// A bicubic surface over 4 by 4 control points. Owns nothing; made on the stack for one warp.
class CTextBezier
{
public:
    /// \a points: 16 points, entry 4r + c being row r and column c. Missing points are (0, 0),
    /// further ones are not read.
    explicit CTextBezier(const QPolygonF &points);
    virtual ~CTextBezier();

    /// The surface at \a row (down, 0 to 1) and \a column (along, 0 to 1). Beyond that range the
    /// polynomial goes on. Allocates nothing: it runs several times for each element of an outline.
    QPointF getBezierLinePoint(double row, double column) const;

private:
    struct ControlPoint {
        double x = 0;
        double y = 0;
        double z = 0; // kept, never evaluated
    };
    ControlPoint m_points[4][4];
};

#endif // WARP_TEXTBEZIER_H
