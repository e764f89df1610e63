// SPDX-License-Identifier: MIT
// surfaces_offsets.cpp -- the styles that push points by an amount: flag, wave, fish, rise, fisheye,
// inflate, squeeze, twist. Amounts are products in single precision, added in double.
#include "warp/surfacestyles.h"

#include <cmath>
#include <initializer_list>

namespace {

using Points = std::initializer_list<int>;

void moveX(SurfaceNet &net, Points points, float amount)
{
    for (int point : points)
        net[point].rx() += double(amount);
}

void moveY(SurfaceNet &net, Points points, float amount)
{
    for (int point : points)
        net[point].ry() += double(amount);
}

/// \a direction at length 1; (0, 0) when it has no length.
QPointF unit(const QPointF &direction)
{
    const double length = std::sqrt(direction.x() * direction.x() + direction.y() * direction.y());
    return length > 0 ? direction / length : QPointF(0, 0);
}

} // namespace

void bendFlag(SurfaceNet &net, float t)
{
    const float amount = 2.0f * (net.thirdOfHeight() * t);
    moveY(net, {1, 5, 9, 13}, -amount);
    moveY(net, {2, 6, 10, 14}, amount);
}

void bendFlagV(SurfaceNet &net, float t)
{
    const float amount = net.thirdOfWidth() * t * 6.0f; // deliberate: three times that of the rows
    moveX(net, {4, 5, 6, 7}, -amount);
    moveX(net, {8, 9, 10, 11}, amount);
}

void bendWave(SurfaceNet &net, float t)
{
    const float amount = net.thirdOfHeight() * t * 4.0f;
    const float left = float(double(amount) + net[9].y());
    net[5].setY(double(left));
    net[9].setY(double(left));
    const float right = float(net[6].y() - double(amount));
    net[6].setY(double(right));
    net[10].setY(double(right));
}

void bendWaveV(SurfaceNet &net, float t)
{
    const float amount = net.thirdOfWidth() * t * 4.0f;
    const float upper = float(double(amount) + net[6].x());
    net[5].setX(double(upper));
    net[6].setX(double(upper));
    const float lower = float(net[9].x() - double(amount));
    net[9].setX(double(lower));
    net[10].setX(double(lower));
}

void bendFish(SurfaceNet &net, float t)
{
    const float outer = net.thirdOfHeight() * t * 6.5f;
    const float inner = outer * 0.25f;
    moveY(net, {1, 14}, -outer);
    moveY(net, {5, 10}, -inner);
    moveY(net, {6, 9}, inner);
    moveY(net, {2, 13}, outer);
}

void bendFishV(SurfaceNet &net, float t)
{
    const float outer = net.thirdOfWidth() * t * 6.5f;
    const float inner = outer * 0.25f;
    moveX(net, {4, 11}, -outer);
    moveX(net, {5, 10}, -inner);
    moveX(net, {6, 9}, inner);
    moveX(net, {7, 8}, outer);
}

void bendRise(SurfaceNet &net, float t)
{
    const float amount = net.thirdOfHeight() * t * 5.0f;
    moveY(net, {0, 4, 8, 12, 1, 5, 9, 13}, amount);
}

void bendRiseV(SurfaceNet &net, float t)
{
    const float amount = net.thirdOfHeight() * t * 5.0f; // deliberate: by the height as well
    moveX(net, {0, 1, 2, 3, 4, 5, 6, 7}, amount);
}

void bendFisheye(SurfaceNet &net, float t)
{
    const float third = net.thirdOfHeight();
    const double amount = double((third + third) * t * 4.0f);
    // Inner points and their corners do not overlap: a moved point changes no later direction.
    net[5] += amount * unit(net[0] - net[5]);
    net[6] += amount * unit(net[3] - net[6]);
    net[9] += amount * unit(net[12] - net[9]);
    net[10] += amount * unit(net[15] - net[10]);
}

void bendInflate(SurfaceNet &net, float t)
{
    const float amount = net.thirdOfHeight() * t * 1.5f;
    const float sideways = amount * -2.0f;
    moveY(net, {1, 2}, -amount);
    moveY(net, {13, 14}, amount);
    moveX(net, {4, 8, 5, 9}, sideways);
    moveX(net, {7, 11, 6, 10}, -sideways);
}

void bendSqueeze(SurfaceNet &net, float t)
{
    float amount = 2.0f * (net.thirdOfHeight() * t);
    if (t > 0)
        amount += amount;
    moveY(net, {1, 2}, -(0.22f * amount));
    moveY(net, {13, 14}, 0.22f * amount);
    moveX(net, {4, 8}, amount);
    moveX(net, {7, 11}, -amount);
}

void bendSqueezeV(SurfaceNet &net, float t)
{
    // Deliberate: never doubled, with the sign turned, and the inner points move too.
    const float amount = 2.0f * (net.thirdOfHeight() * -t);
    moveY(net, {1, 2}, -amount);
    moveY(net, {13, 14}, amount);
    moveX(net, {4, 8, 5, 9}, amount);
    moveX(net, {7, 11, 6, 10}, -amount);
}

void bendTwist(SurfaceNet &net, float t)
{
    const float amount = net.thirdOfHeight() * std::abs(t) * 8.0f;
    if (t > 0) {
        net[5].rx() += double(amount);
        net[9].ry() -= double(amount);
        net[6].ry() += double(amount);
        net[10].rx() -= double(amount);
    } else {
        net[5].ry() += double(amount);
        net[9].rx() += double(amount);
        net[6].rx() -= double(amount);
        net[10].ry() -= double(amount);
    }
}
