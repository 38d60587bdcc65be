// Opening and closing: the register of objects by id, the discipline of readers and writers, the list of
// what is open and of breaches, and the telling of reactors at the end of an open.

#include "host/db/opening.h"

#include <map>
#include <unordered_map>
#include <utility>

#include "host/db/access.h"
#include "host/db/entitystate.h"
#include "host/db/openrecord.h"
#include "host/db/undo.h"
#include "host/rx/faults.h"
#include "kd/db/entity.h"
#include "kd/db/symboltable.h"

namespace kdhost {
namespace {

struct Register {
    std::unordered_map<KdDbObjectId, KdDbObject*> objects;
    std::map<KdDbObjectId, const KdDbObject*> open;
    std::wstring currentCommand;
    std::vector<std::wstring> breaches;
    std::vector<DatabaseListener*> listeners;
};

Register& theRegister() {
    static Register instance;
    return instance;
}

void noteOpen(const KdDbObject& object) {
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(object);
    if (theRegister().open.emplace(record.id, &object).second) record.command = theRegister().currentCommand;
}

void tellChange(const KdDbObject& object, bool changed, bool erasureChanged) {
    const KdDbOpenRecord& record = KdDbObjectAccess::openRecord(object);
    if (changed) {
        tellEach(record.reactors, [&](KdDbObjectReactor& reactor) { reactor.modified(&object); });
    }
    if (erasureChanged) {
        const bool erased = object.isErased();
        tellEach(record.reactors, [&](KdDbObjectReactor& reactor) { reactor.erased(&object, erased); });
    }
    if (record.id.isNull()) return;
    const KdDbObjectId id = record.id;
    tellEach(theRegister().listeners, [&](DatabaseListener& listener) { listener.objectChanged(id); });
}

}  // namespace

KdDbObject* findObject(KdDbObjectId id) {
    const auto found = theRegister().objects.find(id);
    return found == theRegister().objects.end() ? nullptr : found->second;
}

const KdDbObject* peekObject(KdDbObjectId id, bool erased) {
    const KdDbObject* object = findObject(id);
    return object != nullptr && (erased || !object->isErased()) ? object : nullptr;
}

void rememberObject(KdDbObject& object) {
    theRegister().objects.emplace(object.objectId(), &object);
}

void forgetObject(const KdDbObject& object) {
    ++stateEpoch;
    theRegister().objects.erase(object.objectId());
    theRegister().open.erase(object.objectId());
}

std::vector<OpenObject> openObjects() {
    std::vector<OpenObject> result;
    for (const auto& [id, object] : theRegister().open) {
        const KdDbOpenRecord& record = KdDbObjectAccess::openRecord(*object);
        const int held = record.hold == TransactionHold::Read ? 1 : 0;
        result.push_back(
            {id, record.handle, object->isA()->name(), record.readers + held, record.mayWrite(), record.command});
    }
    return result;
}

void setCurrentCommandName(const std::wstring& name) {
    theRegister().currentCommand = name;
}

void noteBreach(const KdDbObject& object, const std::wstring& what) {
    std::wstring line = std::wstring(object.isA()->name()) + L" of handle " + std::to_wstring(object.handle());
    line += L": " + what;
    noteBreach(line);
}

void noteBreach(const std::wstring& what) {
    const std::wstring& command = theRegister().currentCommand;
    theRegister().breaches.push_back(command.empty() ? what : what + L", in " + command);
}

bool isOnLockedLayer(const KdDbObject& object) {
    if (!object.isKindOf(KdDbEntity::desc())) return false;
    const auto* layer = peek<KdDbLayerTableRecord>(stateOf<KdDbEntityState>(object).layer);
    return layer != nullptr && layer->isLocked();
}

bool openFaultStrikes() {
    return faultStrikes(faults().failOpenNumber);
}

bool fieldFaultStrikes() {
    return faultStrikes(faults().failFieldNumber);
}

std::vector<std::wstring> takeDisciplineBreaches() {
    return std::exchange(theRegister().breaches, {});
}

void addDatabaseListener(DatabaseListener* listener) {
    theRegister().listeners.push_back(listener);
}

void removeDatabaseListener(DatabaseListener* listener) {
    std::erase(theRegister().listeners, listener);
}

Kdad::ErrorStatus openConflict(const KdDbObject& object, KdDb::OpenMode mode) {
    const KdDbOpenRecord& record = KdDbObjectAccess::openRecord(object);
    if (record.writing) return Kdad::eWasOpenForWrite;
    if (mode == KdDb::kForRead) return Kdad::eOk;
    if (record.hold == TransactionHold::Write) return Kdad::eWasOpenForWrite;
    return record.isOpen() ? Kdad::eWasOpenForRead : Kdad::eOk;
}

Kdad::ErrorStatus holdConflict(const KdDbObject& object, KdDb::OpenMode mode) {
    const KdDbOpenRecord& record = KdDbObjectAccess::openRecord(object);
    if (record.writing) return Kdad::eWasOpenForWrite;
    const bool wantsMore = mode == KdDb::kForWrite && record.hold != TransactionHold::Write;
    return wantsMore && record.readers > 0 ? Kdad::eWasOpenForRead : Kdad::eOk;
}

void setHold(KdDbObject& object, TransactionHold hold) {
    KdDbObjectAccess::openRecord(object).hold = hold;
    if (hold != TransactionHold::None) noteOpen(object);
}

void beginOpen(KdDbObject& object, KdDb::OpenMode mode) {
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(object);
    if (mode == KdDb::kForWrite) {
        record.writing = true;
    } else {
        ++record.readers;
    }
    noteOpen(object);
}

void endOpen(KdDbObject& object) {
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(object);
    theRegister().open.erase(record.id);
    record.command.clear();
    KdDbObjectAccess::state(object).settle(object);
    const bool changed = std::exchange(record.changed, false);
    const bool erasureChanged = std::exchange(record.erasureChanged, false);
    if (changed || erasureChanged) tellChange(object, changed, erasureChanged);
}

Kdad::ErrorStatus findForOpen(KdDbObject*& object, KdDbObjectId id, bool openErased) {
    object = nullptr;
    if (id.isNull()) return Kdad::eNullObjectId;
    KdDbObject* found = findObject(id);
    if (found == nullptr) return Kdad::eUnknownId;
    if (found->isErased() && !openErased) return Kdad::eWasErased;
    object = found;
    return Kdad::eOk;
}

Kdad::ErrorStatus openObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased,
                             const KdRxClass* cls) {
    object = nullptr;
    if (openFaultStrikes()) return Kdad::eInvalidContext;
    KdDbObject* found = nullptr;
    const Kdad::ErrorStatus status = findForOpen(found, id, openErased);
    if (status != Kdad::eOk) return status;
    if (cls != nullptr && !found->isKindOf(cls)) return Kdad::eNotThatKindOfClass;
    const Kdad::ErrorStatus conflict = openConflict(*found, mode);
    if (conflict != Kdad::eOk) return conflict;
    if (mode == KdDb::kForWrite && isOnLockedLayer(*found)) return Kdad::eOnLockedLayer;
    beginOpen(*found, mode);
    object = found;
    return Kdad::eOk;
}

}  // namespace kdhost

