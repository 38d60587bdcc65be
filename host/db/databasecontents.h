// What a database holds, and the host's own way in: for the makers of drawings and for drawing files.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "kd/db/database.h"
#include "kd/db/headervar.h"

namespace kdhost {

/// The objects that a drawing is entered by.
struct DatabaseRoots {
    KdDbObjectId blockTable;
    KdDbObjectId layerTable;
    KdDbObjectId linetypeTable;
    KdDbObjectId textStyleTable;
    KdDbObjectId namedObjects;
    KdDbObjectId tableStyles;

    KdDbObjectId modelSpace;
    KdDbObjectId paperSpace;
    KdDbObjectId layerZero;
    KdDbObjectId byLayer;
    KdDbObjectId byBlock;
    KdDbObjectId continuous;
};

/// A user coordinate system, in world coordinates.
struct UserSystem {
    KdGePoint3d origin;
    KdGeVector3d x{1.0, 0.0, 0.0};
    KdGeVector3d y{0.0, 1.0, 0.0};

    friend bool operator==(const UserSystem&, const UserSystem&) = default;
};

/// Those of one space.
struct SpaceSystems {
    UserSystem now;
    std::vector<UserSystem> earlier;  ///< that the user may go back to, the newest last

    friend bool operator==(const SpaceSystems&, const SpaceSystems&) = default;
};

/// What new objects take, and where they go.
struct CurrentSettings {
    KdDbObjectId layer;
    KdDbObjectId linetype;
    KdDbObjectId textStyle;
    KdDbObjectId tableStyle;
    bool modelSpace = true;
    SpaceSystems modelSystems;
    SpaceSystems paperSystems;
    KdGePoint3d insertionBase;

    friend bool operator==(const CurrentSettings&, const CurrentSettings&) = default;
};

/// What the drawing's file held that belongs to no object and that this program doesn't know, as lines of tags.
struct FileRemainder {
    std::vector<std::pair<std::string, std::string>> variables;  ///< of the header, by name
    std::vector<std::pair<std::string, std::string>> classes;    ///< by the name of their objects
    std::vector<KdDbObjectId> tables;                            ///< symbol tables, kept as objects
    std::vector<std::string> sections;
};

class UndoHistory;

struct DatabaseContents : KdDbImpDatabase {
    std::map<std::uint64_t, std::unique_ptr<KdDbObject>> objects;  ///< by handle
    std::uint64_t nextHandle = 1;                                  ///< greater than every handle in use
    DatabaseRoots roots;
    CurrentSettings current;
    KdDbHeaderVar header;
    FileRemainder remainder;
    bool noDocument = false;
    std::unordered_set<KdDbObjectId> required;  ///< what every drawing must have
    /// Goes up when a name of a symbol table may have come, gone or changed in another way than by adding.
    std::uint64_t nameGeneration = 0;
    /// Null in a drawing that belongs to no document, and while a new drawing is being made.
    std::shared_ptr<UndoHistory> undo;

    bool isRequired(KdDbObjectId id) const { return required.contains(id); }
    const KdDbHeaderVar& headerVar() const override { return header; }
    KdDbObjectId modelSpace() const override { return roots.modelSpace; }
};

/// Makes the tables, dictionaries and records that every drawing has.
void buildDefaults(KdDbDatabase& database);

}  // namespace kdhost

struct KdDbDatabaseAccess {
    static kdhost::DatabaseContents& contents(KdDbDatabase& database);
    static const kdhost::DatabaseContents& contents(const KdDbDatabase& database);

    /// Gives an object its place, not open. `handle` 0 takes the next free one; the null id, with the object
    /// gone, when the handle is taken.
    static KdDbObjectId insert(KdDbDatabase& database, std::unique_ptr<KdDbObject> object, KdDbObjectId owner,
                               std::uint64_t handle = 0);
    /// The object of that handle, erased ones too; null when there is none.
    static const KdDbObject* find(const KdDbDatabase& database, std::uint64_t handle);
};
