// SPDX-License-Identifier: MIT
// surfaces_arcs.cpp -- the styles whose rows (columns) become arcs: arc, lower and upper arc, arch,
// bulge.
#include "warp/surfacestyles.h"

#include <cmath>

namespace {

/// How the distance of the centre enters: as it is, or never below 0.2, from where the line stops
/// bending further.
enum Distance { Plain, Floored };

constexpr int NoPoint = -1;

/// One line that becomes an arc. Its centre lies at the coordinate of the point \a base (0 for
/// NoPoint) plus \a factor times the distance times the size of the net.
struct LineArc {
    int line;
    double factor;
    Distance distance;
    int base;
};

/// The arcs of a style, in the order in which they are drawn. Unused entries have line -1.
struct ArcStyle {
    LineArc below[4]; // values below 0
    LineArc above[4];
};

constexpr LineArc None = {-1, 0, Plain, NoPoint};

// clang-format off
constexpr ArcStyle ArcLower = {
    {{3,  1, Plain, 15}, {1,  6, Floored, 15}, {2,  3, Floored, 15}, None},
    {{3, -1, Plain, 15}, {1, -6, Floored, 15}, {2, -3, Floored, 15}, None},
};
constexpr ArcStyle ArcLowerV = {
    {{3,  1, Plain, 15}, {2,  6, Floored, 15}, {1,  3, Floored, 15}, None},
    // Deliberate: above 0 the inner columns measure from their own place, not from the width.
    {{3, -1, Plain, 15}, {2, -6, Floored, 14}, {1, -3, Floored, 13}, None},
};
constexpr ArcStyle ArcUpper = { // the same both ways
    {{0, -1, Plain, NoPoint}, {1, -3, Floored, NoPoint}, {2, -6, Floored, NoPoint}, None},
    {{0,  1, Plain, NoPoint}, {1,  3, Floored, NoPoint}, {2,  6, Floored, NoPoint}, None},
};
constexpr ArcStyle Arch = {
    {{0, -1, Plain, NoPoint}, {1, -1, Plain, 4}, {2, -1, Plain, 8}, {3, -1, Plain, 12}},
    {{0,  1, Plain, NoPoint}, {1,  1, Plain, 4}, {2,  1, Plain, 8}, {3,  1, Plain, 12}},
};
constexpr ArcStyle ArchV = {
    {{0, -1, Plain, NoPoint}, {1, -1, Plain, 13}, {2, -1, Plain, 14}, {3, -1, Plain, 15}},
    {{0,  1, Plain, NoPoint}, {1,  1, Plain, 13}, {2,  1, Plain, 14}, {3,  1, Plain, 15}},
};
constexpr ArcStyle Bulge = {
    // Deliberate: below 0 row 1 measures from 0 and row 2 from the bottom.
    {{0, -1, Plain, NoPoint}, {1, -6, Plain, NoPoint}, {2,  6, Plain, 12}, {3,  1, Plain, 12}},
    {{0,  1, Plain, NoPoint}, {1,  6, Plain, 4},       {2, -6, Plain, 8},  {3, -1, Plain, 12}},
};
constexpr ArcStyle BulgeV = { // each inner column from its own place
    {{0, -1, Plain, NoPoint}, {1, -6, Plain, 13}, {2,  6, Plain, 14}, {3,  1, Plain, 15}},
    {{0,  1, Plain, NoPoint}, {1,  6, Plain, 13}, {2, -6, Plain, 14}, {3, -1, Plain, 15}},
};
// clang-format on

/// The distance of \a line's centre from its base, for a net of \a size across the lines.
double centreOffset(const LineArc &line, float t, double size)
{
    double distance = centreDistance(t);
    if (line.distance == Floored && distance < 0.2)
        distance = double(0.2f);
    return line.factor * distance * size;
}

void bendRows(SurfaceNet &net, const ArcStyle &style, float t, double centreX, double size)
{
    for (const LineArc &row : t < 0 ? style.below : style.above) {
        if (row.line < 0)
            break;
        const double base = row.base == NoPoint ? 0 : net[row.base].y();
        net.bendRow(row.line, QPointF(centreX, base + centreOffset(row, t, size)));
    }
}

void bendColumns(SurfaceNet &net, const ArcStyle &style, float t, double centreY, double size)
{
    for (const LineArc &column : t < 0 ? style.below : style.above) {
        if (column.line < 0)
            break;
        const double base = column.base == NoPoint ? 0 : net[column.base].x();
        net.bendColumn(column.line, QPointF(base + centreOffset(column, t, size), centreY));
    }
}

double middleX(const SurfaceNet &net, int left, int right)
{
    return (net[left].x() + net[right].x()) * 0.5;
}

double middleY(const SurfaceNet &net, int top, int bottom)
{
    return (net[top].y() + net[bottom].y()) * 0.5;
}

/// A straight line from a point away from (or, by the place of the centre, toward) a centre.
struct Ray {
    QPointF start;
    QPointF direction; // not of length 1: radius() is its length

