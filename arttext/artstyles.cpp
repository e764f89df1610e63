// SPDX-License-Identifier: MIT
// artstyles.cpp -- the guide lines of the styles: straight envelopes, parabolas and circle segments
// through named places of the rectangle, waves along its edges, rings about its middle.
#include "arttext/artstyles.h"

#include "arttext/arttexthelper.h"
#include "arttext/guidepoints_p.h"
#include "common/truncated.h"

#include <algorithm>
#include <array>

namespace {

/// The rectangle as the catalogue measures it: edges of 32 bits, sides in a type that holds their
/// difference.
struct Frame {
    qint64 left, top, right, bottom;
    qint64 width, height;

    explicit Frame(const CRect &rect)
        : left(int(rect.left))
        , top(int(rect.top))
        , right(int(rect.right))
        , bottom(int(rect.bottom))
        , width(right - left)
        , height(bottom - top)
    {
    }

    qint64 middleX() const { return left + width / 2; }
    qint64 middleY() const { return top + height / 2; }
};

/// A coordinate: a fraction of a side, cut off toward zero, away from an edge. Deliberate: from the
/// near and from the far edge are two things, which differ by one for an odd side.
struct Coordinate {
    enum From { Near, Far } from;
    int part, of; // the fraction

    constexpr qint64 in(qint64 nearEdge, qint64 farEdge, qint64 side) const
    {
        return from == Near ? nearEdge + part * side / of : farEdge - part * side / of;
    }
};

// Coordinates of the tables.
constexpr Coordinate across(int part, int of) // from the left
{
    return {Coordinate::Near, part, of};
}

constexpr Coordinate down(int part, int of) // from the top
{
    return {Coordinate::Near, part, of};
}

constexpr Coordinate up(int part, int of) // from the bottom
{
    return {Coordinate::Far, part, of};
}

constexpr Coordinate L{Coordinate::Near, 0, 1};
constexpr Coordinate M{Coordinate::Near, 1, 2}; // the middle, from the left
constexpr Coordinate R{Coordinate::Far, 0, 1};
constexpr Coordinate T{Coordinate::Near, 0, 1};
constexpr Coordinate B{Coordinate::Far, 0, 1};

struct Place {
    Coordinate x, y;
};

/// Two to four places, joined in order.
class Outline
{
public:
    using Points = std::array<tagPOINT, 4>;

    constexpr Outline(Place a, Place b)
        : m_places{a, b, {}, {}}
        , m_count(2)
    {
    }
    constexpr Outline(Place a, Place b, Place c)
        : m_places{a, b, c, {}}
        , m_count(3)
    {
    }
    constexpr Outline(Place a, Place b, Place c, Place d)
        : m_places{a, b, c, d}
        , m_count(4)
    {
    }

