// SPDX-License-Identifier: MIT
// guidelines.cpp -- CArtText: the generators of guide lines and what makes polylines dense.
// Changes: m_guidePoints1 and 2, m_guideCount1 and 2, m_guideKind1 and 2.
#include "arttext/arttexthelper.h"

#include "arttext/guidepoints_p.h"
#include "common/truncated.h"

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

// Deliberate: these decimals and not pi / 180 and 180 / pi.
constexpr double radiansPerDegree = 0.017453292519444445;
constexpr double degreesPerRadian = 57.29577951471995;

constexpr float arcStep = 0.5F; // degrees
constexpr unsigned int arcRoom = 720;
constexpr double arcLimit = 64000.0; // of four radii

tagPOINT *allocatePoints(unsigned int count)
{
    return static_cast<tagPOINT *>(std::malloc(std::max(count, 1U) * sizeof(tagPOINT)));
}

template<typename... Reals>
bool areFinite(Reals... values)
{
    return (std::isfinite(values) && ...);
}

/// Fills a new buffer with pointAt(0), pointAt(1), ... while \a goesOn. A line that needs more than
/// \a room points comes out empty.
/// \return false, nothing written, without a buffer
template<typename GoesOn, typename PointAt>
bool createLine(unsigned int room, tagPOINT **points, unsigned int *count, GoesOn goesOn,
                PointAt pointAt)
{
    tagPOINT *line = allocatePoints(room);
    if (!line)
        return false;
    unsigned int made = 0;
    for (; made < room && goesOn(made); ++made)
        line[made] = pointAt(made);
    const bool fits = made < room || !goesOn(made);
    *points = line;
    *count = fits ? made : 0;
    return true;
}

/// A wave of one point a step along the line.
struct Wave {
    CPoint origin;
    double length;
    double step; // radians
    double phase;
    double amplitude;
    bool invert;
    bool vertical;

    tagPOINT at(unsigned int i, double value) const
    {
        const double swing = invert ? -value : value;
        if (vertical)
            return {truncated(double(origin.x) + swing), wrappedSum(origin.y, i)};
        return {wrappedSum(origin.x, i), truncated(double(origin.y) + swing)};
    }
};

template<typename Function>
bool createWave(const Wave &wave, tagPOINT **points, unsigned int *count, Function function)
{
    return createLine(
        CArtText::MaxGuidePoints, points, count, [&](unsigned int i) { return i < wave.length; },
        [&](unsigned int i) {
            return wave.at(i, function(i * wave.step + wave.phase) * wave.amplitude);
        });
}

qint64 stepsOfLine(int x1, int y1, int x2, int y2)
{
    return std::max(std::abs(qint64(x2) - x1), std::abs(qint64(y2) - y1));
}

/// Calls \a visit for each point of the line. A template: it runs for thousands of short lines.
template<typename Visit>
void walkLine(int x1, int y1, int x2, int y2, Visit visit)
{
    visit(x1, y1);
    const qint64 steps = stepsOfLine(x1, y1, x2, y2);
    if (steps <= 1) { // no sums to accumulate
        if (steps == 1)
            visit(x2, y2);
        return;
    }
    const double stepX = double(qint64(x2) - x1) / double(steps);
    const double stepY = double(qint64(y2) - y1) / double(steps);
    double x = x1;
    double y = y1;
    for (qint64 step = 0; step < steps; ++step) {
        x += stepX;
        y += stepY;
        visit(truncated(x), truncated(y));
    }
}

} // namespace

bool CArtText::CreateRound(CPoint center, float radius, tagPOINT **points, unsigned short *count,
                           float fromAngle, float toAngle)
{
    if (!areFinite(radius, fromAngle, toAngle) || 4.0 * double(radius) > arcLimit)
        return false;
    const bool upwards = toAngle > fromAngle;
    float angle = fromAngle;
    unsigned int made = 0;
    const bool hasLine = createLine(
        arcRoom, points, &made,
        [&](unsigned int) { return upwards ? angle < toAngle : angle > toAngle; },
        [&](unsigned int) {
            const double radians = double(angle) * radiansPerDegree;
            angle += upwards ? arcStep : -arcStep;
            return tagPOINT{truncated(double(center.x) + double(radius) * std::cos(radians)),
                            truncated(double(center.y) + double(radius) * std::sin(radians))};
        });
    if (hasLine)
        *count = static_cast<unsigned short>(made);
    return hasLine;
}

