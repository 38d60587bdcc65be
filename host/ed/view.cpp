// The view's conversions between pixels and drawing.

#include "host/ed/view.h"

#include <algorithm>

#include "host/ed/editor.h"
#include "host/rx/faults.h"

KdadViewport::~KdadViewport() = default;
KdadGsView::~KdadGsView() = default;
KdadDwgView::~KdadDwgView() = default;

namespace kdhost {
namespace {

constexpr int kStartWidth = 1600;
constexpr int kStartHeight = 1000;
// A new drawing shows a sheet of 420 by 297 units whole.
constexpr double kSheetWidth = 420.0;
constexpr double kSheetHeight = 297.0;
constexpr double kMargin = 1.05;
constexpr double kSmallestUnitsPerPixel = 1e-9;

}  // namespace

View::View() : m_width(kStartWidth), m_height(kStartHeight), m_unitsPerPixel(1.0) {
    zoomTo({{0.0, 0.0, 0.0}, {kSheetWidth, kSheetHeight, 0.0}});
}

void View::worldToScreen(KdGePoint3d& point) const {
    point.x = m_width / 2.0 + (point.x - m_center.x) / m_unitsPerPixel;
    point.y = m_height / 2.0 - (point.y - m_center.y) / m_unitsPerPixel;
}

void View::screenToWorld(KdGePoint3d& point) const {
    point.x = m_center.x + (point.x - m_width / 2.0) * m_unitsPerPixel;
    point.y = m_center.y - (point.y - m_height / 2.0) * m_unitsPerPixel;
}

KdadViewport* View::getKdadViewport() const {
    // The viewport's operations change nothing; the contract hands it out without const.
    return const_cast<View*>(this);
}

void View::screenToClient(int& x, int& y) const {
    x -= m_originX;
    y -= m_originY;
}

void View::setSize(int width, int height) {
    m_width = std::max(width, 1);
    m_height = std::max(height, 1);
}

void View::setOrigin(int x, int y) {
    m_originX = x;
    m_originY = y;
}

void View::zoomTo(const KdDbExtents& box) {
    if (!box.isValid()) return;
    const KdGeVector3d size = box.maxPoint() - box.minPoint();
    m_center = box.minPoint() + size / 2.0;
    m_center.z = 0.0;
    const double needed = std::max(size.x / m_width, size.y / m_height) * kMargin;
    if (needed > kSmallestUnitsPerPixel) m_unitsPerPixel = needed;
}

void View::zoomBy(double factor) {
    if (factor > 0.0) m_unitsPerPixel = std::max(m_unitsPerPixel / factor, kSmallestUnitsPerPixel);
}

KdDbExtents View::shown() const {
    const KdGeVector3d half{m_width * m_unitsPerPixel / 2.0, m_height * m_unitsPerPixel / 2.0, 0.0};
    return {m_center - half, m_center + half};
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
