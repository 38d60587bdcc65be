// Evaluating: what a formula reads comes before it, and formulas that read each other in a circle show "####".
//
// The walk keeps its own stack, so that a chain of any length is followed; formulas that depend on each other are
// found as the walk comes back to one that it hasn't left (the strongly connected components of what is read).

#include <algorithm>

#include "host/db/databasecontents.h"
#include "host/db/fieldstate.h"
#include "host/db/opening.h"
#include "host/db/tableaccess.h"
#include "host/field/engine.h"

namespace kdhost::field {

/// Passes over the formulas that a formula reads and that are out of date.
class Engine::Reading {
public:
    explicit Reading(const Formula& formula) : m_formula(formula) { enterReference(); }

    /// -1 at the end.
    int next(const Engine& engine) {
        for (; m_reference < m_formula.sheets.size(); ++m_reference, enterReference()) {
            for (; m_row <= m_cells.m_bottomRow; ++m_row, m_column = m_cells.m_leftColumn) {
                for (; m_column <= m_cells.m_rightColumn; ++m_column, m_inside = 0) {
                    const int found = nextInCell(engine);
                    if (found >= 0) return found;
                }
            }
        }
        while (m_inside < m_formula.childFormulas.size()) {
            const auto known = engine.m_formulaOf.find(m_formula.childFormulas[m_inside++]);
            if (known != engine.m_formulaOf.end() && !engine.isClean(known->second)) return known->second;
        }
        return -1;
    }

private:
    void enterReference() {
        m_inside = 0;
        m_cells = {};
        m_row = 0;
        if (m_reference >= m_formula.sheets.size()) return;
        const Reference& reference = m_formula.expression.references[m_reference].reference;
        m_sheet = m_formula.sheets[m_reference];
        if (!leadsToCells(reference, m_sheet) || !holdsFields(reference.cells)) return;
        m_cells = reference.cells;
        m_row = m_cells.m_topRow;
        m_column = m_cells.m_leftColumn;
    }

    bool holdsFields(const KdCellRange& cells) const {
        int column = cells.m_leftColumn;
        while (column <= cells.m_rightColumn && !m_sheet->hasFields(column)) ++column;
        return column <= cells.m_rightColumn;
    }

    int nextInCell(const Engine& engine) {
        const Slot& slot = m_sheet->at(m_row, m_column);
        if (slot.kind != SlotKind::field) return -1;
        const std::vector<int>& formulas = engine.m_cellFields[static_cast<std::size_t>(slot.cellField)].formulas;
        while (m_inside < formulas.size()) {
            const int formula = formulas[m_inside++];
            if (!engine.isClean(formula)) return formula;
        }
        return -1;
    }

    const Formula& m_formula;
    std::size_t m_reference = 0;
    const Sheet* m_sheet = nullptr;
    KdCellRange m_cells;  ///< of the reference, or none
    int m_row = 0;
    int m_column = 0;
    std::size_t m_inside = 0;
};

/// One walk over what a formula reads, and what that reads.
class Engine::Walk {
public:
    explicit Walk(Engine& engine) : m_engine(engine) {}

    void from(int formula) {
        enter(formula);
        while (!m_path.empty()) {
            const int next = m_path.back().reading.next(m_engine);
            if (next < 0) {
                leave();
            } else if (at(next).order == 0) {
                enter(next);
            } else {
                // Not left yet, or it would be clean.
                at(m_path.back().formula).lowest = std::min(at(m_path.back().formula).lowest, at(next).order);
                at(next).readsItself = at(next).readsItself || next == m_path.back().formula;
            }
        }
    }

private:
    struct Step {
        int formula;
        Reading reading;
    };

    Formula& at(int formula) { return m_engine.m_formulas[static_cast<std::size_t>(formula)]; }

    void enter(int formula) {
        at(formula).order = at(formula).lowest = ++m_count;
        at(formula).readsItself = false;
        m_path.push_back({formula, Reading(at(formula))});
        m_open.push_back(formula);
    }

    void leave() {
        const int formula = m_path.back().formula;
        m_path.pop_back();
        if (!m_path.empty()) {
            Formula& reader = at(m_path.back().formula);
            reader.lowest = std::min(reader.lowest, at(formula).lowest);
        }
        if (at(formula).lowest == at(formula).order) settle(formula);
    }

