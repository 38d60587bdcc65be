// Transformations as 4 by 4 matrices.

#include "kd/ge/matrix3d.h"

#include <cmath>

constinit const KdGeMatrix3d KdGeMatrix3d::kIdentity;

namespace {

KdGeVector3d column(const KdGeMatrix3d& matrix, int index) {
    return {matrix.entry[0][index], matrix.entry[1][index], matrix.entry[2][index]};
}

void setColumn(KdGeMatrix3d& matrix, int index, const KdGeVector3d& v) {
    matrix.entry[0][index] = v.x;
    matrix.entry[1][index] = v.y;
    matrix.entry[2][index] = v.z;
}

void setRow(KdGeMatrix3d& matrix, int index, const KdGeVector3d& v) {
    matrix.entry[index][0] = v.x;
    matrix.entry[index][1] = v.y;
    matrix.entry[index][2] = v.z;
}

/// Carries out `linear` about `center` instead of the origin.
KdGeMatrix3d about(const KdGePoint3d& center, KdGeMatrix3d linear) {
    setColumn(linear, 3, center.asVector() - linear * center.asVector());
    return linear;
}

}  // namespace

KdGeMatrix3d KdGeMatrix3d::translation(const KdGeVector3d& by) {
    KdGeMatrix3d matrix;
    setColumn(matrix, 3, by);
    return matrix;
}

KdGeMatrix3d KdGeMatrix3d::rotation(double angle, const KdGeVector3d& axis, const KdGePoint3d& center) {
    KdGeMatrix3d linear;
    setColumn(linear, 0, KdGeVector3d(KdGeVector3d::kXAxis).rotateBy(angle, axis));
    setColumn(linear, 1, KdGeVector3d(KdGeVector3d::kYAxis).rotateBy(angle, axis));
    setColumn(linear, 2, KdGeVector3d(KdGeVector3d::kZAxis).rotateBy(angle, axis));
    return about(center, linear);
}

KdGeMatrix3d KdGeMatrix3d::scaling(double factor, const KdGePoint3d& center) {
    KdGeMatrix3d linear;
    for (int i = 0; i < 3; ++i) linear.entry[i][i] = factor;
    return about(center, linear);
}

KdGeMatrix3d KdGeMatrix3d::planeToWorld(const KdGeVector3d& normal) {
    if (normal.isZeroLength()) return {};
    constexpr double nearZ = 1.0 / 64.0;
    const KdGeVector3d z = normal.normal();
    const bool alongZ = std::fabs(z.x) < nearZ && std::fabs(z.y) < nearZ;
    const KdGeVector3d x = (alongZ ? KdGeVector3d::kYAxis : KdGeVector3d::kZAxis).crossProduct(z).normal();
    return alignToWorld(KdGePoint3d::kOrigin, x, z.crossProduct(x), z);
}

KdGeMatrix3d KdGeMatrix3d::worldToPlane(const KdGeVector3d& normal) {
    return planeToWorld(normal).inverse();
}

KdGeMatrix3d KdGeMatrix3d::alignToWorld(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y,
                                        const KdGeVector3d& z) {
    KdGeMatrix3d matrix;
    setColumn(matrix, 0, x);
    setColumn(matrix, 1, y);
    setColumn(matrix, 2, z);
    setColumn(matrix, 3, origin.asVector());
    return matrix;
}

KdGeMatrix3d KdGeMatrix3d::operator*(const KdGeMatrix3d& other) const {
    KdGeMatrix3d product;
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            double sum = 0.0;
            for (int i = 0; i < 4; ++i) sum += entry[row][i] * other.entry[i][col];
            product.entry[row][col] = sum;
        }
    }
    return product;
}

KdGePoint3d KdGeMatrix3d::operator*(const KdGePoint3d& point) const {
    const KdGeVector3d moved = *this * point.asVector() + column(*this, 3);
    return {moved.x, moved.y, moved.z};
}

KdGeVector3d KdGeMatrix3d::operator*(const KdGeVector3d& v) const {
    return column(*this, 0) * v.x + column(*this, 1) * v.y + column(*this, 2) * v.z;
}

KdGeMatrix3d KdGeMatrix3d::inverse() const {
    const KdGeVector3d x = column(*this, 0);
    const KdGeVector3d y = column(*this, 1);
    const KdGeVector3d z = column(*this, 2);
    const double determinant = x.dotProduct(y.crossProduct(z));
    // Relative to the axes' lengths, so that a very small scale is no singular matrix.
    if (!(std::fabs(determinant) > 1e-12 * x.length() * y.length() * z.length())) return {};
    KdGeMatrix3d matrix;
    setRow(matrix, 0, y.crossProduct(z) / determinant);
    setRow(matrix, 1, z.crossProduct(x) / determinant);
    setRow(matrix, 2, x.crossProduct(y) / determinant);
    setColumn(matrix, 3, -(matrix * column(*this, 3)));
    return matrix;
}

bool KdGeMatrix3d::isEqualTo(const KdGeMatrix3d& other, double tolerance) const {
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            if (!(std::fabs(entry[row][col] - other.entry[row][col]) <= tolerance)) return false;
        }
    }
    return true;
}
