// SPDX-License-Identifier: MIT
// surfaces.h -- the warp styles: a flat control net becomes the net of a bent surface.
#ifndef WARP_SURFACES_H
#define WARP_SURFACES_H

#include "warp/surfacetype.h"

#include <QPointF>
#include <QVector>

/// Bends \a net by the style \a type across its rows: the surface of horizontal warps.
/// \param net  one inner vector of 16 points, P[4r + c] being row r and column c, flat: the rows at
///             0, a third, two thirds and the whole of the height, the columns likewise
/// \param t    strength, -1 to 1; from beyond 0.997 it counts as 0.995 (either sign)
/// \return a copy of \a net after the bend
/// A \a t of 0 or not-a-number, another \a type and a net of fewer points leave \a net as it is.
/// A net of zero width or height gives coordinates that are not finite. At most eight arcs.
QVector<QVector<QPointF>> getSurFacePoint(SurfaceType type, QVector<QVector<QPointF>> &net,
                                          float t);

/// The same across the columns: the surface of vertical warps. Not the exact transpose.
QVector<QVector<QPointF>> getSurFacePointV(SurfaceType type, QVector<QVector<QPointF>> &net,
                                           float t);

#endif // WARP_SURFACES_H
