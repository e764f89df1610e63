// SPDX-License-Identifier: MIT
// warpkeys.h -- the words under which documents, records and attribute maps keep the warp.
#ifndef WARPKEYS_H
#define WARPKEYS_H

#include <QLatin1String>

namespace WarpKey {
const QLatin1String Style("warp_style");
const QLatin1String Value("warp_value");
const QLatin1String HorizontalValue("warp_horizontal_value");
const QLatin1String VerticalValue("warp_vertical_value");
const QLatin1String Orientation("warp_oriention"); // spelled so everywhere
} // namespace WarpKey

#endif
