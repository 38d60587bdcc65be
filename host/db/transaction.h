// A drawing's transactions: which objects they have open, and what stood in the drawing before them.
#pragma once

#include <vector>

#include "host/db/changerecord.h"
#include "host/db/openrecord.h"
#include "kd/db/transaction.h"

namespace kdhost {

class UndoHistory;

class Transaction final : public KdDbTransaction {
public:
    explicit Transaction(const KdDbDatabase& database) : m_database(database) {}

    Kdad::ErrorStatus getObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased) override;

    /// Takes over the open of an object that has just been made, or gives it back.
    Kdad::ErrorStatus takeOver(KdDbObject& object);
    Kdad::ErrorStatus giveBack(KdDbObject& object);

    ChangeRecord& changes() { return m_changes; }

    /// The outer transaction has the objects open from now on.
    void passHoldsTo(Transaction& outer);
    /// Holds are as they were when this transaction started. Returns the objects whose holds changed.
    std::vector<KdDbObject*> releaseHolds();

private:
    /// How the outer transactions had an object open that this one holds.
    struct Held {
        KdDbObjectId id;
        TransactionHold before;
    };

    void hold(KdDbObject& object, TransactionHold hold);

    const KdDbDatabase& m_database;
    ChangeRecord m_changes;
    std::vector<Held> m_held;
};

/// What a document hands out: the transactions of its drawing.
class TransactionManager final : public KdDbTransactionManager {
public:
    explicit TransactionManager(KdDbDatabase& database) : m_database(database) {}

    KdDbTransaction* startTransaction() override;
    Kdad::ErrorStatus endTransaction() override;
    Kdad::ErrorStatus abortTransaction() override;
    KdDbTransaction* topTransaction() const override;
    int numActiveTransactions() const override;
    Kdad::ErrorStatus addNewlyCreatedDBRObject(KdDbObject* object, bool add) override;

private:
    UndoHistory& history() const;

    KdDbDatabase& m_database;
};

}  // namespace kdhost
