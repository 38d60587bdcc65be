// Vectors of three coordinates.

#include "kd/ge/vector3d.h"

#include <cmath>
#include <numbers>

constinit const KdGeVector3d KdGeVector3d::kIdentity(0.0, 0.0, 0.0);
constinit const KdGeVector3d KdGeVector3d::kXAxis(1.0, 0.0, 0.0);
constinit const KdGeVector3d KdGeVector3d::kYAxis(0.0, 1.0, 0.0);
constinit const KdGeVector3d KdGeVector3d::kZAxis(0.0, 0.0, 1.0);

double KdGeVector3d::length() const {
    return std::hypot(x, y, z);
}

KdGeVector3d KdGeVector3d::crossProduct(const KdGeVector3d& o) const {
    return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
}

KdGeVector3d& KdGeVector3d::normalize() {
    const double size = length();
    return size < 1e-10 ? *this : *this = *this / size;
}

double KdGeVector3d::angleTo(const KdGeVector3d& other) const {
    // The arc tangent stays exact for nearly parallel vectors, where the arc cosine loses half its digits.
    return std::atan2(crossProduct(other).length(), dotProduct(other));
}

double KdGeVector3d::angleTo(const KdGeVector3d& other, const KdGeVector3d& reference) const {
    const double angle = angleTo(other);
    const bool clockwise = crossProduct(other).dotProduct(reference) < 0.0;
    return clockwise ? 2.0 * std::numbers::pi - angle : angle;
}

KdGeVector3d& KdGeVector3d::rotateBy(double angle, const KdGeVector3d& axis) {
    const KdGeVector3d k = axis.normal();
    const double cosine = std::cos(angle);
    return *this =
               *this * cosine + k.crossProduct(*this) * std::sin(angle) + k * (k.dotProduct(*this) * (1.0 - cosine));
}

bool KdGeVector3d::isParallelTo(const KdGeVector3d& other) const {
    if (isZeroLength() || other.isZeroLength()) return false;
    return normal().crossProduct(other.normal()).length() < 1e-10;
}

bool KdGeVector3d::isEqualTo(const KdGeVector3d& other, double tolerance) const {
    return std::fabs(x - other.x) <= tolerance && std::fabs(y - other.y) <= tolerance &&
           std::fabs(z - other.z) <= tolerance;
}
