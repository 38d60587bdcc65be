// The widget that shows the active drawing.
//
// The drawing is painted into a picture once and again when it changes; the cross, what is dragged and marks of the
// selection are painted over the picture, so that a move of the mouse costs no drawing.

#include "host/app/window/drawingview.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "host/db/access.h"
#include "host/draw/screen.h"
#include "host/ed/display.h"
#include "host/ed/drawingoptions.h"
#include "host/ed/editor.h"
#include "host/ed/picking.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/table.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {
namespace {

/// One notch of a wheel.
constexpr double kZoomStep = 1.25;
constexpr double kNotch = 120.0;
/// Arms of the cross, and the square in its middle, in pixels at scale 1.
constexpr double kCrossArm = 56.0;

const QColor kCross(0xD5, 0xDB, 0xE2, 0xD0);
const QColor kSelected(0x4C, 0xA3, 0xFF);

double screenScale() {
    return kdadGetDPIScale();
}

draw::PaintDevice screenDevice() {
    return draw::screenDevice(screenScale());
}

draw::Visible visibleIn(const draw::View& view) {
    const KdGePoint3d low = view.toWorld({0.0, view.heightPixels()});
    const KdGePoint3d high = view.toWorld({view.widthPixels(), 0.0});
    return {low.x, low.y, high.x, high.y, 1.0 / view.scale()};
}

draw::Options optionsFor(const draw::View& view) {
    draw::Options options = drawingOptions();
    options.selections = true;
    options.visible = visibleIn(view);
    return options;
}

}  // namespace

DrawingView::DrawingView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("DrawingView"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setMinimumSize(160, 120);
    setCursor(Qt::BlankCursor);
}

DrawingView::~DrawingView() {
    if (viewWidget() == this) setViewWidget(nullptr);
}

QSize DrawingView::sizeHint() const {
    return {960, 600};
}

draw::View* DrawingView::shown() const {
    Editor* editor = currentEditor();
    return editor == nullptr ? nullptr : &editor->view().shown();
}

void DrawingView::place(Editor& editor) const {
    const QPoint origin = mapToGlobal(QPoint(0, 0));
    editor.view().setOrigin(origin.x(), origin.y());
    editor.view().setScreenScale(screenScale());
    editor.view().shown().resize(width(), height());
}

void DrawingView::showActive() {
    if (Editor* editor = currentEditor()) place(*editor);
    m_scale = 0.0;  // what followers know is of another drawing, perhaps
    redraw();
}

void DrawingView::redraw() {
    m_isStale = true;
    update();
    tellFollowers();
}

/// A command may have zoomed, too; so what is shown now is compared with what was.
void DrawingView::tellFollowers() {
    const KdGePoint3d corner = toWorld({0.0, 0.0});
    if (corner.isEqualTo(m_corner, 0.0) && scale() == m_scale) return;
    m_corner = corner;
    m_scale = scale();
    const std::vector<ViewFollower*> followers = m_followers;
    for (ViewFollower* follower : followers) follower->viewMoved();
}

void DrawingView::zoomExtents() {
    Editor* editor = currentEditor();
    if (editor == nullptr) return;
    editor->zoomToDrawing();
    redraw();
}

QPointF DrawingView::toPixels(const KdGePoint3d& world) const {
    const draw::View* view = shown();
    return view == nullptr ? QPointF() : view->toPixels(world);
}

KdGePoint3d DrawingView::toWorld(const QPointF& pixels) const {
    const draw::View* view = shown();
    return view == nullptr ? KdGePoint3d() : view->toWorld(pixels);
}

QColor DrawingView::paper() const {
    return draw::screenPaper();
}

double DrawingView::scale() const {
    const draw::View* view = shown();
    return view == nullptr ? 1.0 : view->scale();
}

void DrawingView::removeFollower(ViewFollower* follower) {
    std::erase(m_followers, follower);
}

// --- Painting

void DrawingView::paintDrawing() {
    if (m_picture.size() != size()) m_picture = QPixmap(size());
    m_picture.fill(draw::screenPaper());
    const Editor* editor = currentEditor();
    if (editor == nullptr) return;
    const draw::View& view = editor->view().shown();
    QPainter painter(&m_picture);
    paintPrimitives(painter, primitivesOf(editor->database(), optionsFor(view)), view, screenDevice());
}

void DrawingView::paintEvent(QPaintEvent*) {
    // A window's frame may come after its place has been told.
    if (Editor* editor = currentEditor()) place(*editor);
    if (m_isStale || m_picture.size() != size()) paintDrawing();
    m_isStale = false;
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    const draw::View* view = shown();
    if (view == nullptr) return;
    paintSelected(painter);
    paintDragged(painter);
    if (m_input != nullptr) {
        painter.save();
        m_input->paintOver(painter, *view);
        painter.restore();
    }
    if (m_hasMouse && m_hasCross && !m_pans) paintCross(painter);
}

void DrawingView::paintDragged(QPainter& painter) const {
    const KdDbEntity* dragged = draggedEntity();
    if (dragged == nullptr) return;
    painter.save();
    paintPrimitives(painter, primitivesOf(*dragged, optionsFor(*shown())), *shown(), screenDevice());
    painter.restore();
}

