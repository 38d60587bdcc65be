// The host's own way to objects. Painting, picking and dumping read what is there without opening it, since
// a module may hold an object open across a prompt; and the host knows at any time what is open, by whom.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kd/db/object.h"

namespace kdhost {

/// The object as it stands, without opening it; null for an unknown id, and for an erased object unless
/// asked for. Valid until the database changes.
const KdDbObject* peekObject(KdDbObjectId id, bool erased = false);

/// The same, as a class; null when the object is of another kind.
template <class T>
const T* peek(KdDbObjectId id) {
    const KdDbObject* object = peekObject(id);
    return object != nullptr && object->isKindOf(T::desc()) ? static_cast<const T*>(object) : nullptr;
}

/// One object that is open now.
struct OpenObject {
    KdDbObjectId id;
    std::uint64_t handle = 0;
    std::wstring className;
    int readers = 0;
    bool writing = false;
    std::wstring command;  ///< the command that opened it first
};

/// Everything that is open now, by id.
std::vector<OpenObject> openObjects();

/// Whom opens are put down to from now on; empty outside commands.
void setCurrentCommandName(const std::wstring& name);

/// Breaches of the open discipline since the last call: a setter without a write open, a close of an object
/// that isn't open. One line of text each.
std::vector<std::wstring> takeDisciplineBreaches();

/// Told when an object was changed, added or erased: at the close that ends the open, and by an undo, a redo or
/// an abort that put it back. What a listener then changes belongs to the same step of undo.
class DatabaseListener {
public:
    virtual ~DatabaseListener() = default;
    virtual void objectChanged(KdDbObjectId id) = 0;
};
/// Listeners are told in the order in which they were added. A listener stays the caller's.
void addDatabaseListener(DatabaseListener* listener);
void removeDatabaseListener(DatabaseListener* listener);

}  // namespace kdhost
