// What an even transformation does to a direction in a plane.

#include "host/db/similarity.h"

#include <array>
#include <cmath>

namespace kdhost {
namespace {

constexpr double kTolerance = 1e-9;  ///< relative, of lengths and right angles

}  // namespace

std::optional<double> evenScale(const KdGeMatrix3d& matrix) {
    const std::array<KdGeVector3d, 3> axes = {matrix * KdGeVector3d(1.0, 0.0, 0.0),
                                              matrix * KdGeVector3d(0.0, 1.0, 0.0),
                                              matrix * KdGeVector3d(0.0, 0.0, 1.0)};
    const double scale = axes[0].length();
    if (!(scale > 0.0) || !std::isfinite(scale)) return std::nullopt;
    for (std::size_t i = 0; i < axes.size(); ++i) {
        const KdGeVector3d& axis = axes[i];
        if (std::abs(axis.length() / scale - 1.0) > kTolerance) return std::nullopt;
        if (std::abs(axis.dotProduct(axes[(i + 1) % 3])) > kTolerance * scale * scale) return std::nullopt;
    }
    const bool mirrors = axes[0].crossProduct(axes[1]).dotProduct(axes[2]) < 0.0;
    return mirrors ? std::nullopt : std::optional(scale);
}

KdGeVector3d usableNormal(const KdGeVector3d& normal) {
    return normal.isZeroLength() ? KdGeVector3d(0.0, 0.0, 1.0) : normal.normal();
}

PlaneDirection transformed(const PlaneDirection& direction, const KdGeMatrix3d& matrix) {
    const KdGeVector3d normal = usableNormal(direction.normal);
    const KdGeVector3d along =
        KdGeMatrix3d::planeToWorld(normal) * KdGeVector3d(std::cos(direction.angle), std::sin(direction.angle), 0.0);
    const KdGeVector3d newNormal = usableNormal(matrix * normal);
    const KdGeVector3d inPlane = KdGeMatrix3d::worldToPlane(newNormal) * (matrix * along);
    return {newNormal, std::atan2(inPlane.y, inPlane.x)};
}

KdGeMatrix3d placeInPlane(const KdGePoint3d& origin, const PlaneDirection& direction) {
    const KdGeMatrix3d turn =
        KdGeMatrix3d::rotation(direction.angle, KdGeVector3d(0.0, 0.0, 1.0), KdGePoint3d(0.0, 0.0, 0.0));
    return KdGeMatrix3d::translation(origin.asVector()) * KdGeMatrix3d::planeToWorld(usableNormal(direction.normal)) *
           turn;
}

}  // namespace kdhost
