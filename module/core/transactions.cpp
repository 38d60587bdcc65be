// The way to the current document's transactions.

#include "module/core/transactions.h"

#include "kd/ad/document.h"

KdDbTransactionManager* currentTransactions() {
    KdApDocManager* documents = kdDocManagerPtr();
    KdApDocument* document = documents == nullptr ? nullptr : documents->curDocument();
    return document == nullptr ? nullptr : document->transactionManager();
}

KdDbTransaction* startTransaction() {
    KdDbTransactionManager* transactions = currentTransactions();
    return transactions == nullptr ? nullptr : transactions->startTransaction();
}

KdDbTransaction* topTransaction() {
    const KdDbTransactionManager* transactions = currentTransactions();
    return transactions == nullptr ? nullptr : transactions->topTransaction();
}
