// What all parts of reading a drawing share: the file, the drawing that it becomes, and which object is which.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/db/databasecontents.h"
#include "host/db/keptobject.h"
#include "host/file/structure.h"

class KdDbTable;

namespace kdhost::file {

/// The file contradicts itself, or says what no drawing can hold: it is refused as a whole. Thrown by the parts of
/// the reader and caught by the reader alone.
struct Refused : std::runtime_error {
    using std::runtime_error::runtime_error;
};

inline void require(bool condition, const char* what) {
    if (!condition) throw Refused(what);
}

struct LoadContext {
    explicit LoadContext(KdDbDatabase& read) : database(read), contents(KdDbDatabaseAccess::contents(read)) {}

    /// Gives an object that the file holds its place.
    KdDbObject& insert(std::unique_ptr<KdDbObject> object, std::uint64_t handle);
    /// The object of that handle; null when the drawing has none.
    KdDbObject* find(std::uint64_t handle) const;
    KdDbObjectId idOf(std::uint64_t handle) const;
    /// The same, of that class.
    template <class T>
    T* findAs(std::uint64_t handle) const {
        KdDbObject* object = find(handle);
        return object != nullptr && object->isKindOf(T::desc()) ? static_cast<T*>(object) : nullptr;
    }

    /// The layer of that name. One that entities name and the file doesn't list is made.
    KdDbObjectId layer(std::string_view name);
    /// The record of that name in another table; it must be there.
    KdDbObjectId record(KdDbObjectId table, std::string_view name);
    KdDbObjectId recordOrNull(KdDbObjectId table, std::string_view name);

    /// Tags as they are kept. `identity` tells that they are the first tags of that object, with its handle and owner;
    /// the group of an extension dictionary is then left out, where the object itself has one.
    KeptTags keep(TagSpan tags, const FileObject* identity = nullptr);
    void keep(TagIterator tag, KeptTags& kept);
    /// The groups of references before the object's first subclass, but for that of its extension dictionary.
    KeptTags keepGroups(const FileObject& object);
    /// What the file says of a known object beyond its class.
    void setForeign(KdDbObject& object, ForeignTags tags);

    /// The object of the file's last section that has that handle; null for none.
    const FileObject* fileObject(std::uint64_t handle) const;

    KdDbDatabase& database;
    DatabaseContents& contents;

    // Formulas are evaluated once all is read.
    std::vector<const KdDbTable*> tablesWithFields;
    std::vector<KdDbObjectId> fields;

    // Found before anything is made.
    std::unordered_map<std::uint64_t, const FileObject*> fileObjects;  ///< of the last section, by handle
    std::unordered_set<std::uint64_t> tableBlocks;                     ///< records of the blocks that only show a table
    std::unordered_set<std::string_view> tableBlockNames;
    std::unordered_map<std::uint64_t, const FileObject*> extras;  ///< by the handle of the dictionary they stand in
    std::unordered_set<std::uint64_t> passedOver;  ///< objects that the file has only for the sake of extras

private:
    std::unordered_map<std::string, KdDbObjectId>& namesOf(KdDbObjectId table);

    std::unordered_map<std::uint64_t, KdDbObject*> m_objects;
    std::unordered_map<KdDbObjectId, std::unordered_map<std::string, KdDbObjectId>> m_names;
    // The last look-up of a name: entities in a row mostly share their layer.
    KdDbObjectId m_lastTable;
    std::string m_lastName;
    KdDbObjectId m_lastRecord;
};

}  // namespace kdhost::file
