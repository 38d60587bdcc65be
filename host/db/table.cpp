// The table entity: its style, its counts and sizes, and its selection.

#include "kd/db/table.h"

#include <algorithm>
#include <cmath>

#include "host/db/fieldevaluation.h"
#include "host/db/names.h"
#include "host/db/tableaccess.h"
#include "host/db/tablelayout.h"
#include "host/db/tableplace.h"

using namespace kdhost;

namespace {

/// Infinite rows and columns have no place, and no file could keep them.
bool isSize(double given) {
    return given >= 0.0 && std::isfinite(given);
}

}  // namespace

KDRX_DEFINE_MEMBERS(KdDbTable, KdDbBlockReference)

KdDbTable::KdDbTable()
    : KdDbBlockReference(std::make_unique<TableState>()), m_transient(std::make_unique<KdDbTableTransient>()) {}

KdDbTable::~KdDbTable() = default;

KdDbObjectId KdDbTable::tableStyle() const {
    return tableState(*this).styles.tableStyle();
}

void KdDbTable::setTableStyle(const KdDbObjectId& style) {
    if (TableState* state = editTable(*this)) state->styles.setTableStyle(style);
}

int KdDbTable::numRows() const {
    return tableState(*this).rowCount();
}

void KdDbTable::setNumRows(int rows) {
    setSize(rows, numColumns());
}

int KdDbTable::numColumns() const {
    return tableState(*this).columnCount();
}

void KdDbTable::setNumColumns(int columns) {
    setSize(numRows(), columns);
}

namespace {

/// A new number of rows or columns: they come and go at the end.
StructureChange newCount(bool rows, int before, int after) {
    return {rows, std::min(before, after), after - before};
}

}  // namespace

void KdDbTable::setSize(int rows, int columns) {
    if (rows < 0 || columns < 0) return;
    TableState* state = editTable(*this);
    if (state == nullptr) return;
    // The smaller grid grows last, so that no cell is made only to go.
    const int kept = std::min(columns, state->columnCount());
    changeStructure(*this, newCount(false, state->columnCount(), kept), [&] { state->setColumnCount(kept); });
    changeStructure(*this, newCount(true, state->rowCount(), rows), [&] { state->setRowCount(rows); });
    changeStructure(*this, newCount(false, kept, columns), [&] { state->setColumnCount(columns); });
    clampSelection(*this);
    state->assertValid();
}

double KdDbTable::width() const {
    return columnPositions(*this).back();
}

double KdDbTable::columnWidth(int column) const {
    const TableState& state = tableState(*this);
    const int read = column == -1 ? 0 : column;
    if (read < 0 || read >= state.columnCount()) return kDefaultColumnWidth;
    return state.columnWidths[static_cast<std::size_t>(read)];
}

void KdDbTable::setColumnWidth(int column, double width) {
    if (column == -1) {
        setColumnWidth(width);
        return;
    }
    if (column < 0 || column >= numColumns() || !isSize(width)) return;
    TableState* state = editTable(*this);
    if (state == nullptr) return;
    state->columnWidths[static_cast<std::size_t>(column)] = width;
    state->touchLayout();
}

void KdDbTable::setColumnWidth(double width) {
    if (!isSize(width)) return;
    TableState* state = editTable(*this);
    if (state == nullptr) return;
    std::fill(state->columnWidths.begin(), state->columnWidths.end(), width);
    state->touchLayout();
}

double KdDbTable::rowHeight(int row) const {
    settleGrowth(*this);
    const TableState& state = tableState(*this);
    const int read = row == -1 ? 0 : row;
    if (read >= 0 && read < state.rowCount()) return state.rows[read].height;
    const CellFormat& data = styleFormat(state, nullptr);
    return heightOfLines(1, data.textHeight, data.marginVert);
}

void KdDbTable::setRowHeight(int row, double height) {
    if (row == -1) {
        setRowHeight(height);
        return;
    }
    if (row < 0 || row >= numRows() || !isSize(height)) return;
    TableState* state = editTable(*this);
    if (state == nullptr) return;
    state->rows.setHeight(row, height);
    state->touchGeometry();
}

void KdDbTable::setRowHeight(double height) {
    if (!isSize(height)) return;
    TableState* state = editTable(*this);
    if (state == nullptr) return;
    for (int row = 0; row < state->rowCount(); ++row) state->rows.setHeight(row, height);
    state->touchGeometry();
}

double KdDbTable::minimumColumnWidth(int column) const {
    const int read = column == -1 ? 0 : column;
    if (read < 0 || read >= numColumns()) return 0.0;
    return kdhost::minimumColumnWidth(*this, read);
}

double KdDbTable::minimumRowHeight(int row) const {
    const int read = row == -1 ? 0 : row;
    if (read < 0 || read >= numRows()) return 0.0;
    return kdhost::minimumRowHeight(*this, read);
}

