// Rows and columns that come and go, and merges: what the table allows, and what the state then does.

#include <algorithm>

#include "host/db/fieldevaluation.h"
#include "host/db/tableaccess.h"
#include "host/db/tablelayout.h"
#include "host/db/travellingcells.h"

using namespace kdhost;

namespace {

/// A span of rows or columns that may go: inside the table, and not all of them.
bool removable(int first, int count, int total) {
    return first >= 0 && count > 0 && count < total && first <= total - count;
}

/// Where the edges of a merge go; any may be null.
struct MergeEdges {
    int* top;
    int* bottom;
    int* left;
    int* right;
};

/// The edges of the merge that the cell belongs to; false, and nothing told, when it belongs to none. Apart, as with
/// readFar().
[[gnu::noinline]] bool tellMerge(const TableState& state, int row, int column, const MergeEdges& edges) {
    if (!toFirstCell(state, row, column)) return false;
    const MergeLink& link = state.mergeLink(row, column);
    if (!link.merged()) return false;
    const KdCellRange merge = link.rangeAt(row, column);
    if (edges.top != nullptr) *edges.top = merge.m_topRow;
    if (edges.bottom != nullptr) *edges.bottom = merge.m_bottomRow;
    if (edges.left != nullptr) *edges.left = merge.m_leftColumn;
    if (edges.right != nullptr) *edges.right = merge.m_rightColumn;
    return true;
}

/// Carries out `change` by `work(state)`.
template <class Work>
void restructure(KdDbTable& table, const StructureChange& change, Work work) {
    TableState* state = editTable(table);
    if (state == nullptr) return;
    if (change.count < 0 && areCellsTravelling()) rememberFormulas(table);
    changeStructure(table, change, [&] { work(*state); });
    if (change.count < 0) clampSelection(table);
    state->assertValid();
}

}  // namespace

void KdDbTable::insertRowsAndInherit(int row, int inheritFrom, int count) {
    if (row < 0 || row > numRows() || count <= 0) return;
    restructure(*this, {true, row, count}, [&](TableState& state) { state.insertRows(row, inheritFrom, count); });
}

void KdDbTable::insertColumnsAndInherit(int column, int inheritFrom, int count) {
    if (column < 0 || column > numColumns() || count <= 0) return;
    restructure(*this, {false, column, count},
                [&](TableState& state) { state.insertColumns(column, inheritFrom, count); });
}

// Locks are no bar here: a part of a table is copied by deleting what lies around it. canDelete() is for those
// who ask on a user's behalf.
void KdDbTable::deleteRows(int first, int count) {
    if (!removable(first, count, numRows())) return;
    restructure(*this, {true, first, -count}, [&](TableState& state) { state.eraseRows(first, count); });
}

void KdDbTable::deleteColumns(int first, int count) {
    if (!removable(first, count, numColumns())) return;
    restructure(*this, {false, first, -count}, [&](TableState& state) { state.eraseColumns(first, count); });
}

bool KdDbTable::canInsert(int index, bool row) const {
    return index >= 0 && index <= (row ? numRows() : numColumns());
}

bool KdDbTable::canDelete(int index, int count, bool row) const {
    const TableState& state = tableState(*this);
    if (!removable(index, count, row ? state.rowCount() : state.columnCount())) return false;
    KdCellRange cells = state.whole();
    (row ? cells.m_topRow : cells.m_leftColumn) = index;
    (row ? cells.m_bottomRow : cells.m_rightColumn) = index + count - 1;
    return !hasContentLock(state, cells);
}

void KdDbTable::mergeCells(int top, int bottom, int left, int right) {
    const TableState& before = tableState(*this);
    KdCellRange cells;
    if (!cellsOf(before, {top, left, bottom, right}, cells)) return;
    cells = before.grownToMerges(cells);
    if (cells == before.mergeOf(cells.m_topRow, cells.m_leftColumn)) return;
    if (hasContentLock(before, cells)) return;
    TableState* state = editTable(*this);
    if (state == nullptr) return;
    state->merge(cells);
    state->assertValid();
}

void KdDbTable::unmergeCells(int top, int bottom, int left, int right) {
    const TableState& before = tableState(*this);
    KdCellRange cells;
    if (!cellsOf(before, {top, left, bottom, right}, cells)) return;
    std::vector<KdCellRange> merges = before.mergesIn(cells);
    std::erase_if(
        merges, [&](const KdCellRange& merge) { return !contentEditable(before, merge.m_topRow, merge.m_leftColumn); });
    if (merges.empty()) return;
    TableState* state = editTable(*this);
    if (state == nullptr) return;
    for (const KdCellRange& merge : merges) state->unmerge(merge);
    state->assertValid();
}

bool KdDbTable::isMergedCell(int row, int column, int* top, int* bottom, int* left, int* right) const {
    const TableState& state = tableState(*this);
    const CellLook* near = state.nearLook(row, column);
    if (near != nullptr && !near->isMerged) [[likely]]
        return false;
    return tellMerge(state, row, column, {top, bottom, left, right});
}

KdCellRange KdDbTable::getMergeRange(int row, int column) const {
    const TableState& state = tableState(*this);
    KdCellRange target;
    if (!targetOf(state, row, column, target)) return {row, column, row, column};
    return state.mergeOf(target.m_topRow, target.m_leftColumn);
}
