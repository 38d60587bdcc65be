// Where the editor lies: over the widget that shows the drawing, or, in a run without a window, on a sheet of its own
// as large as the view would be.
#pragma once

#include <QColor>
#include <QPointF>
#include <QSize>

#include "kd/ge/point3d.h"

class QWidget;

namespace kdhost {

class View;

class EditorPlace {
public:
    /// Of the active drawing. Null for no drawing, where no view exists either.
    explicit EditorPlace(const View* view) : m_view(view) {}

    /// The widget that the editor is a child of; null for none.
    QWidget* widget() const;
    /// The view's, in pixels.
    QSize size() const;
    QPointF toPixels(const KdGePoint3d& world) const;
    double pixelsPerUnit() const;
    /// What the drawing is painted on.
    QColor paper() const;

private:
    const View* m_view;
};

}  // namespace kdhost
