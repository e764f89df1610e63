// SPDX-License-Identifier: MIT
// numbers.h -- conversions of numbers that come from outside.
#ifndef NUMBERS_H
#define NUMBERS_H

#include "common/finite.h"
#include "layout/units.h"

#include <QSizeF>
#include <QVariant>

#include <cmath>
#include <limits>

/// Halves away from zero, saturating like truncated().
inline int roundedAway(double value)
{
    return truncated(std::round(value));
}

/// qRound(), saturating; 0 for what is not finite.
inline int rounded(double value)
{
    constexpr double limit = std::numeric_limits<int>::max();
    return qRound(qBound(-limit, finiteOrZero(value), limit));
}

/// A warp value as whole percent, rounded like qRound().
inline int percentOf(double value)
{
    return rounded(qBound(-1e300, finiteOrZero(value), 1e300) * 100);
}

/// QVariant::toInt(), kept within the range of an int; 0 for a real that is not finite.
inline int toWhole(const QVariant &value)
{
    if (value.userType() != QMetaType::Double && value.userType() != QMetaType::Float)
        return value.toInt();
    const double real = value.toDouble();
    return std::abs(real) < std::numeric_limits<int>::max() ? value.toInt()
                                                            : truncated(finiteOrZero(real));
}

/// A stretch as divisor: 0 and what is not finite divide as 1.
inline double divisor(double stretch)
{
    return std::isfinite(stretch) && stretch != 0.0 ? stretch : 1.0;
}

/// \a size with both sides multiplied.
inline QSizeF stretched(const QSizeF &size, double x, double y)
{
    return QSizeF(size.width() * x, size.height() * y);
}

/// True for a resolution that a document can have.
inline bool isDocumentDpi(int dpi)
{
    return dpi >= 1 && dpi <= 9600;
}

/// \a dpi when it is one that a document can have, \a old otherwise.
inline int acceptedDpi(int dpi, int old)
{
    return isDocumentDpi(dpi) ? dpi : old;
}

#endif
