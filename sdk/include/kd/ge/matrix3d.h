// Transformations: 4 by 4 matrices that act on column vectors.
#pragma once

#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"

/// An affine transformation. `entry[row][column]`.
class KdGeMatrix3d {
public:
    double entry[4][4];

    static const KdGeMatrix3d kIdentity;

    /// The identity.
    constexpr KdGeMatrix3d() : entry{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}} {}

    static KdGeMatrix3d translation(const KdGeVector3d& by);
    /// Counter-clockwise about `axis` through `center`, in radians.
    static KdGeMatrix3d rotation(double angle, const KdGeVector3d& axis, const KdGePoint3d& center);
    static KdGeMatrix3d scaling(double factor, const KdGePoint3d& center);
    /// From the plane's own coordinates to world coordinates, by the arbitrary axis rule of drawing files:
    /// the plane's x axis is Y x normal when normal is within 1/64 of Z in x and y, else Z x normal.
    static KdGeMatrix3d planeToWorld(const KdGeVector3d& normal);
    static KdGeMatrix3d worldToPlane(const KdGeVector3d& normal);
    /// Maps the origin and the three axes to those given.
    static KdGeMatrix3d alignToWorld(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y,
                                     const KdGeVector3d& z);

    /// Becomes the transformation that maps the origin and the three axes to those given; returns itself.
    KdGeMatrix3d& setCoordSystem(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y,
                                 const KdGeVector3d& z) {
        return *this = alignToWorld(origin, x, y, z);
    }

    /// First `other`, then this.
    KdGeMatrix3d operator*(const KdGeMatrix3d& other) const;
    KdGePoint3d operator*(const KdGePoint3d& point) const;
    /// Vectors are turned and scaled, not moved.
    KdGeVector3d operator*(const KdGeVector3d& vector) const;
    KdGeMatrix3d& operator*=(const KdGeMatrix3d& other) { return *this = *this * other; }

    /// A singular matrix gives the identity.
    KdGeMatrix3d inverse() const;
    bool isEqualTo(const KdGeMatrix3d& other, double tolerance = 1e-10) const;
};
