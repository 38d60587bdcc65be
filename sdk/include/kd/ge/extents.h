// The axis-parallel box around a set of points.
#pragma once

#include <algorithm>

#include "kd/ge/point3d.h"

/// Empty until a point is added.
class KdDbExtents {
public:
    KdDbExtents() = default;
    KdDbExtents(const KdGePoint3d& a, const KdGePoint3d& b) {
        addPoint(a);
        addPoint(b);
    }
    bool isValid() const { return m_min.x <= m_max.x; }
    const KdGePoint3d& minPoint() const { return m_min; }
    const KdGePoint3d& maxPoint() const { return m_max; }
    void addPoint(const KdGePoint3d& p) {
        m_min = {std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z)};
        m_max = {std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z)};
    }
    void addExt(const KdDbExtents& other) {
        if (!other.isValid()) return;
        addPoint(other.m_min);
        addPoint(other.m_max);
    }

private:
    KdGePoint3d m_min{1e20, 1e20, 1e20};
    KdGePoint3d m_max{-1e20, -1e20, -1e20};
};
