// What every database object has: identity, owner, erasure, reactors, extension dictionary, attached field.

#include "kd/db/object.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/keptobject.h"
#include "host/db/objectstate.h"
#include "host/db/opening.h"
#include "host/db/openrecord.h"
#include "kd/db/dictionary.h"
#include "kd/db/symboltable.h"

KDRX_DEFINE_MEMBERS(KdDbObject, KdGiDrawable)

std::uint64_t kdhost::stateEpoch = 0;

KdDbObjectReactor::~KdDbObjectReactor() = default;
void KdDbObjectReactor::modified(const KdDbObject*) {}
void KdDbObjectReactor::erased(const KdDbObject*, bool) {}
void KdDbObjectReactor::goodbye(const KdDbObject*) {}

void KdDbObjectState::mapIds(const kdhost::IdMapper& map) {
    extensionDictionary = map(extensionDictionary, kdhost::IdRole::owned);
    if (foreign == nullptr) return;
    auto mapped = std::make_shared<kdhost::ForeignTags>(*foreign);
    mapped->mapIds(map);
    foreign = std::move(mapped);
}

void KdDbObjectState::takePlaceOf(const KdDbObjectState& previous) {
    owner = previous.owner;
    erased = previous.erased;
    extensionDictionary = previous.extensionDictionary;
    attached = previous.attached;
}

void KdDbObjectState::settle(const KdDbObject&) const {}

void KdDbObjectState::wasPutBack(KdDbObject&) const {}

void KdDbObjectAccess::giveState(KdDbObject& object, std::unique_ptr<KdDbObjectState> state) {
    exchangeState(object, state);
}

void KdDbObjectAccess::exchangeState(KdDbObject& object, std::unique_ptr<KdDbObjectState>& state) {
    object.m_state.swap(state);
    ++kdhost::stateEpoch;
}

KdDbObject::KdDbObject(std::unique_ptr<KdDbObjectState> state)
    : m_state(std::move(state)), m_open(std::make_unique<KdDbOpenRecord>()) {}

KdDbObject::~KdDbObject() = default;

KdDbObjectId KdDbObject::objectId() const {
    return m_open->id;
}

KdDbObjectId KdDbObject::ownerId() const {
    return m_state->owner;
}

KdDbDatabase* KdDbObject::database() const {
    return m_open->database;
}

std::uint64_t KdDbObject::handle() const {
    return m_open->handle;
}

bool KdDbObject::isReadEnabled() const {
    return m_open->database == nullptr || m_open->isOpen();
}

bool KdDbObject::isWriteEnabled() const {
    return m_open->database == nullptr || m_open->mayWrite();
}

bool KdDbObject::isErased() const {
    return m_state->erased;
}

Kdad::ErrorStatus KdDbObject::setOwnerId(KdDbObjectId owner) {
    return changeState<KdDbObjectState>(*this, [&](KdDbObjectState& state) { state.owner = owner; });
}

Kdad::ErrorStatus KdDbObject::erase(bool erasing) {
    if (m_open->database == nullptr) return Kdad::eNotInDatabase;
    if (erasing && KdDbDatabaseAccess::contents(*m_open->database).isRequired(objectId())) {
        return Kdad::eCannotBeErased;
    }
    if (erasing && isErased()) return Kdad::eWasErased;
    if (!m_open->mayWrite()) {
        kdhost::noteBreach(*this, L"erased without a write open");
        return Kdad::eNotOpenForWrite;
    }
    if (erasing == isErased()) return Kdad::eOk;
    // Erasing alone is told as erasing; it makes no change to what the object holds.
    const bool changed = m_open->changed;
    KdDbObjectAccess::stateForWrite(*this)->erased = erasing;
    m_open->changed = changed;
    m_open->erasureChanged = !m_open->erasureChanged;
    if (isKindOf(KdDbSymbolTableRecord::desc())) ++KdDbDatabaseAccess::contents(*m_open->database).nameGeneration;
    return Kdad::eOk;
}

void KdDbObject::erased(const KdDbObject*, bool) {}

void KdDbObject::addReactor(KdDbObjectReactor* reactor) const {
    auto& reactors = m_open->reactors;
    if (reactor == nullptr || std::find(reactors.begin(), reactors.end(), reactor) != reactors.end()) return;
    reactors.push_back(reactor);
}

void KdDbObject::removeReactor(KdDbObjectReactor* reactor) const {
    std::erase(m_open->reactors, reactor);
}

KdDbObjectId KdDbObject::extensionDictionary() const {
    const KdDbObjectId id = m_state->extensionDictionary;
    return kdhost::peekObject(id) != nullptr ? id : KdDbObjectId::kNull;
}

Kdad::ErrorStatus KdDbObject::createExtensionDictionary() {
    if (m_open->database == nullptr) return Kdad::eNotInDatabase;
    if (extensionDictionary().isValid()) return Kdad::eOk;
    KdDbObjectState* state = KdDbObjectAccess::stateForWrite(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    state->extensionDictionary =
        KdDbDatabaseAccess::insert(*m_open->database, std::make_unique<KdDbDictionary>(), objectId());
    return Kdad::eOk;
}

Kdad::ErrorStatus KdDbObject::copyFrom(const KdRxObject* source) {
    if (source == nullptr) return Kdad::eNullObjectPointer;
    if (source->isA() != isA()) return Kdad::eNotThatKindOfClass;
    if (source == this) return Kdad::eOk;
    if (KdDbObjectAccess::stateForWrite(*this) == nullptr) return Kdad::eNotOpenForWrite;
    std::unique_ptr<KdDbObjectState> copy = static_cast<const KdDbObject*>(source)->m_state->clone();
    copy->takePlaceOf(*m_state);
    KdDbObjectAccess::giveState(*this, std::move(copy));
    return Kdad::eOk;
}
