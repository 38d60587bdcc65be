// Sizes and places of cells: sums over ranges, the corners and middles of cells, and the way from a table's own
// coordinates to the world.
//
// A table's own coordinates have their origin at its position and their x axis along its rows. Its columns run
// along y when its flow is not 0, else against it.

#include <algorithm>
#include <cmath>

#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "kd/ge/extents.h"
#include "module/core/tablecommon.h"

namespace {

/// The box around the first four points, the corners of a cell; the rest of the array doesn't count.
KdDbExtents boxOfCorners(const KdGePoint3dArray& points) {
    constexpr int cornerCount = 4;
    KdDbExtents box;
    for (int i = 0; i < std::min(cornerCount, points.length()); ++i) box.addPoint(points[i]);
    return box;
}

/// The direction in which the rows of a table follow each other, for the direction `x` of its rows.
KdGeVector3d acrossRows(const KdDbTable& table, const KdGeVector3d& x) {
    const KdGeVector3d& z = KdGeVector3d::kZAxis;
    return (table.flowDirection() != 0 ? z.crossProduct(x) : x.crossProduct(z)).normalize();
}

double widthOfColumns(const KdDbTable& table, int first, int last) {
    double width = 0.0;
    for (int column = first; column <= last; ++column) width += table.columnWidth(column);
    return width;
}

double heightOfRows(const KdDbTable& table, int first, int last) {
    double height = 0.0;
    for (int row = first; row <= last; ++row) height += table.rowHeight(row);
    return height;
}

}  // namespace

double CVqTableCommon::GetCellRangeWidth(const KdDbTable* table, const CVqTableCellRange& range) {
    return table == nullptr ? 0.0 : widthOfColumns(*table, range.m_leftColumn, range.m_rightColumn);
}

double CVqTableCommon::GetCellRangeHeight(const KdDbTable* table, const CVqTableCellRange& range) {
    return table == nullptr ? 0.0 : heightOfRows(*table, range.m_topRow, range.m_bottomRow);
}

KdGePoint3d CVqTableCommon::GetExtentsMinPoint(const KdGePoint3dArray& points) {
    return boxOfCorners(points).minPoint();
}

KdGePoint3d CVqTableCommon::GetExtentsMaxPoint(const KdGePoint3dArray& points) {
    return boxOfCorners(points).maxPoint();
}

KdGePoint3d CVqTableCommon::GetExtentsCenterPoint(const KdGePoint3dArray& points) {
    const KdDbExtents box = boxOfCorners(points);
    return KdGePoint3d::kOrigin + (box.minPoint().asVector() + box.maxPoint().asVector()) * 0.5;
}

void CVqTableCommon::GetExtents(const KdGePoint3dArray& points, KdGePoint3dArray& out) {
    const KdDbExtents box = boxOfCorners(points);
    out.append(box.minPoint());
    out.append(box.maxPoint());
}

void CVqTableCommon::GetCellCenterPoint(const KdDbTable* table, int row, int column, KdGePoint3d& point) {
    if (table == nullptr) return;
    KdGePoint3dArray corners;
    table->getCellExtents(row, column, true, corners);
    point = GetExtentsCenterPoint(corners);
}

double CVqTableCommon::GetHorzCellMarginFromTable(const KdDbTable* table, int row, int column) {
    return table == nullptr ? 0.0 : table->margin(row, column, KdDb::kCellMarginLeft);
}

double CVqTableCommon::GetVertCellMarginFromTable(const KdDbTable* table, int row, int column) {
    return table == nullptr ? 0.0 : table->margin(row, column, KdDb::kCellMarginTop);
}

double CVqTableCommon::GetHorzCellMarginFromTableStyle(const KdDbTableStyle* style, const wchar_t* name) {
    return style == nullptr ? 0.0 : style->margin(KdDb::kCellMarginLeft, name);
}

double CVqTableCommon::GetVertCellMarginFromTableStyle(const KdDbTableStyle* style, const wchar_t* name) {
    return style == nullptr ? 0.0 : style->margin(KdDb::kCellMarginTop, name);
}

void CVqTableCommon::GetDirection(const KdDbTable* table, KdGeVector3d& x, KdGeVector3d& y) {
    if (table == nullptr) return;
    const KdGeVector3d alongRows = KdGeMatrix3d::worldToPlane(table->normal()) * table->direction();
    y = acrossRows(*table, alongRows);
    x = alongRows.normal();
}

void CVqTableCommon::GetTableTransform(const KdDbTable* table, KdGeMatrix3d& matrix) {
    if (table == nullptr) return;
    KdGeVector3d d;
    KdGeVector3d y;
    GetDirection(table, d, y);
    // Upwards out of the plane with a flow, else downwards: measured against it, both angles are the direction's.
    const KdGeVector3d z = d.crossProduct(y);
    const KdGeVector3d& planeX = KdGeVector3d::kXAxis;
    const double angle = table->flowDirection() != 0 ? planeX.angleTo(d, z) : d.angleTo(planeX, z);
    matrix = KdGeMatrix3d::translation(table->position().asVector()) * KdGeMatrix3d::planeToWorld(table->normal()) *
             KdGeMatrix3d::rotation(angle, KdGeVector3d::kZAxis, KdGePoint3d::kOrigin);
}

void CVqTableCommon::GetCellRangeGripPoints(const KdDbTable* table, const CVqTableCellRange& range,
                                            const KdGeMatrix3d& matrix, KdGePoint3dArray& points) {
    if (table == nullptr) return;
    const KdGeVector3d x = KdGeVector3d::kXAxis;
    const KdGeVector3d y = acrossRows(*table, x);
    const double left = widthOfColumns(*table, 0, range.m_leftColumn - 1);
    const double top = heightOfRows(*table, 0, range.m_topRow - 1);
    const double width = GetCellRangeWidth(table, range);
    const double height = GetCellRangeHeight(table, range);
    const auto place = [&](double alongX, double alongY) {
        return matrix * (KdGePoint3d::kOrigin + x * alongX + y * alongY);
    };
    points.setLogicalLength(0);
    points.append(place(left + width / 2.0, top));
    points.append(place(left + width / 2.0, top + height));
    points.append(place(left, top + height / 2.0));
    points.append(place(left + width, top + height / 2.0));
}

void CVqTableCommon::CalcCellPointArray(const KdDbTable* table, const KdGePoint3dArray& corners,
                                        KdGePoint3dArray& out) {
    if (table == nullptr || corners.length() < 2) return;
    const KdGePoint3d first = corners[0];
    const KdGePoint3d second = corners[1];
    const KdGeVector3d across = KdGeVector3d::kXAxis * std::abs(second.x - first.x);
    out.append(second - across);
    out.append(second);
    out.append(first);
    out.append(first + across);
}
