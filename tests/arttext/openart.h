// SPDX-License-Identifier: MIT
// openart.h -- a path engine with its fields open, and its lines as values that compare and print.
#ifndef OPENART_H
#define OPENART_H

#include "arttext/arttexthelper.h"

#include <QStringList>
#include <QVector>

#include <cstdlib>
#include <initializer_list>

/// A point as the tests reckon it.
struct Spot {
    qint64 x, y;
    bool operator==(const Spot &other) const { return x == other.x && y == other.y; }
};
using Line = QVector<Spot>;

inline Line lineOf(const tagPOINT *points, unsigned int count)
{
    Line line;
    for (unsigned int i = 0; i < count; ++i)
        line.append({points[i].x, points[i].y});
    return line;
}

/// "x,y x,y ..."
inline QString text(const Line &line)
{
    QStringList spots;
    for (const Spot &spot : line)
        spots.append(QStringLiteral("%1,%2").arg(spot.x).arg(spot.y));
    return spots.join(QLatin1Char(' '));
}

/// A block as the engine takes it over.
inline tagPOINT *newPoints(std::initializer_list<Spot> spots)
{
    auto *points = static_cast<tagPOINT *>(std::malloc((spots.size() + 1) * sizeof(tagPOINT)));
    tagPOINT *next = points;
    for (const Spot &spot : spots)
        *next++ = {spot.x, spot.y};
    return points;
}

class OpenArtText : public CArtText
{
public:
    using CArtText::m_color;
    using CArtText::m_dibBrush;
    using CArtText::m_fill;
    using CArtText::m_firstGuideNext;
    using CArtText::m_font;
    using CArtText::m_guideCount1;
    using CArtText::m_guideCount2;
    using CArtText::m_guideKind1;
    using CArtText::m_guideKind2;
    using CArtText::m_guidePen1;
    using CArtText::m_guidePen2;
    using CArtText::m_guidePoints1;
    using CArtText::m_guidePoints2;
    using CArtText::m_hasShadow;
    using CArtText::m_image1;
    using CArtText::m_image2;
    using CArtText::m_outLine;
    using CArtText::m_patternBrush;
    using CArtText::m_pen3;
    using CArtText::m_rect;
    using CArtText::m_scratch1;
    using CArtText::m_scratch2;
    using CArtText::m_shadowColor;
    using CArtText::m_shadowOffset;
    using CArtText::m_size;
    using CArtText::m_string;
    using CArtText::m_style;

    Line line(int guide) const
    {
        return guide == 1 ? lineOf(m_guidePoints1, m_guideCount1)
                          : lineOf(m_guidePoints2, m_guideCount2);
    }
    Line drawn(int style, const CRect &rect, int guide)
    {
        DoAction(style, rect, this);
        return line(guide);
    }
    int kind(int guide) const { return guide == 1 ? m_guideKind1 : m_guideKind2; }
};

#endif
