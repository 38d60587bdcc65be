// Insertions of blocks.

#include "kd/db/blockreference.h"

#include <algorithm>
#include <vector>

#include "host/db/access.h"
#include "host/db/entitystate.h"
#include "host/db/similarity.h"
#include "host/db/symbolstate.h"
#include "kd/db/symboltable.h"

KDRX_DEFINE_MEMBERS(KdDbBlockReference, KdDbEntity)

namespace {

using State = KdDbBlockReferenceState;

/// The blocks being measured now; a block that is inserted in itself has no end otherwise.
std::vector<KdDbObjectId>& blocksUnderway() {
    static std::vector<KdDbObjectId> blocks;
    return blocks;
}

/// The box around a box after a transformation.
void addTransformed(KdDbExtents& extents, const KdDbExtents& box, const KdGeMatrix3d& matrix) {
    if (!box.isValid()) return;
    const KdGePoint3d& low = box.minPoint();
    const KdGePoint3d& high = box.maxPoint();
    for (int corner = 0; corner < 8; ++corner) {
        extents.addPoint(matrix * KdGePoint3d((corner & 1) != 0 ? high.x : low.x, (corner & 2) != 0 ? high.y : low.y,
                                              (corner & 4) != 0 ? high.z : low.z));
    }
}

}  // namespace

void KdDbBlockReferenceState::mapIds(const kdhost::IdMapper& map) {
    KdDbEntityState::mapIds(map);
    block = map(block, kdhost::IdRole::pointer);
}

KdDbBlockReference::KdDbBlockReference() : KdDbEntity(std::make_unique<State>()) {}

KdDbBlockReference::KdDbBlockReference(const KdGePoint3d& position, KdDbObjectId block) : KdDbBlockReference() {
    State& state = *writableStateOf<State>(*this);
    state.position = position;
    state.block = block;
}

KdDbBlockReference::KdDbBlockReference(std::unique_ptr<KdDbObjectState> state) : KdDbEntity(std::move(state)) {}

void KdDbBlockReference::setNormal(const KdGeVector3d& normal) {
    changeState<State>(*this, [&](State& state) { state.normal = normal; });
}
KdGePoint3d KdDbBlockReference::position() const {
    return stateOf<State>(*this).position;
}
void KdDbBlockReference::setPosition(const KdGePoint3d& position) {
    changeState<State>(*this, [&](State& state) { state.position = position; });
}
KdGeVector3d KdDbBlockReference::normal() const {
    return stateOf<State>(*this).normal;
}
KdDbObjectId KdDbBlockReference::blockTableRecord() const {
    return stateOf<State>(*this).block;
}
Kdad::ErrorStatus KdDbBlockReference::setBlockTableRecord(KdDbObjectId block) {
    return changeState<State>(*this, [&](State& state) { state.block = block; });
}
double KdDbBlockReference::rotation() const {
    return stateOf<State>(*this).rotation;
}
Kdad::ErrorStatus KdDbBlockReference::setRotation(double angle) {
    return changeState<State>(*this, [&](State& state) { state.rotation = angle; });
}
double KdDbBlockReference::scaleFactor() const {
    return stateOf<State>(*this).scale;
}
Kdad::ErrorStatus KdDbBlockReference::setScaleFactor(double factor) {
    if (factor == 0.0) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) { state.scale = factor; });
}

KdGeMatrix3d KdDbBlockReference::blockTransform() const {
    const State& state = stateOf<State>(*this);
    const auto* block = kdhost::peek<KdDbBlockTableRecord>(state.block);
    const KdGePoint3d origin = block != nullptr ? block->origin() : KdGePoint3d();
    return kdhost::placeInPlane(state.position, {state.normal, state.rotation}) *
           KdGeMatrix3d::scaling(state.scale, KdGePoint3d()) * KdGeMatrix3d::translation(-origin.asVector());
}

Kdad::ErrorStatus KdDbBlockReference::transformBy(const KdGeMatrix3d& matrix) {
    const std::optional<double> scale = kdhost::evenScale(matrix);
    if (!scale) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) {
        const auto [normal, angle] = kdhost::transformed({state.normal, state.rotation}, matrix);
        state.normal = normal;
        state.rotation = angle;
        state.position.transformBy(matrix);
        state.scale *= *scale;
    });
}

KdDbExtents KdDbBlockReference::getGeomExtents() const {
    KdDbExtents extents;
    const KdDbObjectId id = blockTableRecord();
    const auto* block = kdhost::peek<KdDbBlockTableRecord>(id);
    std::vector<KdDbObjectId>& underway = blocksUnderway();
    if (block == nullptr || std::find(underway.begin(), underway.end(), id) != underway.end()) return extents;
    underway.push_back(id);
    const KdGeMatrix3d toWorld = blockTransform();
    for (const KdDbObjectId part : stateOf<KdDbBlockTableRecordState>(*block).entities) {
        const auto* entity = kdhost::peek<KdDbEntity>(part);
        if (entity != nullptr) addTransformed(extents, entity->getGeomExtents(), toWorld);
    }
    underway.pop_back();
    return extents;
}
