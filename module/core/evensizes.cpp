// Columns of one width and rows of one height, over the selection or, without one, over the table.

#include "module/core/editframe.h"
#include "module/core/tablecommon.h"

namespace {

constexpr EditMark columnsMark{.name = L"SizeColumnsEvenly", .titleText = 2074, .updatesDisplay = false};
constexpr EditMark rowsMark{.name = L"SizeRowsEvenly", .titleText = 2075, .updatesDisplay = false};

/// The rows or columns to be sized, both ends counted.
struct Target {
    int first = 0;
    int last = -1;

    int count() const { return last - first + 1; }
    /// A single line keeps its size. So does a target that names no lines of the table.
    bool isSizable() const { return first >= 0 && first < last; }
};

Target columnsOf(const KdDbTable& table) {
    if (!table.hasSubSelection()) return {0, table.numColumns() - 1};
    const KdCellRange selection = table.getSubSelection();
    return {selection.m_leftColumn, selection.m_rightColumn};
}

Target rowsOf(const KdDbTable& table) {
    if (!table.hasSubSelection()) return {0, table.numRows() - 1};
    const KdCellRange selection = table.getSubSelection();
    return {selection.m_topRow, selection.m_bottomRow};
}

/// Over all columns the table's own width counts, which may differ from the sum of theirs.
double widthToShare(const KdDbTable& table, const Target& columns) {
    if (columns.first == 0 && columns.last == table.numColumns() - 1) return table.width();
    return CVqTableCommon::GetCellRangeWidth(&table, {0, columns.first, 0, columns.last});
}

/// No plain sum, and that is wanted: a row counts only when it is higher than the total so far.
double heightToShare(const KdDbTable& table, const Target& rows) {
    double total = 0.0;
    for (int row = rows.first; row <= rows.last; ++row) {
        const double height = table.rowHeight(row);
        if (height > total) total += height;
    }
    return total;
}

}  // namespace

int CVqTableCommon::SizeColumnsEvenly(KdDbObjectId table) {
    return markedTableEdit(table, columnsMark, [](KdDbTable& open) {
        const Target columns = columnsOf(open);
        if (!columns.isSizable()) return;
        const double width = widthToShare(open, columns) / columns.count();
        for (int column = columns.first; column <= columns.last; ++column) open.setColumnWidth(column, width);
    });
}

int CVqTableCommon::SizeRowsEvenly(KdDbObjectId table) {
    return markedTableEdit(table, rowsMark, [](KdDbTable& open) {
        const Target rows = rowsOf(open);
        if (!rows.isSizable()) return;
        const double height = heightToShare(open, rows) / rows.count();
        for (int row = rows.first; row <= rows.last; ++row) open.setRowHeight(row, height);
    });
}
