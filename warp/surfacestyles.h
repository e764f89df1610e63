// SPDX-License-Identifier: MIT
// surfacestyles.h -- one function a style: how it bends a flat net by a value other than 0 within
// -0.997 and 0.997. Across the rows, and with a V across the columns. For warp/ alone.
#ifndef WARP_SURFACESTYLES_H
#define WARP_SURFACESTYLES_H

#include "warp/surfacenet.h"

/// The bend of a value: how far away the centre of an arc lies, in heights or widths. Positive, and
/// the smaller the stronger the bend.
inline double centreDistance(float t)
{
    const float distance = t > 0 ? (1.0f - t) / t : -(t + 1.0f) / t;
    return double(distance);
}

// surfaces_arcs.cpp
void bendArc(SurfaceNet &net, float t);
void bendArcV(SurfaceNet &net, float t);
void bendArcLower(SurfaceNet &net, float t);
void bendArcLowerV(SurfaceNet &net, float t);
void bendArcUpper(SurfaceNet &net, float t);
void bendArcUpperV(SurfaceNet &net, float t);
void bendArch(SurfaceNet &net, float t);
void bendArchV(SurfaceNet &net, float t);
void bendBulge(SurfaceNet &net, float t);
void bendBulgeV(SurfaceNet &net, float t);

// surfaces_shells.cpp
void bendShellLower(SurfaceNet &net, float t);
void bendShellLowerV(SurfaceNet &net, float t);
void bendShellUpper(SurfaceNet &net, float t);
void bendShellUpperV(SurfaceNet &net, float t);

// surfaces_offsets.cpp
void bendFlag(SurfaceNet &net, float t);
void bendFlagV(SurfaceNet &net, float t);
void bendWave(SurfaceNet &net, float t);
void bendWaveV(SurfaceNet &net, float t);
void bendFish(SurfaceNet &net, float t);
void bendFishV(SurfaceNet &net, float t);
void bendRise(SurfaceNet &net, float t);
void bendRiseV(SurfaceNet &net, float t);
void bendFisheye(SurfaceNet &net, float t);
void bendInflate(SurfaceNet &net, float t);
void bendSqueeze(SurfaceNet &net, float t);
void bendSqueezeV(SurfaceNet &net, float t);
void bendTwist(SurfaceNet &net, float t);

#endif // WARP_SURFACESTYLES_H
