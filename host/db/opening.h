// The host's own opens, and the steps that begin and end an open.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "host/db/openrecord.h"
#include "kd/db/object.h"

namespace kdhost {

/// As kddbOpenObject, for opens that are part of another operation of the host.
Kdad::ErrorStatus openObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased = false,
                             const KdRxClass* cls = nullptr);

/// The same, as class T; null on failure.
template <class T>
Kdad::ErrorStatus openAs(T*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased = false) {
    KdDbObject* opened = nullptr;
    const Kdad::ErrorStatus status = openObject(opened, id, mode, openErased, T::desc());
    object = static_cast<T*>(opened);
    return status;
}

/// Whether the object could be opened in that mode now, as far as other opens go.
Kdad::ErrorStatus openConflict(const KdDbObject& object, KdDb::OpenMode mode);

/// Enters an open that is known to be allowed.
void beginOpen(KdDbObject& object, KdDb::OpenMode mode);

/// Whether a transaction could have the object in that mode now, as far as opens outside of transactions go.
Kdad::ErrorStatus holdConflict(const KdDbObject& object, KdDb::OpenMode mode);
/// Makes this the transactions' way of having the object open. Taking a hold away tells nobody yet.
void setHold(KdDbObject& object, TransactionHold hold);

/// Nobody has the object open any more: tells whoever wants to know what the open changed.
void endOpen(KdDbObject& object);

/// The object leaves memory: it is known by its id no longer.
void forgetObject(const KdDbObject& object);
/// The object has got its id.
void rememberObject(KdDbObject& object);

/// As peekObject, to be changed by the host itself.
KdDbObject* findObject(KdDbObjectId id);

/// The object that an open would give.
Kdad::ErrorStatus findForOpen(KdDbObject*& object, KdDbObjectId id, bool openErased);
/// A write to an entity is refused while its layer is locked.
bool isOnLockedLayer(const KdDbObject& object);
/// True for the one open that a test wants to fail.
bool openFaultStrikes();
/// The same for what is done to a field.
bool fieldFaultStrikes();

void noteBreach(const KdDbObject& object, const std::wstring& what);
/// The same of something else than an object.
void noteBreach(const std::wstring& what);

/// Calls `tell(listener)` for each listener, or reactor, that is still there when its turn comes.
template <class Listener, class Tell>
void tellEach(const std::vector<Listener*>& listeners, Tell&& tell) {
    // A copy: who is told may add and remove listeners.
    const std::vector<Listener*> asked = listeners;  // NOLINT(performance-unnecessary-copy-initialization)
    for (Listener* listener : asked) {
        if (std::find(listeners.begin(), listeners.end(), listener) != listeners.end()) tell(*listener);
    }
}

}  // namespace kdhost
