// The view's conversions between pixels and drawing.

#include "host/ed/view.h"

#include "host/ed/editor.h"
#include "host/rx/faults.h"

KdadViewport::~KdadViewport() = default;
KdadGsView::~KdadGsView() = default;
KdadDwgView::~KdadDwgView() = default;

namespace kdhost {
namespace {

constexpr double kStartWidth = 1600.0;
constexpr double kStartHeight = 1000.0;
constexpr double kSheetWidth = 420.0;
constexpr double kSheetHeight = 297.0;
constexpr double kMarginPixels = 20.0;

}  // namespace

View::View() : m_shown(kStartWidth, kStartHeight) {
    zoomToSheet();
}

void View::zoomToSheet() {
    zoomTo({{0.0, 0.0, 0.0}, {kSheetWidth, kSheetHeight, 0.0}});
}

void View::zoomTo(const KdDbExtents& box) {
    m_shown.zoomExtents(box, kMarginPixels * m_screenScale);
}

void View::zoomBy(double factor) {
    m_shown.zoom(factor, {m_shown.widthPixels() / 2.0, m_shown.heightPixels() / 2.0});
}

void View::setOrigin(int x, int y) {
    m_originX = x;
    m_originY = y;
}

void View::worldToScreen(KdGePoint3d& point) const {
    const QPointF pixels = m_shown.toPixels(point);
    point.set(pixels.x(), pixels.y(), point.z);
}

void View::screenToWorld(KdGePoint3d& point) const {
    const double depth = point.z;
    point = m_shown.toWorld({point.x, point.y});
    point.z = depth;
}

KdadViewport* View::getKdadViewport() const {
    // The viewport's operations change nothing; the contract hands it out without const.
    return const_cast<View*>(this);
}

void View::screenToClient(int& x, int& y) const {
    x -= m_originX;
    y -= m_originY;
}

}  // namespace kdhost

KdadDwgView* kdedGetKdadDwgView() {
    kdhost::Editor* editor = kdhost::currentEditor();
    return editor == nullptr || kdhost::faults().noView ? nullptr : &editor->view();
}

KdadGsView* kdadGetActiveGsView() {
    kdhost::Editor* editor = kdhost::currentEditor();
    return editor == nullptr || kdhost::faults().noView ? nullptr : &editor->view();
}
