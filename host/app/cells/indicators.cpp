// Where indicators lie, and what they stand for.

#include "host/app/cells/indicators.h"

#include "host/db/access.h"
#include "host/draw/tablegeometry.h"
#include "kd/db/table.h"

namespace kdhost {

KdCellRange wholeRows(const KdDbTable& table, KdCellRange cells) {
    cells.m_leftColumn = 0;
    cells.m_rightColumn = table.numColumns() - 1;
    return cells;
}

KdCellRange wholeColumns(const KdDbTable& table, KdCellRange cells) {
    cells.m_topRow = 0;
    cells.m_bottomRow = table.numRows() - 1;
    return cells;
}

std::optional<IndicatedLine> indicatorAt(KdDbObjectId id, const KdGePoint3d& world) {
    const auto* table = peek<KdDbTable>(id);
    int row = -1, column = -1, content = 0;
    KdDb::TableHitItem item = KdDb::kTableHitNone;
    if (table == nullptr || !table->hasSubSelection()) return std::nullopt;
    if (!table->hitTest(world, KdGeVector3d::kZAxis, 0.0, 0.0, row, column, content, item)) return std::nullopt;
    if (item == KdDb::kTableHitRowIndicator) return IndicatedLine{true, wholeRows(*table, {row, 0, row, 0})};
    if (item == KdDb::kTableHitColumnIndicator) {
        return IndicatedLine{false, wholeColumns(*table, {0, column, 0, column})};
    }
    return std::nullopt;
}

// Indicators are twice as wide as the texts of data are high.
KdGePoint3d middleOfIndicator(const KdDbTable& table, bool isRow, int line) {
    const draw::TableGeometry geometry(table);
    const double outside = -table.textHeight(KdDb::kDataRow);
    const double along = isRow ? outside : (geometry.columnEdge(line) + geometry.columnEdge(line + 1)) / 2.0;
    const double next = isRow ? (geometry.rowEdge(line) + geometry.rowEdge(line + 1)) / 2.0 : outside;
    return geometry.at(along, next);
}

}  // namespace kdhost
