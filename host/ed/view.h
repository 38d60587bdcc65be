// The view of a drawing: which part of it is shown on how many pixels. It looks down on the plane of the
// world's x and y axes. A run without a window has a view like any other.
#pragma once

#include "kd/ed/view.h"
#include "kd/ge/extents.h"

namespace kdhost {

class View : public KdadViewport, public KdadGsView, public KdadDwgView {
public:
    View();

    // To and from pixels, counted from the view's top left corner. The depth is kept.
    void worldToScreen(KdGePoint3d& point) const override;
    void screenToWorld(KdGePoint3d& point) const override;
    KdadViewport* getKdadViewport() const override;
    void screenToClient(int& x, int& y) const override;

    int width() const { return m_width; }  ///< pixels
    int height() const { return m_height; }
    /// Keeps the middle and the scale. A size below one pixel counts as one.
    void setSize(int width, int height);
    /// Where the view's corner stands on the whole screen.
    void setOrigin(int x, int y);

    /// Drawing units on one pixel.
    double unitsPerPixel() const { return m_unitsPerPixel; }
    KdGePoint3d center() const { return m_center; }
    void setCenter(const KdGePoint3d& center) { m_center = center; }
    /// Shows a box whole, in the middle, with a margin around it. An invalid box changes nothing.
    void zoomTo(const KdDbExtents& box);
    /// Enlarges what is shown by the factor about the middle; one that isn't positive changes nothing.
    void zoomBy(double factor);
    /// The part of the plane that is shown.
    KdDbExtents shown() const;

private:
    int m_width;
    int m_height;
    int m_originX = 0;
    int m_originY = 0;
    KdGePoint3d m_center;
    double m_unitsPerPixel;
};

}  // namespace kdhost