void KdDbTable::generateLayout() {
    TableState* state = editTable(*this);
    if (state == nullptr) return;
    // The columns first: texts wrap at their widths.
    growAllColumns(*this, *state);
    growAllRows(*this, *state);
}

// Whoever draws a table reads it as it stands, so that there is no block to rebuild; what is left is to settle
// the heights and, in a database, to tell that the table wants drawing.
void KdDbTable::recomputeTableBlock(bool force) {
    settleGrowth(*this);
    if (force && database() != nullptr) KdDbObjectAccess::noteTransientChange(*this);
}

int KdDbTable::flowDirection() const {
    return flowOf(tableState(*this));
}

void KdDbTable::setFlowDirection(int flow) {
    if (TableState* state = editTable(*this)) state->flow = flow;
}

bool KdDbTable::isTitleSuppressed() const {
    return tableState(*this).titleSuppressed;
}

bool KdDbTable::isHeaderSuppressed() const {
    return tableState(*this).headerSuppressed;
}

void KdDbTable::suppressHeaderRow(bool suppress) {
    if (TableState* state = editTable(*this)) state->headerSuppressed = suppress;
}

void KdDbTable::setTableOption(int, int) {}

KdDb::RowType KdDbTable::rowType(int row) const {
    const TableState& state = tableState(*this);
    const int read = row == -1 ? 0 : row;
    if (read < 0 || read >= state.rowCount()) return KdDb::kDataRow;
    const std::wstring& style = state.styles.name(state.rows[read].style);
    if (sameName(style, kTitleStyle)) return KdDb::kTitleRow;
    return sameName(style, kHeaderStyle) ? KdDb::kHeaderRow : KdDb::kDataRow;
}

double KdDbTable::textHeight(KdDb::RowType rowType) const {
    const std::uint16_t style = rowType == KdDb::kTitleRow    ? CellStylePool::kTitle
                                : rowType == KdDb::kHeaderRow ? CellStylePool::kHeader
                                                              : CellStylePool::kData;
    return tableState(*this).styles.record(style).format.textHeight;
}

// ---- the selection

namespace {

constexpr KdCellRange kNothing;

/// The selection as it stands. After rows or columns went, by an undo too, it is held inside the table.
const KdCellRange& currentSelection(const KdDbTable& table) {
    KdDbTableTransient& transient = KdDbTableAccess::transient(table);
    const TableState& state = tableState(table);
    if (state.rowCount() < transient.selectionRows || state.columnCount() < transient.selectionColumns) {
        clampSelection(table);
    }
    return transient.selection;
}

void clampTo(int& place, int count) {
    place = std::min(place, count - 1);
}

}  // namespace

void kdhost::clampSelection(const KdDbTable& table) {
    KdDbTableTransient& transient = KdDbTableAccess::transient(table);
    const TableState& state = tableState(table);
    KdCellRange& selection = transient.selection;
    const bool rowsWent = state.rowCount() < transient.selectionRows;
    const bool columnsWent = state.columnCount() < transient.selectionColumns;
    transient.selectionRows = state.rowCount();
    transient.selectionColumns = state.columnCount();
    if (selection == kNothing) return;
    if (rowsWent) {
        clampTo(selection.m_topRow, state.rowCount());
        clampTo(selection.m_bottomRow, state.rowCount());
    }
    if (columnsWent) {
        clampTo(selection.m_leftColumn, state.columnCount());
        clampTo(selection.m_rightColumn, state.columnCount());
    }
    if (state.rowCount() == 0 || state.columnCount() == 0) selection = kNothing;
}

KdCellRange KdDbTable::getSubSelection() const {
    return currentSelection(*this);
}

Kdad::ErrorStatus KdDbTable::getSubSelection(int& top, int& bottom, int& left, int& right) const {
    const KdCellRange& selection = currentSelection(*this);
    top = selection.m_topRow;
    bottom = selection.m_bottomRow;
    left = selection.m_leftColumn;
    right = selection.m_rightColumn;
    return selection == kNothing ? Kdad::eNoSelection : Kdad::eOk;
}

void KdDbTable::setSubSelection(int top, int bottom, int left, int right) {
    setSubSelection(KdCellRange{top, left, bottom, right});
}

void KdDbTable::setSubSelection(const KdCellRange& range) {
    if (range == currentSelection(*this)) return;
    m_transient->selection = range;
    m_transient->selectionRows = numRows();
    m_transient->selectionColumns = numColumns();
    KdDbObjectAccess::noteTransientChange(*this);
}

void KdDbTable::clearSubSelection() {
    setSubSelection(kNothing);
}

bool KdDbTable::hasSubSelection() const {
    return currentSelection(*this) != kNothing;
}

void TableState::settle(const KdDbObject& self) const {
    settleGrowth(static_cast<const KdDbTable&>(self));
}

void TableState::wasPutBack(KdDbObject& self) const {
    clampSelection(static_cast<const KdDbTable&>(self));
}
