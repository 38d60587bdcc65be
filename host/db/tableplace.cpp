// Where a table and its cells lie in the world, and which cell lies at a point.
//
// A table has coordinates of its own: along its rows, from the position in the table's direction, and across
// them, from the position towards the last row. With flow 0 the rows run against the y axis of the table's
// plane, else along it.

#include "host/db/tableplace.h"

#include <algorithm>
#include <cmath>

#include "host/db/similarity.h"
#include "host/db/tablelayout.h"

using namespace kdhost;

namespace {

/// A point in the table's own coordinates.
struct PlanePoint {
    double along = 0.0;
    double across = 0.0;
};

/// Where the line of sight through the point meets the table's plane; false when it runs along the plane.
bool project(const TableAxes& axes, const KdGePoint3d& point, const KdGeVector3d& view, PlanePoint& result) {
    KdGeVector3d offset = point - axes.origin;
    const double slope = view.dotProduct(axes.normal);
    const double height = offset.dotProduct(axes.normal);
    if (std::abs(slope) < 1e-10) {
        if (std::abs(height) > 1e-10) return false;
    } else {
        offset -= view * (height / slope);
    }
    result = {offset.dotProduct(axes.along), offset.dotProduct(axes.across)};
    return true;
}

/// Index of the span that holds the place; a place outside by less than `reach` counts for the nearest span,
/// -1 tells that it lies further out.
int spanAt(const std::vector<double>& edges, double place, double reach) {
    const int count = static_cast<int>(edges.size()) - 1;
    if (count <= 0 || place < edges.front() - reach || place > edges.back() + reach) return -1;
    const auto behind = std::upper_bound(edges.begin(), edges.end(), place);
    return std::clamp(static_cast<int>(behind - edges.begin()) - 1, 0, count - 1);
}

/// Whether the place lies in the band of that width before the first edge.
bool inBand(double place, double width) {
    return place < 0.0 && place >= -width;
}

double sizeOfIndicators(const TableState& state) {
    return 2.0 * state.styles.record(CellStylePool::kData).format.textHeight;
}

}  // namespace

int kdhost::flowOf(const TableState& state) {
    return state.flow.value_or(state.styles.flow());
}

TableAxes kdhost::axesOf(const TableState& state) {
    TableAxes axes;
    axes.origin = state.position;
    axes.normal = usableNormal(state.normal);
    axes.along = state.direction - axes.normal * state.direction.dotProduct(axes.normal);
    // A direction that says nothing in the plane leaves the plane's own x axis.
    if (axes.along.isZeroLength()) axes.along = KdGeMatrix3d::planeToWorld(axes.normal) * KdGeVector3d(1.0, 0.0, 0.0);
    axes.along.normalize();
    axes.up = axes.normal.crossProduct(axes.along);
    axes.across = flowOf(state) == 0 ? -axes.up : axes.up;
    return axes;
}

void KdDbTable::setNormal(const KdGeVector3d& normal) {
    KdDbBlockReference::setNormal(normal);
}

KdGePoint3d KdDbTable::position() const {
    return tableState(*this).position;
}

void KdDbTable::setPosition(const KdGePoint3d& position) {
    KdDbBlockReference::setPosition(position);
}

KdGeVector3d KdDbTable::direction() const {
    return tableState(*this).direction;
}

void KdDbTable::setDirection(const KdGeVector3d& direction) {
    if (TableState* state = writableStateOf<TableState>(*this)) state->direction = direction;
}

double KdDbTable::rotation() const {
    const TableAxes axes = axesOf(tableState(*this));
    const KdGeVector3d planeX = KdGeMatrix3d::planeToWorld(axes.normal) * KdGeVector3d(1.0, 0.0, 0.0);
    return planeX.angleTo(axes.along, axes.normal);
}

void KdDbTable::getCellExtents(int row, int column, bool outer, KdGePoint3dArray& points) const {
    const TableState& state = tableState(*this);
    KdCellRange target;
    if (!targetOf(state, row, column, target)) return;
    const KdCellRange cell = state.mergeOf(target.m_topRow, target.m_leftColumn);
    const auto edge = [](const std::vector<double>& edges, int index) {
        return edges[static_cast<std::size_t>(index)];
    };
    const double marginHorz = outer ? 0.0 : margin(row, column, KdDb::kCellMarginLeft);
    const double marginVert = outer ? 0.0 : margin(row, column, KdDb::kCellMarginTop);
    const double first = edge(rowPositions(*this), cell.m_topRow) + marginVert;
    const double last = edge(rowPositions(*this), cell.m_bottomRow + 1) - marginVert;
    // The top is the upper side of the cell as it is read, where the first row stands lowest, too.
    const bool upwards = flowOf(state) != 0;
    const double top = upwards ? last : first;
    const double bottom = upwards ? first : last;
    const double left = edge(columnPositions(*this), cell.m_leftColumn) + marginHorz;
    const double right = edge(columnPositions(*this), cell.m_rightColumn + 1) - marginHorz;
    const TableAxes axes = axesOf(state);
    points.append(axes.at(left, top));
    points.append(axes.at(right, top));
    points.append(axes.at(left, bottom));
    points.append(axes.at(right, bottom));
}

