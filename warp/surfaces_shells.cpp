// SPDX-License-Identifier: MIT
// surfaces_shells.cpp -- the shell styles: one row (column) becomes an arc, and the ends of its
// neighbour follow the arc's normals.
#include "warp/surfacestyles.h"

#include "common/truncated.h"

#include <QtMath>

#include <cmath>

namespace {

/// The whole-numbered point beside \a from, at \a distance at a right angle to \a direction: on the
/// lower side of a line that runs to the right, on the upper side for a negative distance. Single
/// precision but for the sum. A direction of length 0 is not tested.
QPointF pointBeside(const QPointF &from, const QPointF &direction, float distance)
{
    const float alongX = float(direction.x());
    const float alongY = float(direction.y());
    const float length = std::sqrt(alongX * alongX + alongY * alongY);
    const float stepX = alongY * distance / length;
    const float stepY = alongX * distance / length;
    return QPointF(truncated(from.x() - double(stepX)), truncated(from.y() + double(stepY)));
}

/// A step of \a length at an angle that is \a part of the right one.
QPointF cornerStep(float part, float length)
{
    const double angle = qDegreesToRadians(double(part) * 90.0);
    return QPointF(double(length) * std::cos(angle), double(length) * std::sin(angle));
}

} // namespace

void bendShellLower(SurfaceNet &net, float t)
{
    const double k = centreDistance(t);
    const float third = net.thirdOfHeight();
    if (t > 0) {
        const QPointF step = cornerStep(1.0f - t, float(net[12].y()));
        net[12] = narrowed(QPointF(net[0].x() - step.x(), net[0].y() + step.y()));
        net[15] = narrowed(QPointF(net[3].x() + step.x(), net[3].y() + step.y()));
    }
    const double middle = (net[12].x() + net[15].x()) * 0.5;
    net.bendRow(3, QPointF(middle, t < 0 ? net.height() + k * net.height() : -net.height() * k));

    const QPointF left = net[13] - net[12];
    const QPointF right = net[15] - net[14];
    // Deliberate: above 0 the points hang from the top corners, below 0 they stand on the bottom.
    net[8] = t < 0 ? pointBeside(net[12], left, -third) : pointBeside(net[0], left, third);
    net[11] = t < 0 ? pointBeside(net[15], right, -third) : pointBeside(net[3], right, third);
}

void bendShellLowerV(SurfaceNet &net, float t)
{
    const double k = centreDistance(t);
    const float third = net.thirdOfWidth();
    if (t > 0) { // deliberate: the angle grows with the value here
        const QPointF step = cornerStep(t, float(net[3].x()));
        net[3] = narrowed(QPointF(net[0].x() + step.x(), net[0].y() - step.y()));
        net[15] = narrowed(QPointF(net[12].x() + step.x(), net[12].y() + step.y()));
    }
    const double middle = (net[3].y() + net[15].y()) * 0.5;
    net.bendColumn(3, QPointF(t < 0 ? net.width() + k * net.width() : -net.width() * k, middle));

    const QPointF top = net[7] - net[3];
    const QPointF bottom = net[15] - net[11];
    net[2] = t < 0 ? pointBeside(net[3], top, third) : pointBeside(net[0], top, -third);
    net[14] = t < 0 ? pointBeside(net[15], bottom, third) : pointBeside(net[12], bottom, -third);
}

void bendShellUpper(SurfaceNet &net, float t)
{
    const double k = centreDistance(t);
    const float third = net.thirdOfHeight(); // before the first of its points moves
    if (t > 0) {
        const QPointF step = cornerStep(1.0f - t, float(net[12].y()));
        net[0] = narrowed(QPointF(net[12].x() - step.x(), net[12].y() - step.y()));
        net[3] = narrowed(QPointF(net[15].x() + step.x(), net[15].y() - step.y()));
    }
    const double middle = (net[0].x() + net[3].x()) * 0.5;
    net.bendRow(0, QPointF(middle, t < 0 ? -net.height() * k : k * net.height() + net.height()));

    const QPointF left = net[1] - net[0];
    const QPointF right = net[3] - net[2];
    net[4] = pointBeside(net[0], left, third);
    net[7] = pointBeside(net[3], right, third);
}

void bendShellUpperV(SurfaceNet &net, float t)
{
    const double k = centreDistance(t);
    const float third = net.thirdOfWidth(); // before the first of its points moves
    if (t > 0) {                            // deliberate: the angle grows with the value here
        const QPointF step = cornerStep(t, float(net[3].x()));
        net[0] = narrowed(QPointF(net[3].x() - step.x(), net[3].y() - step.y()));
        net[12] = narrowed(QPointF(net[15].x() - step.x(), net[15].y() + step.y()));
    }
    const double middle = (net[0].y() + net[12].y()) * 0.5;
    // Deliberate: above 0 the centre lies by the height, not by the width, to the right.
    net.bendColumn(0, QPointF(t < 0 ? -net.width() * k : k * net.height() + net.width(), middle));

    const QPointF top = net[4] - net[0];
    const QPointF bottom = net[12] - net[8];
    net[1] = pointBeside(net[0], top, -third);
    net[13] = pointBeside(net[12], bottom, -third);
}
