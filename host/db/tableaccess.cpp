// The gate that changes of a table pass, and the cells they reach.

#include "host/db/tableaccess.h"

#include <algorithm>

#include "host/db/tablelayout.h"

namespace kdhost {
namespace {

/// A row or column number as a span: -1 is all of them. False for any other number outside.
bool spanOf(int place, int count, int& first, int& last) {
    if (place < -1 || place >= count || count == 0) return false;
    first = place == -1 ? 0 : place;
    last = place == -1 ? count - 1 : place;
    return true;
}

}  // namespace

TableState* editTable(KdDbTable& table) {
    settleGrowth(table);
    return writableStateOf<TableState>(table);
}

TableState* editSizeOfCell(KdDbTable& table, int row, int column) {
    const PendingGrowth::Place first{std::max(row, 0), std::max(column, 0)};
    if (!tableState(table).pendingGrowth.liesBefore(first)) settleGrowth(table);
    return writableStateOf<TableState>(table);
}

bool targetOf(const TableState& state, int row, int column, KdCellRange& target) {
    return spanOf(row, state.rowCount(), target.m_topRow, target.m_bottomRow) &&
           spanOf(column, state.columnCount(), target.m_leftColumn, target.m_rightColumn);
}

bool cellsOf(const TableState& state, const KdCellRange& range, KdCellRange& cells) {
    const bool allRows = range.m_topRow < 0 && range.m_bottomRow < 0;
    const bool allColumns = range.m_leftColumn < 0 && range.m_rightColumn < 0;
    if (allRows && allColumns) return false;
    KdCellRange taken = range;
    if (allRows) {
        taken.m_topRow = 0;
        taken.m_bottomRow = state.rowCount() - 1;
    }
    if (allColumns) {
        taken.m_leftColumn = 0;
        taken.m_rightColumn = state.columnCount() - 1;
    }
    if (!state.contains(taken)) return false;
    cells = taken;
    return true;
}

bool unlockedFar(const TableState& state, int row, int column, unsigned locks) {
    if (!toFirstCell(state, row, column)) return false;
    return ((state.look(row, column).state | state.ownerLook(row, column).state) & locks) == 0;
}

bool hasContentLock(const TableState& state, const KdCellRange& cells) {
    for (int row = cells.m_topRow; row <= cells.m_bottomRow; ++row) {
        for (int column = cells.m_leftColumn; column <= cells.m_rightColumn; ++column) {
            if (!contentEditable(state, row, column)) return true;
        }
    }
    return false;
}

}  // namespace kdhost
