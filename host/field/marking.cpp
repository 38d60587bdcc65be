// Marking what is out of date, and telling whoever shows it.

#include <algorithm>
#include <tuple>

#include "host/db/databasecontents.h"
#include "host/db/objectstate.h"
#include "host/db/opening.h"
#include "host/field/engine.h"
#include "kd/db/field.h"
#include "kd/db/tablestyle.h"

namespace kdhost::field {

void Engine::fieldTouched(KdDbObjectId field) {
    touch(field);
}

void Engine::fieldGone(KdDbObjectId field) {
    touch(field);
    m_fieldsWent = true;
}

void Engine::objectChanged(KdDbObjectId id) {
    const KdDbObject* object = peekObject(id, true);
    if (object == nullptr) return;
    if (object->isKindOf(KdDbField::desc())) {
        touch(id);
    } else if (object->isKindOf(KdDbTable::desc())) {
        if (m_placedIn.erase(id) > 0) makeSheet(id);
        catchUp();
        if (Sheet* sheet = sheetOfTable(id)) look(*sheet);
    } else if (object->isKindOf(KdDbTableStyle::desc())) {
        markMixed(object->database());
    } else {
        return;
    }
    catchUp();
    spread();
    tellOthers(id);
}

/// Everything that reads the table.
void Engine::markReaders(Sheet& sheet) {
    sheet.readers.visitAll([&](const RangeIndex::Reader& reader) {
        if (m_formulas[static_cast<std::size_t>(reader.formula)].version == reader.version) {
            markOutOfDate(reader.formula);
        }
    });
}

/// What depends on a formula that is out of date is so, too: nothing new is to be done for one that was already.
void Engine::markOutOfDate(int formula) {
    Formula& marked = m_formulas[static_cast<std::size_t>(formula)];
    if (!std::exchange(marked.clean, false)) return;
    for (const int number : marked.cellFields) {
        const CellField& cellField = m_cellFields[static_cast<std::size_t>(number)];
        m_changes.insert(m_changes.end(), cellField.places.begin(), cellField.places.end());
        noteRedraw(cellField);
        for (const int other : cellField.formulas) {
            if (!m_formulas[static_cast<std::size_t>(other)].childFormulas.empty()) markOutOfDate(other);
        }
    }
}

/// Cells whose text has several parts are read as they are shown, so that the way of writing counts.
void Engine::markMixed(const KdDbDatabase* database) {
    for (const CellField& cellField : m_cellFields) {
        const KdDbObject* field = cellField.alive && !cellField.isFormula ? peekObject(cellField.field) : nullptr;
        if (field == nullptr || field->database() != database) continue;
        m_changes.insert(m_changes.end(), cellField.places.begin(), cellField.places.end());
    }
}

/// Marks all that depends on the cells that have changed, wave after wave. Cells that lie below each other are
/// looked up as one.
void Engine::spread() {
    const auto order = [](const Place& a, const Place& b) {
        return std::tie(a.sheet, a.column, a.row) < std::tie(b.sheet, b.column, b.row);
    };
    while (!m_changes.empty()) {
        std::vector<Place> wave = std::exchange(m_changes, {});
        std::sort(wave.begin(), wave.end(), order);
        for (std::size_t first = 0, next = 0; first < wave.size(); first = next) {
            const Place& begin = wave[first];
            int last = begin.row;
            for (next = first + 1; next < wave.size(); ++next) {
                const Place& place = wave[next];
                if (place.sheet != begin.sheet || place.column != begin.column || place.row > last + 1) break;
                last = place.row;
            }
            begin.sheet->readers.visit(begin.column, begin.row, last, [&](const RangeIndex::Reader& reader) {
                if (m_formulas[static_cast<std::size_t>(reader.formula)].version == reader.version) {
                    markOutOfDate(reader.formula);
                }
            });
        }
    }
}

void Engine::noteRedraw(const CellField& cellField) {
    for (const Place& place : cellField.places) m_redraw.insert(place.sheet->table);
    if (cellField.places.empty() && cellField.shownBy.isValid()) m_redraw.insert(cellField.shownBy);
}

/// What shows another text now has changed, though nobody had it open.
void Engine::tellOthers(KdDbObjectId told) {
    for (const KdDbObjectId id : std::exchange(m_redraw, {})) {
        const KdDbObject* object = id == told ? nullptr : peekObject(id);
        if (object != nullptr) KdDbObjectAccess::noteTransientChange(*object);
    }
}

}  // namespace kdhost::field
