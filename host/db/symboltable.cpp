// Symbol tables: look-up by name, adding, walking.

#include "kd/db/symboltable.h"

#include <algorithm>
#include <iterator>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/liveids.h"
#include "host/db/names.h"
#include "host/db/opening.h"
#include "host/db/symbolstate.h"
#include "kd/ed/resbuf.h"

KDRX_DEFINE_MEMBERS(KdDbSymbolTable, KdDbObject)
KDRX_DEFINE_MEMBERS(KdDbBlockTable, KdDbSymbolTable)
KDRX_DEFINE_MEMBERS(KdDbLayerTable, KdDbSymbolTable)
KDRX_DEFINE_MEMBERS(KdDbLinetypeTable, KdDbSymbolTable)
KDRX_DEFINE_MEMBERS(KdDbTextStyleTable, KdDbSymbolTable)
KDRX_DEFINE_MEMBERS(KdDbSymbolTableRecord, KdDbObject)

namespace {

using State = KdDbSymbolTableState;
using RecordState = KdDbSymbolTableRecordState;

/// Which records go into which table.
struct Kind {
    KdRxClass* (*table)();
    KdRxClass* (*record)();
};
constexpr Kind kKinds[] = {
    {KdDbBlockTable::desc, KdDbBlockTableRecord::desc},
    {KdDbLayerTable::desc, KdDbLayerTableRecord::desc},
    {KdDbLinetypeTable::desc, KdDbLinetypeTableRecord::desc},
    {KdDbTextStyleTable::desc, KdDbTextStyleTableRecord::desc},
};

const std::wstring& nameOf(const KdDbObject& record) {
    return stateOf<RecordState>(record).name;
}

/// Enters the records that the index lacks. Of two with one name the live one counts, which is the later.
void bringUpToDate(const KdDbSymbolTable& table) {
    const State& state = stateOf<State>(table);
    KdDbSymbolIndex& index = state.index;
    const std::uint64_t generation = KdDbDatabaseAccess::contents(*table.database()).nameGeneration;
    if (index.generation != generation || index.indexed > state.records.size()) index = {};
    index.generation = generation;
    for (; index.indexed < state.records.size(); ++index.indexed) {
        const KdDbObjectId id = state.records[index.indexed];
        const KdDbObject* record = kdhost::peekObject(id, true);
        if (record == nullptr) continue;
        const auto [place, isNew] = index.ids.try_emplace(kdhost::foldedName(nameOf(*record).c_str()), id);
        if (!isNew && !record->isErased()) place->second = id;
    }
}

/// The record of that name, an erased one too; the null id when there is none.
KdDbObjectId find(const KdDbSymbolTable& table, const wchar_t* name) {
    if (table.database() == nullptr) return KdDbObjectId::kNull;
    bringUpToDate(table);
    const KdDbSymbolIndex& index = stateOf<State>(table).index;
    const auto found = index.ids.find(kdhost::foldedName(name));
    return found == index.ids.end() ? KdDbObjectId::kNull : found->second;
}

/// What the indices of the drawing's symbol tables know may be wrong from now on.
void noteNamesChanged(const KdDbObject& object) {
    ++KdDbDatabaseAccess::contents(*object.database()).nameGeneration;
}

class Iterator final : public kdhost::LiveIdIterator<KdDbSymbolTableIterator> {
public:
    explicit Iterator(const KdDbSymbolTable& table) : m_table(table) { start(); }

    Kdad::ErrorStatus getRecordId(KdDbObjectId& id) const override { return currentId(id); }
    Kdad::ErrorStatus getRecord(KdDbSymbolTableRecord*& record, KdDb::OpenMode mode) const override {
        return openCurrent(record, mode);
    }

private:
    const std::vector<KdDbObjectId>& ids() const override { return stateOf<State>(m_table).records; }

    const KdDbSymbolTable& m_table;
};

/// An asterisk and a letter, as in "*T", don't name a block but tell what an anonymous block is for.
bool isKindOfAnonymousBlock(const KdDbSymbolTableRecord& record) {
    const std::wstring& name = nameOf(record);
    return record.isKindOf(KdDbBlockTableRecord::desc()) && name.size() == 2 && name.front() == L'*';
}

/// The number behind the kind is the lowest that no block of the drawing has.
void giveNumber(const KdDbSymbolTable& blocks, KdDbSymbolTableRecord& record) {
    const std::wstring kind = nameOf(record);
    std::wstring name;
    for (int number = 1; name.empty() || blocks.has(name.c_str()); ++number) name = kind + std::to_wstring(number);
    record.setName(name.c_str());
}

}  // namespace

bool kdhost::takesRecord(const KdDbSymbolTable& table, const KdDbObject& record) {
    return std::any_of(std::begin(kKinds), std::end(kKinds), [&](const Kind& kind) {
        return table.isKindOf(kind.table()) && record.isKindOf(kind.record());
    });
}

KdDbSymbolTableIterator::~KdDbSymbolTableIterator() = default;

