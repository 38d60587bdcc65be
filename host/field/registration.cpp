// Knowing the formulas: which fields there are, what stands in them, and what they read.

#include <algorithm>

#include "host/db/fieldstate.h"
#include "host/db/opening.h"
#include "host/field/engine.h"
#include "kd/db/entity.h"

namespace kdhost::field {
namespace {

/// Fields in fields are few; what goes deeper counts as nothing.
constexpr std::size_t kDeepest = 100;

/// The outermost of the fields that the field is part of.
KdDbObjectId outermost(KdDbObjectId field) {
    for (std::size_t depth = 0; depth < kDeepest; ++depth) {
        const KdDbObject* object = peekObject(field, true);
        const KdDbObject* owner = object == nullptr ? nullptr : peekObject(object->ownerId(), true);
        if (owner == nullptr || !owner->isKindOf(KdDbField::desc())) break;
        field = owner->objectId();
    }
    return field;
}

/// Walks up the owners from a field to one of class T; null when there is none.
template <class T>
const T* holderOf(const KdDbObject& field) {
    const KdDbObject* object = peekObject(field.ownerId(), true);
    for (std::size_t depth = 0; depth < kDeepest && object != nullptr; ++depth) {
        if (object->isKindOf(T::desc())) return static_cast<const T*>(object);
        object = peekObject(object->ownerId(), true);
    }
    return nullptr;
}

/// Whether the text of the field is that of its first child and nothing else.
bool isOneMark(const std::wstring& code) {
    ChildMark mark;
    return nextChildMark(code, 0, mark) && mark.at == 0 && mark.length == code.size() && mark.child == 0;
}

bool showsOneFormula(const KdDbField& field, std::size_t depth) {
    const auto& state = stateOf<KdDbFieldState>(field);
    if (state.isFollowed()) return true;
    if (depth == 0 || state.children.size() != 1 || !isOneMark(state.code)) return false;
    const KdDbField* child = state.children.front().field();
    return child != nullptr && showsOneFormula(*child, depth - 1);
}

/// A number that is free, or one more.
template <class Items>
int takeNumber(Items& items, std::vector<int>& free) {
    if (free.empty()) {
        items.emplace_back();
        return static_cast<int>(items.size()) - 1;
    }
    const int number = free.back();
    free.pop_back();
    return number;
}

}  // namespace

// ---- what has come and gone

void Engine::touch(KdDbObjectId field) {
    m_touched.push_back(field);
}

/// Takes in all that is new. Building a field may ask for another table, and looking at a table finds fields.
void Engine::catchUp() {
    while (!m_touched.empty() || !m_unseen.empty() || !m_waiting.empty()) {
        for (const KdDbObjectId field : std::exchange(m_touched, {})) {
            const auto [first, last] = m_membership.equal_range(field);
            std::vector<int> numbers;
            for (auto each = first; each != last; ++each) numbers.push_back(each->second);
            if (numbers.empty() && peekObject(field) != nullptr) numbers.push_back(cellFieldOf(outermost(field)));
            for (const int number : numbers) {
                if (!std::exchange(m_cellFields[static_cast<std::size_t>(number)].waits, true)) {
                    m_waiting.push_back(number);
                }
            }
        }
        for (Sheet* sheet : std::exchange(m_unseen, {})) look(*sheet);
        for (const int number : std::exchange(m_waiting, {})) build(number);
    }
    if (std::exchange(m_fieldsWent, false)) pruneSheets();
}

/// The number of a field that cells may show, given on first sight; it waits to be built.
int Engine::cellFieldOf(KdDbObjectId field) {
    const auto known = m_cellFieldOf.find(field);
    if (known != m_cellFieldOf.end()) return known->second;
    const int number = takeNumber(m_cellFields, m_freeCellFields);
    CellField& made = m_cellFields[static_cast<std::size_t>(number)];
    made = {};
    made.field = field;
    made.waits = true;
    m_cellFieldOf.emplace(field, number);
    m_waiting.push_back(number);
    return number;
}

// ---- fields

void Engine::build(int number) {
    CellField& cellField = m_cellFields[static_cast<std::size_t>(number)];
    cellField.waits = false;
    forget(number);
    const auto* field = peek<KdDbField>(cellField.field);
    cellField.alive = field != nullptr;
    for (const Place& place : cellField.places) cellChanged(place);
    if (field == nullptr) {
        if (!cellField.places.empty()) return;
        m_cellFieldOf.erase(cellField.field);
        cellField = {};
        m_freeCellFields.push_back(number);
        return;
    }
    cellField.own = ownSheet(cellField);
    cellField.isFormula = showsOneFormula(*field, kDeepest);
    const KdDbEntity* holder = holderOf<KdDbEntity>(*field);
    cellField.shownBy = holder == nullptr ? KdDbObjectId::kNull : holder->objectId();
    std::vector<KdDbObjectId> formulas;
    collect(*field, number, formulas, kDeepest);
    noteRedraw(cellField);
}

/// The field and all in it; `formulas` is given those among them, the innermost first.
void Engine::collect(const KdDbField& field, int number, std::vector<KdDbObjectId>& formulas, std::size_t depth) {
    CellField& cellField = m_cellFields[static_cast<std::size_t>(number)];
    const KdDbObjectId id = field.objectId();
    if (std::find(cellField.members.begin(), cellField.members.end(), id) != cellField.members.end()) return;
    cellField.members.push_back(id);
    m_membership.emplace(id, number);
    const auto& state = stateOf<KdDbFieldState>(field);
    const std::size_t before = formulas.size();
    for (const KdDbFieldChild& child : state.children) {
        const KdDbField* inside = depth == 0 ? nullptr : child.field();
        if (inside != nullptr) collect(*inside, number, formulas, depth - 1);
    }
    if (!state.isFollowed()) return;
    setUpFormula(field, number);
    const int formula = m_formulaOf.at(id);
    m_formulas[static_cast<std::size_t>(formula)].childFormulas.assign(
        formulas.begin() + static_cast<std::ptrdiff_t>(before), formulas.end());
    formulas.push_back(id);
}

/// What was known of the field's inside.
void Engine::forget(int number) {
    CellField& cellField = m_cellFields[static_cast<std::size_t>(number)];
    for (const int formula : cellField.formulas) {
        std::vector<int>& users = m_formulas[static_cast<std::size_t>(formula)].cellFields;
        std::erase(users, number);
        if (users.empty()) removeFormula(formula);
    }
    cellField.formulas.clear();
    for (const KdDbObjectId member : cellField.members) {
        const auto [first, last] = m_membership.equal_range(member);
        m_membership.erase(std::find_if(first, last, [&](const auto& each) { return each.second == number; }));
    }
    cellField.members.clear();
}

/// The table whose cells a formula means by "A1": the one that shows it, else the one that owns it.
Sheet* Engine::ownSheet(const CellField& cellField) {
    if (!cellField.places.empty()) return cellField.places.front().sheet;
    const KdDbObject* field = peekObject(cellField.field, true);
    const KdDbTable* table = field == nullptr ? nullptr : holderOf<KdDbTable>(*field);
    return table == nullptr ? nullptr : &makeSheet(table->objectId());
}

// ---- formulas

void Engine::setUpFormula(const KdDbField& field, int number) {
    CellField& cellField = m_cellFields[static_cast<std::size_t>(number)];
    const auto [known, isNew] = m_formulaOf.try_emplace(field.objectId(), 0);
    if (isNew) known->second = takeNumber(m_formulas, m_freeFormulas);
    const int place = known->second;
    Formula& formula = m_formulas[static_cast<std::size_t>(place)];
    if (std::find(cellField.formulas.begin(), cellField.formulas.end(), place) == cellField.formulas.end()) {
        cellField.formulas.push_back(place);
        formula.cellFields.push_back(number);
    }
    markOutOfDate(place);
    leaveReaders(formula);
    formula.field = field.objectId();
    formula.code = stateOf<KdDbFieldState>(field).code;
    formula.own = cellField.own;
    formula.clean = false;
    formula.hasText = false;
    resolve(formula, field.database());
    enterReaders(place);
}

/// Reads the code. A reference leads to a table of the formula's own drawing only; without a drawing, to any.
void Engine::resolve(Formula& formula, const KdDbDatabase* database) {
    formula.parts = takeApart(formula.code);
    const Piece& piece = formula.parts.expression;
    formula.expression = {};
    if (formula.parts.valid) {
        formula.expression = parseExpression(std::wstring_view(formula.code).substr(piece.at, piece.length));
    }
    formula.sheets.clear();
    for (const WrittenReference& each : formula.expression.references) {
        const Reference& reference = each.reference;
        if (!reference.foreign) {
            formula.sheets.push_back(formula.own);
            continue;
        }
        const KdDbObject* table = peekObject(reference.table, true);
        const bool isTable = table != nullptr && table->isKindOf(KdDbTable::desc()) &&
                             (database == nullptr || table->database() == database);
        formula.sheets.push_back(isTable ? &makeSheet(reference.table) : nullptr);
    }
}

void Engine::enterReaders(int number) {
    Formula& formula = m_formulas[static_cast<std::size_t>(number)];
    for (std::size_t i = 0; i < formula.sheets.size(); ++i) {
        const Reference& reference = formula.expression.references[i].reference;
        if (formula.sheets[i] == nullptr || reference.broken) continue;
        formula.sheets[i]->addReader(reference.cells, {number, formula.version});
    }
}

/// What the sheets know of the formula's references is void from now on; where little else is left, it is swept
/// out.
void Engine::leaveReaders(Formula& formula) {
    constexpr std::size_t kFew = 64;
    ++formula.version;
    for (std::size_t i = 0; i < formula.sheets.size(); ++i) {
        Sheet* sheet = formula.sheets[i];
        if (sheet == nullptr || formula.expression.references[i].reference.broken) continue;
        if (++sheet->goneReaders <= kFew + sheet->readerCount / 2) continue;
        sheet->readers.removeIf([&](const RangeIndex::Reader& reader) {
            return m_formulas[static_cast<std::size_t>(reader.formula)].version != reader.version;
        });
        sheet->readerCount -= sheet->goneReaders;
        sheet->goneReaders = 0;
    }
    formula.sheets.clear();
}

void Engine::removeFormula(int number) {
    Formula& formula = m_formulas[static_cast<std::size_t>(number)];
    leaveReaders(formula);
    m_formulaOf.erase(formula.field);
    const std::uint32_t version = formula.version;
    formula = {};
    formula.version = version;
    m_freeFormulas.push_back(number);
}

// ---- sheets

Sheet* Engine::sheetOfTable(KdDbObjectId table) const {
    const auto known = m_sheets.find(table);
    return known == m_sheets.end() ? nullptr : known->second.get();
}

Sheet& Engine::makeSheet(KdDbObjectId table) {
    std::unique_ptr<Sheet>& sheet = m_sheets[table];
    if (sheet == nullptr) {
        sheet = std::make_unique<Sheet>();
        sheet->table = table;
        m_unseen.push_back(sheet.get());
    }
    return *sheet;
}

/// Drawings have left memory: what their tables were known by goes, too.
void Engine::pruneSheets() {
    for (auto each = m_sheets.begin(); each != m_sheets.end();) {
        Sheet& sheet = *each->second;
        if (findObject(sheet.table) != nullptr) {
            ++each;
            continue;
        }
        for (const int number : sheet.cellFields) {
            CellField& cellField = m_cellFields[static_cast<std::size_t>(number)];
            std::erase_if(cellField.places, [&](const Place& place) { return place.sheet == &sheet; });
            if (!cellField.places.empty() || cellField.alive) continue;
            m_cellFieldOf.erase(cellField.field);
            cellField = {};
            m_freeCellFields.push_back(number);
        }
        std::erase_if(m_changes, [&](const Place& place) { return place.sheet == &sheet; });
        each = m_sheets.erase(each);
    }
}

}  // namespace kdhost::field
