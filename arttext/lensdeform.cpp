// SPDX-License-Identifier: MIT
// lensdeform.cpp -- CArtText: pouring outlines between the guide lines.
#include "arttext/arttexthelper.h"

#include "common/truncated.h"

#include <cmath>
#include <optional>

namespace {

/// A guide line under the lookup.
struct GuideView {
    const tagPOINT *points;
    qint64 count;

    /// The point at \a fraction of the line's length; null beyond its ends.
    const tagPOINT *at(float fraction) const
    {
        const qint64 index = truncated(double(float(count - 1) * fraction));
        return index >= 0 && index < count ? points + index : nullptr;
    }
};

/// The way from one guide line to the other, both read at the same fraction of their own length.
/// Deliberate: every operand is narrowed first and the steps are single precision.
std::optional<tagPOINT> between(const GuideView &upper, const GuideView &lower, float along,
                                float t)
{
    if (!std::isfinite(along) || !std::isfinite(t))
        return std::nullopt;
    const tagPOINT *p1 = upper.at(along);
    const tagPOINT *p2 = lower.at(along);
    if (!p1 || !p2)
        return std::nullopt;
    const float x = float(p2->x) * t + float(p1->x) * (1.0F - t);
    const float y = float(p2->y) * t + float(p1->y) * (1.0F - t);
    return tagPOINT{truncated(double(x)), truncated(double(y))};
}

bool isSide(double side)
{
    return side > 0 && std::isfinite(side);
}

} // namespace

QPainterPath CArtText::lensDeform(const QPainterPath &path, const QPointF &origin,
                                  const QSizeF &source, const CSize &target, bool vertical) const
{
    QPainterPath bent(path);
    const bool hasSizes = isSide(source.width()) && isSide(source.height()) && target.cx != 0
                          && target.cy != 0;
    if (m_guideCount1 == 0 || m_guideCount2 == 0 || !hasSizes)
        return bent;
    const GuideView upper{m_guidePoints1, m_guideCount1};
    const GuideView lower{m_guidePoints2, m_guideCount2};
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const float u = (float(element.x) + float(origin.x())) / float(source.width());
        const float v = (float(element.y) + float(origin.y())) / float(source.height());
        const auto place = vertical ? between(upper, lower, v, u) : between(upper, lower, u, v);
        if (!place)
            continue;
        const double x = double(place->x) * source.width() / double(target.cx);
        const double y = double(place->y) * source.height() / double(target.cy);
        bent.setElementPositionAt(i, qBound(0.0, x, source.width()),
                                  qBound(0.0, y, source.height()));
    }
    return bent;
}
