// The looks of cells: the effective values that getters give, the overrides that setters make.

#include <tuple>
#include <utility>

#include "host/db/tableaccess.h"
#include "host/db/tablelayout.h"

using namespace kdhost;

namespace {

/// Apart, so that a getter keeps no registers for a call that it nearly never makes.
template <class Read>
[[gnu::noinline]] decltype(auto) readAnew(const TableState& state, int row, int column, Read read) {
    state.styles.refresh();
    return read(formatCell(state, row, column));
}

/// What `read(state, cell)` gives for the cell whose format a getter reads, with its style as it is now.
template <class Read>
[[gnu::always_inline]] inline decltype(auto) readFormat(const KdDbTable& table, int row, int column, Read read) {
    const TableState& state = tableState(table);
    const auto readCell = [&state, read](const CellLook* cell) -> decltype(auto) { return read(state, cell); };
    if (!state.styles.isFresh()) [[unlikely]]
        return readAnew(state, row, column, readCell);
    return readFormatCell(state, row, column, readCell);
}

template <class T>
[[gnu::always_inline]] inline T read(const KdDbTable& table, int row, int column, const FormatProperty<T>& which) {
    return readFormat(table, row, column, [&](const TableState& state, const CellLook* cell) {
        return effective(lastStyleFormat(state, cell), cell, which);
    });
}

template <class T>
void override(KdDbTable& table, int row, int column, const FormatProperty<T>& which, const T& value) {
    OverrideMemo& memo = KdDbTableAccess::transient(table).overrideMemo;
    changeCells(table, row, column, formatEditable, [&](TableState& state, int r, int c) {
        memo.set(state.rows.writeLook(r, c), Override{which, value});
    });
}

/// The same for what a text is measured by: the cell's row grows as it does when a text is written.
template <class T>
void overrideSize(KdDbTable& table, int row, int column, const FormatProperty<T>& which, const T& value) {
    OverrideMemo& memo = KdDbTableAccess::transient(table).overrideMemo;
    const auto gate = [&](KdDbTable& gated) { return editSizeOfCell(gated, row, column); };
    const auto change = [&](TableState& state, int r, int c) {
        memo.set(state.rows.writeLook(r, c), Override{which, value});
        noteGrowth(state, r, c);
    };
    changeCells(table, row, column, formatEditable, change, gate);
}

[[gnu::noinline]] bool compareMeasures(KdDbTableTransient::StyleChange& change) {
    const auto measures = [](const CellStyleRecord* record) {
        const CellFormat& format = record->format;
        return std::tie(format.textStyle, format.textHeight, format.rotation, format.marginHorz, format.marginVert,
                        format.dataType, format.unitType, format.format);
    };
    change.measuresOtherwise = measures(change.from) != measures(change.to);
    return change.measuresOtherwise;
}

/// Whether texts may need other rooms in cells of the one style and of the other: asked for cell after cell.
[[gnu::always_inline]] inline bool measuresOtherwise(const KdDbTable& table, const CellStylePool& styles,
                                                     std::uint16_t before, std::uint16_t after) {
    if (before == after) return false;
    KdDbTableTransient::StyleChange& last = KdDbTableAccess::transient(table).styleChange;
    const std::uint64_t revision = styles.revision();
    const CellStyleRecord* from = &styles.lastRecord(before);
    const CellStyleRecord* to = &styles.lastRecord(after);
    if (last.revision == revision && last.from == from && last.to == to) return last.measuresOtherwise;
    last = {revision, from, to};
    return compareMeasures(last);
}

}  // namespace

KdDb::CellAlignment KdDbTable::alignment(int row, int column) const {
    return read(*this, row, column, property::alignment);
}

void KdDbTable::setAlignment(int row, int column, KdDb::CellAlignment alignment) {
    if (alignment < KdDb::kTopLeft || alignment > KdDb::kBottomRight) return;
    override(*this, row, column, property::alignment, alignment);
}

KdCmColor KdDbTable::backgroundColor(int row, int column) const {
    return read(*this, row, column, property::background);
}

