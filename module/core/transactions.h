// The transactions of the current document, looked up at each use.
#pragma once

#include "kd/db/transaction.h"

/// Null without a document.
KdDbTransactionManager* currentTransactions();

/// Starts one within those that are open; null, with none started, without a document and when the host refuses.
KdDbTransaction* startTransaction();

/// The innermost open transaction; null when none is open.
KdDbTransaction* topTransaction();

/// What is made in the drawing on the way to a change. A refusal takes all of it back, so that it leaves no step of
/// undo.
class Attempt {
public:
    Attempt() : m_transactions(currentTransactions()) {
        if (m_transactions != nullptr && m_transactions->startTransaction() == nullptr) m_transactions = nullptr;
    }
    ~Attempt() {
        if (m_transactions != nullptr) m_transactions->abortTransaction();
    }
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;

    void stands() {
        if (m_transactions != nullptr) m_transactions->endTransaction();
        m_transactions = nullptr;
    }

private:
    KdDbTransactionManager* m_transactions;
};

/// Gets an object of class T through a transaction, which keeps it open: nobody closes it. Null without a transaction,
/// when it can't be opened and for an object of another class.
template <class T>
T* getObject(KdDbTransaction* transaction, KdDbObjectId id, KdDb::OpenMode mode) {
    KdDbObject* object = nullptr;
    if (transaction == nullptr || transaction->getObject(object, id, mode, false) != Kdad::eOk) return nullptr;
    return object->isKindOf(T::desc()) ? static_cast<T*>(object) : nullptr;
}
