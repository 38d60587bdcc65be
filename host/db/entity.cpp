// What every entity has: layer, colour, line type, line weight, visibility.

#include "kd/db/entity.h"

#include "host/db/entitystate.h"
#include "host/db/opening.h"
#include "host/db/openrecord.h"
#include "kd/db/database.h"

KDRX_DEFINE_MEMBERS(KdDbEntity, KdDbObject)

namespace {

using State = KdDbEntityState;

}  // namespace

void KdDbEntityState::mapIds(const kdhost::IdMapper& map) {
    KdDbObjectState::mapIds(map);
    layer = map(layer, kdhost::IdRole::pointer);
    linetype = map(linetype, kdhost::IdRole::pointer);
}

KdDbEntity::KdDbEntity(std::unique_ptr<KdDbObjectState> state) : KdDbObject(std::move(state)) {}

void KdDbEntity::setDatabaseDefaults(KdDbDatabase* database) {
    KdDbHostApplicationServices* services = kddbHostApplicationServices();
    if (database == nullptr && services != nullptr) database = services->workingDatabase();
    if (database == nullptr) return;
    changeState<State>(*this, [&](State& state) {
        state.layer = database->clayer();
        state.linetype = database->celtype();
        state.color = {};
        state.lineWeight = KdDb::kLnWtByLayer;
    });
}

KdDbObjectId KdDbEntity::layerId() const {
    return stateOf<State>(*this).layer;
}
Kdad::ErrorStatus KdDbEntity::setLayer(KdDbObjectId layer) {
    return changeState<State>(*this, [&](State& state) { state.layer = layer; });
}
KdCmColor KdDbEntity::color() const {
    return stateOf<State>(*this).color;
}
Kdad::ErrorStatus KdDbEntity::setColor(const KdCmColor& color, bool) {
    return changeState<State>(*this, [&](State& state) { state.color = color; });
}
KdDbObjectId KdDbEntity::linetypeId() const {
    return stateOf<State>(*this).linetype;
}
Kdad::ErrorStatus KdDbEntity::setLinetype(KdDbObjectId linetype) {
    return changeState<State>(*this, [&](State& state) { state.linetype = linetype; });
}
KdDb::LineWeight KdDbEntity::lineWeight() const {
    return stateOf<State>(*this).lineWeight;
}
Kdad::ErrorStatus KdDbEntity::setLineWeight(KdDb::LineWeight weight) {
    return changeState<State>(*this, [&](State& state) { state.lineWeight = weight; });
}
void KdDbEntity::recordGraphicsModified(bool setModified) {
    if (!setModified) return;
    if (!isWriteEnabled()) {
        kdhost::noteBreach(*this, L"told as changed without a write open");
        return;
    }
    m_open->changed = true;
}
KdDb::Visibility KdDbEntity::visibility() const {
    return stateOf<State>(*this).visibility;
}
Kdad::ErrorStatus KdDbEntity::setVisibility(KdDb::Visibility visibility) {
    return changeState<State>(*this, [&](State& state) { state.visibility = visibility; });
}
