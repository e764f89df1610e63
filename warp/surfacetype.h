// SPDX-License-Identifier: MIT
#ifndef WARP_SURFACETYPE_H
#define WARP_SURFACETYPE_H

/// The warp styles. The numbers stand in records and documents: never renumber. Any other number is
/// a legal value of the type and bends nothing.
enum SurfaceType : int {
    SurfaceNone = 0,
    SurfaceArc = 1,
    SurfaceArcLower = 2,
    SurfaceArcUpper = 3,
    SurfaceArch = 4,
    SurfaceBulge = 5,
    SurfaceShellLower = 6,
    SurfaceShellUpper = 7,
    SurfaceFlag = 8,
    SurfaceWave = 9,
    SurfaceFish = 10,
    SurfaceRise = 11,
    SurfaceFisheye = 12,
    SurfaceInflate = 13,
    SurfaceSqueeze = 14,
    SurfaceTwist = 15,
};

#endif // WARP_SURFACETYPE_H
