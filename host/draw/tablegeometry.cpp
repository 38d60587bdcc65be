// Where the rows and columns of a table lie.

#include "host/draw/tablegeometry.h"

#include <algorithm>
#include <utility>

#include "host/db/tablelayout.h"
#include "host/db/tableplace.h"

namespace kdhost::draw {
namespace {

/// A range of rows or columns as selected: negative for all of them, in either order, inside the table.
std::pair<int, int> clamped(int first, int last, int count) {
    if (first < 0 && last < 0) return {0, count - 1};
    if (first > last) std::swap(first, last);
    return {std::clamp(first, 0, count - 1), std::clamp(last, 0, count - 1)};
}

}  // namespace

KdCellRange shownSelection(const KdDbTable& table) {
    const KdCellRange range = table.getSubSelection();
    const auto [top, bottom] = clamped(range.m_topRow, range.m_bottomRow, table.numRows());
    const auto [left, right] = clamped(range.m_leftColumn, range.m_rightColumn, table.numColumns());
    return tableState(table).grownToMerges({top, left, bottom, right});
}

TableGeometry::TableGeometry(const KdDbTable& table)
    : m_columnEdges(columnPositions(table)), m_rowEdges(rowPositions(table)) {
    const TableAxes axes = axesOf(tableState(table));
    m_origin = axes.origin;
    m_right = axes.along;
    m_up = axes.up;
    m_normal = axes.normal;
    m_rowSign = flowOf(tableState(table)) == 0 ? -1.0 : 1.0;
}

CellBox TableGeometry::box(const KdCellRange& range) const {
    const double first = m_rowSign * rowEdge(range.m_topRow);
    const double last = m_rowSign * rowEdge(range.m_bottomRow + 1);
    return {columnEdge(range.m_leftColumn), columnEdge(range.m_rightColumn + 1), std::min(first, last),
            std::max(first, last)};
}

}  // namespace kdhost::draw
