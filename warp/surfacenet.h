// SPDX-License-Identifier: MIT
// surfacenet.h -- the control net as the styles see it. For warp/ alone.
#ifndef WARP_SURFACENET_H
#define WARP_SURFACENET_H

#include "warp/bezier.h"

#include <QPointF>
#include <QVector>

/// True for one inner vector of at least 16 points.
inline bool isWholeNet(const QVector<QVector<QPointF>> &net)
{
    return !net.isEmpty() && net.first().size() >= 16;
}

/// \a point with both coordinates rounded to single precision.
inline QPointF narrowed(const QPointF &point)
{
    return QPointF(double(float(point.x())), double(float(point.y())));
}

/// 16 points of somebody else, by number: point 4r + c is row r and column c. Measures are read
/// from the points at each call, so that they follow a corner that has moved.
class SurfaceNet
{
public:
    explicit SurfaceNet(QPointF *points)
        : m_points(points)
    {
    }

    QPointF &operator[](int index) { return m_points[index]; }
    const QPointF &operator[](int index) const { return m_points[index]; }

    double width() const { return m_points[15].x(); }
    double height() const { return m_points[15].y(); }
    float thirdOfWidth() const { return float(m_points[1].x()); }
    float thirdOfHeight() const { return float(m_points[4].y()); }

    /// The row between its ends becomes an arc around \a centre.
    void bendRow(int row, const QPointF &centre) { bend(4 * row, 1, centre); }
    /// The column likewise.
    void bendColumn(int column, const QPointF &centre) { bend(column, 4, centre); }

private:
    void bend(int first, int step, const QPointF &centre)
    {
        getCircleBezier(m_points[first], m_points[first + 3 * step], centre, m_points[first + step],
                        m_points[first + 2 * step]);
    }

    QPointF *m_points;
};

#endif // WARP_SURFACENET_H