    Ray(const QPointF &from, const QPointF &centre)
        : start(narrowed(from))
        , direction(start - centre)
    {
    }
    float radius() const
    {
        return float(std::sqrt(direction.x() * direction.x() + direction.y() * direction.y()));
    }
    QPointF at(double length, float radius) const
    {
        return start + direction * length / double(radius);
    }
};

/// The two sides of a net that has become a piece of a ring, by point numbers: a side's anchored
/// end, its other end, and the two points between them, from the anchored end on.
struct RingSides {
    int anchor[2];
    int opposite[2];
    int nearer[2];
    int farther[2];
};

/// The two rays of a ring share the radius of the first.
struct Ring {
    Ray rays[2];
    float radius;

    Ring(const SurfaceNet &net, const RingSides &sides, const QPointF &centre)
        : rays{Ray(net[sides.anchor[0]], centre), Ray(net[sides.anchor[1]], centre)}
        , radius(rays[0].radius())
    {
    }
    void placeOpposite(SurfaceNet &net, const RingSides &sides, double length) const
    {
        for (int side : {0, 1})
            net[sides.opposite[side]] = narrowed(rays[side].at(length, radius));
    }
    /// Deliberate: rounded thirds, not those of the net.
    void placeInner(SurfaceNet &net, const RingSides &sides, double length) const
    {
        for (int side : {0, 1}) {
            net[sides.nearer[side]] = rays[side].at(length * 0.333, radius);
            net[sides.farther[side]] = rays[side].at(length * 0.667, radius);
        }
    }
};

constexpr RingSides AnchoredTop = {{0, 3}, {12, 15}, {4, 7}, {8, 11}};
constexpr RingSides AnchoredBottom = {{12, 15}, {0, 3}, {8, 11}, {4, 7}};
constexpr RingSides AnchoredLeft = {{0, 12}, {3, 15}, {1, 13}, {2, 14}};
constexpr RingSides AnchoredRight = {{3, 15}, {0, 12}, {2, 14}, {1, 13}};

} // namespace

void bendArc(SurfaceNet &net, float t)
{
    const double k = centreDistance(t);
    const bool top = t < 0; // the anchored row; the centre lies beyond it
    const QPointF centre = top ? QPointF(middleX(net, 0, 3), -net.height() * k)
                               : QPointF(middleX(net, 12, 15), net.height() + k * net.height());
    const double length = double(float(net[12].y()));
    const RingSides &sides = top ? AnchoredTop : AnchoredBottom;

    const Ring ring(net, sides, centre);
    net.bendRow(top ? 0 : 3, centre);
    ring.placeOpposite(net, sides, length);
    net.bendRow(top ? 3 : 0, centre);
    ring.placeInner(net, sides, length);
    net.bendRow(1, centre);
    net.bendRow(2, centre);
}

void bendArcV(SurfaceNet &net, float t)
{
    const double k = centreDistance(t);
    const bool left = t < 0;
    const QPointF centre = left ? QPointF(-net.width() * k, middleY(net, 0, 12))
                                : QPointF(net.width() + k * net.width(), middleY(net, 3, 15));
    const double length = double(float(left ? net[3].x() : net.width()));
    const RingSides &sides = left ? AnchoredLeft : AnchoredRight;

    const Ring ring(net, sides, centre);
    net.bendColumn(left ? 0 : 3, centre);
    ring.placeOpposite(net, sides, length);
    net.bendColumn(left ? 3 : 0, centre);
    ring.placeInner(net, sides, length);
    net.bendColumn(2, centre);
    net.bendColumn(1, centre);
}

void bendArcLower(SurfaceNet &net, float t)
{
    bendRows(net, ArcLower, t, middleX(net, 12, 15), net.height());
}

void bendArcLowerV(SurfaceNet &net, float t)
{
    bendColumns(net, ArcLowerV, t, middleY(net, 3, 15), net.width());
}

void bendArcUpper(SurfaceNet &net, float t)
{
    bendRows(net, ArcUpper, t, middleX(net, 0, 3), net.height());
}

void bendArcUpperV(SurfaceNet &net, float t)
{
    bendColumns(net, ArcUpper, t, middleY(net, 0, 12), net.width());
}

void bendArch(SurfaceNet &net, float t)
{
    bendRows(net, Arch, t, middleX(net, 0, 3), net.height());
}

void bendArchV(SurfaceNet &net, float t)
{
    // Deliberate: by the height, not by the width.
    bendColumns(net, ArchV, t, middleY(net, 0, 12), net.height());
}

void bendBulge(SurfaceNet &net, float t)
{
    bendRows(net, Bulge, t, middleX(net, 0, 3), net.height());
}

void bendBulgeV(SurfaceNet &net, float t)
{
    // Deliberate: by the height, not by the width.
    bendColumns(net, BulgeV, t, middleY(net, 0, 12), net.height());
}