using namespace kdhost;

KdDbObjectState* KdDbObjectAccess::stateForWrite(KdDbObject& object) {
    KdDbOpenRecord& record = *object.m_open;
    if (record.database != nullptr) {
        if (!record.mayWrite()) {
            noteBreach(object, L"written without a write open");
            return nullptr;
        }
        record.changed = true;
        keepForUndo(object);
    }
    return object.m_state.get();
}

KdDbObjectState& KdDbObjectAccess::stateForHost(KdDbObject& object) {
    keepForUndo(object);
    return *object.m_state;
}

void KdDbObjectAccess::noteTransientChange(const KdDbObject& object) {
    KdDbOpenRecord& record = *object.m_open;
    if (record.isOpen()) {
        record.changed = true;
    } else {
        tellChange(object, true, false);
    }
}

Kdad::ErrorStatus KdDbObject::close() {
    KdDbOpenRecord& record = *m_open;
    if (record.database == nullptr) return Kdad::eOk;
    if (!record.isOpen()) {
        noteBreach(*this, L"closed while it is not open");
        return Kdad::eNotOpenForRead;
    }
    // What only a transaction has open it closes itself: a close too many does no harm.
    if (record.writing) {
        record.writing = false;
    } else if (record.readers > 0) {
        --record.readers;
    }
    if (!record.isOpen()) endOpen(*this);
    return Kdad::eOk;
}

Kdad::ErrorStatus KdDbObject::upgradeOpen() {
    KdDbOpenRecord& record = *m_open;
    if (record.database == nullptr || record.mayWrite()) return Kdad::eOk;
    if (!record.isOpen()) return Kdad::eNotOpenForRead;
    if (openFaultStrikes()) return Kdad::eInvalidContext;
    const bool held = record.hold != TransactionHold::None;
    if (record.readers + (held ? 1 : 0) > 1) return Kdad::eWasOpenForRead;
    if (isOnLockedLayer(*this)) return Kdad::eOnLockedLayer;
    if (held) {
        record.hold = TransactionHold::Write;
    } else {
        record.readers = 0;
        record.writing = true;
    }
    return Kdad::eOk;
}

Kdad::ErrorStatus KdDbObject::downgradeOpen() {
    KdDbOpenRecord& record = *m_open;
    if (record.database == nullptr) return Kdad::eOk;
    if (!record.isOpen()) return Kdad::eNotOpenForRead;
    if (record.writing) {
        record.writing = false;
        record.readers = 1;
    }
    return Kdad::eOk;
}

Kdad::ErrorStatus kddbOpenObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased,
                                 const KdRxClass* cls) {
    return openObject(object, id, mode, openErased, cls);
}

Kdad::ErrorStatus kddbOpenObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased) {
    return kddbOpenObject(object, id, mode, openErased, nullptr);
}

Kdad::ErrorStatus kddbOpenKdDbObjectEx(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased) {
    return kddbOpenObject(object, id, mode, openErased);
}

Kdad::ErrorStatus kddbOpenObject(KdDbEntity*& entity, KdDbObjectId id, KdDb::OpenMode mode, bool openErased) {
    KdDbObject* object = nullptr;
    const Kdad::ErrorStatus status = kddbOpenObject(object, id, mode, openErased, KdDbEntity::desc());
    entity = static_cast<KdDbEntity*>(object);
    return status;
}
