// SPDX-License-Identifier: MIT
#ifndef WARP_HORIZON_H
#define WARP_HORIZON_H

#include <QPointF>
#include <QVector>

/// The perspective of a warp: narrows the lines of \a net toward their midpoints at one end and
/// spreads them at the other, first the rows by \a rowValue (positive: narrower at the top), then
/// the columns by \a columnValue (positive: narrower at the left).
/// \param net  one inner vector of 16 points, row by row; a net of fewer points stays as it is
/// The values have no limit; beyond 1 and -1 the narrow line turns inside out.
void setHorizon(QVector<QVector<QPointF>> &net, float rowValue, float columnValue);

#endif // WARP_HORIZON_H
