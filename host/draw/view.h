// What part of a drawing is looked at, and how large: from world coordinates to pixels and back. Pixels
// count from the top left corner, y downwards. No widgets; whoever shows a drawing holds one.
#pragma once

#include <QPointF>

#include "kd/ge/extents.h"

namespace kdhost::draw {

class View {
public:
    View() = default;
    View(double widthPixels, double heightPixels) { resize(widthPixels, heightPixels); }

    /// What lies in the middle stays there. Sizes below one pixel count as one.
    void resize(double widthPixels, double heightPixels);
    double widthPixels() const { return m_width; }
    double heightPixels() const { return m_height; }

    QPointF toPixels(const KdGePoint3d& point) const {
        return {0.5 * m_width + (point.x - m_centerX) * m_scale, 0.5 * m_height - (point.y - m_centerY) * m_scale};
    }
    /// In the plane z = 0.
    KdGePoint3d toWorld(const QPointF& pixels) const {
        return {m_centerX + (pixels.x() - 0.5 * m_width) / m_scale, m_centerY - (pixels.y() - 0.5 * m_height) / m_scale,
                0.0};
    }

    /// Pixels for a drawing unit.
    double scale() const { return m_scale; }

    /// Shows all of the extents with a margin on each side; a point only comes to the middle, and invalid
    /// extents change nothing.
    void zoomExtents(const KdDbExtents& extents, double marginPixels);
    /// Moves the drawing by pixels, as a hand on paper does.
    void pan(double dx, double dy);
    /// Enlarges by the factor; the place under `fixed` stays where it is. Factors that aren't positive, or
    /// lead beyond what numbers can tell apart, change nothing.
    void zoom(double factor, const QPointF& fixed);

private:
    double m_width = 1.0;
    double m_height = 1.0;
    double m_centerX = 0.0;
    double m_centerY = 0.0;
    double m_scale = 1.0;
};

}  // namespace kdhost::draw
