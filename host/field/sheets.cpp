// Following tables: what stands in their cells, and what becomes of references when rows and columns come and go.

#include <algorithm>

#include "host/db/fieldstate.h"
#include "host/db/opening.h"
#include "host/db/tableaccess.h"
#include "host/field/engine.h"

namespace kdhost::field {
namespace {

/// Whether formulas see the same in both; what only formats a text counts for cells whose text has several parts.
bool looksTheSame(const TableRows& before, const TableRows& now, int row, int column) {
    const CellLook& a = before.look(row, column);
    const CellLook& b = now.look(row, column);
    if (a.isCovered != b.isCovered) return false;
    const CellContent& held = before.content(row, column);
    const CellContent& holds = now.content(row, column);
    const bool hasField = !held.field().isNull();
    if (hasField && (!a.overrides.shares(b.overrides) || a.style != b.style)) return false;
    return &held == &holds || (held.text == holds.text && held.field() == holds.field());
}

const KdDbTable* tableOf(const Sheet& sheet) {
    return static_cast<const KdDbTable*>(peekObject(sheet.table, true));
}

template <class Items>
void shiftItems(Items& items, const StructureChange& change, const typename Items::value_type& fresh) {
    const auto at = items.begin() + change.at;
    if (change.count > 0) {
        items.insert(at, static_cast<std::size_t>(change.count), fresh);
    } else {
        items.erase(at, at - change.count);
    }
}

}  // namespace

// ---- looking at tables

/// Takes in what has changed in the table since the sheet last saw it.
void Engine::look(Sheet& sheet) {
    const KdDbTable* table = tableOf(sheet);
    if (table == nullptr) return;
    if (std::exchange(sheet.erased, table->isErased()) != table->isErased()) markReaders(sheet);
    const TableState& state = tableState(*table);
    if (state.rowCount() != sheet.rowCount() || state.columnCount() != sheet.columns) {
        lookAtAll(sheet, state);
    } else {
        state.rows.visitChanged(sheet.seen, [&](int row) { lookAtRow(sheet, state, row); });
    }
    sheet.seen = state.rows;
}

/// The table has another size than before: nothing that was known holds.
void Engine::lookAtAll(Sheet& sheet, const TableState& state) {
    for (int row = 0; row < sheet.rowCount(); ++row) {
        for (int column = 0; column < sheet.columns; ++column) {
            const Slot& slot = sheet.at(row, column);
            if (slot.kind == SlotKind::field) fieldWent(sheet, slot.cellField, row, column);
        }
    }
    sheet.seen = {};
    sheet.columns = state.columnCount();
    sheet.fieldsInColumn.assign(static_cast<std::size_t>(sheet.columns), 0);
    sheet.rows.assign(static_cast<std::size_t>(state.rowCount()),
                      std::vector<Slot>(static_cast<std::size_t>(sheet.columns)));
    for (int row = 0; row < state.rowCount(); ++row) {
        for (int column = 0; column < sheet.columns; ++column) {
            lookAtCell(sheet, state, row, column);
        }
    }
    markReaders(sheet);
}

void Engine::lookAtRow(Sheet& sheet, const TableState& state, int row) {
    const bool isNew = sheet.seen.looks(row).empty();
    for (int column = 0; column < sheet.columns; ++column) {
        if (isNew || !looksTheSame(sheet.seen, state.rows, row, column)) lookAtCell(sheet, state, row, column);
    }
}

void Engine::lookAtCell(Sheet& sheet, const TableState& state, int row, int column) {
    const Slot now = slotOf(state, row, column);
    Slot& slot = sheet.at(row, column);
    // Of texts, and of fields of several parts, a slot says no more than that there is one.
    const bool saysAll = now.kind != SlotKind::text && (now.kind != SlotKind::field || isFormula(now.cellField));
    if (slot == now && saysAll) return;
    if (slot.cellField != now.cellField) {
        if (slot.cellField >= 0) fieldWent(sheet, slot.cellField, row, column);
        if (now.cellField >= 0) fieldCame(sheet, now.cellField, row, column);
    }
    sheet.at(row, column) = now;
    cellChanged({&sheet, row, column});
}

Slot Engine::slotOf(const TableState& state, int row, int column) {
    if (state.look(row, column).isCovered) return {};
    const CellContent& cell = state.content(row, column);
    if (!cell.field().isNull()) return {SlotKind::field, cellFieldOf(cell.field()), 0.0};
    if (cell.text.empty()) return {};
    const Value value = valueOfText(cell.text.c_str());
    switch (value.kind) {
        case ValueKind::empty:
            return {};
        case ValueKind::number:
            return {SlotKind::number, -1, value.number};
        case ValueKind::error:
            return {SlotKind::error, -1, 0.0};
        default:
            return {SlotKind::text, -1, 0.0};
    }
}

void Engine::fieldCame(Sheet& sheet, int cellField, int row, int column) {
    CellField& came = m_cellFields[static_cast<std::size_t>(cellField)];
    came.places.push_back({&sheet, row, column});
    sheet.cellFields.insert(cellField);
    sheet.countField(column, 1);
    if (came.alive && ownSheet(came) != came.own) touch(came.field);
}

void Engine::fieldWent(Sheet& sheet, int cellField, int row, int column) {
    CellField& went = m_cellFields[static_cast<std::size_t>(cellField)];
    std::erase(went.places, Place{&sheet, row, column});
    sheet.countField(column, -1);
    const bool elsewhere =
        std::any_of(went.places.begin(), went.places.end(), [&](const Place& place) { return place.sheet == &sheet; });
    if (!elsewhere) sheet.cellFields.erase(cellField);
    if (went.alive && ownSheet(went) == went.own) return;
    if (!std::exchange(went.waits, true)) m_waiting.push_back(cellField);
}

// ---- changes of structure

void Engine::fieldPlaced(const KdDbTable& table) {
    if (table.database() != nullptr) m_placedIn.insert(table.objectId());
}

/// The content of merges that lose their first cell, and go on, moves to what is left of them.
void Engine::beforeStructureChange(const KdDbTable& table, const StructureChange& change) {
    m_survivors.clear();
    const bool knowsNothing = m_sheets.empty() && m_touched.empty() && m_placedIn.empty();
    if (knowsNothing || table.database() == nullptr) return;
    if (m_placedIn.erase(table.objectId()) > 0) makeSheet(table.objectId());
    catchUp();
    Sheet* sheet = sheetOfTable(table.objectId());
    if (sheet == nullptr) return;
    look(*sheet);
    catchUp();
    const TableState& state = tableState(table);
    const int behind = change.at - change.count;
    const int count = change.rows ? state.rowCount() : state.columnCount();
    if (change.count > 0 || behind >= count) return;
    const KdCellRange edge = change.rows ? KdCellRange{behind, 0, behind, state.columnCount() - 1}
                                         : KdCellRange{0, behind, state.rowCount() - 1, behind};
    if (!state.contains(edge)) return;
    for (const KdCellRange& merge : state.mergesIn(edge)) {
        const int first = change.rows ? merge.m_topRow : merge.m_leftColumn;
        if (first < change.at || first >= behind) continue;
        m_survivors.push_back({merge.m_topRow, merge.m_leftColumn, change.rows ? change.at : merge.m_topRow,
                               change.rows ? merge.m_leftColumn : change.at});
    }
}

void Engine::afterStructureChange(const KdDbTable& table, const StructureChange& change) {
    Sheet* sheet = sheetOfTable(table.objectId());
    if (sheet == nullptr) return;
    shiftCells(*sheet, tableState(table), change);
    shiftReaders(*sheet, change);
    look(*sheet);
    catchUp();
    spread();
}

void Engine::shiftCells(Sheet& sheet, const TableState& state, const StructureChange& change) {
    const KdCellRange gone = change.rows
                                 ? KdCellRange{change.at, 0, change.at - change.count - 1, sheet.columns - 1}
                                 : KdCellRange{0, change.at, sheet.rowCount() - 1, change.at - change.count - 1};
    for (int row = gone.m_topRow; change.count < 0 && row <= gone.m_bottomRow; ++row) {
        for (int column = gone.m_leftColumn; column <= gone.m_rightColumn; ++column) {
            const Slot& slot = sheet.at(row, column);
            if (slot.kind == SlotKind::field) fieldWent(sheet, slot.cellField, row, column);
        }
    }
    shiftPlaces(sheet, change);
    if (change.rows) {
        shiftItems(sheet.rows, change, std::vector<Slot>(static_cast<std::size_t>(sheet.columns)));
        if (change.count > 0) {
            sheet.seen.insert(change.at, change.count, {});
        } else {
            sheet.seen.erase(change.at, -change.count);
        }
        return;
    }
    for (std::vector<Slot>& line : sheet.rows) shiftItems(line, change, {});
    shiftItems(sheet.fieldsInColumn, change, 0);
    sheet.columns += change.count;
    sheet.seen = state.rows;
    // Contents that moved on stand in the first column behind those that went.
    for (int row = 0; change.count < 0 && change.at < sheet.columns && row < sheet.rowCount(); ++row) {
        if (sheet.at(row, change.at) != slotOf(state, row, change.at)) {
            lookAtCell(sheet, state, row, change.at);
        }
    }
}

void Engine::shiftPlaces(Sheet& sheet, const StructureChange& change) {
    for (const int number : sheet.cellFields) {
        for (Place& place : m_cellFields[static_cast<std::size_t>(number)].places) {
            int& where = change.rows ? place.row : place.column;
            if (place.sheet == &sheet && where >= change.at) where += change.count;
        }
    }
}

/// The formulas that read the table follow; rows and columns that are added at the end move nothing. What lay or
/// lies outside the table counts anew.
void Engine::shiftReaders(Sheet& sheet, const StructureChange& change) {
    std::vector<int> readers;
    sheet.readers.visitAll([&](const RangeIndex::Reader& reader) {
        if (m_formulas[static_cast<std::size_t>(reader.formula)].version == reader.version) {
            readers.push_back(reader.formula);
        }
    });
    std::sort(readers.begin(), readers.end());
    readers.erase(std::unique(readers.begin(), readers.end()), readers.end());
    sheet.clearReaders();
    const int count = change.rows ? sheet.rowCount() : sheet.columns;
    const int alwaysInside = count - std::max(change.count, 0);
    const bool atEnd = change.count > 0 && change.at == alwaysInside;
    for (const int number : readers) {
        Formula& formula = m_formulas[static_cast<std::size_t>(number)];
        bool changed = !atEnd && rewriteReferences(formula, sheet, change);
        for (std::size_t i = 0; i < formula.sheets.size(); ++i) {
            const Reference& reference = formula.expression.references[i].reference;
            if (formula.sheets[i] != &sheet || reference.broken) continue;
            sheet.addReader(reference.cells, {number, formula.version});
            const int last = change.rows ? reference.cells.m_bottomRow : reference.cells.m_rightColumn;
            changed = changed || last >= alwaysInside;
        }
        if (changed) markOutOfDate(number);
    }
}

/// False when nothing of the formula changes.
bool Engine::rewriteReferences(Formula& formula, const Sheet& sheet, const StructureChange& change) const {
    bool changed = false;
    for (std::size_t i = 0; i < formula.sheets.size(); ++i) {
        Reference& reference = formula.expression.references[i].reference;
        if (formula.sheets[i] != &sheet) continue;
        const Reference now = follow(reference, change);
        changed = changed || now != reference;
        reference = now;
    }
    auto* field = static_cast<KdDbField*>(findObject(formula.field));
    if (!changed || field == nullptr) return changed;
    const auto [at, length] = formula.parts.expression;
    formula.code.replace(at, length, rewritten(std::wstring_view(formula.code).substr(at, length), formula.expression));
    rewriteFieldCode(*field, formula.code);
    // The pieces of the text lie elsewhere now.
    formula.parts = takeApart(formula.code);
    const Piece& piece = formula.parts.expression;
    formula.expression = parseExpression(std::wstring_view(formula.code).substr(piece.at, piece.length));
    return true;
}

Reference Engine::follow(const Reference& reference, const StructureChange& change) const {
    const KdCellRange& cells = reference.cells;
    const bool oneCell = cells.m_topRow == cells.m_bottomRow && cells.m_leftColumn == cells.m_rightColumn;
    for (const Survivor& each : m_survivors) {
        if (!oneCell || reference.broken || each.row != cells.m_topRow || each.column != cells.m_leftColumn) continue;
        Reference moved = reference;
        moved.cells = {each.newRow, each.newColumn, each.newRow, each.newColumn};
        return moved;
    }
    return after(reference, change);
}

std::wstring Engine::movedCode(const std::wstring& code, int rows, int columns) {
    const FormulaCode parts = takeApart(code);
    if (!parts.valid) return code;
    const std::wstring_view text = std::wstring_view(code).substr(parts.expression.at, parts.expression.length);
    Expression expression = parseExpression(text);
    if (!expression.valid) return code;
    for (WrittenReference& each : expression.references) each.reference = moved(each.reference, rows, columns);
    std::wstring result = code;
    return result.replace(parts.expression.at, parts.expression.length, rewritten(text, expression));
}

}  // namespace kdhost::field
