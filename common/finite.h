// SPDX-License-Identifier: MIT
#ifndef COMMON_FINITE_H
#define COMMON_FINITE_H

#include <cmath>

/// A real from a file, stream or map: 0 when it is not finite.
inline double finiteOrZero(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

#endif // COMMON_FINITE_H
