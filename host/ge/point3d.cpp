// Points of three coordinates.

#include "kd/ge/point3d.h"

#include "kd/ge/matrix3d.h"

constinit const KdGePoint3d KdGePoint3d::kOrigin(0.0, 0.0, 0.0);

KdGePoint3d& KdGePoint3d::transformBy(const KdGeMatrix3d& matrix) {
    return *this = matrix * *this;
}

bool KdGePoint3d::isEqualTo(const KdGePoint3d& other, double tolerance) const {
    return asVector().isEqualTo(other.asVector(), tolerance);
}
