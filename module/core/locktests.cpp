// Which cells of a range are locked, and whether a row holds text.

#include "kd/db/table.h"
#include "module/core/cellwalk.h"
#include "module/core/tablecommon.h"

namespace {

/// Whether the lock `bit` of some cell of the range is `locked`; a merge is judged by its owner, for whom each of its
/// cells answers.
bool anyLock(const KdDbTable& table, const CVqTableCellRange& range, KdDb::CellState bit, bool locked) {
    return cellwalk::anyCell(table, range, [&](int row, int column) {
        const int state = table.cellState(row, column);
        return ((state & bit) != 0) == locked;
    });
}

}  // namespace

bool CVqTableCommon::IsCellRangeAllContentLocked(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && !anyLock(*table, range, KdDb::kCellStateContentLocked, false);
}

bool CVqTableCommon::IsCellRangeHasContentLocked(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && anyLock(*table, range, KdDb::kCellStateContentLocked, true);
}

bool CVqTableCommon::IsCellRangeAllFormatLocked(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && !anyLock(*table, range, KdDb::kCellStateFormatLocked, false);
}

bool CVqTableCommon::IsRowHasText(const KdDbTable* table, int row) {
    // Compared without sign, so that a negative row lies behind the last one.
    if (table == nullptr || static_cast<unsigned>(row) >= static_cast<unsigned>(table->numRows())) return false;
    const CVqTableCellRange cells{row, 0, row, table->numColumns() - 1};
    return !cellwalk::anyCell(*table, cells,
                              [&](int, int column) { return !table->textString(row, column, 0).isEmpty(); });
}
