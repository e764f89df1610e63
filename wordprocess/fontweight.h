// SPDX-License-Identifier: MIT
// fontweight.h -- the two weights that attributes know, and which weights count as bold.
#ifndef FONTWEIGHT_H
#define FONTWEIGHT_H

#include <QTextCharFormat>

namespace FontWeight {
constexpr int Normal = 50;
constexpr int Bold = 75;
constexpr int BoldAbove = 57; ///< the heaviest weight that still counts as normal
} // namespace FontWeight

inline bool isBold(const QTextCharFormat &format)
{
    return format.font().weight() > FontWeight::BoldAbove;
}

#endif
