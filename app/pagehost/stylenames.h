// SPDX-License-Identifier: MIT
// stylenames.h -- the styles of warped and of art text in the words of the user.
#ifndef PAGEHOST_STYLENAMES_H
#define PAGEHOST_STYLENAMES_H

#include <QString>

constexpr int warpStyleCount = 15;
constexpr int artStyleCount = 42;

/// The name of the warp \a style; that of no warp for 0 and for a number without a style.
QString warpStyleName(int style);
/// The name of the art \a style; empty for a number without a style.
QString artStyleName(int style);

#endif