    /// The formulas from that one on read each other, or it is the only one.
    void settle(int formula) {
        const bool inCircle = m_open.back() != formula || at(formula).readsItself;
        for (int settled = -1; settled != formula;) {
            settled = m_open.back();
            m_open.pop_back();
            Formula& done = at(settled);
            done.value = inCircle ? Value::error() : m_engine.resultOf(done);
            done.clean = true;
            done.hasText = false;
            done.order = 0;
        }
    }

    Engine& m_engine;
    std::vector<Step> m_path;
    std::vector<int> m_open;  ///< entered and not settled yet
    int m_count = 0;
};

void Engine::evaluate(int formula) {
    if (!isClean(formula)) Walk(*this).from(formula);
}

// ---- values

namespace {

const KdDbField* childOf(const KdDbField* field, int child) {
    if (field == nullptr) return nullptr;
    const auto& children = stateOf<KdDbFieldState>(*field).children;
    const auto number = static_cast<std::size_t>(child);
    return number < children.size() ? children[number].field() : nullptr;
}

}  // namespace

/// What a formula reads that is evaluated already.
class Engine::Read : public Operands {
public:
    Read(Engine& engine, const Formula& formula) : m_engine(engine), m_formula(formula) {}

    const Sheet* sheetOf(std::size_t reference) const override { return m_formula.sheets[reference]; }
    const Value& valueOfField(int cellField) const override {
        const CellField& shown = m_engine.m_cellFields[static_cast<std::size_t>(cellField)];
        if (shown.isFormula && !shown.formulas.empty()) {
            return m_engine.m_formulas[static_cast<std::size_t>(shown.formulas.back())].value;
        }
        return m_mixed = m_engine.valueOfMixed(shown);
    }
    Value valueOfChild(int child) const override {
        const KdDbField* field = childOf(peek<KdDbField>(m_formula.field), child);
        if (field == nullptr) return Value::error();
        const auto known = m_engine.m_formulaOf.find(field->objectId());
        if (known == m_engine.m_formulaOf.end()) return valueOfText(evaluatedText(*field).c_str());
        return m_engine.m_formulas[static_cast<std::size_t>(known->second)].value;
    }

protected:
    Engine& m_engine;
    const Formula& m_formula;

private:
    mutable Value m_mixed;
};

Value Engine::resultOf(const Formula& formula) {
    return calculate(formula.expression, Read(*this, formula));
}

/// A field of several parts counts as the text that it shows, unless a part fails.
Value Engine::valueOfMixed(const CellField& cellField) {
    const auto* field = peek<KdDbField>(cellField.field);
    if (field == nullptr) return {};
    for (const int part : cellField.formulas) {
        if (m_formulas[static_cast<std::size_t>(part)].value.kind == ValueKind::error) return Value::error();
    }
    return valueOfText(evaluatedText(*field).c_str());
}

// ---- texts

std::wstring Engine::shownText(const std::vector<const KdDbField*>& path) {
    const KdDbField& field = *path.back();
    catchUp();
    spread();
    if (field.database() != nullptr) checkUnits(*field.database());
    const auto known = field.database() == nullptr ? m_formulaOf.end() : m_formulaOf.find(field.objectId());
    if (known == m_formulaOf.end()) return textInMemory(path);
    Formula& formula = m_formulas[static_cast<std::size_t>(known->second)];
    const bool belongsNowhere = formula.own == nullptr && !m_tableInEdit.isNull();
    if (belongsNowhere) return textInMemory(path);
    evaluate(known->second);
    return textOf(formula, *field.database());
}

/// Another way of writing numbers changes what cells come to that are read as they are shown.
void Engine::checkUnits(const KdDbDatabase& database) {
    const KdDbHeaderVar& units = KdDbDatabaseAccess::contents(database).header;
    const auto [known, isNew] = m_units.try_emplace(&database, units);
    if (known->second == units) return;
    known->second = units;
    markMixed(&database);
    spread();
}

std::wstring Engine::textOf(Formula& formula, const KdDbDatabase& database) {
    const KdDbHeaderVar& units = KdDbDatabaseAccess::contents(database).header;
    CellWriting writing;
    for (const int number : formula.cellFields) {
        const CellField& cellField = m_cellFields[static_cast<std::size_t>(number)];
        if (!cellField.places.empty()) writing = writingOf(cellField.places.front());
    }
    if (formula.parts.hasFormat) writing.code = formula.parts.format;
    if (!formula.hasText || formula.writing != writing || formula.units != units) {
        formula.text = shownValue(formula.value, writing, units);
        formula.writing = writing;
        formula.units = units;
        formula.hasText = true;
    }
    return formula.text;
}

CellWriting Engine::writingOf(const Place& place) const {
    const auto* table = static_cast<const KdDbTable*>(findObject(place.sheet->table));
    if (table == nullptr) return {};
    const TableState& state = tableState(*table);
    if (!state.contains(place.row, place.column)) return {};
    const CellLook& cell = state.ownerLook(place.row, place.column);
    const CellFormat& inherited = styleFormat(state, &cell);
    return {effective(inherited, &cell, property::dataType), effective(inherited, &cell, property::unitType),
            effective(inherited, &cell, property::format)};
}

// ---- formulas that belong to no table

/// As the others, with the children in memory.
class Engine::ReadInMemory final : public Engine::Read {
public:
    ReadInMemory(Engine& engine, const Formula& formula, const std::vector<const KdDbField*>& path)
        : Read(engine, formula), m_path(path) {}
    Value valueOfChild(int child) const override {
        constexpr std::size_t kDeepest = 100;
        const KdDbField* field = childOf(m_path.back(), child);
        if (field == nullptr || m_path.size() > kDeepest) return Value::error();
        if (!stateOf<KdDbFieldState>(*field).isFollowed()) return valueOfText(evaluatedText(*field).c_str());
        std::vector<const KdDbField*> path = m_path;
        path.push_back(field);
        return m_engine.valueInMemory(path, nullptr);
    }

private:
    const std::vector<const KdDbField*>& m_path;
};

/// What a formula comes to that is in no drawing, or in no table of one: it reads the table of the cell in edit.
/// `parts` may be null.
Value Engine::valueInMemory(const std::vector<const KdDbField*>& path, FormulaCode* parts) {
    Formula formula;
    formula.code = stateOf<KdDbFieldState>(*path.back()).code;
    const KdDbObject* table = peekObject(m_tableInEdit);
    if (table != nullptr && table->isKindOf(KdDbTable::desc())) formula.own = &makeSheet(m_tableInEdit);
    resolve(formula, table == nullptr ? nullptr : table->database());
    catchUp();
    spread();
    if (parts != nullptr) *parts = formula.parts;
    for (std::size_t i = 0; i < formula.sheets.size(); ++i) {
        const KdCellRange& cells = formula.expression.references[i].reference.cells;
        const bool readsCell = formula.sheets[i] != nullptr && formula.sheets[i]->table == m_tableInEdit &&
                               m_rowInEdit >= cells.m_topRow && m_rowInEdit <= cells.m_bottomRow &&
                               m_columnInEdit >= cells.m_leftColumn && m_columnInEdit <= cells.m_rightColumn;
        if (readsCell) return Value::error();
    }
    Reading reading(formula);
    for (int next = reading.next(*this); next >= 0; next = reading.next(*this)) evaluate(next);
    return calculate(formula.expression, ReadInMemory(*this, formula, path));
}

std::wstring Engine::textInMemory(const std::vector<const KdDbField*>& path) {
    FormulaCode parts;
    const Value value = valueInMemory(path, &parts);
    CellWriting writing;
    KdDbHeaderVar units;
    if (const KdDbObject* table = peekObject(m_tableInEdit)) {
        Sheet* sheet = sheetOfTable(m_tableInEdit);
        if (sheet != nullptr) writing = writingOf({sheet, m_rowInEdit, m_columnInEdit});
        units = KdDbDatabaseAccess::contents(*table->database()).header;
    } else if (path.front()->database() != nullptr) {
        units = KdDbDatabaseAccess::contents(*path.front()->database()).header;
    }
    if (parts.hasFormat) writing.code = parts.format;
    return shownValue(value, writing, units);
}

// ---- the cell in edit

void Engine::setCellInEdit(KdDbObjectId table, int row, int column) {
    m_tableInEdit = table;
    m_rowInEdit = row;
    m_columnInEdit = column;
}

KdDbObjectId Engine::cellInEdit(int& row, int& column) const {
    if (m_tableInEdit.isValid()) {
        row = m_rowInEdit;
        column = m_columnInEdit;
    }
    return m_tableInEdit;
}

}  // namespace kdhost::field
