// Places of grips, and what dragging them does.

#include "host/app/cells/grips.h"

#include <algorithm>
#include <cmath>

#include "host/db/access.h"
#include "host/db/opened.h"
#include "host/db/undo.h"
#include "host/draw/tablegeometry.h"
#include "host/ed/commandline.h"
#include "host/ed/display.h"
#include "host/ed/editor.h"
#include "host/ed/words.h"
#include "kd/db/line.h"
#include "kd/db/table.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {
namespace {

using draw::TableGeometry;

constexpr Words kOnLockedLayer{L"\nThe table lies on a locked layer.", L"\n表格位于锁定的图层上。"};
constexpr Words kCantBeChanged{L"\nThe table can't be changed now.", L"\n现在无法更改该表格。"};

constexpr double kGripPixels = 9.0;  // at scale 1

/// Grips nearer to each other would run into one bar.
constexpr double kLeastDistanceInGrips = 1.5;

double distance(const QPointF& a, const QPointF& b) {
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

/// Takes grips one after another, and those that stand clear of the one before.
class GripList {
public:
    explicit GripList(const draw::View& view) : m_view(view) {}
    void add(const Grip& grip) {
        const QPointF pixels = m_view.toPixels(grip.place);
        if (!m_grips.empty() && distance(pixels, m_last) < kLeastDistanceInGrips * gripPixels()) return;
        m_last = pixels;
        m_grips.push_back(grip);
    }
    /// What follows stands in a row with this place.
    void continueFrom(const KdGePoint3d& place) { m_last = m_view.toPixels(place); }
    std::vector<Grip> take() { return std::move(m_grips); }

private:
    const draw::View& m_view;
    QPointF m_last;
    std::vector<Grip> m_grips;
};

/// At the position, above each column's far edge and beside each row's.
void addOfTable(const TableGeometry& geometry, GripList& grips) {
    grips.add({Grip::Kind::Move, 0, geometry.at(0.0, 0.0)});
    for (int column = 0; column < geometry.columns(); ++column) {
        grips.add({Grip::Kind::Column, column, geometry.at(geometry.columnEdge(column + 1), 0.0)});
    }
    grips.continueFrom(geometry.at(0.0, 0.0));
    for (int row = 0; row < geometry.rows(); ++row) {
        grips.add({Grip::Kind::Row, row, geometry.at(0.0, geometry.rowEdge(row + 1))});
    }
}

/// In the middle of each side. The first column has no edge to drag on its left, the first row none above.
void addAroundCells(const TableGeometry& geometry, const KdCellRange& cells, GripList& grips) {
    const int top = cells.m_topRow;
    const int bottom = cells.m_bottomRow + 1;
    const int left = cells.m_leftColumn;
    const int right = cells.m_rightColumn + 1;
    const double along = 0.5 * (geometry.columnEdge(left) + geometry.columnEdge(right));
    const double next = 0.5 * (geometry.rowEdge(top) + geometry.rowEdge(bottom));
    if (left > 0) grips.add({Grip::Kind::Column, left - 1, geometry.at(geometry.columnEdge(left), next)});
    grips.add({Grip::Kind::Column, right - 1, geometry.at(geometry.columnEdge(right), next)});
    if (top > 0) grips.add({Grip::Kind::Row, top - 1, geometry.at(along, geometry.rowEdge(top))});
    grips.add({Grip::Kind::Row, bottom - 1, geometry.at(along, geometry.rowEdge(bottom))});
}

void addOfEntity(const KdDbEntity& entity, GripList& grips) {
    if (const auto* line = dynamic_cast<const KdDbLine*>(&entity)) {
        grips.add({Grip::Kind::Show, 0, line->startPoint()});
        grips.add({Grip::Kind::Show, 0, line->endPoint()});
        return;
    }
    const KdDbExtents box = entity.getGeomExtents();
    if (!box.isValid()) return;
    const KdGePoint3d low = box.minPoint();
    const KdGePoint3d high = box.maxPoint();
    for (const KdGePoint3d& corner : {low, {high.x, low.y, low.z}, high, {low.x, high.y, low.z}}) {
        grips.add({Grip::Kind::Show, 0, corner});
    }
}

/// How far a place lies from the near edge of the grip's column or row.
double sizeAt(const TableGeometry& geometry, const Grip& grip, const KdGePoint3d& to) {
    const bool column = grip.kind == Grip::Kind::Column;
    const double edge = column ? geometry.columnEdge(grip.index) : geometry.rowEdge(grip.index);
    const KdGeVector3d fromOrigin = to - geometry.at(0.0, 0.0);
    return fromOrigin.dotProduct(column ? geometry.right() : geometry.next()) - edge;
}

/// The size that the drag gives, never below what the content needs.
double newSize(const KdDbTable& table, const TableGeometry& geometry, const Grip& grip, const KdGePoint3d& to) {
    const bool column = grip.kind == Grip::Kind::Column;
    const double least = column ? table.minimumColumnWidth(grip.index) : table.minimumRowHeight(grip.index);
    return std::max(least, sizeAt(geometry, grip, to));
}

void carryOut(KdDbTable& table, const Grip& grip, const KdGePoint3d& to) {
    const TableGeometry geometry(table);
    switch (grip.kind) {
        case Grip::Kind::Move:
            table.setPosition(table.position() + (to - grip.place));
            break;
        case Grip::Kind::Column:
            table.setColumnWidth(grip.index, newSize(table, geometry, grip, to));
            break;
        case Grip::Kind::Row:
            table.setRowHeight(grip.index, newSize(table, geometry, grip, to));
            break;
        case Grip::Kind::Show:
            break;
    }
}

}  // namespace

double gripPixels() {
    return kGripPixels * kdadGetDPIScale();
}

std::vector<Grip> gripsOf(KdDbObjectId id, const draw::View& view) {
    GripList grips(view);
    const auto* entity = peek<KdDbEntity>(id);
    const auto* table = peek<KdDbTable>(id);
    if (table == nullptr) {
        if (entity != nullptr) addOfEntity(*entity, grips);
    } else if (table->hasSubSelection()) {
        addAroundCells(TableGeometry(*table), draw::shownSelection(*table), grips);
    } else {
        addOfTable(TableGeometry(*table), grips);
    }
    return grips.take();
}

std::optional<Grip> gripAt(KdDbObjectId id, const QPointF& pixels, const draw::View& view) {
    for (const Grip& grip : gripsOf(id, view)) {
        const QPointF away = view.toPixels(grip.place) - pixels;
        const bool hit = std::max(std::abs(away.x()), std::abs(away.y())) <= 0.5 * gripPixels();
        if (hit && grip.kind != Grip::Kind::Show) return grip;
    }
    return std::nullopt;
}

std::vector<KdGePoint3d> draggedLine(const KdDbTable& table, const Grip& grip, const KdGePoint3d& to) {
    const TableGeometry geometry(table);
    const double width = geometry.columnEdge(geometry.columns());
    const double height = geometry.rowEdge(geometry.rows());
    switch (grip.kind) {
        case Grip::Kind::Column: {
            const double along = geometry.columnEdge(grip.index) + newSize(table, geometry, grip, to);
            return {geometry.at(along, 0.0), geometry.at(along, height)};
        }
        case Grip::Kind::Row: {
            const double next = geometry.rowEdge(grip.index) + newSize(table, geometry, grip, to);
            return {geometry.at(0.0, next), geometry.at(width, next)};
        }
        case Grip::Kind::Move: {
            const KdGeVector3d by = to - grip.place;
            std::vector<KdGePoint3d> outline{geometry.at(0.0, 0.0), geometry.at(width, 0.0), geometry.at(width, height),
                                             geometry.at(0.0, height), geometry.at(0.0, 0.0)};
            for (KdGePoint3d& corner : outline) corner += by;
            return outline;
        }
        case Grip::Kind::Show:
            break;
    }
    return {};
}

void dragGrip(Editor& editor, KdDbObjectId id, const Grip& grip, const KdGePoint3d& to) {
    {
        const UndoCommandScope undo(&editor.database(), L"GRIP_EDIT");
        const Opened<KdDbTable> table(id, KdDb::kForWrite);
        if (!table) {
            const bool locked = table.status() == Kdad::eOnLockedLayer;
            return commandLine().write((locked ? kOnLockedLayer : kCantBeChanged).text());
        }
        carryOut(*table, grip, to);
    }
    updateDisplay();
}

}  // namespace kdhost
