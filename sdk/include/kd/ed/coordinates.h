// User and world coordinates.
#pragma once

#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"

/// From the current user coordinate system to world coordinates. A non-zero third argument converts
/// positions, 0 directions. False never happens with a drawing open.
bool kddbUcs2Wcs(const KdGePoint3d& from, KdGePoint3d& to, int asPoint);
bool kddbWcs2Ucs(const KdGePoint3d& from, KdGePoint3d& to, int asPoint);

/// The directions of the current user coordinate system's x and z axis, of length 1. False, with both as they were,
/// without a drawing.
bool kdadGetUCS(KdGeVector3d& x, KdGeVector3d& z);

/// From pixels of the drawing view to the point in the current user coordinate system. False, with `point` as it
/// was, without a view.
bool kdedCoordFromPixelToWorldInternal(int x, int y, KdGePoint3d& point);
