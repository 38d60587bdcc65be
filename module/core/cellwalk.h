// The walks over the cells of a range that the tests of a table share: row by row, columns from left to
// right, ended by the first cell that decides. A range may be reversed (it then holds no cell), may lie
// outside the table, and may have any field out of it.
//
// Cells outside the table all answer alike, and so do all rows and columns below -1, so that a walk visits
// one line of each such stretch and its length is bounded by the table's size, not by the range's.
#pragma once

#include <algorithm>

#include "kd/db/table.h"
#include "module/core/cellrange.h"

namespace cellwalk {

/// The rows or the columns that a walk visits, both ends counted; none when last lies before first.
struct Lines {
    int first = 0;
    int last = -1;
};

/// The part of `first` to `last` worth visiting in a table of `count` lines.
inline Lines worthVisiting(int first, int last, int count) {
    if (first > last) return {};
    constexpr int outsideBefore = -2;  // -1 stands for the table's first line
    return {std::clamp(first, outsideBefore, count), std::clamp(last, outsideBefore, count)};
}

template <class Range>
bool isNoCell(const Range& range) {
    return range.m_topRow == -1 && range.m_leftColumn == -1 && range.m_bottomRow == -1 && range.m_rightColumn == -1;
}

template <class Range>
bool isOneCell(const Range& range) {
    return range.m_topRow == range.m_bottomRow && range.m_leftColumn == range.m_rightColumn;
}

template <class Range>
bool isReversed(const Range& range) {
    return range.m_topRow > range.m_bottomRow || range.m_leftColumn > range.m_rightColumn;
}

/// Visits each cell: `visit(row, column)` returns true where it is decided. Returns whether it was.
template <class Range, class Visit>
bool anyCell(const KdDbTable& table, const Range& range, Visit visit) {
    if (isNoCell(range)) return false;
    const Lines rows = worthVisiting(range.m_topRow, range.m_bottomRow, table.numRows());
    const Lines columns = worthVisiting(range.m_leftColumn, range.m_rightColumn, table.numColumns());
    if (columns.first > columns.last) return false;
    for (int row = rows.first; row <= rows.last; ++row) {
        for (int column = columns.first; column <= columns.last; ++column) {
            if (visit(row, column)) return true;
        }
    }
    return false;
}

/// The merge that the cell belongs to; false, with `merge` as it was, when it belongs to none.
inline bool mergeOfCell(const KdDbTable& table, int row, int column, CVqTableCellRange& merge) {
    return table.isMergedCell(row, column, &merge.m_topRow, &merge.m_bottomRow, &merge.m_leftColumn,
                              &merge.m_rightColumn);
}

/// Whether some cell of the range is merged. A merge that reaches out of the range has a cell on its rim, and any
/// other one covers fields of both colours of a chess board: those of one colour and the rim are enough.
template <class Range>
bool anyMerge(const KdDbTable& table, const Range& range) {
    if (isNoCell(range)) return false;
    const Lines rows = worthVisiting(range.m_topRow, range.m_bottomRow, table.numRows());
    const Lines columns = worthVisiting(range.m_leftColumn, range.m_rightColumn, table.numColumns());
    if (columns.first > columns.last) return false;
    for (int row = rows.first; row <= rows.last; ++row) {
        if (table.isMergedCell(row, columns.first) || table.isMergedCell(row, columns.last)) return true;
        const bool isRim = row == rows.first || row == rows.last;
        const int firstField = isRim ? 1 : 1 + (row - rows.first) % 2;
        for (int column = columns.first + firstField; column < columns.last; column += isRim ? 1 : 2) {
            if (table.isMergedCell(row, column)) return true;
        }
    }
    return false;
}

/// Where a walk by blocks goes on behind a merged cell: always in the column behind the merge, in the row
/// that it was in or in the merge's last row.
enum class BehindMerge { SameRow, LastRow };

/// Visits the cells that aren't merged, and in each row the merges once: `visit(row, column, merge)` gets a
/// null merge for the former, and returns true where it is decided. Returns whether it was.
template <class Range, class Visit>
bool anyBlock(const KdDbTable& table, const Range& range, Visit visit, BehindMerge behind = BehindMerge::SameRow) {
    if (isNoCell(range)) return false;
    const Lines rows = worthVisiting(range.m_topRow, range.m_bottomRow, table.numRows());
    const Lines columns = worthVisiting(range.m_leftColumn, range.m_rightColumn, table.numColumns());
    if (columns.first > columns.last) return false;
    CVqTableCellRange merge;
    for (int row = rows.first; row <= rows.last; ++row) {
        for (int column = columns.first; column <= columns.last; ++column) {
            const bool merged = mergeOfCell(table, row, column, merge);
            if (visit(row, column, merged ? &merge : nullptr)) return true;
            if (!merged) continue;
            column = std::max(column, merge.m_rightColumn);
            if (behind == BehindMerge::LastRow) row = std::max(row, merge.m_bottomRow);
        }
    }
    return false;
}

}  // namespace cellwalk
