// Dictionaries: objects by name. An entry whose object is erased reads as if it weren't there, and is there
// again when the object comes back.

#include "kd/db/dictionary.h"

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/dictionarystate.h"
#include "host/db/names.h"
#include "host/db/opening.h"

KDRX_DEFINE_MEMBERS(KdDbDictionary, KdDbObject)

namespace {

using State = KdDbDictionaryState;
using Entries = std::map<std::wstring, State::Entry>;

bool isLive(const State::Entry& entry) {
    return kdhost::peekObject(entry.id) != nullptr;
}

class Iterator final : public KdDbDictionaryIterator {
public:
    explicit Iterator(const Entries& entries) : m_at(entries.begin()), m_end(entries.end()) { passErased(); }

    bool done() const override { return m_at == m_end; }
    bool next() override {
        if (!done()) ++m_at;
        passErased();
        return !done();
    }
    const wchar_t* name() const override { return done() ? L"" : m_at->second.name.c_str(); }
    KdDbObjectId objectId() const override { return done() ? KdDbObjectId::kNull : m_at->second.id; }

private:
    void passErased() {
        while (!done() && !isLive(m_at->second)) ++m_at;
    }

    Entries::const_iterator m_at;
    Entries::const_iterator m_end;
};

/// Erases the object in whose place another one comes.
Kdad::ErrorStatus eraseReplaced(KdDbObjectId id) {
    KdDbObject* object = nullptr;
    Kdad::ErrorStatus status = kdhost::openObject(object, id, KdDb::kForWrite);
    if (status != Kdad::eOk) return status;
    status = object->erase();
    object->close();
    return status;
}

}  // namespace

void KdDbDictionaryState::put(const wchar_t* name, KdDbObjectId id) {
    const std::wstring key = kdhost::foldedName(name);
    const auto former = entries.find(key);
    if (former != entries.end()) take(former);
    entries[key] = {name, id};
    keys[id] = key;
}

void KdDbDictionaryState::take(std::map<std::wstring, Entry>::iterator entry) {
    keys.erase(entry->second.id);
    entries.erase(entry);
}

void KdDbDictionaryState::mapIds(const kdhost::IdMapper& map) {
    KdDbObjectState::mapIds(map);
    keys.clear();
    for (auto entry = entries.begin(); entry != entries.end();) {
        entry->second.id = map(entry->second.id, kdhost::IdRole::owned);
        if (entry->second.id.isNull()) {
            entry = entries.erase(entry);
        } else {
            keys[entry->second.id] = entry->first;
            ++entry;
        }
    }
}

KdDbDictionaryIterator::~KdDbDictionaryIterator() = default;

KdDbDictionary::KdDbDictionary() : KdDbObject(std::make_unique<State>()) {}

Kdad::ErrorStatus KdDbDictionary::getAt(const wchar_t* name, KdDbObjectId& id) const {
    id.setNull();
    const State& state = stateOf<State>(*this);
    const auto found = state.entries.find(kdhost::foldedName(name));
    if (found == state.entries.end() || !isLive(found->second)) return Kdad::eKeyNotFound;
    id = found->second.id;
    return Kdad::eOk;
}

bool KdDbDictionary::has(const wchar_t* name) const {
    KdDbObjectId id;
    return getAt(name, id) == Kdad::eOk;
}

bool KdDbDictionary::has(KdDbObjectId id) const {
    return stateOf<State>(*this).keys.contains(id) && kdhost::peekObject(id) != nullptr;
}

Kdad::ErrorStatus KdDbDictionary::nameAt(KdDbObjectId id, std::wstring& name) const {
    if (!has(id)) return Kdad::eKeyNotFound;
    const State& state = stateOf<State>(*this);
    name = state.entries.at(state.keys.at(id)).name;
    return Kdad::eOk;
}

unsigned KdDbDictionary::numEntries() const {
    unsigned count = 0;
    for (const auto& [key, entry] : stateOf<State>(*this).entries) count += isLive(entry) ? 1 : 0;
    return count;
}

Kdad::ErrorStatus KdDbDictionary::setAt(const wchar_t* name, KdDbObject* object, KdDbObjectId& id) {
    id.setNull();
    if (object == nullptr) return Kdad::eNullObjectPointer;
    if (name == nullptr || *name == L'\0') return Kdad::eInvalidKey;
    if (database() == nullptr) return Kdad::eNotInDatabase;
    if (object->database() != nullptr) return Kdad::eAlreadyInDatabase;
    if (!isWriteEnabled()) {
        kdhost::noteBreach(*this, L"written without a write open");
        return Kdad::eNotOpenForWrite;
    }
    KdDbObjectId replaced;
    if (getAt(name, replaced) == Kdad::eOk) {
        const Kdad::ErrorStatus status = eraseReplaced(replaced);
        if (status != Kdad::eOk) return status;
    }
    State& state = *writableStateOf<State>(*this);
    const Kdad::ErrorStatus status = database()->addKdDbObject(object, id, objectId());
    if (status == Kdad::eOk) state.put(name, id);
    return status;
}

bool KdDbDictionary::setName(const wchar_t* oldName, const wchar_t* newName) {
    KdDbObjectId id;
    if (newName == nullptr || *newName == L'\0' || getAt(oldName, id) != Kdad::eOk) return false;
    KdDbObjectId other;
    if (getAt(newName, other) == Kdad::eOk && other != id) return false;
    State* state = writableStateOf<State>(*this);
    if (state == nullptr) return false;
    state->take(state->entries.find(kdhost::foldedName(oldName)));
    state->put(newName, id);
    return true;
}

Kdad::ErrorStatus KdDbDictionary::remove(const wchar_t* name) {
    KdDbObjectId id;
    if (getAt(name, id) != Kdad::eOk) return Kdad::eKeyNotFound;
    return changeState<State>(*this, [&](State& state) { state.take(state.entries.find(kdhost::foldedName(name))); });
}

Kdad::ErrorStatus KdDbDictionary::remove(KdDbObjectId id) {
    std::wstring name;
    if (nameAt(id, name) != Kdad::eOk) return Kdad::eKeyNotFound;
    return remove(name.c_str());
}

void KdDbDictionary::erased(const KdDbObject* object, bool erasing) {
    if (object == nullptr || !erasing || !isWriteEnabled()) return;
    const auto& keys = stateOf<State>(*this).keys;
    const auto key = keys.find(object->objectId());
    if (key == keys.end()) return;
    changeState<State>(*this, [name = key->second](State& state) { state.take(state.entries.find(name)); });
}

KdDbDictionaryIterator* KdDbDictionary::newIterator() const {
    return new Iterator(stateOf<State>(*this).entries);
}
