// What part of a drawing is looked at, and how large.

#include "host/draw/view.h"

#include <algorithm>
#include <cmath>

namespace kdhost::draw {
namespace {

constexpr double kSmallestScale = 1e-12;
constexpr double kLargestScale = 1e12;

}  // namespace

void View::resize(double widthPixels, double heightPixels) {
    m_width = std::max(widthPixels, 1.0);
    m_height = std::max(heightPixels, 1.0);
}

void View::zoomExtents(const KdDbExtents& extents, double marginPixels) {
    if (!extents.isValid()) return;
    const KdGePoint3d& low = extents.minPoint();
    const KdGePoint3d& high = extents.maxPoint();
    m_centerX = 0.5 * (low.x + high.x);
    m_centerY = 0.5 * (low.y + high.y);
    double scale = kLargestScale;
    if (high.x > low.x) scale = std::min(scale, std::max(m_width - 2.0 * marginPixels, 1.0) / (high.x - low.x));
    if (high.y > low.y) scale = std::min(scale, std::max(m_height - 2.0 * marginPixels, 1.0) / (high.y - low.y));
    if (scale < kLargestScale) m_scale = std::max(scale, kSmallestScale);
}

void View::pan(double dx, double dy) {
    m_centerX -= dx / m_scale;
    m_centerY += dy / m_scale;
}

void View::zoom(double factor, const QPointF& fixed) {
    const double scale = m_scale * factor;
    if (!(factor > 0.0) || scale < kSmallestScale || scale > kLargestScale) return;
    const KdGePoint3d before = toWorld(fixed);
    m_scale = scale;
    const KdGePoint3d after = toWorld(fixed);
    m_centerX += before.x - after.x;
    m_centerY += before.y - after.y;
}

}  // namespace kdhost::draw
