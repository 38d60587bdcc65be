// Cloning an object with all that it owns, inside a database or into another one.
//
// First the object and, through the ids that its state owns, everything that hangs on it is made anew; then
// what the new objects point at is translated: to the clones where there are clones, and in another
// database to what has the same name there.

#include <string>
#include <vector>

#include "host/db/access.h"
#include "host/db/classes.h"
#include "host/db/databasecontents.h"
#include "host/db/dictionarystate.h"
#include "host/db/opening.h"
#include "host/db/openrecord.h"
#include "host/db/symbolstate.h"
#include "kd/db/dictionary.h"
#include "kd/db/entity.h"
#include "kd/db/idmapping.h"
#include "kd/db/symboltable.h"

namespace {

using kdhost::DatabaseRoots;
using kdhost::IdRole;

/// The tables and dictionaries in which a database has what another one has of the same name.
constexpr KdDbObjectId DatabaseRoots::*kSharedByName[] = {&DatabaseRoots::blockTable, &DatabaseRoots::layerTable,
                                                          &DatabaseRoots::linetypeTable, &DatabaseRoots::textStyleTable,
                                                          &DatabaseRoots::tableStyles};

std::wstring nameOf(const KdDbObject& object) {
    std::wstring name;
    if (const auto* dictionary = kdhost::peek<KdDbDictionary>(object.ownerId())) {
        dictionary->nameAt(object.objectId(), name);
    } else if (object.isKindOf(KdDbSymbolTableRecord::desc())) {
        name = stateOf<KdDbSymbolTableRecordState>(object).name;
    }
    return name;
}

KdDbObjectId findByName(KdDbObjectId holder, const std::wstring& name) {
    KdDbObjectId id;
    if (const auto* table = kdhost::peek<KdDbSymbolTable>(holder)) table->getAt(name.c_str(), id);
    if (const auto* dictionary = kdhost::peek<KdDbDictionary>(holder)) dictionary->getAt(name.c_str(), id);
    return id;
}

/// Enters an object that has its place already into the lists of its owner.
void enterInto(KdDbObjectState& owner, const KdDbObject& object, const std::wstring& name) {
    const KdDbObjectId id = object.objectId();
    if (auto* block = dynamic_cast<KdDbBlockTableRecordState*>(&owner)) block->entities.push_back(id);
    if (auto* table = dynamic_cast<KdDbSymbolTableState*>(&owner)) table->records.push_back(id);
    if (auto* dictionary = dynamic_cast<KdDbDictionaryState*>(&owner)) dictionary->put(name.c_str(), id);
}

class Cloner {
public:
    Cloner(KdDbDatabase& destination, KdDbIdMapping& mapping) : m_destination(destination), m_mapping(mapping) {}

    /// Once everything that was asked for is cloned. Translating may clone more, at the end of the list.
    void translate() {
        for (std::size_t i = 0; i < m_made.size(); ++i) translatePointers(*m_made[i]);
    }

    /// Null when an object of the source's class can't be made. What the clone points at is still to be translated.
    KdDbObject* cloneWithOwned(const KdDbObject& source, KdDbObjectId owner) {
        std::unique_ptr<KdDbObject> fresh = kdhost::makeObject(source.isA());
        if (fresh == nullptr) return nullptr;
        KdDbObject& made = *fresh;
        std::unique_ptr<KdDbObjectState> copy = KdDbObjectAccess::state(source).clone();
        copy->erased = false;
        KdDbObjectAccess::giveState(made, std::move(copy));
        KdDbDatabaseAccess::insert(m_destination, std::move(fresh), owner);
        if (source.objectId().isValid()) m_mapping.assign(source.objectId(), made.objectId());
        m_made.push_back(&made);
        KdDbObjectAccess::stateForMaker(made).mapIds([&](KdDbObjectId id, IdRole role) {
            return role == IdRole::owned && !cameAlong(id, made) ? cloneOwned(id, made.objectId()) : id;
        });
        return &made;
    }

private:
    /// True for what hung on the source in memory and entered the destination with the clone.
    static bool cameAlong(KdDbObjectId id, const KdDbObject& made) {
        const KdDbObject* object = kdhost::peekObject(id);
        return object != nullptr && object->ownerId() == made.objectId();
    }

    KdDbObjectId cloneOwned(KdDbObjectId id, KdDbObjectId owner) {
        const KdDbObjectId mapped = m_mapping.map(id);
        const KdDbObject* source = kdhost::peekObject(id);
        if (mapped.isValid() || source == nullptr) return mapped;
        const KdDbObject* made = cloneWithOwned(*source, owner);
        return made == nullptr ? KdDbObjectId::kNull : made->objectId();
    }

