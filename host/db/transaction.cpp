// Getting objects through a transaction, and the document's face of its drawing's transactions.

#include "host/db/transaction.h"

#include <algorithm>

#include "host/db/opening.h"
#include "host/db/undo.h"
#include "host/rx/faults.h"

KdDbTransaction::~KdDbTransaction() = default;
KdDbTransactionManager::~KdDbTransactionManager() = default;

namespace kdhost {

Kdad::ErrorStatus Transaction::getObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased) {
    object = nullptr;
    if (openFaultStrikes()) return Kdad::eInvalidContext;
    KdDbObject* found = nullptr;
    const Kdad::ErrorStatus status = findForOpen(found, id, openErased);
    if (status != Kdad::eOk) return status;
    if (found->database() != &m_database) return Kdad::eInvalidContext;
    const Kdad::ErrorStatus conflict = holdConflict(*found, mode);
    if (conflict != Kdad::eOk) return conflict;
    if (mode == KdDb::kForWrite && isOnLockedLayer(*found)) return Kdad::eOnLockedLayer;
    hold(*found, mode == KdDb::kForWrite ? TransactionHold::Write : TransactionHold::Read);
    object = found;
    return Kdad::eOk;
}

/// A hold is never made less.
void Transaction::hold(KdDbObject& object, TransactionHold wanted) {
    const TransactionHold now = KdDbObjectAccess::openRecord(object).hold;
    if (now == wanted || now == TransactionHold::Write) return;
    const bool isKnown =
        std::any_of(m_held.begin(), m_held.end(), [&](const Held& held) { return held.id == object.objectId(); });
    if (!isKnown) m_held.push_back({object.objectId(), now});
    setHold(object, wanted);
}

Kdad::ErrorStatus Transaction::takeOver(KdDbObject& object) {
    if (object.database() != &m_database) return Kdad::eNotInDatabase;
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(object);
    if (record.hold == TransactionHold::Write) return Kdad::eOk;
    if (!record.writing) return Kdad::eNotOpenForWrite;
    hold(object, TransactionHold::Write);
    record.writing = false;
    return Kdad::eOk;
}

Kdad::ErrorStatus Transaction::giveBack(KdDbObject& object) {
    const auto held =
        std::find_if(m_held.begin(), m_held.end(), [&](const Held& each) { return each.id == object.objectId(); });
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(object);
    if (held == m_held.end() || record.hold != TransactionHold::Write) return Kdad::eNotOpenForWrite;
    if (record.readers > 0) return Kdad::eWasOpenForRead;
    record.writing = true;
    setHold(object, held->before);
    m_held.erase(held);
    return Kdad::eOk;
}

void Transaction::passHoldsTo(Transaction& outer) {
    for (const Held& held : m_held) {
        if (held.before == TransactionHold::None) outer.m_held.push_back(held);
    }
    m_held.clear();
}

std::vector<KdDbObject*> Transaction::releaseHolds() {
    std::vector<KdDbObject*> released;
    for (const Held& held : m_held) {
        KdDbObject* object = findObject(held.id);
        if (object == nullptr) continue;
        setHold(*object, held.before);
        released.push_back(object);
    }
    m_held.clear();
    return released;
}

UndoHistory& TransactionManager::history() const {
    return *KdDbDatabaseAccess::contents(m_database).undo;
}

KdDbTransaction* TransactionManager::startTransaction() {
    return faults().noTransaction ? nullptr : &history().startTransaction();
}

Kdad::ErrorStatus TransactionManager::endTransaction() {
    return history().endTransaction();
}

Kdad::ErrorStatus TransactionManager::abortTransaction() {
    return history().abortTransaction();
}

KdDbTransaction* TransactionManager::topTransaction() const {
    return history().topTransaction();
}

int TransactionManager::numActiveTransactions() const {
    return history().transactionCount();
}

Kdad::ErrorStatus TransactionManager::addNewlyCreatedDBRObject(KdDbObject* object, bool add) {
    Transaction* top = history().topTransaction();
    if (top == nullptr) return Kdad::eInvalidContext;
    if (object == nullptr) return Kdad::eNullObjectPointer;
    if (object->database() == nullptr) return Kdad::eNotInDatabase;
    return add ? top->takeOver(*object) : top->giveBack(*object);
}

}  // namespace kdhost
