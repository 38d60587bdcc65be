// The indicators of rows and columns, which stand beside a table while cells of it are selected.
#pragma once

#include <optional>

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"

class KdDbTable;

namespace kdhost {

/// The rows of the range over all columns, and the other way round.
KdCellRange wholeRows(const KdDbTable& table, KdCellRange cells);
KdCellRange wholeColumns(const KdDbTable& table, KdCellRange cells);

/// A row or a column, as the cells that its indicator stands for.
struct IndicatedLine {
    bool isRow;
    KdCellRange cells;
};

/// The row or column whose indicator lies there; none elsewhere, and where no cell is selected.
std::optional<IndicatedLine> indicatorAt(KdDbObjectId table, const KdGePoint3d& world);

/// The middle of the indicator of a row or a column, which the table has.
KdGePoint3d middleOfIndicator(const KdDbTable& table, bool isRow, int line);

}  // namespace kdhost
