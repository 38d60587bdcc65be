// What a drawing file says of things that this program doesn't know, kept so that it can be written again.
//
// Tags are kept as the lines that they were, but for the handles in them: those are ids, so that they follow when
// objects are cloned or get other handles.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/db/entitystate.h"
#include "kd/db/entity.h"

namespace kdhost {

/// Lines with places at which something is to be put in.
struct KeptTags {
    enum class Kind : std::uint8_t {
        own,      ///< the handle of the object that has the tags
        owner,    ///< that of its owner
        layer,    ///< the name of its layer
        pointer,  ///< the handle of the object `id`
        owned,    ///< the same, of an object that belongs to this one
    };
    struct Place {
        std::uint32_t at = 0;  ///< in the lines
        Kind kind = Kind::pointer;
        KdDbObjectId id;
    };

    bool empty() const { return lines.empty(); }
    void mapIds(const IdMapper& map);

    std::string lines;
    std::vector<Place> places;  ///< in the order of the lines
};

/// What a file says of a known object beyond what the object's class holds.
struct ForeignTags {
    KeptTags groups;  ///< of references, before all classes: who wants to be told of it
    KeptTags common;  ///< of what all entities have
    KeptTags own;     ///< of its own class, and what programs have hung on it
    KeptTags extras;  ///< sections of this program's own record that a later version of it has written

    void mapIds(const IdMapper& map);
};

/// A whole object.
struct KeptObject {
    std::string name;                 ///< as the file names its kind
    KeptTags tags;                    ///< all behind the name
    std::vector<KdDbObjectId> parts;  ///< what follows it and belongs to it: records of a table, vertices

    void mapIds(const IdMapper& map);
};

}  // namespace kdhost

struct KdDbKeptObjectState : KdDbObjectState {
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<KdDbKeptObjectState>(*this); }
    void mapIds(const kdhost::IdMapper& map) override;

    kdhost::KeptObject kept;
};

struct KdDbKeptEntityState : KdDbEntityState {
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<KdDbKeptEntityState>(*this); }
    void mapIds(const kdhost::IdMapper& map) override;

    kdhost::KeptObject kept;
};

/// An object of an unknown kind.
class KdDbKeptObject : public KdDbObject {
public:
    KDRX_DECLARE_MEMBERS(KdDbKeptObject)
    KdDbKeptObject();
};

/// An entity of an unknown kind. It is not drawn.
class KdDbKeptEntity : public KdDbEntity {
public:
    KDRX_DECLARE_MEMBERS(KdDbKeptEntity)
    KdDbKeptEntity();

    Kdad::ErrorStatus transformBy(const KdGeMatrix3d& matrix) override;
    KdDbExtents getGeomExtents() const override;
};

namespace kdhost {

/// What the file says of the object, which must be of one of the two classes.
const KeptObject& keptObject(const KdDbObject& object);

}  // namespace kdhost
