// The view of a drawing as prompts, picks and modules use it. It looks down on the plane of the world's x and
// y axes. A run without a window has a view like any other.
#pragma once

#include "host/draw/view.h"
#include "kd/ed/view.h"

namespace kdhost {

class View : public KdadViewport, public KdadGsView, public KdadDwgView {
public:
    /// Shows a sheet of a new drawing's size.
    View();

    /// What is shown, to be zoomed and resized.
    draw::View& shown() { return m_shown; }
    const draw::View& shown() const { return m_shown; }
    double unitsPerPixel() const { return 1.0 / m_shown.scale(); }
    /// Shows a sheet of a new drawing's size whole.
    void zoomToSheet();
    /// Shows a box whole. An invalid box changes nothing.
    void zoomTo(const KdDbExtents& box);
    /// Enlarges about the middle; a factor that isn't positive changes nothing.
    void zoomBy(double factor);

    /// Where the view's corner stands on the whole screen.
    void setOrigin(int x, int y);
    /// What lengths that are told in pixels are enlarged by, so that they keep their size on dense screens.
    void setScreenScale(double scale) { m_screenScale = scale; }
    double screenScale() const { return m_screenScale; }

    // To and from pixels, counted from the view's top left corner. The depth is kept.
    void worldToScreen(KdGePoint3d& point) const override;
    void screenToWorld(KdGePoint3d& point) const override;
    KdadViewport* getKdadViewport() const override;
    void screenToClient(int& x, int& y) const override;

private:
    draw::View m_shown;
    int m_originX = 0;
    int m_originY = 0;
    double m_screenScale = 1.0;
};

}  // namespace kdhost
