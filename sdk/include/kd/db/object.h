// Objects of a drawing database, and the discipline of opening and closing them.
//
// Many readers or one writer. An object is opened by its id, used, and closed in the same scope; a pointer
// from kddbOpenObject means nothing after close(). An object that is in no database is its maker's: it may
// be read and written freely, close() does nothing, and its maker deletes it.
#pragma once

#include <cstdint>
#include <memory>

#include "kd/db/dbenums.h"
#include "kd/db/drawable.h"
#include "kd/db/objectid.h"
#include "kd/rx/errorstatus.h"

class KdDbDatabase;
class KdDbEntity;
class KdDbField;
class KdDbIdMapping;
class KdDbObject;
struct KdDbObjectState;  ///< what an object holds; the host's own
struct KdDbOpenRecord;   ///< who has the object open; the host's own

/// Told of what happens to one object. The host calls it between operations, never while the object is open.
class KdDbObjectReactor {
public:
    virtual ~KdDbObjectReactor();
    /// Once for each open that changed the object, a table's sub-selection included, at its close.
    virtual void modified(const KdDbObject* object);
    virtual void erased(const KdDbObject* object, bool erasing);
    /// The object is about to leave memory with its database.
    virtual void goodbye(const KdDbObject* object);
};

class KdDbObject : public KdGiDrawable {
public:
    KDRX_DECLARE_MEMBERS(KdDbObject)
    ~KdDbObject() override;
    KdDbObject(const KdDbObject&) = delete;
    KdDbObject& operator=(const KdDbObject&) = delete;

    /// Null while the object is in no database.
    KdDbObjectId objectId() const;
    KdDbObjectId ownerId() const;
    KdDbDatabase* database() const;
    /// Unique in its database, kept by files; 0 while the object is in no database.
    std::uint64_t handle() const;

    /// Ends one open. eNotOpenForRead when the object isn't open.
    Kdad::ErrorStatus close();
    /// From the only read open to a write open. eWasOpenForRead when there are other readers, eOnLockedLayer
    /// for an entity whose layer is locked, eOk when it is open for write already.
    Kdad::ErrorStatus upgradeOpen();
    /// From a write open to a read open; repeating it is harmless.
    Kdad::ErrorStatus downgradeOpen();
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isErased() const;

    /// Makes `owner` the owner on record; needs a write open. The owner's own lists stay as they are.
    Kdad::ErrorStatus setOwnerId(KdDbObjectId owner);

    /// Needs a write open. An erased object can be opened only by those who ask for erased ones; false
    /// brings it back. eWasErased when it is erased already, eCannotBeErased for what every drawing must
    /// have, eNotInDatabase for an object in no database.
    Kdad::ErrorStatus erase(bool erasing = true);

    /// Tells a container that one of the objects it lists is being erased, or comes back with `erasing` false. A
    /// dictionary that is open for write takes the object's entry out; by default nothing happens.
    virtual void erased(const KdDbObject* object, bool erasing);

    /// Reactors are transient: they may be changed under any open, and are no part of undo or of files.
    void addReactor(KdDbObjectReactor* reactor) const;
    void removeReactor(KdDbObjectReactor* reactor) const;

    /// Null when the object has none.
    KdDbObjectId extensionDictionary() const;
    /// eOk also when it has one already.
    Kdad::ErrorStatus createExtensionDictionary();
    /// Whether a field is attached to the object as a whole, under any name.
    bool hasFields() const;
    /// The field attached under that name, opened; eKeyNotFound when there is none. What shows a text takes it
    /// from the field "TEXT", the one that is meant without a name.
    Kdad::ErrorStatus getField(const wchar_t* name, KdDbField*& field, KdDb::OpenMode mode) const;
    Kdad::ErrorStatus getField(KdDbField*& field, KdDb::OpenMode mode) const;
    /// Attaches a field to the object as a whole, in the place of the one of that name, which is erased. Needs a
    /// write open. The database owns the field from now on, and it stays open for write; an object in memory
    /// owns it itself, until the field is posted or the object goes. eNullObjectPointer, eInvalidKey for a name
    /// that is empty or null, eAlreadyInDatabase.
    virtual Kdad::ErrorStatus setField(const wchar_t* name, KdDbField* field);
    Kdad::ErrorStatus setField(KdDbField* field);
    /// Takes the field off and erases it. eKeyNotFound when there is none.
    Kdad::ErrorStatus removeField(const wchar_t* name);

    /// Takes over everything that `source` holds, its identity and place excepted. The two must be of one
    /// class; eNotThatKindOfClass otherwise.
    virtual Kdad::ErrorStatus copyFrom(const KdRxObject* source);
    /// Clones the object into `owner` (a block table record, dictionary or symbol table open for write, of
    /// the mapping's destination) with all that it owns, and enters each pair into the mapping. The clone
    /// stays open for write; what it owns doesn't. In another database layers, line types, text styles,
    /// blocks and table styles are those of the same name there, cloned along when there are none.
    /// `primary` tells that the object itself was asked for, not one that hangs on it: false only names
    /// the owner, whose lists stay as they are. What the mapping holds already is not cloned again: eOk
    /// without a clone. eNotThatKindOfClass when the owner can't hold it, eDuplicateKey for a taken name in
    /// a symbol table, eInvalidContext when the owner is not of the mapping's destination.
    virtual Kdad::ErrorStatus deepClone(KdDbObject* owner, KdDbObject*& clone, KdDbIdMapping& mapping,
                                        bool primary = true) const;

protected:
    explicit KdDbObject(std::unique_ptr<KdDbObjectState> state);

    friend struct KdDbObjectAccess;  ///< the host's way in
    std::unique_ptr<KdDbObjectState> m_state;
    std::unique_ptr<KdDbOpenRecord> m_open;
};

/// Opens an object. Failure values, with `object` null: eNullObjectId, eUnknownId, eWasErased (unless
/// `openErased`), eWasOpenForWrite, and for a write also eWasOpenForRead, and eOnLockedLayer for an entity
/// whose layer is locked.
Kdad::ErrorStatus kddbOpenObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased = false);
/// Fails with eNotThatKindOfClass unless the object is of class `cls`.
Kdad::ErrorStatus kddbOpenObject(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode, bool openErased,
                                 const KdRxClass* cls);
/// Fails with eNotThatKindOfClass unless the object is an entity.
Kdad::ErrorStatus kddbOpenObject(KdDbEntity*& entity, KdDbObjectId id, KdDb::OpenMode mode, bool openErased = false);
/// The first of these under the name that whoever works on clones knows.
Kdad::ErrorStatus kddbOpenKdDbObjectEx(KdDbObject*& object, KdDbObjectId id, KdDb::OpenMode mode,
                                       bool openErased = false);
