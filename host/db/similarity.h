// Transformations that turn, move and scale evenly: those that texts and block insertions can take.
#pragma once

#include <optional>

#include "kd/ge/matrix3d.h"

namespace kdhost {

/// The factor by which the matrix scales; nothing when it mirrors, shears, or scales unevenly or to nothing.
std::optional<double> evenScale(const KdGeMatrix3d& matrix);

/// A direction in a plane given by its normal, as an angle against the plane's own x axis.
struct PlaneDirection {
    KdGeVector3d normal;
    double angle = 0.0;
};
PlaneDirection transformed(const PlaneDirection& direction, const KdGeMatrix3d& matrix);

/// The normal as it is used: of length 1, and the z axis for one without length.
KdGeVector3d usableNormal(const KdGeVector3d& normal);

/// From a plane's coordinates, turned by `angle` about `origin`, to world coordinates.
KdGeMatrix3d placeInPlane(const KdGePoint3d& origin, const PlaneDirection& direction);

}  // namespace kdhost
