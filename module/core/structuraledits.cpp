// Rows and columns that come and go, by the selection.
//
// Each operation tests what it goes by: the rows or the columns of the selection. Where whole columns or whole rows
// are selected the other pair is -1, and an operation that goes by that pair does nothing.

#include "module/core/editframe.h"
#include "module/core/tablecommon.h"

namespace {

constexpr EditMark insertAbove{.name = L"AboveInsert", .titleText = 2082};
constexpr EditMark insertBelow{.name = L"BelowInsert", .titleText = 2081};
constexpr EditMark deleteRows{.name = L"DeleteRows", .titleText = 2083};
constexpr EditMark insertLeft{.name = L"LeftInsert", .titleText = 2079};
constexpr EditMark insertRight{.name = L"RightInsert", .titleText = 2078};
constexpr EditMark deleteColumns{.name = L"DeleteColumn", .titleText = 2080};

bool hasRows(const SelectedCells& cells) {
    return cells.top >= 0 && cells.bottom >= 0;
}

bool hasColumns(const SelectedCells& cells) {
    return cells.left >= 0 && cells.right >= 0;
}

/// As many rows or columns are inserted as are selected. A selection that is one merge counts as one cell.
int linesToInsert(const KdDbTable& table, int first, int last) {
    const int count = last - first + 1;
    return count > 1 && CVqTableCommon::IsSingleCell(&table) ? 1 : count;
}

}  // namespace

int CVqTableCommon::InsertRowByAbove(KdDbObjectId table) {
    return editSelection(table, insertAbove, [](KdDbTable& open, const SelectedCells& cells) {
        if (!hasRows(cells)) return;
        const int count = linesToInsert(open, cells.top, cells.bottom);
        if (count <= 0) return;
        open.insertRowsAndInherit(cells.top, cells.top, count);
        open.setSubSelection(cells.top + count, cells.bottom + count, cells.left, cells.right);
    });
}

int CVqTableCommon::InsertRowByBelow(KdDbObjectId table) {
    return editSelection(table, insertBelow, [](KdDbTable& open, const SelectedCells& cells) {
        if (!hasRows(cells)) return;
        open.insertRowsAndInherit(cells.bottom + 1, cells.bottom, linesToInsert(open, cells.top, cells.bottom));
    });
}

int CVqTableCommon::DeleteRows(KdDbObjectId table) {
    return editSelection(table, deleteRows, [](KdDbTable& open, const SelectedCells& cells) {
        if (hasRows(cells)) open.deleteRows(cells.top, cells.bottom - cells.top + 1);
    });
}

int CVqTableCommon::InsertColumnByLeft(KdDbObjectId table) {
    return editSelection(table, insertLeft, [](KdDbTable& open, const SelectedCells& cells) {
        if (!hasColumns(cells)) return;
        const int count = linesToInsert(open, cells.left, cells.right);
        if (count <= 0) return;
        open.insertColumnsAndInherit(cells.left, cells.left, count);
        open.setSubSelection(cells.top, cells.bottom, cells.left + count, cells.right + count);
    });
}

/// The test of the rows, where InsertColumnByLeft tests the columns, is wanted: with whole columns selected
/// nothing is inserted at the right, and with whole rows one column before the first.
int CVqTableCommon::InsertColumnByRight(KdDbObjectId table) {
    return editSelection(table, insertRight, [](KdDbTable& open, const SelectedCells& cells) {
        if (!hasRows(cells)) return;
        open.insertColumnsAndInherit(cells.right + 1, cells.right, linesToInsert(open, cells.left, cells.right));
    });
}

int CVqTableCommon::DeleteColumns(KdDbObjectId table) {
    return editSelection(table, deleteColumns, [](KdDbTable& open, const SelectedCells& cells) {
        if (hasColumns(cells)) open.deleteColumns(cells.left, cells.right - cells.left + 1);
    });
}
