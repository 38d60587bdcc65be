// Block table records: the entities of a block, in drawing order.

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/entitystate.h"
#include "host/db/liveids.h"
#include "host/db/names.h"
#include "host/db/opening.h"
#include "host/db/symbolstate.h"
#include "kd/db/entity.h"
#include "kd/db/symboltable.h"

KDRX_DEFINE_MEMBERS(KdDbBlockTableRecord, KdDbSymbolTableRecord)

namespace {

using State = KdDbBlockTableRecordState;

class Iterator final : public kdhost::LiveIdIterator<KdDbBlockTableRecordIterator> {
public:
    explicit Iterator(const KdDbBlockTableRecord& block) : m_block(block) { start(); }

    Kdad::ErrorStatus getEntityId(KdDbObjectId& id) const override { return currentId(id); }
    Kdad::ErrorStatus getEntity(KdDbEntity*& entity, KdDb::OpenMode mode) const override {
        return openCurrent(entity, mode);
    }

private:
    const std::vector<KdDbObjectId>& ids() const override { return stateOf<State>(m_block).entities; }

    const KdDbBlockTableRecord& m_block;
};

/// Every entity of a drawing is on a layer and has a line type.
void giveDefaults(KdDbEntity& entity, const KdDbDatabase& database) {
    auto& state = *writableStateOf<KdDbEntityState>(entity);
    if (state.layer.isNull()) state.layer = database.layerZero();
    if (state.linetype.isNull()) state.linetype = database.byLayerLinetype();
}

}  // namespace

void KdDbBlockTableRecordState::mapIds(const kdhost::IdMapper& map) {
    KdDbObjectState::mapIds(map);
    for (KdDbObjectId& id : entities) id = map(id, kdhost::IdRole::owned);
    std::erase(entities, KdDbObjectId::kNull);
}

void KdDbBlockTableRecordState::takePlaceOf(const KdDbObjectState& previous) {
    KdDbSymbolTableRecordState::takePlaceOf(previous);
    entities = static_cast<const KdDbBlockTableRecordState&>(previous).entities;
}

KdDbBlockTableRecordIterator::~KdDbBlockTableRecordIterator() = default;

KdDbBlockTableRecord::KdDbBlockTableRecord() : KdDbSymbolTableRecord(std::make_unique<State>()) {}

KdGePoint3d KdDbBlockTableRecord::origin() const {
    return stateOf<State>(*this).origin;
}

void KdDbBlockTableRecord::setOrigin(const KdGePoint3d& origin) {
    changeState<State>(*this, [&](State& state) { state.origin = origin; });
}

bool KdDbBlockTableRecord::isAnonymous() const {
    return stateOf<State>(*this).name.starts_with(L'*');
}

bool KdDbBlockTableRecord::isLayout() const {
    const std::wstring name = kdhost::foldedName(stateOf<State>(*this).name.c_str());
    return name == kdhost::foldedName(KDDB_MODEL_SPACE) || name.starts_with(kdhost::foldedName(KDDB_PAPER_SPACE));
}

Kdad::ErrorStatus KdDbBlockTableRecord::appendKdDbEntity(KdDbObjectId& id, KdDbEntity* entity) {
    id.setNull();
    if (entity == nullptr) return Kdad::eNullObjectPointer;
    if (database() == nullptr) return Kdad::eNotInDatabase;
    if (entity->database() != nullptr) return Kdad::eAlreadyInDatabase;
    State* state = writableStateOf<State>(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    giveDefaults(*entity, *database());
    const Kdad::ErrorStatus status = database()->addKdDbObject(entity, id, objectId());
    if (status == Kdad::eOk) state->entities.push_back(id);
    return status;
}

Kdad::ErrorStatus KdDbBlockTableRecord::appendKdDbEntity(KdDbEntity* entity) {
    KdDbObjectId id;
    return appendKdDbEntity(id, entity);
}

Kdad::ErrorStatus KdDbBlockTableRecord::newIterator(KdDbBlockTableRecordIterator*& iterator) const {
    iterator = new Iterator(*this);
    return Kdad::eOk;
}
