// Ranges of cells as the clipboard takes them: always blocks, corners in order.
#pragma once

#include <optional>

#include "module/core/cellrange.h"

class KdDbTable;

/// The cells of a valid range: whole rows and columns by all their cells, a reversed range in order. Nothing for an
/// invalid range.
std::optional<CKdTableCellRange> blockOf(const CKdTableCellRange& range, const KdDbTable& table);

CKdTableCellRange wholeOf(const KdDbTable& table);

/// Calls `visit(row, column)` for each cell of a block, row by row.
template <class Visit>
void forEachCell(const CKdTableCellRange& block, Visit visit) {
    for (int row = block.m_topRow; row <= block.m_bottomRow; ++row) {
        for (int column = block.m_leftColumn; column <= block.m_rightColumn; ++column) visit(row, column);
    }
}
