// Conversions of ranges, and tests of a range's shape and of its place in the table.

#include "kd/db/table.h"
#include "module/core/cellwalk.h"
#include "module/core/tablecommon.h"

using cellwalk::isOneCell;
using cellwalk::isReversed;

namespace {

template <class To, class From>
To copied(const From& range) {
    return {range.m_topRow, range.m_leftColumn, range.m_bottomRow, range.m_rightColumn};
}

/// Adds `step` to all four fields. False, with `out` as it was, when one of them is -1.
bool shift(const CVqTableCellRange& in, int step, CVqTableCellRange& out) {
    if (in.m_topRow == -1 || in.m_leftColumn == -1 || in.m_bottomRow == -1 || in.m_rightColumn == -1) return false;
    out = {in.m_topRow + step, in.m_leftColumn + step, in.m_bottomRow + step, in.m_rightColumn + step};
    return true;
}

bool spansRows(const KdDbTable& table, const CVqTableCellRange& range) {
    return range.m_topRow == 0 && range.m_bottomRow == table.numRows() - 1;
}

bool spansColumns(const KdDbTable& table, const CVqTableCellRange& range) {
    return range.m_leftColumn == 0 && range.m_rightColumn == table.numColumns() - 1;
}

}  // namespace

void CVqTableCommon::CellRangeConvert(CVqTableCellRange& range, KdCellRange& hostRange, int toHost) {
    if (toHost != 0) {
        hostRange = copied<KdCellRange>(range);
    } else {
        range = copied<CVqTableCellRange>(hostRange);
    }
}

void CVqTableCommon::CellRangeConvert(CVqTableCellRange& range, int top, int bottom, int left, int right) {
    range = {top, left, bottom, right};
}

void CVqTableCommon::CellRangeConvert(KdCellRange& range, int top, int bottom, int left, int right) {
    range = {top, left, bottom, right};
}

bool CVqTableCommon::IndicatorRangeToCellRange(const CVqTableCellRange& in, CVqTableCellRange& out) {
    return shift(in, -1, out);
}

bool CVqTableCommon::CellRangeToIndicatorRange(const CVqTableCellRange& in, CVqTableCellRange& out) {
    return shift(in, 1, out);
}

bool CVqTableCommon::IsSelectSingleCell(const CVqTableCellRange& range) {
    return isOneCell(range);
}

bool CVqTableCommon::IsOnlyMergeNone(const KdCellRange& range) {
    return isOneCell(range);
}

bool CVqTableCommon::IsOnlyMergeByRow(const KdCellRange& range) {
    return range.m_topRow == range.m_bottomRow && range.m_leftColumn != range.m_rightColumn;
}

bool CVqTableCommon::IsOnlyMergeByColumn(const KdCellRange& range) {
    return range.m_topRow != range.m_bottomRow && range.m_leftColumn == range.m_rightColumn;
}

bool CVqTableCommon::IsRowSizeQually(const KdDbTable*, const CVqTableCellRange& range) {
    return range.m_topRow != range.m_bottomRow;
}

bool CVqTableCommon::IsColumnSizeQually(const KdDbTable*, const CVqTableCellRange& range) {
    return range.m_leftColumn != range.m_rightColumn;
}

bool CVqTableCommon::IsCanDataLink(const KdDbTable*, const CVqTableCellRange& range) {
    return !isReversed(range);
}

bool CVqTableCommon::CheckCellRangeValid(const KdDbTable* table, const CVqTableCellRange& range) {
    if (table == nullptr) return false;
    const bool manyRows = range.m_topRow != range.m_bottomRow;
    const bool manyColumns = range.m_leftColumn != range.m_rightColumn;
    const int row = manyRows && manyColumns ? range.m_bottomRow : range.m_topRow;
    const int column = manyRows && manyColumns ? range.m_rightColumn : range.m_leftColumn;
    return row < table->numRows() && column < table->numColumns();
}

bool CVqTableCommon::IsSelectEntireTable(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && spansRows(*table, range) && spansColumns(*table, range);
}

bool CVqTableCommon::IsSelectEntireRow(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && spansColumns(*table, range) && !spansRows(*table, range);
}

bool CVqTableCommon::IsSelectEntireColumn(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && spansRows(*table, range) && !spansColumns(*table, range);
}

// A range over all rows is the entire table or entire columns: deleting its rows would leave no row.
bool CVqTableCommon::IsCanDeleteRow(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && !spansRows(*table, range) && table->numRows() != 1;
}

bool CVqTableCommon::IsCanDeleteColumn(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && !spansColumns(*table, range) && table->numColumns() != 1;
}