    void translatePointers(KdDbObject& made) {
        KdDbObjectAccess::stateForMaker(made).mapIds(
            [&](KdDbObjectId id, IdRole role) { return role == IdRole::pointer ? translated(id) : id; });
    }

    KdDbObjectId translated(KdDbObjectId id) {
        const KdDbObjectId mapped = m_mapping.map(id);
        if (mapped.isValid()) return mapped;
        const KdDbObject* target = kdhost::peekObject(id, true);
        if (target == nullptr) return KdDbObjectId::kNull;
        if (target->database() == &m_destination) return id;
        const KdDbObjectId counterpart = ofSameName(*target);
        m_mapping.assign(id, counterpart);
        return counterpart;
    }

    KdDbObjectId ofSameName(const KdDbObject& target) {
        const DatabaseRoots& from = KdDbDatabaseAccess::contents(*target.database()).roots;
        const DatabaseRoots& to = KdDbDatabaseAccess::contents(m_destination).roots;
        for (const auto root : kSharedByName) {
            if (from.*root != target.ownerId()) continue;
            const std::wstring name = nameOf(target);
            const KdDbObjectId found = findByName(to.*root, name);
            if (found.isValid() || target.isErased()) return found;
            return cloneInto(to.*root, target, name);
        }
        return KdDbObjectId::kNull;
    }

    KdDbObjectId cloneInto(KdDbObjectId holder, const KdDbObject& target, const std::wstring& name) {
        KdDbObject* owner = kdhost::findObject(holder);
        const KdDbObject* made = owner == nullptr ? nullptr : cloneWithOwned(target, holder);
        if (made == nullptr) return KdDbObjectId::kNull;
        enterInto(KdDbObjectAccess::stateForHost(*owner), *made, name);
        return made->objectId();
    }

    KdDbDatabase& m_destination;
    KdDbIdMapping& m_mapping;
    std::vector<KdDbObject*> m_made;
};

/// A name for a clone in a dictionary: the source's own, or a made one where that is missing or taken.
std::wstring freeName(const KdDbDictionary& dictionary, const std::wstring& wanted) {
    if (!wanted.empty() && !dictionary.has(wanted.c_str())) return wanted;
    for (unsigned number = dictionary.numEntries() + 1;; ++number) {
        std::wstring name = L"*A" + std::to_wstring(number);
        if (!dictionary.has(name.c_str())) return name;
    }
}

/// Whether the owner's lists can take a clone of the object.
Kdad::ErrorStatus canTake(const KdDbObject& owner, const KdDbObject& source, const std::wstring& name) {
    if (owner.isKindOf(KdDbBlockTableRecord::desc())) {
        return source.isKindOf(KdDbEntity::desc()) ? Kdad::eOk : Kdad::eNotThatKindOfClass;
    }
    if (owner.isKindOf(KdDbSymbolTable::desc())) {
        const auto& table = static_cast<const KdDbSymbolTable&>(owner);
        if (!kdhost::takesRecord(table, source)) return Kdad::eNotThatKindOfClass;
        return table.has(name.c_str()) ? Kdad::eDuplicateKey : Kdad::eOk;
    }
    return owner.isKindOf(KdDbDictionary::desc()) ? Kdad::eOk : Kdad::eNotThatKindOfClass;
}

}  // namespace

Kdad::ErrorStatus KdDbObject::deepClone(KdDbObject* owner, KdDbObject*& clone, KdDbIdMapping& mapping,
                                        bool primary) const {
    clone = nullptr;
    if (owner == nullptr) return Kdad::eNullObjectPointer;
    if (owner->database() == nullptr) return Kdad::eNotInDatabase;
    if (mapping.destDb() != nullptr && mapping.destDb() != owner->database()) return Kdad::eInvalidContext;
    if (mapping.map(objectId()).isValid()) return Kdad::eOk;
    std::wstring name = nameOf(*this);
    if (primary) {
        const Kdad::ErrorStatus status = canTake(*owner, *this, name);
        if (status != Kdad::eOk) return status;
        if (owner->isKindOf(KdDbDictionary::desc())) name = freeName(static_cast<KdDbDictionary&>(*owner), name);
    }
    KdDbObjectState* lists = primary ? KdDbObjectAccess::stateForWrite(*owner) : nullptr;
    if (primary && lists == nullptr) return Kdad::eNotOpenForWrite;
    Cloner cloner(*owner->database(), mapping);
    clone = cloner.cloneWithOwned(*this, owner->objectId());
    cloner.translate();
    if (clone == nullptr) return Kdad::eNotThatKindOfClass;
    if (lists != nullptr) enterInto(*lists, *clone, name);
    kdhost::beginOpen(*clone, KdDb::kForWrite);
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(*clone);
    record.changed = true;
    record.idsInFlux = true;
    return Kdad::eOk;
}