bool KdDbTable::hitTestCell(const KdGePoint3d& point, const KdGeVector3d& viewDirection, double apertureWidth,
                            double apertureHeight, int& row, int& column) const {
    const TableState& state = tableState(*this);
    PlanePoint place;
    if (!project(axesOf(state), point, viewDirection, place)) return false;
    const int hitRow = spanAt(rowPositions(*this), place.across, apertureHeight / 2.0);
    const int hitColumn = spanAt(columnPositions(*this), place.along, apertureWidth / 2.0);
    if (hitRow < 0 || hitColumn < 0) return false;
    const KdCellRange cell = state.mergeOf(hitRow, hitColumn);
    row = cell.m_topRow;
    column = cell.m_leftColumn;
    return true;
}

bool KdDbTable::hitTest(const KdGePoint3d& point, const KdGeVector3d& viewDirection, double apertureWidth,
                        double apertureHeight, int& row, int& column, int& content, KdDb::TableHitItem& item) const {
    const TableState& state = tableState(*this);
    PlanePoint place;
    if (!project(axesOf(state), point, viewDirection, place)) return false;
    const int hitRow = spanAt(rowPositions(*this), place.across, 0.0);
    const int hitColumn = spanAt(columnPositions(*this), place.along, 0.0);
    const double band = sizeOfIndicators(state);
    const auto answer = [&](int r, int c, KdDb::TableHitItem what) {
        row = r;
        column = c;
        content = 0;
        item = what;
        return true;
    };
    if (hitRow >= 0 && hitColumn < 0 && inBand(place.along, band))
        return answer(hitRow, 0, KdDb::kTableHitRowIndicator);
    if (hitColumn >= 0 && hitRow < 0 && inBand(place.across, band)) {
        return answer(0, hitColumn, KdDb::kTableHitColumnIndicator);
    }
    int cellRow = 0;
    int cellColumn = 0;
    if (!hitTestCell(point, viewDirection, apertureWidth, apertureHeight, cellRow, cellColumn)) return false;
    return answer(cellRow, cellColumn, KdDb::kTableHitCell);
}

KdDbExtents KdDbTable::getGeomExtents() const {
    KdDbExtents extents;
    if (numRows() == 0 || numColumns() == 0) return extents;
    const TableAxes axes = axesOf(tableState(*this));
    const double width = columnPositions(*this).back();
    const double height = rowPositions(*this).back();
    for (const double along : {0.0, width}) {
        for (const double across : {0.0, height}) extents.addPoint(axes.at(along, across));
    }
    return extents;
}

namespace {

/// Sizes of rows, columns, texts and margins, scaled: what the table looks like from nearer or farther.
void scaleSizes(TableState& state, OverrideMemo& memo, double factor) {
    for (double& width : state.columnWidths) width *= factor;
    for (int row = 0; row < state.rowCount(); ++row) {
        state.rows.setHeight(row, state.rows[row].height * factor);
        for (int column = 0; column < state.columnCount(); ++column) {
            CellLook& look = state.rows.writeLook(row, column);
            for (const auto& size : {property::textHeight, property::marginHorz, property::marginVert}) {
                memo.set(look, Override{size, effective(state, &look, size) * factor});
            }
            if (state.content(row, column).objects) {
                state.rows.writeContent(row, column).objects.write().blockScale *= factor;
            }
        }
    }
    state.touchLayout();
}

}  // namespace

Kdad::ErrorStatus KdDbTable::transformBy(const KdGeMatrix3d& matrix) {
    const std::optional<double> factor = evenScale(matrix);
    if (!factor) return Kdad::eInvalidInput;
    TableState* state = editTable(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    const TableAxes axes = axesOf(*state);
    state->position = matrix * state->position;
    state->direction = (matrix * axes.along).normalize();
    state->normal = (matrix * axes.normal).normalize();
    if (std::abs(*factor - 1.0) > 1e-12) scaleSizes(*state, m_transient->overrideMemo, *factor);
    return Kdad::eOk;
}
