// Points of three and of two coordinates.
#pragma once

#include "kd/ge/vector3d.h"

class KdGeMatrix3d;

/// A place, in drawing units.
class KdGePoint3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    static const KdGePoint3d kOrigin;

    constexpr KdGePoint3d() = default;
    constexpr KdGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    KdGePoint3d& set(double xx, double yy, double zz) { return *this = {xx, yy, zz}; }
    KdGeVector3d asVector() const { return {x, y, z}; }
    double distanceTo(const KdGePoint3d& other) const { return (*this - other).length(); }
    KdGePoint3d& transformBy(const KdGeMatrix3d& matrix);
    bool isEqualTo(const KdGePoint3d& other, double tolerance = 1e-10) const;

    KdGePoint3d operator+(const KdGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    KdGePoint3d operator-(const KdGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    KdGeVector3d operator-(const KdGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    KdGePoint3d& operator+=(const KdGeVector3d& v) { return *this = *this + v; }
    KdGePoint3d& operator-=(const KdGeVector3d& v) { return *this = *this - v; }
    /// Equal within 1e-10 in each coordinate.
    bool operator==(const KdGePoint3d& o) const { return isEqualTo(o); }
    bool operator!=(const KdGePoint3d& o) const { return !isEqualTo(o); }
};

/// A place in a plane.
class KdGePoint2d {
public:
    double x = 0.0;
    double y = 0.0;

    constexpr KdGePoint2d() = default;
    constexpr KdGePoint2d(double xx, double yy) : x(xx), y(yy) {}
};

/// An array of points, as the geometry operations fill it.
template <class T>
class KdArray;
using KdGePoint3dArray = KdArray<KdGePoint3d>;