std::unique_ptr<KdDbObjectState> KdDbSymbolTableState::clone() const {
    auto copy = std::make_unique<KdDbSymbolTableState>(*this);
    copy->index = {};
    return copy;
}

void KdDbSymbolTableState::mapIds(const kdhost::IdMapper& map) {
    KdDbObjectState::mapIds(map);
    for (KdDbObjectId& id : records) id = map(id, kdhost::IdRole::owned);
    std::erase(records, KdDbObjectId::kNull);
    index = {};
}

void KdDbSymbolTableState::wasPutBack(KdDbObject& self) const {
    noteNamesChanged(self);
}

void KdDbSymbolTableRecordState::wasPutBack(KdDbObject& self) const {
    noteNamesChanged(self);
}

void KdDbSymbolTableRecordState::takePlaceOf(const KdDbObjectState& previous) {
    KdDbObjectState::takePlaceOf(previous);
    name = static_cast<const KdDbSymbolTableRecordState&>(previous).name;
}

KdDbSymbolTable::KdDbSymbolTable(std::unique_ptr<KdDbObjectState> state) : KdDbObject(std::move(state)) {}
KdDbBlockTable::KdDbBlockTable() : KdDbSymbolTable(std::make_unique<State>()) {}
KdDbLayerTable::KdDbLayerTable() : KdDbSymbolTable(std::make_unique<State>()) {}
KdDbLinetypeTable::KdDbLinetypeTable() : KdDbSymbolTable(std::make_unique<State>()) {}
KdDbTextStyleTable::KdDbTextStyleTable() : KdDbSymbolTable(std::make_unique<State>()) {}

Kdad::ErrorStatus KdDbSymbolTable::getAt(const wchar_t* name, KdDbObjectId& id, bool getErased) const {
    id = find(*this, name);
    if (kdhost::peekObject(id, getErased) == nullptr) id.setNull();
    return id.isNull() ? Kdad::eKeyNotFound : Kdad::eOk;
}

Kdad::ErrorStatus KdDbSymbolTable::getAt(const wchar_t* name, KdDbSymbolTableRecord*& record,
                                         KdDb::OpenMode mode) const {
    record = nullptr;
    KdDbObjectId id;
    const Kdad::ErrorStatus status = getAt(name, id);
    return status == Kdad::eOk ? kdhost::openAs(record, id, mode) : status;
}

bool KdDbSymbolTable::has(const wchar_t* name) const {
    KdDbObjectId id;
    return getAt(name, id) == Kdad::eOk;
}

Kdad::ErrorStatus KdDbSymbolTable::add(KdDbObjectId& id, KdDbSymbolTableRecord* record) {
    id.setNull();
    if (record == nullptr) return Kdad::eNullObjectPointer;
    if (database() == nullptr) return Kdad::eNotInDatabase;
    if (record->database() != nullptr) return Kdad::eAlreadyInDatabase;
    if (!kdhost::takesRecord(*this, *record)) return Kdad::eNotThatKindOfClass;
    if (nameOf(*record).empty()) return Kdad::eInvalidKey;
    const bool isNumbered = isKindOfAnonymousBlock(*record);
    if (!isNumbered && has(nameOf(*record).c_str())) return Kdad::eDuplicateKey;
    State* state = writableStateOf<State>(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    if (isNumbered) giveNumber(*this, *record);
    const Kdad::ErrorStatus status = database()->addKdDbObject(record, id, objectId());
    if (status == Kdad::eOk) state->records.push_back(id);
    return status;
}

Kdad::ErrorStatus KdDbSymbolTable::newIterator(KdDbSymbolTableIterator*& iterator) const {
    iterator = new Iterator(*this);
    return Kdad::eOk;
}

KdDbSymbolTableRecord::KdDbSymbolTableRecord(std::unique_ptr<KdDbObjectState> state) : KdDbObject(std::move(state)) {}

Kdad::ErrorStatus KdDbSymbolTableRecord::getName(std::wstring& name) const {
    name = nameOf(*this);
    return Kdad::eOk;
}

Kdad::ErrorStatus KdDbSymbolTableRecord::getName(wchar_t*& name) const {
    name = kdutNewString(nameOf(*this).c_str());
    return name == nullptr ? Kdad::eOutOfMemory : Kdad::eOk;
}

Kdad::ErrorStatus KdDbSymbolTableRecord::setName(const wchar_t* name) {
    if (name == nullptr || *name == L'\0') return Kdad::eInvalidKey;
    if (database() != nullptr) {
        if (KdDbDatabaseAccess::contents(*database()).isRequired(objectId())) return Kdad::eNotApplicable;
        const auto* table = kdhost::peek<KdDbSymbolTable>(ownerId());
        KdDbObjectId other;
        if (table != nullptr && table->getAt(name, other) == Kdad::eOk && other != objectId()) {
            return Kdad::eDuplicateKey;
        }
    }
    const Kdad::ErrorStatus status = changeState<RecordState>(*this, [&](RecordState& state) { state.name = name; });
    if (status == Kdad::eOk && database() != nullptr) noteNamesChanged(*this);
    return status;
}
