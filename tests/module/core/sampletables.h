// Tables that the tests of the module's core ask about.
#pragma once

#include <memory>
#include <ostream>
#include <vector>

#include "kd/db/table.h"
#include "module/core/cellrange.h"

inline void PrintTo(const CVqTableCellRange& range, std::ostream* out) {
    *out << "rows " << range.m_topRow << " to " << range.m_bottomRow << ", columns " << range.m_leftColumn << " to "
         << range.m_rightColumn;
}

inline void PrintTo(const KdCellRange& range, std::ostream* out) {
    PrintTo(CVqTableCellRange{range.m_topRow, range.m_leftColumn, range.m_bottomRow, range.m_rightColumn}, out);
}

namespace kdtest {

using Range = CVqTableCellRange;

inline constexpr Range noCell{-1, -1, -1, -1};

/// A table in memory, with these merges.
inline std::unique_ptr<KdDbTable> makeTable(int rows, int columns, const std::vector<Range>& merges = {}) {
    auto table = std::make_unique<KdDbTable>();
    table->setSize(rows, columns);
    for (const Range& merge : merges) {
        table->mergeCells(merge.m_topRow, merge.m_bottomRow, merge.m_leftColumn, merge.m_rightColumn);
    }
    return table;
}

/// The merges of makeEdgeTable: at both upper corners, at the right and left edge, in the middle and at both
/// lower corners.
///
///     A A . B B B
///     A A . . . C
///     D . E E . C
///     D . E E . C
///     . . . . . .
///     F F F . G G
namespace edge {
inline constexpr Range a{0, 0, 1, 1};
inline constexpr Range b{0, 3, 0, 5};
inline constexpr Range c{1, 5, 3, 5};
inline constexpr Range d{2, 0, 3, 0};
inline constexpr Range e{2, 2, 3, 3};
inline constexpr Range f{5, 0, 5, 2};
inline constexpr Range g{5, 4, 5, 5};
}  // namespace edge

/// Six rows and six columns, with merges at every edge.
inline std::unique_ptr<KdDbTable> makeEdgeTable() {
    return makeTable(6, 6, {edge::a, edge::b, edge::c, edge::d, edge::e, edge::f, edge::g});
}

inline KdCellRange hostRange(const Range& range) {
    return {range.m_topRow, range.m_leftColumn, range.m_bottomRow, range.m_rightColumn};
}

/// Gives the state to every cell of the range.
inline void setStates(KdDbTable& table, const Range& range, int state) {
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            table.setCellState(row, column, static_cast<KdDb::CellState>(state));
        }
    }
}

}  // namespace kdtest
