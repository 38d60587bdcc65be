// A dictionary: objects of a database by name.
#pragma once

#include <memory>
#include <string>

#include "kd/db/object.h"

/// Walks the entries in the order of their names, regardless of case. The dictionary must stay open.
class KdDbDictionaryIterator {
public:
    virtual ~KdDbDictionaryIterator();
    virtual bool done() const = 0;
    virtual bool next() = 0;  ///< false at the end
    virtual const wchar_t* name() const = 0;
    virtual KdDbObjectId objectId() const = 0;
};

/// Names are compared without regard to case and keep the case they were given.
class KdDbDictionary : public KdDbObject {
public:
    KDRX_DECLARE_MEMBERS(KdDbDictionary)
    KdDbDictionary();

    /// eKeyNotFound, with `id` null, when there is no such entry.
    Kdad::ErrorStatus getAt(const wchar_t* name, KdDbObjectId& id) const;
    bool has(const wchar_t* name) const;
    bool has(KdDbObjectId id) const;
    /// eKeyNotFound when the object has no entry.
    Kdad::ErrorStatus nameAt(KdDbObjectId id, std::wstring& name) const;
    unsigned numEntries() const;

    /// Adds `object` under `name`, or puts it in the place of the object there, which is erased. The
    /// database owns the object from now on, and it stays open for write.
    /// eInvalidKey for an empty name, eNotOpenForWrite without a write open.
    Kdad::ErrorStatus setAt(const wchar_t* name, KdDbObject* object, KdDbObjectId& id);
    /// Renames an entry. False when there is no such entry, the new name is empty or another entry has it.
    bool setName(const wchar_t* oldName, const wchar_t* newName);
    /// Takes an entry out; the object stays in the database.
    Kdad::ErrorStatus remove(const wchar_t* name);
    Kdad::ErrorStatus remove(KdDbObjectId id);
    void erased(const KdDbObject* object, bool erasing) override;

    /// The caller deletes the iterator.
    KdDbDictionaryIterator* newIterator() const;
};
