// SPDX-License-Identifier: MIT
#include "warp/textbezier.h"

namespace {

/// Both coordinates at once: compilers keep such a pair in one register.
struct Pair {
    double x;
    double y;
};

inline Pair operator*(double factor, const Pair &pair)
{
    return {factor * pair.x, factor * pair.y};
}

inline Pair operator+(const Pair &a, const Pair &b)
{
    return {a.x + b.x, a.y + b.y};
}

// (1, u, u*u, u*u*u) times M: the Bernstein weights. The sums below leave out its zeros, and are
// written out: in loops they took nearly three times as long.
constexpr double M[4][4] = {
    {1, 0, 0, 0},
    {-3, 3, 0, 0},
    {3, -6, 3, 0},
    {-1, 3, -3, 1},
};

} // namespace

CTextBezier::CTextBezier(const QPolygonF &points)
{
    const int count = qMin(points.size(), 16);
    for (int i = 0; i < count; ++i) {
        m_points[i / 4][i % 4].x = points.at(i).x();
        m_points[i / 4][i % 4].y = points.at(i).y();
    }
}

CTextBezier::~CTextBezier() = default;

QPointF CTextBezier::getBezierLinePoint(double row, double column) const
{
    const double u2 = row * row;
    const double u3 = u2 * row;
    const double weight0 = M[0][0] + row * M[1][0] + u2 * M[2][0] + u3 * M[3][0];
    const double weight1 = row * M[1][1] + u2 * M[2][1] + u3 * M[3][1];
    const double weight2 = u2 * M[2][2] + u3 * M[3][2];
    const double weight3 = u3 * M[3][3];

    Pair line[4]; // the control points of the cubic that the surface has at the row
    for (int c = 0; c < 4; ++c) {
        const auto at = [&](int r) { return Pair{m_points[r][c].x, m_points[r][c].y}; };
        line[c] = weight0 * at(0) + weight1 * at(1) + weight2 * at(2) + weight3 * at(3);
    }

    const Pair power0 = M[0][0] * line[0];
    const Pair power1 = M[1][0] * line[0] + M[1][1] * line[1];
    const Pair power2 = M[2][0] * line[0] + M[2][1] * line[1] + M[2][2] * line[2];
    const Pair power3 = M[3][0] * line[0] + M[3][1] * line[1] + M[3][2] * line[2]
                        + M[3][3] * line[3];
    const double v2 = column * column;
    const double v3 = v2 * column;
    const Pair point = power0 + column * power1 + v2 * power2 + v3 * power3;
    return QPointF(point.x, point.y);
}