/// Objects that are selected stand in a dashed frame, lines are dashed themselves. Selected cells have marks of their
/// own.
void DrawingView::paintSelected(QPainter& painter) const {
    const Editor& editor = *currentEditor();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QPen pen(kSelected, std::max(std::round(screenScale()), 1.0), Qt::DashLine);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    for (KdDbObjectId id : editor.pickFirst().objects()) {
        const auto* entity = peek<KdDbEntity>(id);
        if (entity == nullptr) continue;
        if (entity->isKindOf(KdDbLine::desc())) {
            const auto& line = static_cast<const KdDbLine&>(*entity);
            painter.drawLine(toPixels(line.startPoint()), toPixels(line.endPoint()));
            continue;
        }
        const bool hasCells =
            entity->isKindOf(KdDbTable::desc()) && static_cast<const KdDbTable&>(*entity).hasSubSelection();
        const KdDbExtents box = entity->getGeomExtents();
        if (hasCells || !box.isValid()) continue;
        painter.drawRect(QRectF(toPixels(box.minPoint()), toPixels(box.maxPoint())).normalized());
    }
    painter.restore();
}

void DrawingView::paintCross(QPainter& painter) const {
    const double pick = halfPickBox(currentEditor()->view());
    const double arm = kCrossArm * screenScale();
    const double width = std::max(std::round(screenScale()), 1.0);
    const QPointF at(std::floor(m_mouse.x()) + 0.5, std::floor(m_mouse.y()) + 0.5);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(kCross, width));
    painter.setBrush(Qt::NoBrush);
    for (const double side : {-1.0, 1.0}) {
        painter.drawLine(at + QPointF(side * pick, 0.0), at + QPointF(side * arm, 0.0));
        painter.drawLine(at + QPointF(0.0, side * pick), at + QPointF(0.0, side * arm));
    }
    painter.drawRect(QRectF(at.x() - pick, at.y() - pick, 2.0 * pick, 2.0 * pick));
}

// --- Place on the screen

void DrawingView::resizeEvent(QResizeEvent*) {
    showActive();
}

void DrawingView::moveEvent(QMoveEvent*) {
    showActive();
}

// --- The mouse

ViewPoint DrawingView::pointAt(const QMouseEvent& event) const {
    ViewPoint point;
    point.pixels = event.localPos();
    point.world = toWorld(point.pixels);
    point.unitsPerPixel = 1.0 / scale();
    point.modifiers = event.modifiers();
    point.buttons = event.buttons();
    return point;
}

void DrawingView::wheelEvent(QWheelEvent* event) {
    draw::View* view = shown();
    if (view == nullptr) return;
    view->zoom(std::pow(kZoomStep, event->angleDelta().y() / kNotch), event->position());
    redraw();
}

void DrawingView::pan(const QPointF& to) {
    const QPointF step = to - m_mouse;
    if (draw::View* view = shown()) view->pan(step.x(), step.y());
    redraw();
}

void DrawingView::setShape(Qt::CursorShape shape) {
    m_hasCross = shape == Qt::CrossCursor;
    const Qt::CursorShape wanted = m_hasCross ? Qt::BlankCursor : shape;
    if (cursor().shape() != wanted) setCursor(wanted);
}

void DrawingView::mousePressEvent(QMouseEvent* event) {
    if (Editor* editor = currentEditor()) place(*editor);
    if (event->button() == Qt::MiddleButton) {
        m_pans = true;
        m_mouse = event->localPos();
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::RightButton) {
        m_contextPressed = event->pos();
    } else if (event->button() == Qt::LeftButton && m_input != nullptr) {
        setFocus(Qt::MouseFocusReason);
        m_input->press(pointAt(*event));
    }
    update();
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        m_pans = false;
        setCursor(m_hasCross ? Qt::BlankCursor : Qt::ArrowCursor);
    } else if (event->button() == Qt::RightButton) {
        const bool moved = (event->pos() - m_contextPressed).manhattanLength() >= QApplication::startDragDistance();
        if (!moved && m_input != nullptr) m_input->context(pointAt(*event));
    } else if (event->button() == Qt::LeftButton && m_input != nullptr) {
        m_input->release(pointAt(*event));
    }
    update();
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        zoomExtents();
    } else if (event->button() == Qt::LeftButton && m_input != nullptr) {
        m_input->doubleClick(pointAt(*event));
    } else {
        mousePressEvent(event);
    }
}

void DrawingView::mouseMoveEvent(QMouseEvent* event) {
    if (m_pans) pan(event->localPos());
    m_mouse = event->localPos();
    m_hasMouse = true;
    const ViewPoint point = pointAt(*event);
    if (m_cursorListener) m_cursorListener(point.world);
    if (!m_pans && m_input != nullptr) {
        setShape(m_input->cursorAt(point));
        m_input->move(point);
    }
    update();
}

void DrawingView::leaveEvent(QEvent*) {
    m_hasMouse = false;
    if (m_input != nullptr) m_input->leave();
    update();
}

}  // namespace kdhost
