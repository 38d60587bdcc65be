// The drawing view as a widget, for what lays something over a place of the drawing. A run without a window has
// none.
#pragma once

#include <QColor>
#include <QPointF>

#include "kd/ge/point3d.h"

class QWidget;

namespace kdhost {

/// Told when places of the drawing have moved over the widget: by zooming, panning, resizing, or because another
/// drawing is shown.
class ViewFollower {
public:
    virtual ~ViewFollower() = default;
    virtual void viewMoved() = 0;
};

class ViewWidget {
public:
    virtual ~ViewWidget() = default;

    /// What shows the active drawing. Children of it lie over the drawing; the focus goes back to it when they end.
    virtual QWidget& widget() = 0;
    /// From world coordinates to pixels of the widget, and back to the plane z = 0.
    virtual QPointF toPixels(const KdGePoint3d& world) const = 0;
    virtual KdGePoint3d toWorld(const QPointF& pixels) const = 0;
    /// Pixels for a drawing unit.
    virtual double scale() const = 0;
    /// What the drawing is painted on.
    virtual QColor paper() const = 0;

    /// Followers stay their makers'; each is told from its adding to its removal.
    virtual void addFollower(ViewFollower* follower) = 0;
    virtual void removeFollower(ViewFollower* follower) = 0;
};

/// Null where there is none, as in a run without a window.
ViewWidget* viewWidget();
/// Null for none. The widget stays the caller's.
void setViewWidget(ViewWidget* widget);

}  // namespace kdhost
