// The place of a cell's text, worked out in the plane of the table.

#include "module/edit/celltextplace.h"

#include "kd/db/table.h"
#include "kd/ge/matrix3d.h"
#include "module/core/tablecommon.h"

namespace {

/// The corners of a cell in the plane of its table.
struct Corners {
    KdGePoint3d topLeft;
    KdGePoint3d topRight;
    KdGePoint3d bottomLeft;
    KdGePoint3d bottomRight;
};

Corners cornersInPlane(const KdDbTable& table, int row, int col) {
    KdGePoint3dArray points;
    table.getCellExtents(row, col, true, points);
    if (points.length() < 4) return {};
    const KdGeMatrix3d toPlane = KdGeMatrix3d::worldToPlane(table.normal());
    return {toPlane * points[0], toPlane * points[1], toPlane * points[2], toPlane * points[3]};
}

KdGePoint3d middle(const KdGePoint3d& a, const KdGePoint3d& b) {
    return {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0, 0.0};
}

/// Texts at a corner keep the corner's depth; those at a middle lie in the plane itself.
KdGePoint3d locationInPlane(const Corners& corners, double mh, double mv, KdDb::CellAlignment alignment) {
    const auto& [topLeft, topRight, bottomLeft, bottomRight] = corners;
    const auto moved = [](const KdGePoint3d& point, double x, double y) {
        return KdGePoint3d(point.x + x, point.y + y, point.z);
    };
    switch (alignment) {
        case KdDb::kTopLeft:
            return moved(topLeft, mh, -mv);
        case KdDb::kTopCenter:
            return moved(middle(topLeft, topRight), 0.0, -mv);
        case KdDb::kTopRight:
            return moved(topRight, -mh, -mv);
        case KdDb::kMiddleLeft:
            return moved(middle(topLeft, bottomLeft), mh, 0.0);
        case KdDb::kMiddleCenter:
            return middle(topLeft, bottomRight);
        case KdDb::kMiddleRight:
            return moved(middle(topRight, bottomRight), -mh, 0.0);
        case KdDb::kBottomLeft:
            return moved(bottomLeft, mh, mv);
        case KdDb::kBottomCenter:
            return moved(middle(bottomRight, bottomLeft), 0.0, mv);
        case KdDb::kBottomRight:
            return moved(bottomRight, -mh, mv);
    }
    return {};
}

}  // namespace

CellTextBox cellTextBox(const KdDbTable& table, int row, int col) {
    const KdCellRange merge = table.getMergeRange(row, col);
    const CVqTableCellRange range{merge.m_topRow, merge.m_leftColumn, merge.m_bottomRow, merge.m_rightColumn};
    return {CVqTableCommon::GetCellRangeWidth(&table, range), CVqTableCommon::GetCellRangeHeight(&table, range),
            CVqTableCommon::GetHorzCellMarginFromTable(&table, row, col),
            CVqTableCommon::GetVertCellMarginFromTable(&table, row, col)};
}

KdGePoint3d cellTextLocation(const KdDbTable& table, int row, int col, const CellTextBox& box,
                             KdDb::CellAlignment alignment) {
    const Corners corners = cornersInPlane(table, row, col);
    return KdGeMatrix3d::planeToWorld(table.normal()) *
           locationInPlane(corners, box.horizontalMargin, box.verticalMargin, alignment);
}