void KdDbTable::setBackgroundColor(int row, int column, const KdCmColor& color) {
    override(*this, row, column, property::background, color);
}

KdCmColor KdDbTable::contentColor(int row, int column) const {
    return read(*this, row, column, property::color);
}

void KdDbTable::setContentColor(int row, int column, const KdCmColor& color) {
    override(*this, row, column, property::color, color);
}

KdDbObjectId KdDbTable::textStyle(int row, int column) const {
    return read(*this, row, column, property::textStyle);
}

void KdDbTable::setTextStyle(int row, int column, const KdDbObjectId& style) {
    overrideSize(*this, row, column, property::textStyle, style);
}

double KdDbTable::textHeight(int row, int column) const {
    return read(*this, row, column, property::textHeight);
}

void KdDbTable::setTextHeight(int row, int column, double height) {
    if (height > 0.0) overrideSize(*this, row, column, property::textHeight, height);
}

const wchar_t* KdDbTable::format(int row, int column) const {
    return readFormat(*this, row, column, [](const TableState& state, const CellLook* cell) {
        return effective(lastStyleFormat(state, cell), cell, property::format).c_str();
    });
}

void KdDbTable::setDataFormat(int row, int column, const wchar_t* format) {
    override(*this, row, column, property::format, std::wstring(format == nullptr ? L"" : format));
}

void KdDbTable::getDataType(int row, int column, KdValue::DataType& dataType, KdValue::UnitType& unitType) const {
    readFormat(*this, row, column, [&](const TableState& state, const CellLook* cell) {
        const CellFormat& inherited = lastStyleFormat(state, cell);
        dataType = effective(inherited, cell, property::dataType);
        unitType = effective(inherited, cell, property::unitType);
    });
}

void KdDbTable::setDataType(int row, int column, KdValue::DataType dataType, KdValue::UnitType unitType) {
    OverrideMemo& memo = KdDbTableAccess::transient(*this).overrideMemo;
    changeCells(*this, row, column, formatEditable, [&](TableState& state, int r, int c) {
        memo.set(state.rows.writeLook(r, c), Override{property::dataType, dataType},
                 Override{property::unitType, unitType});
    });
}

double KdDbTable::margin(int row, int column, KdDb::CellMargin margin) const {
    return read(*this, row, column, margin == KdDb::kCellMarginLeft ? property::marginHorz : property::marginVert);
}

bool KdDbTable::isMergeAllEnabled(int row, int column) const {
    const TableState& state = tableState(*this);
    return styleFormat(state, formatCell(state, row, column)).mergeAll;
}

const wchar_t* KdDbTable::cellStyle(int row, int column) const {
    return readFormat(*this, row, column, [](const TableState& state, const CellLook* cell) {
        return state.styles.lastName(stylePlace(cell)).c_str();
    });
}

void KdDbTable::setCellStyle(int row, int column, const wchar_t* name) {
    if (name == nullptr || *name == L'\0') return;
    std::uint16_t place = 0;
    const auto gate = [&](KdDbTable& table) {
        TableState* state = editSizeOfCell(table, row, column);
        if (state != nullptr) place = state->styles.place(name);
        return state;
    };
    const auto change = [&](TableState& state, int r, int c) {
        const std::uint16_t before = std::exchange(state.rows.writeLook(r, c).style, place);
        if (measuresOtherwise(*this, state.styles, before, place)) noteGrowth(state, r, c, PendingGrowth::For::Content);
        // The style of a whole row is the row's own too: it tells the row's type.
        if (column == -1) state.rows.write(r).style = place;
    };
    changeCells(*this, row, column, formatEditable, change, gate);
}

void KdDbTable::clearCellOverrides(int row, int column) {
    changeCells(*this, row, column, formatEditable,
                [](TableState& state, int r, int c) { state.rows.writeLook(r, c).overrides = {}; });
}

void KdDbTable::clearTableStyleOverrides(int) {
    clearCellOverrides(-1, -1);
}
