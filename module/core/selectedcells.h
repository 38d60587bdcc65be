// The rows and columns that are selected in a table, and the walk over their cells.
#pragma once

#include <optional>

#include "module/core/cellwalk.h"

/// The rows and columns selected in a table, both ends counted. As selected: it may be reversed, and whole columns
/// and whole rows are -1.
struct SelectedCells {
    int top = -1;
    int bottom = -1;
    int left = -1;
    int right = -1;
};

/// Nothing without a selection.
inline std::optional<SelectedCells> selectedCells(const KdDbTable& table) {
    SelectedCells cells;
    if (table.getSubSelection(cells.top, cells.bottom, cells.left, cells.right) != Kdad::eOk) return std::nullopt;
    return cells;
}

/// Calls `change(row, column)` for each selected cell, row by row; once with -1 for a whole row or column. Cells
/// that a merge covers get no special treatment. A reversed selection holds no cell.
template <class Change>
void forEachSelected(const KdDbTable& table, const SelectedCells& cells, Change change) {
    const KdCellRange range{cells.top, cells.left, cells.bottom, cells.right};
    cellwalk::anyCell(table, range, [&](int row, int column) {
        change(row, column);
        return false;
    });
}
