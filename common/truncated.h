// SPDX-License-Identifier: MIT
#ifndef COMMON_TRUNCATED_H
#define COMMON_TRUNCATED_H

#include <limits>

/// Real to whole: toward zero, saturating at the range of int, 0 for not-a-number. The one such
/// conversion of the library.
inline int truncated(double value)
{
    if (value != value) // not-a-number
        return 0;
    if (value >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return int(value);
}

#endif // COMMON_TRUNCATED_H
