// SPDX-License-Identifier: MIT
#include "app/pagehost/stylenames.h"

#include <QCoreApplication>

#include <iterator>

namespace {

// clang-format off
constexpr const char *warpNames[] = {
    QT_TRANSLATE_NOOP("StyleNames", "No Warp"),
    QT_TRANSLATE_NOOP("StyleNames", "Arc"),
    QT_TRANSLATE_NOOP("StyleNames", "Lower Arc"),
    QT_TRANSLATE_NOOP("StyleNames", "Upper Arc"),
    QT_TRANSLATE_NOOP("StyleNames", "Arch"),
    QT_TRANSLATE_NOOP("StyleNames", "Bulge"),
    QT_TRANSLATE_NOOP("StyleNames", "Lower Shell"),
    QT_TRANSLATE_NOOP("StyleNames", "Upper Shell"),
    QT_TRANSLATE_NOOP("StyleNames", "Flag"),
    QT_TRANSLATE_NOOP("StyleNames", "Wave"),
    QT_TRANSLATE_NOOP("StyleNames", "Fish"),
    QT_TRANSLATE_NOOP("StyleNames", "Rise"),
    QT_TRANSLATE_NOOP("StyleNames", "Fisheye"),
    QT_TRANSLATE_NOOP("StyleNames", "Inflate"),
    QT_TRANSLATE_NOOP("StyleNames", "Squeeze"),
    QT_TRANSLATE_NOOP("StyleNames", "Twist"),
};

constexpr const char *artNames[] = {
    QT_TRANSLATE_NOOP("StyleNames", "Rectangle"),
    QT_TRANSLATE_NOOP("StyleNames", "Cut Corners"),
    QT_TRANSLATE_NOOP("StyleNames", "Triangle Up"),
    QT_TRANSLATE_NOOP("StyleNames", "Triangle Down"),
    QT_TRANSLATE_NOOP("StyleNames", "Chevron Up"),
    QT_TRANSLATE_NOOP("StyleNames", "Chevron Down"),
    QT_TRANSLATE_NOOP("StyleNames", "Arcs Up"),
    QT_TRANSLATE_NOOP("StyleNames", "Arcs Down"),
    QT_TRANSLATE_NOOP("StyleNames", "Ring From Left"),
    QT_TRANSLATE_NOOP("StyleNames", "Ring From Right"),
    QT_TRANSLATE_NOOP("StyleNames", "Short Right"),
    QT_TRANSLATE_NOOP("StyleNames", "Short Left"),
    QT_TRANSLATE_NOOP("StyleNames", "Stroke Down"),
    QT_TRANSLATE_NOOP("StyleNames", "Stroke Up"),
    QT_TRANSLATE_NOOP("StyleNames", "Curves Up"),
    QT_TRANSLATE_NOOP("StyleNames", "Curves Down"),
    QT_TRANSLATE_NOOP("StyleNames", "Cosine Wave"),
    QT_TRANSLATE_NOOP("StyleNames", "Sine Wave"),
    QT_TRANSLATE_NOOP("StyleNames", "Two Cosine Waves"),
    QT_TRANSLATE_NOOP("StyleNames", "Two Sine Waves"),
    QT_TRANSLATE_NOOP("StyleNames", "Bottom Bulge"),
    QT_TRANSLATE_NOOP("StyleNames", "Bottom Hollow"),
    QT_TRANSLATE_NOOP("StyleNames", "Top Bulge"),
    QT_TRANSLATE_NOOP("StyleNames", "Top Hollow"),
    QT_TRANSLATE_NOOP("StyleNames", "Narrow Right"),
    QT_TRANSLATE_NOOP("StyleNames", "Narrow Left"),
    QT_TRANSLATE_NOOP("StyleNames", "Narrow Top"),
    QT_TRANSLATE_NOOP("StyleNames", "Narrow Bottom"),
    QT_TRANSLATE_NOOP("StyleNames", "Rising"),
    QT_TRANSLATE_NOOP("StyleNames", "Falling"),
    QT_TRANSLATE_NOOP("StyleNames", "Widening Rise"),
    QT_TRANSLATE_NOOP("StyleNames", "Widening Fall"),
    QT_TRANSLATE_NOOP("StyleNames", "Top Falling"),
    QT_TRANSLATE_NOOP("StyleNames", "Top Rising"),
    QT_TRANSLATE_NOOP("StyleNames", "Bottom Rising"),
    QT_TRANSLATE_NOOP("StyleNames", "Bottom Falling"),
    QT_TRANSLATE_NOOP("StyleNames", "Peak"),
    QT_TRANSLATE_NOOP("StyleNames", "Point"),
    QT_TRANSLATE_NOOP("StyleNames", "Waist"),
    QT_TRANSLATE_NOOP("StyleNames", "Diamond"),
    QT_TRANSLATE_NOOP("StyleNames", "Arch"),
    QT_TRANSLATE_NOOP("StyleNames", "Bowl"),
};
// clang-format on

static_assert(std::size(warpNames) == warpStyleCount + 1, "a name for each style and for none");
static_assert(std::size(artNames) == artStyleCount, "a name for each style");

} // namespace

QString warpStyleName(int style)
{
    const int place = style >= 0 && style <= warpStyleCount ? style : 0;
    return QCoreApplication::translate("StyleNames", warpNames[place]);
}

QString artStyleName(int style)
{
    if (style < 0 || style >= artStyleCount)
        return {};
    return QCoreApplication::translate("StyleNames", artNames[style]);
}
