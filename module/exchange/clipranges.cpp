// Blocks of cells out of ranges of any form.

#include "module/exchange/clipranges.h"

#include <algorithm>
#include <tuple>

#include "kd/db/table.h"

CKdTableCellRange wholeOf(const KdDbTable& table) {
    return KdCellRange{0, 0, table.numRows() - 1, table.numColumns() - 1};
}

std::optional<CKdTableCellRange> blockOf(const CKdTableCellRange& range, const KdDbTable& table) {
    if (!range.isValid()) return std::nullopt;
    CKdTableCellRange block = wholeOf(table);
    if (range.m_topRow >= 0) {
        std::tie(block.m_topRow, block.m_bottomRow) = std::minmax(range.m_topRow, range.m_bottomRow);
    }
    if (range.m_leftColumn >= 0) {
        std::tie(block.m_leftColumn, block.m_rightColumn) = std::minmax(range.m_leftColumn, range.m_rightColumn);
    }
    return block;
}
