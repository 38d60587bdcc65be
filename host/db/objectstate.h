// What an object holds, and the one gate that every change passes.
//
// The state of an object is a value: one copy serves undo, cloning and comparison. A setter asks
// stateForWrite(); that is where the open discipline is checked and where the state from before the first
// write of a command is kept.
#pragma once

#include <memory>

#include "kd/db/object.h"

/// Base of the states. A class's state derives from its base class's state.
struct KdDbObjectState {
    virtual ~KdDbObjectState() = default;
    virtual std::unique_ptr<KdDbObjectState> clone() const = 0;

    KdDbObjectId extensionDictionary;

protected:
    KdDbObjectState() = default;
    KdDbObjectState(const KdDbObjectState&) = default;
    KdDbObjectState& operator=(const KdDbObjectState&) = default;
};

struct KdDbObjectAccess {
    static const KdDbObjectState& state(const KdDbObject& object) { return *object.m_state; }

    /// The state, to be changed now; null, and a breach noted, when the object is in a database and not
    /// open for write. An object in no database may always be written.
    static KdDbObjectState* stateForWrite(KdDbObject& object);

    /// A transient part has changed, such as a table's sub-selection: it needs no write open, yet the close
    /// tells the reactors. On an object that is not open the reactors are told at once.
    static void noteTransientChange(const KdDbObject& object);
};

/// The state as its own class.
template <class State>
const State& stateOf(const KdDbObject& object) {
    return static_cast<const State&>(KdDbObjectAccess::state(object));
}

/// Null when the object may not be written now.
template <class State>
State* writableStateOf(KdDbObject& object) {
    return static_cast<State*>(KdDbObjectAccess::stateForWrite(object));
}
