// SPDX-License-Identifier: MIT
#include "warp/textbezier.h"

namespace {

// (1, u, u*u, u*u*u) times M: the Bernstein weights. Nothing but 0 right of the diagonal, so that
// the sums below end there.
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
    const double rowPowers[4] = {1.0, row, row * row, row * row * row};
    double rowWeights[4] = {0, 0, 0, 0};
    for (int power = 0; power < 4; ++power) {
        for (int r = 0; r <= power; ++r)
            rowWeights[r] += rowPowers[power] * M[power][r];
    }

    // The cubic along the row parameter's line: its four control points.
    double lineX[4] = {0, 0, 0, 0};
    double lineY[4] = {0, 0, 0, 0};
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            lineX[c] += rowWeights[r] * m_points[r][c].x;
            lineY[c] += rowWeights[r] * m_points[r][c].y;
        }
    }

    const double columnPowers[4] = {1.0, column, column * column, column * column * column};
    double x = 0;
    double y = 0;
    for (int power = 0; power < 4; ++power) {
        double coefficientX = 0;
        double coefficientY = 0;
        for (int c = 0; c <= power; ++c) {
            coefficientX += M[power][c] * lineX[c];
            coefficientY += M[power][c] * lineY[c];
        }
        x += columnPowers[power] * coefficientX;
        y += columnPowers[power] * coefficientY;
    }
    return QPointF(x, y);
}
