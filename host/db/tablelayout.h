// How high rows and how wide columns must be for what stands in them.
#pragma once

#include "host/db/tableaccess.h"

namespace kdhost {

/// The font of a cell's text style; a null style is the database's current one.
text::Font cellFont(const KdDbTable& table, KdDbObjectId textStyle);

double minimumRowHeight(const KdDbTable& table, int row);
double minimumColumnWidth(const KdDbTable& table, int column);

/// A text has been written to the cell, or what it holds is measured otherwise: its row is to grow, now or when heights
/// are next asked for.
inline void noteGrowth(TableState& state, int row, int column, PendingGrowth::For what = PendingGrowth::For::Text) {
    state.pendingGrowth.note({row, column}, what);
}

/// Grows the rows whose texts were noted. Asked for by whatever depends on row heights, and before every change.
void growNotedRows(const KdDbTable& table);
inline void settleGrowth(const KdDbTable& table) {
    if (!tableState(table).pendingGrowth.blocks.empty()) growNotedRows(table);
}

/// Widens every column that is too narrow for its content.
void growAllColumns(const KdDbTable& table, TableState& state);

/// Grows every row to what its content needs.
void growAllRows(const KdDbTable& table, const TableState& state);

/// The evaluated text of the cell's field.
const wchar_t* shownField(const KdDbTable& table, const CellContent& cell);
/// The text that a cell shows: its own, or its field's. Valid until the next change of the table.
inline const wchar_t* shownText(const KdDbTable& table, const CellContent& cell) {
    return cell.hasField() ? shownField(table, cell) : cell.text.c_str();
}

/// Edges of the rows and columns, from the table's position along and across its rows.
const std::vector<double>& rowPositions(const KdDbTable& table);
const std::vector<double>& columnPositions(const KdDbTable& table);

}  // namespace kdhost
