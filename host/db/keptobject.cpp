// Things that this program doesn't know.

#include "host/db/keptobject.h"

#include "kd/ge/extents.h"

KDRX_DEFINE_MEMBERS(KdDbKeptObject, KdDbObject)
KDRX_DEFINE_MEMBERS(KdDbKeptEntity, KdDbEntity)

namespace kdhost {

void KeptTags::mapIds(const IdMapper& map) {
    for (Place& place : places) {
        if (place.kind == Kind::pointer) place.id = map(place.id, IdRole::pointer);
        if (place.kind == Kind::owned) place.id = map(place.id, IdRole::owned);
    }
}

void ForeignTags::mapIds(const IdMapper& map) {
    groups.mapIds(map);
    common.mapIds(map);
    own.mapIds(map);
    extras.mapIds(map);
}

void KeptObject::mapIds(const IdMapper& map) {
    tags.mapIds(map);
    for (KdDbObjectId& part : parts) part = map(part, IdRole::owned);
}

const KeptObject& keptObject(const KdDbObject& object) {
    return object.isKindOf(KdDbKeptEntity::desc()) ? stateOf<KdDbKeptEntityState>(object).kept
                                                   : stateOf<KdDbKeptObjectState>(object).kept;
}

}  // namespace kdhost

void KdDbKeptObjectState::mapIds(const kdhost::IdMapper& map) {
    KdDbObjectState::mapIds(map);
    kept.mapIds(map);
}

void KdDbKeptEntityState::mapIds(const kdhost::IdMapper& map) {
    KdDbEntityState::mapIds(map);
    kept.mapIds(map);
}

KdDbKeptObject::KdDbKeptObject() : KdDbObject(std::make_unique<KdDbKeptObjectState>()) {}

KdDbKeptEntity::KdDbKeptEntity() : KdDbEntity(std::make_unique<KdDbKeptEntityState>()) {}

/// Where its points stand in the tags is not known.
Kdad::ErrorStatus KdDbKeptEntity::transformBy(const KdGeMatrix3d&) {
    return Kdad::eNotApplicable;
}

KdDbExtents KdDbKeptEntity::getGeomExtents() const {
    return {};
}
