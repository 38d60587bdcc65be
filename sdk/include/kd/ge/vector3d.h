// Vectors of three coordinates.
#pragma once

/// A direction or displacement, in drawing units.
class KdGeVector3d {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    static const KdGeVector3d kIdentity;  ///< (0, 0, 0)
    static const KdGeVector3d kXAxis;
    static const KdGeVector3d kYAxis;
    static const KdGeVector3d kZAxis;

    constexpr KdGeVector3d() = default;
    constexpr KdGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    double length() const;
    double dotProduct(const KdGeVector3d& other) const { return x * other.x + y * other.y + z * other.z; }
    KdGeVector3d crossProduct(const KdGeVector3d& other) const;
    /// A vector shorter than 1e-10 stays as it is.
    KdGeVector3d& normalize();
    KdGeVector3d normal() const { return KdGeVector3d(*this).normalize(); }

    /// Angle between the two, 0 to pi.
    double angleTo(const KdGeVector3d& other) const;
    /// Angle from this to `other`, counter-clockwise about `reference`, 0 to two pi.
    double angleTo(const KdGeVector3d& other, const KdGeVector3d& reference) const;
    KdGeVector3d& rotateBy(double angle, const KdGeVector3d& axis);
    bool isParallelTo(const KdGeVector3d& other) const;
    bool isZeroLength() const { return length() < 1e-10; }
    bool isEqualTo(const KdGeVector3d& other, double tolerance = 1e-10) const;

    KdGeVector3d operator-() const { return {-x, -y, -z}; }
    KdGeVector3d operator+(const KdGeVector3d& o) const { return {x + o.x, y + o.y, z + o.z}; }
    KdGeVector3d operator-(const KdGeVector3d& o) const { return {x - o.x, y - o.y, z - o.z}; }
    KdGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
    KdGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
    KdGeVector3d& operator+=(const KdGeVector3d& o) { return *this = *this + o; }
    KdGeVector3d& operator-=(const KdGeVector3d& o) { return *this = *this - o; }
    KdGeVector3d& operator*=(double s) { return *this = *this * s; }
    /// Equal within 1e-10 in each coordinate.
    bool operator==(const KdGeVector3d& o) const { return isEqualTo(o); }
    bool operator!=(const KdGeVector3d& o) const { return !isEqualTo(o); }
};

inline KdGeVector3d operator*(double s, const KdGeVector3d& v) {
    return v * s;
}
