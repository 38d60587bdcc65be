// Pixels of the drawing's widget, or of the view.

#include "host/ui/inplaceeditor/editorplace.h"

#include <QWidget>

#include "host/ed/view.h"
#include "host/ed/viewwidget.h"

namespace kdhost {

QWidget* EditorPlace::widget() const {
    ViewWidget* shown = viewWidget();
    return shown == nullptr ? nullptr : &shown->widget();
}

QSize EditorPlace::size() const {
    if (const QWidget* over = widget()) return over->size();
    return QSizeF(m_view->shown().widthPixels(), m_view->shown().heightPixels()).toSize();
}

QPointF EditorPlace::toPixels(const KdGePoint3d& world) const {
    const ViewWidget* shown = viewWidget();
    return shown == nullptr ? m_view->shown().toPixels(world) : shown->toPixels(world);
}

double EditorPlace::pixelsPerUnit() const {
    const ViewWidget* shown = viewWidget();
    return shown == nullptr ? m_view->shown().scale() : shown->scale();
}

QColor EditorPlace::paper() const {
    const ViewWidget* shown = viewWidget();
    return shown == nullptr ? QColor(Qt::white) : shown->paper();
}

}  // namespace kdhost
