// What a drawing held before a change: the states of the objects that the change touched, and the drawing's
// settings where it touched those.
//
// States are values that share what hasn't been written, so that a record costs what the change touches. To put
// a record back is to exchange it with what stands in the drawing; the record then holds the way forward again.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

#include "host/db/databasecontents.h"
#include "host/db/objectstate.h"

namespace kdhost {

class ChangeRecord {
public:
    ChangeRecord();

    /// Unlike that of any other record of the process. An object remembers the record that kept it last.
    std::uint64_t number() const { return m_number; }
    bool isEmpty() const { return m_objects.empty() && !m_settings; }

    /// Keeps the object's state as it stands, unless something is kept of it already.
    void keep(KdDbObject& object);
    /// Before the change there was no such object.
    void keepMade(KdDbObject& object);
    void keepSettings(const DatabaseContents& contents);

    /// The change of `later` followed this record's and belongs to it from now on.
    void join(ChangeRecord&& later);
    /// Lets go of kept settings that are the drawing's own again.
    void dropUnchangedSettings(const DatabaseContents& contents);

    /// The objects, in the order in which they were touched.
    std::vector<KdDbObject*> objects() const;

    /// Exchanges what is kept with what stands in the drawing. Nobody is told yet; each object notes for its
    /// next tellChanges() or close that it has changed.
    void exchange(DatabaseContents& contents);

private:
    struct Settings {
        CurrentSettings current;
        KdDbHeaderVar header;
        friend bool operator==(const Settings&, const Settings&) = default;
    };
    struct Kept {
        KdDbObjectId id;
        /// Null for an object that the change made: of it only the erasure is put back.
        std::unique_ptr<KdDbObjectState> state;
        bool erased = true;
    };

    static void exchange(Kept& kept);

    std::uint64_t m_number;
    std::vector<Kept> m_objects;
    std::unordered_set<KdDbObjectId> m_known;
    std::optional<Settings> m_settings;
};

/// Tells reactors and listeners of the objects that have changed and that nobody has open.
void tellChanges(const std::vector<KdDbObject*>& objects);

}  // namespace kdhost
