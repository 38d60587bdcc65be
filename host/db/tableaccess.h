// What the sources of the table share: the gate that changes pass, the cells that a setter's row and column
// stand for, and the effective value of a property.
#pragma once

#include <map>
#include <vector>

#include "host/db/tableoverrides.h"
#include "host/db/tablestate.h"
#include "host/text/layout.h"
#include "kd/db/table.h"

/// What a table has beside its state: the selection, which undo leaves alone, and what is worked out once and
/// kept until the state changes.
struct KdDbTableTransient {
    KdCellRange selection;
    int selectionRows = 0;  ///< size of the table that the selection was made or last seen in
    int selectionColumns = 0;

    std::uint64_t positionsStamp = 0;
    std::vector<double> rowPositions;     ///< edges of the rows, from the table's position
    std::vector<double> columnPositions;  ///< one more than there are columns

    std::map<KdDbObjectId, std::wstring> fieldTexts;   ///< given out as pointers
    std::map<KdDbObjectId, kdhost::text::Font> fonts;  ///< that rows were measured with, by text style
    kdhost::OverrideMemo overrideMemo;

    /// The last change of a cell's style, good while the styles stay: cells mostly come from one style.
    struct StyleChange {
        std::uint64_t revision = 0;
        const kdhost::CellStyleRecord* from = nullptr;
        const kdhost::CellStyleRecord* to = nullptr;
        bool measuresOtherwise = false;  ///< texts may need other rooms in the one and in the other
    };
    StyleChange styleChange;
};

struct KdDbTableAccess {
    static KdDbTableTransient& transient(const KdDbTable& table) { return *table.m_transient; }
};

