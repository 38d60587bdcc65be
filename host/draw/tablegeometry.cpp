// Where the rows and columns of a table lie.

#include "host/draw/tablegeometry.h"

#include <algorithm>

#include "host/db/tablelayout.h"
#include "host/db/tableplace.h"

namespace kdhost::draw {

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
