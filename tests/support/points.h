// Points in tests: told in failures, compared with coordinates worked out by hand.
#pragma once

#include <gtest/gtest.h>

#include <ostream>

#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"

inline void PrintTo(const KdGePoint3d& p, std::ostream* out) {
    *out << '(' << p.x << ", " << p.y << ", " << p.z << ')';
}

inline void PrintTo(const KdGeVector3d& v, std::ostream* out) {
    PrintTo(KdGePoint3d(v.x, v.y, v.z), out);
}

namespace kdtest {

inline void expectAt(const KdGePoint3d& point, double x, double y) {
    EXPECT_NEAR(point.x, x, 1e-9);
    EXPECT_NEAR(point.y, y, 1e-9);
}

}  // namespace kdtest
