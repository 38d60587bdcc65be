// Cells copied from table to table, and whole tables.
//
// A single source cell is spread over the whole target; a larger source is laid down once, its top left cell
// on the target's. Content and format come along, merges too; sizes don't. Of a cell whose content or format
// is locked that part stays.

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/fieldevaluation.h"
#include "host/db/fieldstate.h"
#include "host/db/tableaccess.h"
#include "host/db/tablelayout.h"
#include "host/db/travellingcells.h"
#include "kd/db/field.h"

using namespace kdhost;

namespace {

int heightOf(const KdCellRange& range) {
    return range.m_bottomRow - range.m_topRow + 1;
}

int widthOf(const KdCellRange& range) {
    return range.m_rightColumn - range.m_leftColumn + 1;
}

/// A cell's place in its table.
struct CellPlace {
    int row;
    int column;
};

/// Formulas move with their cell, as spreadsheets do it: what they read lies where it lay, seen from the cell. One that
/// has come without what it reads moves from where it was written.
void moveFormulas(KdDbField& field, CellPlace from, CellPlace to) {
    auto& state = static_cast<KdDbFieldState&>(KdDbObjectAccess::stateForMaker(field));
    if (isFormulaCode(state.code)) {
        const auto written = std::exchange(state.asWritten, nullptr);
        const CellPlace origin = written == nullptr ? from : CellPlace{written->row, written->column};
        const std::wstring code = written == nullptr ? state.code : written->code;
        tellFieldEvaluation([&](FieldEvaluation& each) {
            state.code = each.movedCode(code, to.row - origin.row, to.column - origin.column);
        });
    }
    for (KdDbFieldChild& child : state.children) {
        if (child.inMemory() != nullptr) moveFormulas(*child.inMemory(), from, to);
    }
}

/// A copy of the field in the target's database, for another cell; the field itself where there is no database to copy
/// it to.
KdDbObjectId fieldFor(const KdDbTable& target, KdDbObjectId field, CellPlace from, CellPlace to) {
    const auto* source = peek<KdDbField>(field);
    if (source == nullptr || target.database() == nullptr) return field;
    std::unique_ptr<KdDbField> copy = copyOfField(*source);
    moveFormulas(*copy, from, to);
    return KdDbDatabaseAccess::insert(*target.database(), std::move(copy), target.objectId());
}

/// The source cells, taken before the target changes: it may be the same table.
struct CopiedCell {
    CellLook look;
    CellContent content;
    CellPlace place;
};

class CellCopy {
public:
    CellCopy(const KdDbTable& source, KdDbTable& target, const KdCellRange& from)
        : m_table(target), m_rows(heightOf(from)), m_columns(widthOf(from)) {
        const TableState& state = tableState(source);
        m_cells.reserve(static_cast<std::size_t>(m_rows) * static_cast<std::size_t>(m_columns));
        for (int row = from.m_topRow; row <= from.m_bottomRow; ++row) {
            for (int column = from.m_leftColumn; column <= from.m_rightColumn; ++column) {
                const CellLook& look = state.look(row, column);
                m_cells.push_back({look, state.content(row, column), {row, column}});
                if (m_styles.contains(look.style)) continue;
                m_styles.emplace(look.style, StyleName{state.styles.name(look.style), std::nullopt});
            }
        }
        for (KdCellRange merge : state.mergesIn(from)) {
            // A merge that the range cuts comes along as far as it lies in the range.
            merge.m_topRow = std::max(merge.m_topRow, from.m_topRow) - from.m_topRow;
            merge.m_bottomRow = std::min(merge.m_bottomRow, from.m_bottomRow) - from.m_topRow;
            merge.m_leftColumn = std::max(merge.m_leftColumn, from.m_leftColumn) - from.m_leftColumn;
            merge.m_rightColumn = std::min(merge.m_rightColumn, from.m_rightColumn) - from.m_leftColumn;
            if (heightOf(merge) * widthOf(merge) > 1) m_merges.push_back(merge);
        }
    }

    bool changesMerges(const TableState& state, const KdCellRange& to) const {
        return !single() && !(m_merges.empty() && state.mergesIn(to).empty());
    }
    bool single() const { return m_rows == 1 && m_columns == 1; }

