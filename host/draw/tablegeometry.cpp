// Where the rows and columns of a table lie.

#include "host/draw/tablegeometry.h"

#include <algorithm>

#include "kd/db/table.h"

namespace kdhost::draw {
namespace {

/// Unit vector of `wish` in the plane of `normal`; the x axis where the wish has no part in the plane.
KdGeVector3d inPlaneOf(const KdGeVector3d& normal, const KdGeVector3d& wish) {
    const KdGeVector3d flat = wish - normal * wish.dotProduct(normal);
    return flat.isZeroLength() ? KdGeMatrix3d::planeToWorld(normal) * KdGeVector3d::kXAxis : flat.normal();
}

}  // namespace

TableGeometry::TableGeometry(const KdDbTable& table)
    : m_origin(table.position()), m_rowSign(table.flowDirection() == 0 ? -1.0 : 1.0) {
    m_normal = table.normal().isZeroLength() ? KdGeVector3d::kZAxis : table.normal().normal();
    m_right = inPlaneOf(m_normal, table.direction());
    m_up = m_normal.crossProduct(m_right);
    m_columnEdges.push_back(0.0);
    for (int column = 0; column < table.numColumns(); ++column) {
        m_columnEdges.push_back(m_columnEdges.back() + table.columnWidth(column));
    }
    m_rowEdges.push_back(0.0);
    for (int row = 0; row < table.numRows(); ++row) m_rowEdges.push_back(m_rowEdges.back() + table.rowHeight(row));
}

CellBox TableGeometry::box(const KdCellRange& range) const {
    const double first = m_rowSign * rowEdge(range.m_topRow);
    const double last = m_rowSign * rowEdge(range.m_bottomRow + 1);
    return {columnEdge(range.m_leftColumn), columnEdge(range.m_rightColumn + 1), std::min(first, last),
            std::max(first, last)};
}

}  // namespace kdhost::draw
