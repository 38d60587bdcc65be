// Documents: the open drawings.
#pragma once

#include <string>

#include "kd/db/objectid.h"
#include "kd/rx/errorstatus.h"

class KdApDocument;
class KdDbDatabase;
class KdDbTransactionManager;

/// Told of what happens to documents.
class KdApDocManagerReactor {
public:
    virtual ~KdApDocManagerReactor();
    virtual void documentCreated(KdApDocument* document);
    virtual void documentToBeActivated(KdApDocument* document);
    virtual void documentActivated(KdApDocument* document);
    virtual void documentToBeDeactivated(KdApDocument* document);
    virtual void documentToBeDestroyed(KdApDocument* document);
    virtual void documentDestroyed(const wchar_t* fileName);
};

/// One open drawing.
class KdApDocument {
public:
    virtual ~KdApDocument();
    virtual KdDbDatabase* database() const = 0;
    virtual const wchar_t* fileName() const = 0;
    /// The transactions of the document's drawing; never null.
    virtual KdDbTransactionManager* transactionManager() = 0;
};

namespace KdAp {
/// What a document is locked for.
enum DocLockMode : int { kWrite = 4 };
}  // namespace KdAp

class KdApDocManager {
public:
    virtual ~KdApDocManager();
    /// A reactor is told from now on, once however often it is added. It stays its maker's.
    virtual void addReactor(KdApDocManagerReactor* reactor) = 0;
    virtual void removeReactor(KdApDocManagerReactor* reactor) = 0;
    virtual int documentCount() const = 0;
    /// Null when no drawing is open.
    virtual KdApDocument* curDocument() const = 0;
    /// Puts text into the input queue of the document, ahead of what comes from outside; commands in it run once
    /// the running one has ended. With `activate` the document comes to the front first. `wrapUp` is for hosts that
    /// close a document behind the text, which this one never does. With `echo` the history of the command line
    /// shows the text, as if the user had typed it. eInvalidInput without a document or a text.
    virtual Kdad::ErrorStatus sendStringToExecute(KdApDocument* document, const wchar_t* text, bool activate = true,
                                                  bool wrapUp = false, bool echo = true) = 0;

    /// Locks a document for changes from outside a command, and what is changed until the matching unlock is undone
    /// like a command of the fixed `globalName`; `localName` is what the user reads. `prompt` lets a host ask when
    /// another holds the lock, which this one never does. eLockViolation while another document's command runs,
    /// eInvalidInput for no document.
    virtual Kdad::ErrorStatus lockDocument(KdApDocument* document, KdAp::DocLockMode mode = KdAp::kWrite,
                                           const wchar_t* globalName = nullptr, const wchar_t* localName = nullptr,
                                           bool prompt = true) = 0;
    /// eInvalidInput for no document and for one that isn't locked.
    virtual Kdad::ErrorStatus unlockDocument(KdApDocument* document) = 0;
};

/// Null before the host has started.
KdApDocManager* kdDocManagerPtr();

/// What the host keeps about a document for its modules.
struct KdadDocData {
    /// The table whose toolbar stands open; null when none does.
    KdDbObjectId m_tableId;
};

/// The record of the active document; null when no drawing is open.
KdadDocData* GetKdadAppCtxActiveDocData();
