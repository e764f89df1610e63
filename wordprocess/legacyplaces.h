// SPDX-License-Identifier: MIT
// legacyplaces.h -- where the lines of the older layout stand, and places on them.
#ifndef LEGACYPLACES_H
#define LEGACYPLACES_H

#include "wordprocess/cwordprocess.h"

/// A line that has room for its items, where it stands. Across counts from the upper edge of the first row, in
/// columns from the right edge of the first column.
struct CWordProcess::LegacyRow {
    const STextLine *line; ///< one of m_legacyLines, with items
    double across;         ///< where its room begins
    double start;          ///< where its items begin, along the line
    double spacing;        ///< space that justifies it
    double edge;           ///< what lies before this and not before the row's room is the row's
};

/// A place between characters.
struct CWordProcess::LegacyPlace {
    int row;
    double along;
};

/// A stretch of text. Empty while the last row lies ahead of the first.
struct CWordProcess::LegacySpan {
    LegacyPlace from{0, 0};
    LegacyPlace to{-1, 0};
};

#endif