bool CArtText::CreateCos(tagPOINT **points, unsigned int *count, CPoint origin, float cycles,
                         double amplitude, double period, double phase, double radians, bool invert,
                         bool vertical)
{
    if (!areFinite(cycles, amplitude, period, phase, radians))
        return false;
    const Wave wave{origin,  double(cycles) * period, radians / period, phase, amplitude, invert,
                    vertical};
    return createWave(wave, points, count, [](double angle) { return std::cos(angle); });
}

bool CArtText::CreateSin(tagPOINT **points, unsigned int *count, CPoint origin, float cycles,
                         double amplitude, double period, double phase, double ignored, bool invert,
                         bool vertical)
{
    Q_UNUSED(ignored);
    if (!areFinite(cycles, amplitude, period, phase))
        return false;
    const Wave wave{origin,  double(cycles) * period, fullTurn / period, phase, amplitude, invert,
                    vertical};
    return createWave(wave, points, count, [](double angle) { return std::sin(angle); });
}

bool CArtText::CreateCurve(tagPOINT **points, unsigned int *count, CPoint apex, double a,
                           double halfWidth, bool vertical)
{
    if (!areFinite(a, halfWidth))
        return false;
    const qint64 first = truncated(-halfWidth);
    return createLine(
        MaxGuidePoints, points, count,
        [&](unsigned int k) { return double(first + k) <= halfWidth; },
        [&](unsigned int k) -> tagPOINT {
            const double x = double(first + k);
            const double d = x * (a * x);
            if (vertical)
                return {truncated(double(apex.x) + d), wrappedSum(apex.y, first + k)};
            return {wrappedSum(apex.x, first + k), truncated(double(apex.y) + d)};
        });
}

/// Fills out and hands over a new line. A line that is too long, or has no length, goes over empty.
bool CArtText::takeLine(tagPOINT *points, unsigned int count, int guide, int kind)
{
    FillOut(&points, &count);
    if (!SetGuideLine(points, count, guide)) {
        std::free(points);
        return false;
    }
    (guide == 1 ? m_guideKind1 : m_guideKind2) = kind;
    return true;
}

bool CArtText::DrawLine(int guide, const tagPOINT *points, int count)
{
    if (count < 0 || (count > 0 && !points))
        return false;
    tagPOINT *line = allocatePoints(unsigned(count));
    if (!line)
        return false;
    std::copy_n(points, count, line);
    return takeLine(line, unsigned(count), guide, StraightGuide);
}

bool CArtText::DrawLine(int guide, CPoint from, CPoint to)
{
    const tagPOINT ends[] = {{from.x, from.y}, {to.x, to.y}};
    return DrawLine(guide, ends, 2);
}

bool CArtText::DrawCurve(int guide, CPoint apex, double a, double halfWidth, bool vertical)
{
    tagPOINT *points = nullptr;
    unsigned int count = 0;
    return CreateCurve(&points, &count, apex, a, halfWidth, vertical)
           && takeLine(points, count, guide, ParabolaGuide);
}

bool CArtText::DrawCurve(int guide, const tagPOINT *threePoints, bool vertical)
{
    if (!threePoints)
        return false;
    const tagPOINT *p = threePoints;
    const auto along = [vertical](const tagPOINT &point) {
        return double(vertical ? point.y : point.x);
    };
    const auto across = [vertical](const tagPOINT &point) {
        return double(vertical ? point.x : point.y);
    };
    const double run = along(p[0]) - along(p[1]);
    const double rise = across(p[0]) - across(p[1]);
    const double halfWidth = std::trunc((along(p[2]) - along(p[0])) / 2.0); // whole on purpose
    // Without a run the quotient is not finite, and no curve is made.
    return DrawCurve(guide, CPoint(p[1].x, p[1].y), rise / (run * run), halfWidth, vertical);
}

bool CArtText::DrawCosText(int guide, CPoint origin, float cycles, double amplitude, double period,
                           double phase, double radians, bool invert, bool vertical)
{
    tagPOINT *points = nullptr;
    unsigned int count = 0;
    return CreateCos(&points, &count, origin, cycles, amplitude, period, phase, radians, invert,
                     vertical)
           && takeLine(points, count, guide, WaveGuide);
}

bool CArtText::DrawSinText(int guide, CPoint origin, float cycles, double amplitude, double period,
                           double phase, double ignored, bool invert, bool vertical)
{
    tagPOINT *points = nullptr;
    unsigned int count = 0;
    return CreateSin(&points, &count, origin, cycles, amplitude, period, phase, ignored, invert,
                     vertical)
           && takeLine(points, count, guide, WaveGuide);
}

bool CArtText::DrawEllipse(CPoint center, float radius, int guide, float fromAngle, float toAngle)
{
    tagPOINT *points = nullptr;
    unsigned short count = 0;
    return CreateRound(center, radius, &points, &count, fromAngle, toAngle)
           && takeLine(points, count, guide, ArcGuide);
}

