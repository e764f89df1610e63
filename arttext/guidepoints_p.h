// SPDX-License-Identifier: MIT
// guidepoints_p.h -- what the files of CArtText share: kinds of lines, the full turn, sums that wrap.
#ifndef GUIDEPOINTS_P_H
#define GUIDEPOINTS_P_H

#include <QtGlobal>

/// What made a guide line. The numbers are those of CArtText::m_guideKind1.
enum GuideKind { NoGuide = 0, StraightGuide = 1, ParabolaGuide = 2, WaveGuide = 3, ArcGuide = 4 };

constexpr double fullTurn = 6.283185307; // radians; deliberate: this decimal and not 2 * pi

// Coordinates come from anywhere. Sums that leave 64 bits wrap around instead of being undefined;
// all others are plain sums.

constexpr qint64 wrappedSum(qint64 a, qint64 b)
{
    return qint64(quint64(a) + quint64(b));
}

constexpr qint64 wrappedDifference(qint64 a, qint64 b)
{
    return qint64(quint64(a) - quint64(b));
}

constexpr qint64 wrappedProduct(qint64 a, qint64 b)
{
    return qint64(quint64(a) * quint64(b));
}

/// \a b is not 0.
constexpr qint64 wrappedQuotient(qint64 a, qint64 b)
{
    return b == -1 ? wrappedDifference(0, a) : a / b;
}

#endif
