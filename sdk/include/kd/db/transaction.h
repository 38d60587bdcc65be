// Transactions: changes that stand or fall together.
//
// Transactions nest; an inner one ends into the outer one. What was changed while a transaction ran is put back
// by its abort. Objects got through a transaction are open until the outermost transaction ends, and are never
// closed by the caller; one that only transactions have open for write may be opened for read beside them.
#pragma once

#include "kd/db/object.h"

/// One transaction. It is the manager's, and gone once it has ended.
class KdDbTransaction {
public:
    virtual ~KdDbTransaction();
    /// Opens an object for the transaction; the same object may be got again, also for write after a read. The
    /// failure values are those of kddbOpenObject, with `object` null, and eInvalidContext for an object of another
    /// drawing.
    virtual Kdad::ErrorStatus getObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode,
                                        bool openErased = false) = 0;
};

/// The transactions of one document.
class KdDbTransactionManager {
public:
    virtual ~KdDbTransactionManager();
    /// Null on failure.
    virtual KdDbTransaction* startTransaction() = 0;
    /// Ends the innermost transaction: its changes are the outer one's from now on, or stand. eInvalidContext
    /// when none is open.
    virtual Kdad::ErrorStatus endTransaction() = 0;
    /// Ends the innermost transaction and puts back everything that was changed since it started; objects made
    /// since then are erased. eInvalidContext when none is open.
    virtual Kdad::ErrorStatus abortTransaction() = 0;
    /// The innermost open transaction, or null.
    virtual KdDbTransaction* topTransaction() const = 0;
    virtual int numActiveTransactions() const = 0;
    /// Hands an object that its maker has just put into the drawing, still open for write, over to the innermost
    /// transaction: the maker closes it no more. With `add` false the maker gets its open back. eInvalidContext
    /// when no transaction is open, eNullObjectPointer, eNotInDatabase, eNotOpenForWrite.
    virtual Kdad::ErrorStatus addNewlyCreatedDBRObject(KdDbObject* object, bool add = true) = 0;
};