bool CArtText::DrawEllipse(const CPoint *threePoints, int guide, bool upper)
{
    if (!threePoints || threePoints[0].y == threePoints[1].y)
        return false;
    const CPoint left = threePoints[0];
    const CPoint apex = threePoints[1];
    const CPoint right = threePoints[2];
    const qint64 cx = wrappedSum(left.x, right.x) / 2;
    const qint64 slope =
        wrappedQuotient(wrappedProduct(wrappedDifference(wrappedSum(left.x, apex.x),
                                                         wrappedProduct(2, cx)),
                                       wrappedDifference(left.x, apex.x)),
                        wrappedDifference(left.y, apex.y));
    const qint64 cy = wrappedSum(wrappedSum(slope, left.y), apex.y) / 2;

    const double dx = double(wrappedDifference(left.x, cx));
    const double dy = double(wrappedDifference(left.y, cy));
    const double radius = std::sqrt(dx * dx + dy * dy);
    double from = std::acos(dx / radius);
    double to = std::acos(double(wrappedDifference(right.x, cx)) / radius);
    if (upper) {
        from = fullTurn - from;
        to = fullTurn - to;
    }
    return DrawEllipse(CPoint(cx, cy), float(radius), guide, float(from * degreesPerRadian),
                       float(to * degreesPerRadian));
}

void CArtText::DDADrawLine_DDALine(int x1, int y1, int x2, int y2, LineCallback callback,
                                   void *context)
{
    walkLine(x1, y1, x2, y2, [=](int x, int y) { callback(x, y, context); });
}

qint64 CArtText::countPoints(int x1, int y1, int x2, int y2)
{
    return stepsOfLine(x1, y1, x2, y2) + 1;
}

void CArtText::addSegment(int x, int y, void *context)
{
    tagSEG *fill = static_cast<tagSEG *>(context);
    fill->points[fill->count++] = {x, y};
}

bool CArtText::FillOut(tagPOINT **points, unsigned int *count)
{
    const tagPOINT *line = *points;
    const unsigned int given = line ? *count : 0;
    *count = 0;
    if (given <= 1)
        return false;
    qint64 total = 0;
    for (unsigned int i = 1; i < given; ++i) {
        total += countPoints(int(line[i - 1].x), int(line[i - 1].y), int(line[i].x),
                             int(line[i].y));
        if (total > MaxGuidePoints)
            return false;
    }
    tagSEG fill;
    fill.points = allocatePoints(unsigned(total));
    if (!fill.points)
        return false;
    for (unsigned int i = 1; i < given; ++i) {
        walkLine(int(line[i - 1].x), int(line[i - 1].y), int(line[i].x), int(line[i].y),
                 [&fill](int x, int y) { addSegment(x, y, &fill); });
    }
    std::free(*points);
    *points = fill.points;
    *count = fill.count;
    return *count != 0;
}

void CArtText::ResizeGuideLine(int guide, CSize size)
{
    if ((m_size.cx == 0 && m_size.cy == 0) || (guide != 1 && guide != 2))
        return;
    tagPOINT *&points = guide == 1 ? m_guidePoints1 : m_guidePoints2;
    quint32 &count = guide == 1 ? m_guideCount1 : m_guideCount2;
    const auto scaled = [](qint64 value, qint64 from, qint64 to) {
        return truncated(double(float(value) / float(from) * float(to)));
    };
    for (tagPOINT *point = points; point != points + count; ++point) {
        point->x = scaled(point->x, m_size.cx, size.cx);
        point->y = scaled(point->y, m_size.cy, size.cy);
    }
    FillOut(&points, &count);
}

void CArtText::GetRealTextExtent(tagPOINT *points, int count, tagSIZE *size)
{
    if (count < 1 || !points) {
        *size = {-19999, -19999};
        return;
    }
    tagPOINT largest{0, 0};
    tagPOINT smallest{20000, 20000};
    for (const tagPOINT *point = points; point != points + count; ++point) {
        largest = {std::max(largest.x, point->x), std::max(largest.y, point->y)};
        smallest = {std::min(smallest.x, point->x), std::min(smallest.y, point->y)};
    }
    for (tagPOINT *point = points; point != points + count; ++point)
        *point = {wrappedDifference(point->x, smallest.x), wrappedDifference(point->y, smallest.y)};
    *size = {wrappedSum(wrappedDifference(largest.x, smallest.x), 1),
             wrappedSum(wrappedDifference(largest.y, smallest.y), 1)};
}
