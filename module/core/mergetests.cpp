// Tests of the merges in a range. A range that consists of exactly one merge is told from one that holds
// merges and more.

#include "kd/db/table.h"
#include "module/core/cellwalk.h"
#include "module/core/tablecommon.h"

using cellwalk::anyBlock;
using cellwalk::anyCell;
using cellwalk::isOneCell;
using cellwalk::isReversed;
using cellwalk::mergeOfCell;

bool CVqTableCommon::IsMatchCell(const KdDbTable* table, const CVqTableCellRange& range) {
    return isOneCell(range) || IsSelectMergedEqual(table, range);
}

bool CVqTableCommon::IsSelectMergedEqual(const KdDbTable* table, const CVqTableCellRange& range) {
    CVqTableCellRange merge;
    return table != nullptr && mergeOfCell(*table, range.m_topRow, range.m_leftColumn, merge) && merge == range;
}

// A merge that is the range begins at the range's top left cell, the first that a scan row by row meets: where
// that cell belongs to no such merge, the first merged cell of the range doesn't either.
bool CVqTableCommon::IsMergeAndSelectEqual(const KdDbTable* table, const CVqTableCellRange& range) {
    return IsSelectMergedEqual(table, range);
}

bool CVqTableCommon::IsOnlyCanInsertBlock(const KdDbTable* table, const CVqTableCellRange& range) {
    return table != nullptr && !isOneCell(range) && !IsMergeAndSelectEqual(table, range);
}

bool CVqTableCommon::IsRowMergeCell(const KdDbTable* table, const CVqTableCellRange& range) {
    return !isOneCell(range) && range.m_topRow == range.m_bottomRow && IsMergeAndSelectEqual(table, range);
}

bool CVqTableCommon::IsColumnMergeCell(const KdDbTable* table, const CVqTableCellRange& range) {
    return !isOneCell(range) && range.m_leftColumn == range.m_rightColumn && IsMergeAndSelectEqual(table, range);
}

bool CVqTableCommon::IsCanMergeCell(const KdDbTable* table, const CVqTableCellRange& range) {
    if (table == nullptr || isOneCell(range)) return false;
    return !IsMergeAndSelectEqual(table, range) && !IsCellRangeHasContentLocked(table, range);
}

bool CVqTableCommon::IsCanUnmergeCell(const KdDbTable* table, const CVqTableCellRange& range) {
    if (table == nullptr || isOneCell(range) || isReversed(range)) return false;
    return anyBlock(*table, range, [&](int, int, const CVqTableCellRange* merge) {
        if (merge == nullptr) return false;
        const int state = table->cellState(merge->m_topRow, merge->m_leftColumn);
        return (state & KdDb::kCellStateContentLocked) == 0;
    });
}

bool CVqTableCommon::IsMergeable(const KdDbTable* table, const CVqTableCellRange& range) {
    if (range.m_topRow != 0) return true;
    if (table == nullptr) return false;
    const int bottom = range.m_bottomRow;
    const CVqTableCellRange bottomRow{bottom, 0, bottom, table->numColumns() - 1};
    return !anyBlock(*table, bottomRow, [&](int, int, const CVqTableCellRange* merge) {
        return merge != nullptr && merge->m_bottomRow > bottom;
    });
}

bool CVqTableCommon::IsMergeContentNoFirst(const KdDbTable* table, const CVqTableCellRange& range) {
    if (table == nullptr) return false;
    return anyCell(*table, range, [&](int row, int column) {
        const bool first = row == range.m_topRow && column == range.m_leftColumn;
        return !first && *table->textString(row, column) != L'\0';
    });
}

bool CVqTableCommon::IsFirstMergedCell(const KdDbTable* table, int byColumn, int row, int column) {
    CVqTableCellRange merge;
    if (table == nullptr || !mergeOfCell(*table, row, column, merge)) return false;
    return (byColumn != 0 ? merge.m_leftColumn : merge.m_topRow) == 0;
}

bool CVqTableCommon::IsLastMergedCell(const KdDbTable* table, int byColumn, int row, int column) {
    CVqTableCellRange merge;
    if (table == nullptr || !mergeOfCell(*table, row, column, merge)) return false;
    return byColumn != 0 ? merge.m_rightColumn == table->numColumns() - 1 : merge.m_bottomRow == table->numRows() - 1;
}
