// Where the rows and columns of a table lie, as the table was when this was made: each place is found in constant
// time however large the table is.
#pragma once

#include <vector>

#include "kd/db/cellrange.h"
#include "kd/ge/point3d.h"

class KdDbTable;

namespace kdhost::draw {

/// A rectangle in the table's plane: x along the rows, y upwards as its text is read, from the table's
/// position.
struct CellBox {
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;

    double width() const { return right - left; }
    double height() const { return top - bottom; }
};

/// The cells that a table shows as selected: of a selection in either order, of whole rows or columns, reaching beyond
/// the table or cutting a merge. The table must have one.
KdCellRange shownSelection(const KdDbTable& table);

class TableGeometry {
public:
    explicit TableGeometry(const KdDbTable& table);

    int rows() const { return static_cast<int>(m_rowEdges.size()) - 1; }
    int columns() const { return static_cast<int>(m_columnEdges.size()) - 1; }

    /// Unit vectors in world coordinates. `next` runs from a row to the next one, `up` as text stands.
    const KdGeVector3d& right() const { return m_right; }
    const KdGeVector3d& up() const { return m_up; }
    const KdGeVector3d& normal() const { return m_normal; }
    KdGeVector3d next() const { return m_up * m_rowSign; }

    /// Distance of a grid line from the table's position, along `right()` and `next()`.
    double columnEdge(int line) const { return m_columnEdges[static_cast<std::size_t>(line)]; }
    double rowEdge(int line) const { return m_rowEdges[static_cast<std::size_t>(line)]; }

    /// All of them, in rising order.
    const std::vector<double>& columnEdges() const { return m_columnEdges; }
    const std::vector<double>& rowEdges() const { return m_rowEdges; }

    /// World coordinates of a place given along `right()` and `next()`.
    KdGePoint3d at(double along, double next) const { return m_origin + m_right * along + m_up * (m_rowSign * next); }
    /// World coordinates of a place in the plane of the boxes.
    KdGePoint3d inPlane(double x, double y) const { return m_origin + m_right * x + m_up * y; }

    /// The range must lie in the table.
    CellBox box(const KdCellRange& range) const;

private:
    KdGePoint3d m_origin;
    KdGeVector3d m_right;
    KdGeVector3d m_up;
    KdGeVector3d m_normal;
    double m_rowSign = -1.0;
    std::vector<double> m_columnEdges;
    std::vector<double> m_rowEdges;
};

}  // namespace kdhost::draw
