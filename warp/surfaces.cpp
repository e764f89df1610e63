// SPDX-License-Identifier: MIT
#include "warp/surfaces.h"

#include "warp/surfacestyles.h"

#include <cmath>

namespace {

using Bend = void (*)(SurfaceNet &net, float t);

struct Style {
    Bend acrossRows;
    Bend acrossColumns;
};

// By SurfaceType. The last styles but one are not turned: one function serves both ways.
constexpr Style Styles[] = {
    {nullptr, nullptr},
    {bendArc, bendArcV},
    {bendArcLower, bendArcLowerV},
    {bendArcUpper, bendArcUpperV},
    {bendArch, bendArchV},
    {bendBulge, bendBulgeV},
    {bendShellLower, bendShellLowerV},
    {bendShellUpper, bendShellUpperV},
    {bendFlag, bendFlagV},
    {bendWave, bendWaveV},
    {bendFish, bendFishV},
    {bendRise, bendRiseV},
    {bendFisheye, bendFisheye},
    {bendInflate, bendInflate},
    {bendSqueeze, bendSqueezeV},
    {bendTwist, bendTwist},
};

/// Deliberate: the strongest setting steps back a little, and is weaker than one just below it.
float steppedBack(float t)
{
    if (double(t) > 0.997)
        return 0.995f;
    return double(t) < -0.997 ? -0.995f : t;
}

void bendNet(SurfaceType type, QVector<QVector<QPointF>> &net, float t, Bend Style::*direction)
{
    if (t == 0.0f || std::isnan(t) || type < SurfaceArc || type > SurfaceTwist || !isWholeNet(net))
        return;
    SurfaceNet points(net.first().data());
    (Styles[type].*direction)(points, steppedBack(t));
}

} // namespace

QVector<QVector<QPointF>> getSurFacePoint(SurfaceType type, QVector<QVector<QPointF>> &net, float t)
{
    bendNet(type, net, t, &Style::acrossRows);
    return net;
}

QVector<QVector<QPointF>> getSurFacePointV(SurfaceType type, QVector<QVector<QPointF>> &net,
                                           float t)
{
    bendNet(type, net, t, &Style::acrossColumns);
    return net;
}
