// What the operations on the selection do to the model.

#include "tests/module/core/slowgrid.h"

namespace kdtest {

bool SlowGrid::isRectangle() const {
    return selection.m_topRow >= 0 && selection.m_leftColumn >= 0 && selection.m_bottomRow >= 0 &&
           selection.m_rightColumn >= 0;
}

/// Exactly one merge. A single cell has one row and one column anyway.
bool SlowGrid::isSingleCell() const {
    return contains(selection) && selection == mergeRange(selection.m_topRow, selection.m_leftColumn);
}

/// Whether the part of the selection holds content, the selection's own top left cell left out.
bool SlowGrid::losesContent(const KdCellRange& part) const {
    for (int row = part.m_topRow; row <= part.m_bottomRow; ++row) {
        for (int column = part.m_leftColumn; column <= part.m_rightColumn; ++column) {
            if (row == selection.m_topRow && column == selection.m_leftColumn) continue;
            if (!empty(row, column)) return true;
        }
    }
    return false;
}

void SlowGrid::InsertRowByAbove() {
    if (selection.m_topRow < 0 || selection.m_bottomRow < selection.m_topRow) return;
    const int count = isSingleCell() ? 1 : selection.m_bottomRow - selection.m_topRow + 1;
    insertRows(selection.m_topRow, selection.m_topRow, count);
    selection.m_topRow += count;
    selection.m_bottomRow += count;
}

void SlowGrid::InsertRowByBelow() {
    if (selection.m_topRow < 0 || selection.m_bottomRow < selection.m_topRow) return;
    const int count = isSingleCell() ? 1 : selection.m_bottomRow - selection.m_topRow + 1;
    insertRows(selection.m_bottomRow + 1, selection.m_bottomRow, count);
}

void SlowGrid::DeleteRows() {
    if (selection.m_topRow < 0 || selection.m_bottomRow < 0) return;
    deleteRows(selection.m_topRow, selection.m_bottomRow - selection.m_topRow + 1);
}

void SlowGrid::InsertColumnByLeft() {
    if (selection.m_leftColumn < 0 || selection.m_rightColumn < selection.m_leftColumn) return;
    const int count = isSingleCell() ? 1 : selection.m_rightColumn - selection.m_leftColumn + 1;
    insertColumns(selection.m_leftColumn, selection.m_leftColumn, count);
    selection.m_leftColumn += count;
    selection.m_rightColumn += count;
}

/// The rows must be there, not the columns: whole rows get one new column, from none, before the first.
void SlowGrid::InsertColumnByRight() {
    if (selection.m_topRow < 0 || selection.m_bottomRow < 0) return;
    if (selection.m_rightColumn < selection.m_leftColumn) return;
    const int count = isSingleCell() ? 1 : selection.m_rightColumn - selection.m_leftColumn + 1;
    insertColumns(selection.m_rightColumn + 1, selection.m_rightColumn, count);
}

void SlowGrid::DeleteColumns() {
    if (selection.m_leftColumn < 0 || selection.m_rightColumn < 0) return;
    deleteColumns(selection.m_leftColumn, selection.m_rightColumn - selection.m_leftColumn + 1);
}

void SlowGrid::UnmergeCells() {
    unmergeCells(selection.m_topRow, selection.m_bottomRow, selection.m_leftColumn, selection.m_rightColumn);
}

void SlowGrid::MergeAll(const Ask& ask) {
    if (!isRectangle()) return;
    if (losesContent(selection) && !ask()) return;
    mergeCells(selection.m_topRow, selection.m_bottomRow, selection.m_leftColumn, selection.m_rightColumn);
}

void SlowGrid::MergeByRow(const Ask& ask) {
    if (!isRectangle()) return;
    const KdCellRange all = selection;
    bool asked = false;
    bool unmerged = false;
    for (int row = all.m_topRow; row <= all.m_bottomRow; ++row) {
        if (losesContent({row, all.m_leftColumn, row, all.m_rightColumn}) && !asked) {
            asked = true;
            if (!ask()) continue;
        }
        if (!unmerged) UnmergeCells();
        unmerged = true;
        mergeCells(row, row, all.m_leftColumn, all.m_rightColumn);
    }
}

void SlowGrid::MergeByColumn(const Ask& ask) {
    onTurned([&](SlowGrid& grid) { grid.MergeByRow(ask); });
}

void SlowGrid::SizeColumnsEvenly() {
    int first = 0;
    int last = columnCount() - 1;
    if (selection != KdCellRange{}) {
        first = selection.m_leftColumn;
        last = selection.m_rightColumn;
    }
    if (first < 0 || last <= first) return;
    double sum = 0.0;
    for (int column = first; column <= last; ++column) sum += columns.at(static_cast<std::size_t>(column)).size;
    for (int column = first; column <= last; ++column) {
        columns.at(static_cast<std::size_t>(column)).size = sum / (last - first + 1);
    }
}

void SlowGrid::SizeRowsEvenly() {
    int first = 0;
    int last = rowCount() - 1;
    if (selection != KdCellRange{}) {
        first = selection.m_topRow;
        last = selection.m_bottomRow;
    }
    if (first < 0 || last <= first) return;
    double total = 0.0;
    for (int row = first; row <= last; ++row) {
        const double height = rows.at(static_cast<std::size_t>(row)).size;
        total += height > total ? height : 0.0;
    }
    for (int row = first; row <= last; ++row) rows.at(static_cast<std::size_t>(row)).size = total / (last - first + 1);
}

}  // namespace kdtest
