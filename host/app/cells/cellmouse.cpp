// From presses and moves to selections.

#include "host/app/cells/cellmouse.h"

#include <QCursor>
#include <QKeyEvent>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "host/ad/application.h"
#include "host/app/cells/cellactions.h"
#include "host/app/cells/indicators.h"
#include "host/db/access.h"
#include "host/db/cellranges.h"
#include "host/draw/tablegeometry.h"
#include "host/ed/editor.h"
#include "host/ed/picking.h"
#include "host/ed/viewwidget.h"
#include "kd/db/table.h"

namespace kdhost {
namespace {

const QColor kGripColor(0x4C, 0xA3, 0xFF);
const QColor kDragColor(230, 120, 0);

bool isShift(const ViewPoint& point) {
    return point.modifiers.testFlag(Qt::ShiftModifier);
}

/// The row or column between whose edges the place lies; the first or last one beyond them.
int indexAt(const std::vector<double>& edges, double place) {
    const auto behind = std::upper_bound(edges.begin(), edges.end(), place) - edges.begin() - 1;
    return std::clamp(static_cast<int>(behind), 0, static_cast<int>(edges.size()) - 2);
}

/// The cell of the table nearest to a place in its plane.
KdCellRange nearestCell(const KdDbTable& table, const KdGePoint3d& world) {
    const draw::TableGeometry geometry(table);
    const KdGeVector3d place = world - geometry.at(0.0, 0.0);
    const int row = indexAt(geometry.rowEdges(), place.dotProduct(geometry.next()));
    const int column = indexAt(geometry.columnEdges(), place.dotProduct(geometry.right()));
    return table.getMergeRange(row, column);
}

/// A window over the drawing may ask for the plain arrow.
Qt::CursorShape shapeWithoutPrompt() {
    Application* application = Application::current();
    const bool isPlain = application != nullptr && !application->applicationInterface().showsCross();
    return isPlain ? Qt::ArrowCursor : Qt::CrossCursor;
}

}  // namespace

void CellMouse::begin(Drag drag, KdDbObjectId table, const KdCellRange& anchor) {
    m_drag = drag;
    m_table = table;
    m_anchor = anchor;
}

void CellMouse::press(const ViewPoint& point) {
    Editor* editor = currentEditor();
    if (editor == nullptr) return;
    m_drag = Drag::Nothing;
    if (editor->promptKind() == PromptKind::Cells) return answerCells(*editor, point);
    const KdDbObjectId table = isIdle(*editor) ? soleTable(*editor) : KdDbObjectId::kNull;
    const bool taken = !table.isNull() && (beginGrip(*editor, table, point) || beginIndicator(*editor, table, point) ||
                                           beginCells(*editor, table, point));
    if (!taken) PromptInput::press(point);
}

bool CellMouse::beginGrip(Editor& editor, KdDbObjectId table, const ViewPoint& point) {
    const auto grip = gripAt(table, point.pixels, editor.view().shown());
    if (!grip) return false;
    begin(Drag::Grip, table, {});
    m_grip = *grip;
    m_gripTo = grip->place;
    return true;
}

bool CellMouse::beginIndicator(Editor& editor, KdDbObjectId id, const ViewPoint& point) {
    const auto line = indicatorAt(id, point.world);
    if (!line) return false;
    const KdCellRange anchor =
        isShift(point) ? joined(draw::shownSelection(*peek<KdDbTable>(id)), line->cells) : line->cells;
    begin(line->isRow ? Drag::Rows : Drag::Columns, id, anchor);
    dragOverCells(editor, id, m_anchor);
    return true;
}

bool CellMouse::beginCells(Editor& editor, KdDbObjectId id, const ViewPoint& point) {
    const auto cell = cellAt(editor, point.world);
    if (!cell || cell->table != id) return false;
    const auto* table = peek<KdDbTable>(id);
    const bool extends = isShift(point) && table->hasSubSelection();
    begin(Drag::Cells, id, extends ? draw::shownSelection(*table) : cell->range);
    dragOverCells(editor, id, joined(m_anchor, cell->range));
    return true;
}

/// A prompt for cells takes the cell that is clicked, or the rectangle that is dragged over.
void CellMouse::answerCells(Editor& editor, const ViewPoint& point) {
    const auto cell = cellAt(editor, point.world);
    if (cell) {
        begin(Drag::AnsweringCells, cell->table, cell->range);
    } else {
        editor.input().put(InputItem::Kind::Pick, point.world);
    }
}

KdCellRange CellMouse::rangeTo(const ViewPoint& point) const {
    const auto* table = peek<KdDbTable>(m_table);
    if (table == nullptr) return m_anchor;
    const KdCellRange range = joined(m_anchor, nearestCell(*table, point.world));
    if (m_drag == Drag::Rows) return wholeRows(*table, range);
    if (m_drag == Drag::Columns) return wholeColumns(*table, range);
    return range;
}

void CellMouse::extendTo(Editor& editor, const ViewPoint& point) {
    const auto* table = peek<KdDbTable>(m_table);
    const KdCellRange range = rangeTo(point);
    if (table != nullptr && table->getSubSelection() != range) dragOverCells(editor, m_table, range);
}

void CellMouse::move(const ViewPoint& point) {
    Editor* editor = currentEditor();
    if (editor == nullptr) return;
    switch (m_drag) {
        case Drag::Nothing:
            PromptInput::move(point);
            break;
        case Drag::Grip:
            m_gripTo = point.world;
            break;
        case Drag::AnsweringCells:
            break;
        default:
            extendTo(*editor, point);
    }
}

void CellMouse::release(const ViewPoint& point) {
    Editor* editor = currentEditor();
    const Drag ended = std::exchange(m_drag, Drag::Nothing);
    if (editor == nullptr) return;
    if (ended == Drag::Grip && point.world.distanceTo(m_grip.place) > 0.5 * gripPixels() * point.unitsPerPixel) {
        dragGrip(*editor, m_table, m_grip, point.world);
    } else if (ended == Drag::AnsweringCells) {
        const KdCellRange range = rangeTo(point);
        if (range == m_anchor) {
            editor->input().put(InputItem::Kind::Pick, point.world);
        } else {
            editor->input().put(CellsOfTable{m_table, range});
        }
    }
}

void CellMouse::doubleClick(const ViewPoint& point) {
    Editor* editor = currentEditor();
    if (editor == nullptr) return;
    m_drag = Drag::Nothing;
    if (!isIdle(*editor) || !doubleClickAt(*editor, point.world)) press(point);
}

void CellMouse::context(const ViewPoint& point) {
    Editor* editor = currentEditor();
    if (editor == nullptr) return;
    if (!isIdle(*editor)) return PromptInput::context(point);
    if (!selectForMenu(*editor, point.world)) return;
    ViewWidget* widget = viewWidget();
    const QPoint place = widget == nullptr ? QCursor::pos() : widget->widget().mapToGlobal(point.pixels.toPoint());
    showContextMenu(*editor, place);
}

bool CellMouse::key(const QKeyEvent& event) {
    Editor* editor = currentEditor();
    return editor != nullptr && sendKeyToCells(*editor, event.key(), event.modifiers(), event.text());
}

void CellMouse::paintOver(QPainter& painter, const draw::View& view) {
    const Editor* editor = currentEditor();
    if (editor == nullptr) return;
    const double half = 0.5 * gripPixels();
    for (KdDbObjectId id : editor->pickFirst().objects()) {
        for (const Grip& grip : gripsOf(id, view)) {
            const QPointF place = view.toPixels(grip.place);
            painter.fillRect(QRectF(place.x() - half, place.y() - half, gripPixels(), gripPixels()), kGripColor);
        }
    }
    const auto* table = m_drag == Drag::Grip ? peek<KdDbTable>(m_table) : nullptr;
    if (table == nullptr) return;
    QPolygonF line;
    for (const KdGePoint3d& corner : draggedLine(*table, m_grip, m_gripTo)) line << view.toPixels(corner);
    painter.setPen(QPen(kDragColor, 0.0, Qt::DashLine));
    painter.drawPolyline(line);
}

Qt::CursorShape CellMouse::cursorAt(const ViewPoint& point) {
    const Editor* editor = currentEditor();
    if (editor == nullptr || !isIdle(*editor)) return Qt::CrossCursor;
    const KdDbObjectId table = soleTable(*editor);
    if (table.isNull()) return shapeWithoutPrompt();
    const auto grip =
        m_drag == Drag::Grip ? std::optional(m_grip) : gripAt(table, point.pixels, editor->view().shown());
    if (!grip) return shapeWithoutPrompt();
    if (grip->kind == Grip::Kind::Move) return Qt::SizeAllCursor;
    return grip->kind == Grip::Kind::Column ? Qt::SplitHCursor : Qt::SplitVCursor;
}

}  // namespace kdhost