    /// Lays the copy over `to`, which has the source's size or takes a single cell everywhere.
    void layDown(TableState& state, const KdCellRange& to) {
        if (!single()) rebuildMerges(state, to);
        for (int row = to.m_topRow; row <= to.m_bottomRow; ++row) {
            for (int column = to.m_leftColumn; column <= to.m_rightColumn; ++column) {
                const std::size_t index =
                    single() ? 0 : static_cast<std::size_t>((row - to.m_topRow) * m_columns + column - to.m_leftColumn);
                put(state, row, column, m_cells[index]);
            }
        }
    }

private:
    void rebuildMerges(TableState& state, const KdCellRange& to) {
        for (const KdCellRange& merge : state.mergesIn(to)) state.unmerge(merge);
        for (const KdCellRange& merge : m_merges) {
            state.merge({merge.m_topRow + to.m_topRow, merge.m_leftColumn + to.m_leftColumn,
                         merge.m_bottomRow + to.m_topRow, merge.m_rightColumn + to.m_leftColumn});
        }
    }

    void put(TableState& state, int row, int column, const CopiedCell& from) {
        const bool content = contentEditable(state, row, column) && !state.look(row, column).isCovered;
        const bool format = formatEditable(state, row, column);
        if (!content && !format) return;
        if (format) {
            const std::uint16_t style = placeOf(from.look.style, state.styles);
            CellLook& look = state.rows.writeLook(row, column);
            look.style = style;
            look.overrides = from.look.overrides;
        }
        if (!content) return;
        CellContent& cell = state.rows.writeContent(row, column);
        cell = from.content;
        if (!cell.field().isNull()) {
            cell.objects.write().field = fieldFor(m_table, cell.field(), from.place, {row, column});
        }
        if (!cell.empty()) noteGrowth(state, row, column);
    }

    /// Where the target has the cell style that the source has at a place.
    std::uint16_t placeOf(std::uint16_t style, CellStylePool& pool) {
        StyleName& known = m_styles.at(style);
        if (!known.place) known.place = pool.place(known.name.c_str());
        return *known.place;
    }

    /// One of the source's cell styles, and its place in the target once that is known.
    struct StyleName {
        std::wstring name;
        std::optional<std::uint16_t> place;
    };

    const KdDbTable& m_table;
    int m_rows;
    int m_columns;
    std::vector<CopiedCell> m_cells;
    std::unordered_map<std::uint16_t, StyleName> m_styles;
    std::vector<KdCellRange> m_merges;  ///< relative to the source range
};

/// Where the copy will lie: the target range for a single cell, else the source's size from the target's top
/// left cell on.
KdCellRange targetFor(const CellCopy& copy, const KdCellRange& from, const KdCellRange& to) {
    if (copy.single()) return to;
    return {to.m_topRow, to.m_leftColumn, to.m_topRow + heightOf(from) - 1, to.m_leftColumn + widthOf(from) - 1};
}

}  // namespace

Kdad::ErrorStatus KdDbTable::copyFrom(const KdDbTable* source, KdDb::TableCopyOption, const KdCellRange& sourceRange,
                                      const KdCellRange& targetRange, KdCellRange* outRange) {
    if (source == nullptr) return Kdad::eNullObjectPointer;
    const TableState& before = tableState(*this);
    KdCellRange from;
    KdCellRange to;
    if (!cellsOf(tableState(*source), sourceRange, from) || !cellsOf(before, targetRange, to))
        return Kdad::eInvalidInput;
    CellCopy copy(*source, *this, from);
    to = targetFor(copy, from, to);
    // A merge that sticks out of the target would be torn.
    if (!before.contains(to)) return Kdad::eInvalidInput;
    if (!copy.single() && before.grownToMerges(to) != to) return Kdad::eInvalidInput;
    if (copy.changesMerges(before, to) && hasContentLock(before, to)) return Kdad::eLockViolation;
    TableState* state = editTable(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    copy.layDown(*state, to);
    state->assertValid();
    if (outRange != nullptr) *outRange = to;
    tellFieldEvaluation([&](FieldEvaluation& each) { each.fieldPlaced(*this); });
    return Kdad::eOk;
}

namespace {

/// A table that took over another one's cells shows fields of its own.
void copyFields(KdDbTable& table, TableState& state) {
    for (int row = 0; row < state.rowCount(); ++row) {
        for (int column = 0; column < state.columnCount(); ++column) {
            const KdDbObjectId field = state.content(row, column).field();
            if (field.isNull()) continue;
            state.rows.writeContent(row, column).objects.write().field =
                fieldFor(table, field, {row, column}, {row, column});
        }
    }
    tellFieldEvaluation([&](FieldEvaluation& each) { each.fieldPlaced(table); });
}

}  // namespace

Kdad::ErrorStatus KdDbTable::copyFrom(const KdRxObject* source) {
    const Kdad::ErrorStatus status = KdDbBlockReference::copyFrom(source);
    if (status != Kdad::eOk) return status;
    clampSelection(*this);
    const bool tookCells = source != this && database() != nullptr;
    if (tookCells) copyFields(*this, *writableStateOf<TableState>(*this));
    return status;
}
