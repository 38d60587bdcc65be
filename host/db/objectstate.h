// What an object holds, and the one gate that every change passes.
//
// The state of an object is a value: one copy serves undo, cloning and comparison. A setter asks
// stateForWrite(); that is where the open discipline is checked and where the state from before the first
// write of a command is kept. Ownership and erasure are part of the state, so that undo puts them back too.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "kd/db/object.h"

namespace kdhost {

/// What an id in a state stands for: something that lives and is cloned with the object, or something that
/// the object only points at.
enum class IdRole { owned, pointer };

/// Gives the id that is to stand in an id's place.
using IdMapper = std::function<KdDbObjectId(KdDbObjectId id, IdRole role)>;

struct ForeignTags;

/// Moves on whenever what one object remembers of another's state may be stale: an object left memory, an
/// object got another state whole, the cell styles of a table style changed.
extern std::uint64_t stateEpoch;

}  // namespace kdhost

struct KdDbAttachedField;

/// The fields that are attached to an object in memory; in a database they stand in its extension dictionary.
class KdDbAttachedFields {
public:
    KdDbAttachedFields();
    KdDbAttachedFields(const KdDbAttachedFields& other);
    KdDbAttachedFields& operator=(const KdDbAttachedFields& other);
    ~KdDbAttachedFields();

    bool isEmpty() const { return m_list == nullptr || isListEmpty(); }
    std::vector<KdDbAttachedField>& list();
    KdDbAttachedField* find(const std::wstring& name) const;

private:
    bool isListEmpty() const;

    std::unique_ptr<std::vector<KdDbAttachedField>> m_list;  ///< null for none, as with most objects
};

/// Base of the states. A class's state derives from its base class's state.
struct KdDbObjectState {
    virtual ~KdDbObjectState() = default;
    virtual std::unique_ptr<KdDbObjectState> clone() const = 0;

    /// Puts every id that the state holds, but for the owner's, through `map`; null ids too. A state with
    /// ids of its own extends it: cloning finds through it what belongs to an object.
    virtual void mapIds(const kdhost::IdMapper& map);

    /// Takes from `previous` what belongs to an object's place and not to what it holds.
    virtual void takePlaceOf(const KdDbObjectState& previous);

    /// The object has just got its place in a database; what hangs on it in memory follows it there.
    virtual void enterDatabase(KdDbObject& self);

    /// Nobody has the object open any more: what was put off while it was written is done now, before anything else
    /// changes that it depends on.
    virtual void settle(const KdDbObject& self) const;

    /// An undo, a redo or an abort has just put this state, or the object's erasure, back.
    virtual void wasPutBack(KdDbObject& self) const;

    KdDbObjectId owner;
    bool erased = false;
    KdDbObjectId extensionDictionary;
    KdDbAttachedFields attached;
    /// What the drawing's file says of the object and this program doesn't know; null as with most objects.
    std::shared_ptr<const kdhost::ForeignTags> foreign;

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

    /// The same for what the host changes as part of another operation: no open is asked for.
    static KdDbObjectState& stateForHost(KdDbObject& object);

    /// A transient part has changed, such as a table's sub-selection: it needs no write open, yet the close
    /// tells the reactors. On an object that is not open the reactors are told at once.
    static void noteTransientChange(const KdDbObject& object);

    /// For makers and readers of drawings, before anyone else knows of the object: no open is asked for,
    /// nothing is noted.
    static KdDbObjectState& stateForMaker(KdDbObject& object) { return *object.m_state; }

    /// Gives an object in no database another state of its class.
    static void giveState(KdDbObject& object, std::unique_ptr<KdDbObjectState> state);

    /// Gives the object the state and hands out the one that it had.
    static void exchangeState(KdDbObject& object, std::unique_ptr<KdDbObjectState>& state);

    static KdDbOpenRecord& openRecord(const KdDbObject& object) { return *object.m_open; }
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

/// Changes the state by `change(state)`; eNotOpenForWrite when the object may not be written now.
template <class State, class Change>
Kdad::ErrorStatus changeState(KdDbObject& object, Change&& change) {
    State* state = writableStateOf<State>(object);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    change(*state);
    return Kdad::eOk;
}
