// SPDX-License-Identifier: MIT
#include "warp/horizon.h"

#include "warp/surfacenet.h"

namespace {

// By the line's place in its direction: narrower at the first line, wider at the last.
constexpr double LineWeights[4] = {-1.0, -0.333, 0.333, 1.0};

/// Moves every point of \a line away from the midpoint of the line's two ends. Reads \a before,
/// which no point of this pass has moved in yet.
void spreadLine(QVector<QPointF> &points, const QVector<QPointF> &before, int first, int step,
                double value, double weight)
{
    const QPointF middle = before.at(first) * 0.5 + before.at(first + 3 * step) * 0.5;
    for (int i = first; i <= first + 3 * step; i += step)
        points[i] = before.at(i) + (before.at(i) - middle) * value * weight;
}

} // namespace

void setHorizon(QVector<QVector<QPointF>> &net, float rowValue, float columnValue)
{
    if (!isWholeNet(net))
        return;
    QVector<QPointF> &points = net.first();
    const QVector<QPointF> bent = points;
    for (int row = 0; row < 4; ++row)
        spreadLine(points, bent, 4 * row, 1, double(rowValue), LineWeights[row]);
    // The columns see what the rows have become: the order of the passes matters.
    const QVector<QPointF> spread = points;
    for (int column = 0; column < 4; ++column)
        spreadLine(points, spread, column, 4, double(columnValue), LineWeights[column]);
}