namespace kdhost {

inline const TableState& tableState(const KdDbTable& table) {
    return stateOf<TableState>(table);
}

/// The state for a change; null when the table may not be written now. Row heights that still follow from
/// texts written earlier are settled first, so that they don't depend on the change.
TableState* editTable(KdDbTable& table);

/// The same for a change that one cell alone is measured by. While a walk changes cell after cell, the growth of those
/// behind it doesn't depend on what it changes next, so that their heights stay to be settled together.
TableState* editSizeOfCell(KdDbTable& table, int row, int column);

/// Holds the selection inside the table when rows or columns went since it was made.
void clampSelection(const KdDbTable& table);

/// The cells that a row and a column of -1 or more stand for; nothing for a place outside the table.
bool targetOf(const TableState& state, int row, int column, KdCellRange& target);

/// A range of cells, whole rows or whole columns as cells; false for one that is reversed or not inside the
/// table.
bool cellsOf(const TableState& state, const KdCellRange& range, KdCellRange& cells);

/// Lets a getter's row and column name the first cell of what they stand for; false outside the table.
inline bool toFirstCell(const TableState& state, int& row, int& column) {
    if (state.contains(row, column)) [[likely]]
        return true;
    if (row == -1) row = 0;
    if (column == -1) column = 0;
    return state.contains(row, column);
}

/// The cell whose format a getter reads: of whole rows and columns the first, of a covered cell its owner;
/// null outside the table.
[[gnu::always_inline]] inline const CellLook* formatCell(const TableState& state, int row, int column) {
    return toFirstCell(state, row, column) ? &state.ownerLook(row, column) : nullptr;
}
/// The same for content, which each cell has to itself. A covered cell shows nothing, whatever it holds: null too.
[[gnu::always_inline]] inline const CellContent* shownContent(const TableState& state, int row, int column) {
    if (!toFirstCell(state, row, column) || state.look(row, column).isCovered) return nullptr;
    return &state.content(row, column);
}

// Getters are asked for every cell of large tables, so that their way to a cell near the last one is short and
// always inline. Every other way is a call that they end with: they keep no registers for it.

template <auto find, class Read>
[[gnu::noinline]] decltype(auto) readFar(const TableState& state, int row, int column, Read read) {
    return read(find(state, row, column));
}

/// What formatCell() finds, where that is the cell itself and near; else null.
[[gnu::always_inline]] inline const CellLook* nearLook(const TableState& state, int row, int column) {
    const CellLook* look = state.nearLook(row, column);
    return look == nullptr || look->isCovered ? nullptr : look;
}

/// What `read(look)` gives for the cell that formatCell() finds.
template <class Read>
[[gnu::always_inline]] inline decltype(auto) readFormatCell(const TableState& state, int row, int column, Read read) {
    const CellLook* look = nearLook(state, row, column);
    if (look == nullptr) [[unlikely]]
        return readFar<formatCell>(state, row, column, read);
    return read(look);
}
/// What `read(content)` gives for the one that shownContent() finds.
template <class Read>
[[gnu::always_inline]] inline decltype(auto) readShownContent(const TableState& state, int row, int column, Read read) {
    const CellLook* look = state.nearLook(row, column);
    if (look == nullptr) [[unlikely]]
        return readFar<shownContent>(state, row, column, read);
    return read(look->isCovered ? nullptr : &state.rows.nearBody(row).content(static_cast<std::size_t>(column)));
}

inline constexpr unsigned kContentLocks = KdDb::kCellStateContentLocked | KdDb::kCellStateContentReadOnly;
inline constexpr unsigned kFormatLocks = KdDb::kCellStateFormatLocked | KdDb::kCellStateFormatReadOnly;

/// None of the locks is set, in the cell or in its merge's owner. False outside the table.
bool unlockedFar(const TableState& state, int row, int column, unsigned locks);
inline bool unlocked(const TableState& state, int row, int column, unsigned locks) {
    const CellLook* look = nearLook(state, row, column);
    if (look == nullptr) [[unlikely]]
        return unlockedFar(state, row, column, locks);
    return (look->state & locks) == 0;
}
inline constexpr auto contentEditable = [](const TableState& state, int row, int column) {
    return unlocked(state, row, column, kContentLocks);
};
inline constexpr auto formatEditable = [](const TableState& state, int row, int column) {
    return unlocked(state, row, column, kFormatLocks);
};
/// Whether the content of some cell of the range is not editable.
bool hasContentLock(const TableState& state, const KdCellRange& cells);

/// A place outside the table has the format of a fresh cell of style "_DATA".
inline std::uint16_t stylePlace(const CellLook* cell) {
    return cell == nullptr ? CellStylePool::kData : cell->style;
}
inline const CellFormat& styleFormat(const TableState& state, const CellLook* cell) {
    return state.styles.record(stylePlace(cell)).format;
}
/// The same as the last look at the table style found it.
inline const CellFormat& lastStyleFormat(const TableState& state, const CellLook* cell) {
    return state.styles.lastRecord(stylePlace(cell)).format;
}

template <class T>
const T& effective(const CellFormat& inherited, const CellLook* cell, const FormatProperty<T>& which) {
    const T* own = cell == nullptr ? nullptr : cell->ownValue(which);
    return own != nullptr ? *own : which.in(inherited);
}
template <class T>
const T& effective(const TableState& state, const CellLook* cell, const FormatProperty<T>& which) {
    return effective(styleFormat(state, cell), cell, which);
}

/// changeCells() for whole rows and columns. Apart, since setters are mostly called cell by cell.
template <class May, class Change, class Gate>
[[gnu::noinline]] void changeLines(KdDbTable& table, int row, int column, May& may, Change& change, Gate& gate) {
    KdCellRange target;
    if (!targetOf(tableState(table), row, column, target)) return;
    TableState* state = nullptr;
    for (int r = target.m_topRow; r <= target.m_bottomRow; ++r) {
        for (int c = target.m_leftColumn; c <= target.m_rightColumn; ++c) {
            if (!may(tableState(table), r, c)) continue;
            if (state == nullptr) state = gate(table);
            if (state == nullptr) return;
            change(*state, r, c);
        }
    }
}

/// Calls `change(state, row, column)` for each cell that the row and column stand for and `may(state, row,
/// column)` allows. Without such a cell the table isn't touched.
template <class May, class Change, class Gate = TableState* (*)(KdDbTable&)>
[[gnu::always_inline]] inline void changeCells(KdDbTable& table, int row, int column, May may, Change change,
                                               Gate gate = editTable) {
    const TableState& before = tableState(table);
    if (!before.contains(row, column)) return changeLines(table, row, column, may, change, gate);
    if (!may(before, row, column)) return;
    if (TableState* state = gate(table)) change(*state, row, column);
}

}  // namespace kdhost