// ---- sets of objects

namespace {

/// The statuses of wblockCloneObjects that its objects give; `owner` is open for write.
Kdad::ErrorStatus canCloneAll(const KdDbDatabase& source, const KdDbObjectIdArray& ids, const KdDbObject& owner,
                              const KdDbIdMapping& mapping) {
    if (mapping.destDb() != nullptr && mapping.destDb() != owner.database()) return Kdad::eInvalidContext;
    for (const KdDbObjectId id : ids) {
        KdDbObject* object = nullptr;
        Kdad::ErrorStatus status = kdhost::findForOpen(object, id, false);
        if (status == Kdad::eOk && object->database() != &source) status = Kdad::eInvalidContext;
        if (status == Kdad::eOk && !mapping.map(id).isValid()) status = canTake(owner, *object, nameOf(*object));
        if (status != Kdad::eOk) return status;
    }
    return Kdad::eOk;
}

void cloneAll(const KdDbObjectIdArray& ids, KdDbObject& owner, KdDbIdMapping& mapping) {
    KdDbObjectState& lists = *KdDbObjectAccess::stateForWrite(owner);
    Cloner cloner(*owner.database(), mapping);
    for (const KdDbObjectId id : ids) {
        if (mapping.map(id).isValid()) continue;
        const KdDbObject& source = *kdhost::peekObject(id);
        std::wstring name = nameOf(source);
        if (owner.isKindOf(KdDbDictionary::desc())) name = freeName(static_cast<KdDbDictionary&>(owner), name);
        const KdDbObject* made = cloner.cloneWithOwned(source, owner.objectId());
        if (made != nullptr) enterInto(lists, *made, name);
    }
    cloner.translate();
}

/// Makes a block that the drawing hasn't; `status` is that of a failure.
KdDbObjectId makeBlock(KdDbDatabase& database, const wchar_t* name, const KdGePoint3d& origin,
                       Kdad::ErrorStatus& status) {
    KdDbBlockTable* blocks = nullptr;
    status = database.getBlockTable(blocks, KdDb::kForWrite);
    if (status != Kdad::eOk) return {};
    auto block = std::make_unique<KdDbBlockTableRecord>();
    block->setName(name);
    block->setOrigin(origin);
    KdDbObjectId id;
    status = blocks->add(id, block.get());
    if (status == Kdad::eOk) block.release()->close();
    blocks->close();
    return id;
}

}  // namespace

Kdad::ErrorStatus KdDbDatabase::wblockCloneObjects(const KdDbObjectIdArray& ids, KdDbObjectId owner,
                                                   KdDbIdMapping& mapping, int cloning, bool deferTranslation) {
    constexpr int kKeepNamed = 1;
    if (cloning != kKeepNamed || deferTranslation) return Kdad::eNotApplicable;
    KdDbObject* into = nullptr;
    Kdad::ErrorStatus status = kdhost::openObject(into, owner, KdDb::kForWrite);
    if (status != Kdad::eOk) return status;
    status = canCloneAll(*this, ids, *into, mapping);
    if (status == Kdad::eOk) cloneAll(ids, *into, mapping);
    into->close();
    return status;
}

Kdad::ErrorStatus KdDbDatabase::insert(KdDbObjectId& block, const wchar_t* name, KdDbDatabase* source, bool) {
    block.setNull();
    if (source == nullptr) return Kdad::eNullObjectPointer;
    if (source == this) return Kdad::eInvalidContext;
    if (name == nullptr || *name == L'\0') return Kdad::eInvalidKey;
    KdDbObjectIdArray ids;
    if (const auto* space = kdhost::peek<KdDbBlockTableRecord>(source->modelSpaceId())) {
        for (const KdDbObjectId id : stateOf<KdDbBlockTableRecordState>(*space).entities) {
            if (kdhost::peekObject(id) != nullptr) ids.append(id);
        }
    }
    Kdad::ErrorStatus status = Kdad::eOk;
    block = makeBlock(*this, name, source->insbase(), status);
    if (status != Kdad::eOk) return status;
    KdDbIdMapping mapping(this);
    return source->wblockCloneObjects(ids, block, mapping, 1);
}