    constexpr int count() const { return m_count; }
    Points in(const Frame &frame) const
    {
        Points points{};
        for (int i = 0; i < m_count; ++i) {
            const Place &place = m_places[i];
            points[size_t(i)].x = place.x.in(frame.left, frame.right, frame.width);
            points[size_t(i)].y = place.y.in(frame.top, frame.bottom, frame.height);
        }
        return points;
    }

private:
    Place m_places[4];
    int m_count;
};

struct StraightStyle {
    int number;
    Outline first, second;
};

/// A parabola goes through three places: an end, the apex, the other end. Two are a straight line.
struct CurveStyle {
    int number;
    Outline first, second;
};

/// Circles through three places.
struct ArcStyle {
    int number;
    Outline first, second;
    bool upper;
};

struct WaveStyle {
    int number;
    enum Form { Cosine, Sine } form;
    int cycles; // over the whole width: 1 or 2
};

struct RingStyle {
    int number;
    enum Side { WholeSide, HalvedSide } side; // what the radius is taken from
    float first, second;                      // parts of the radius
    float fromAngle, toAngle;                 // degrees, clockwise from the right
};

// clang-format off
constexpr StraightStyle straightStyles[] = {
    // plain rectangle
    {0,  {{L, T}, {R, T}},
         {{L, B}, {R, B}}},
    // corners cut
    {1,  {{L, down(1, 4)}, {across(1, 4), T}, {across(3, 4), T}, {R, down(1, 4)}},
         {{L, down(3, 4)}, {across(1, 4), B}, {across(3, 4), B}, {R, down(3, 4)}}},
    // triangle up
    {2,  {{L, B}, {M, T}, {R, B}},
         {{L, B}, {R, B}}},
    // triangle down
    {3,  {{L, T}, {R, T}},
         {{L, T}, {M, B}, {R, T}}},
    // chevron up
    {4,  {{L, down(1, 4)}, {M, T}, {R, down(1, 4)}},
         {{L, B}, {M, down(3, 4)}, {R, B}}},
    // chevron down
    {5,  {{L, T}, {M, down(1, 4)}, {R, T}},
         {{L, down(3, 4)}, {M, B}, {R, down(3, 4)}}},
    // lower edge short, to the right
    {10, {{L, T}, {R, T}},
         {{M, up(1, 2)}, {R, B}}},
    // lower edge short, to the left
    {11, {{L, T}, {R, T}},
         {{L, B}, {M, up(1, 2)}}},
    // lower edge a vertical stroke, downwards
    {12, {{L, T}, {R, T}},
         {{M, up(1, 2)}, {M, B}}},
    // the same stroke, upwards
    {13, {{L, T}, {R, T}},
         {{M, B}, {M, up(1, 2)}}},
    // narrowing to the right
    {24, {{L, T}, {R, down(1, 4)}},
         {{L, B}, {R, down(3, 4)}}},
    // narrowing to the left
    {25, {{L, down(1, 4)}, {R, T}},
         {{L, down(3, 4)}, {R, B}}},
    // trapezoid, narrow on top
    {26, {{across(1, 4), T}, {across(3, 4), T}},
         {{L, B}, {R, B}}},
    // trapezoid, narrow below
    {27, {{L, T}, {R, T}},
         {{across(1, 4), B}, {across(3, 4), B}}},
    // parallel, rising
    {28, {{L, down(1, 2)}, {R, T}},
         {{L, B}, {R, down(1, 2)}}},
    // parallel, falling
    {29, {{L, T}, {R, down(1, 2)}},
         {{L, down(1, 2)}, {R, B}}},
    // widening rise
    {30, {{L, down(1, 4)}, {R, T}},
         {{L, B}, {R, down(1, 4)}}},
    // widening fall
    {31, {{L, T}, {R, down(1, 4)}},
         {{L, down(1, 4)}, {R, B}}},
    // top falling, bottom flat
    {32, {{L, T}, {R, down(1, 2)}},
         {{L, B}, {R, B}}},
    // top rising, bottom flat
    {33, {{L, down(1, 2)}, {R, T}},
         {{L, B}, {R, B}}},
    // bottom rising, top flat
    {34, {{L, T}, {R, T}},
         {{L, B}, {R, down(1, 2)}}},
    // bottom falling, top flat
    {35, {{L, T}, {R, T}},
         {{L, down(1, 2)}, {R, B}}},
    // peak on a flat base
    {36, {{L, down(1, 2)}, {M, T}, {R, down(1, 2)}},
         {{L, B}, {R, B}}},
    // flat top over a point
    {37, {{L, T}, {R, T}},
         {{L, down(1, 2)}, {M, B}, {R, down(1, 2)}}},
    // waist
    {38, {{L, T}, {M, down(1, 3)}, {R, T}},
         {{L, B}, {M, up(1, 3)}, {R, B}}},
    // diamond edges
    {39, {{L, down(1, 4)}, {M, T}, {R, down(1, 4)}},
         {{L, up(1, 4)}, {M, B}, {R, up(1, 4)}}},
};

constexpr CurveStyle curveStyles[] = {
    {14, {{L, down(1, 3)}, {M, T}, {R, down(1, 3)}},
         {{L, B}, {M, up(1, 3)}, {R, B}}},
    {15, {{L, T}, {M, down(1, 3)}, {R, T}},
         {{L, up(1, 3)}, {M, B}, {R, up(1, 3)}}},
    {20, {{L, T}, {R, T}},
         {{L, down(1, 2)}, {M, B}, {R, down(1, 2)}}},
    {21, {{L, T}, {R, T}},
         {{L, B}, {M, down(1, 2)}, {R, B}}},
    {22, {{L, down(1, 2)}, {M, T}, {R, down(1, 2)}},
         {{L, B}, {R, B}}},
    {23, {{L, T}, {M, down(1, 2)}, {R, T}},
         {{L, B}, {R, B}}},
};

constexpr ArcStyle arcStyles[] = {
    {6,  {{L, down(1, 6)}, {M, T}, {R, down(1, 6)}},
         {{L, B}, {M, up(1, 6)}, {R, B}}, true},
    {7,  {{L, T}, {M, down(1, 6)}, {R, T}},
         {{L, up(1, 6)}, {M, B}, {R, up(1, 6)}}, false},
};

constexpr WaveStyle waveStyles[] = {
    {16, WaveStyle::Cosine, 1},
    {17, WaveStyle::Sine,   1},
    {18, WaveStyle::Cosine, 2},
    {19, WaveStyle::Sine,   2},
};

constexpr RingStyle ringStyles[] = {
    {8,  RingStyle::WholeSide,  1.0F, 0.25F, 180.0F, 540.0F}, // begins on the left
    {9,  RingStyle::WholeSide,  1.0F, 0.25F,   0.0F, 360.0F}, // begins on the right
    {40, RingStyle::HalvedSide, 1.0F, 0.5F,  180.0F, 360.0F}, // over the top
    {41, RingStyle::HalvedSide, 0.5F, 1.0F,  180.0F,   0.0F}, // under the bottom, inner line first
};
// clang-format on

void drawLine(int guide, const Outline &outline, const Frame &frame, CArtText &art)
{
    const Outline::Points points = outline.in(frame);
    art.DrawLine(guide, points.data(), outline.count());
}

void drawCurve(int guide, const Outline &outline, const Frame &frame, CArtText &art)
{
    const Outline::Points points = outline.in(frame);
    if (outline.count() == 3)
        art.DrawCurve(guide, points.data(), false);
    else
        art.DrawLine(guide, points.data(), outline.count());
}

void drawArc(int guide, const Outline &outline, bool upper, const Frame &frame, CArtText &art)
{
    const Outline::Points points = outline.in(frame);
    CPoint three[3];
    for (size_t i = 0; i < 3; ++i)
        three[i] = CPoint{points[i].x, points[i].y};
    art.DrawEllipse(three, guide, upper);
}

void draw(const StraightStyle &style, const Frame &frame, CArtText &art)
{
    drawLine(1, style.first, frame, art);
    drawLine(2, style.second, frame, art);
}

void draw(const CurveStyle &style, const Frame &frame, CArtText &art)
{
    drawCurve(1, style.first, frame, art);
    drawCurve(2, style.second, frame, art);
}

void draw(const ArcStyle &style, const Frame &frame, CArtText &art)
{
    drawArc(1, style.first, style.upper, frame, art);
    drawArc(2, style.second, style.upper, frame, art);
}

void drawWave(int guide, const WaveStyle &style, double y, const Frame &frame, CArtText &art)
{
    const CPoint origin{frame.left, truncated(y)};
    const auto cycles = float(style.cycles);
    const double amplitude = frame.height / 6.0;
    const double period = style.cycles == 1 ? double(frame.width) : float(frame.width) * 0.5;
    if (style.form == WaveStyle::Cosine)
        art.DrawCosText(guide, origin, cycles, amplitude, period, 0.0, fullTurn, false, false);
    else
        art.DrawSinText(guide, origin, cycles, amplitude, period, 0.0, 0.0, false, false);
}

void draw(const WaveStyle &style, const Frame &frame, CArtText &art)
{
    const double sixth = frame.height / 6.0;
    // Deliberate: the second line is measured from the bottom, the first from 0, not from the top.
    drawWave(1, style, sixth, frame, art);
    drawWave(2, style, frame.bottom - sixth, frame, art);
}

void draw(const RingStyle &style, const Frame &frame, CArtText &art)
{
    const CPoint centre{frame.middleX(), frame.middleY()};
    const float radius = style.side == RingStyle::WholeSide
                             ? float(std::min(frame.width, frame.height)) * 0.5F
                             : float(std::min(frame.width / 2, frame.height / 2));
    art.DrawEllipse(centre, radius * style.first, 1, style.fromAngle, style.toAngle);
    art.DrawEllipse(centre, radius * style.second, 2, style.fromAngle, style.toAngle);
}

/// Draws the style of that number when \a styles has it.
template<typename Style, size_t count>
bool drawFrom(const Style (&styles)[count], int number, const Frame &frame, CArtText &art)
{
    for (const Style &style : styles) {
        if (style.number == number) {
            draw(style, frame, art);
            return true;
        }
    }
    return false;
}

} // namespace

void CArtText::DoAction(int style, CRect rect, CArtText *art)
{
    if (!art)
        return;
    const Frame frame(rect);
    // Ends at the table that has the style; a number that none has draws nothing.
    drawFrom(straightStyles, style, frame, *art) || drawFrom(curveStyles, style, frame, *art)
        || drawFrom(arcStyles, style, frame, *art) || drawFrom(waveStyles, style, frame, *art)
        || drawFrom(ringStyles, style, frame, *art);
}

void CArtText::Resize(const CSize &size, int style)
{
    DoAction(style, CRect{0, 0, size.cx, size.cy}, this);
    m_size = size;
}
