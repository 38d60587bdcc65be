// The walk over all blocks and what is in them.

#include "module/core/drawingwalk.h"

#include <memory>

#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "module/core/openobject.h"

namespace {

void visitBlock(KdDbObjectId block, const std::function<void(const KdDbEntity&)>& visit) {
    const OpenObject<KdDbBlockTableRecord> record(block, KdDb::kForRead);
    KdDbBlockTableRecordIterator* made = nullptr;
    if (!record || record->newIterator(made) != Kdad::eOk) return;
    const std::unique_ptr<KdDbBlockTableRecordIterator> entities(made);
    for (entities->start(); !entities->done(); entities->step()) {
        KdDbObjectId id;
        if (entities->getEntityId(id) != Kdad::eOk) continue;
        const OpenObject<KdDbEntity> entity(id, KdDb::kForRead);
        if (entity) visit(*entity);
    }
}

}  // namespace

bool visitEntities(KdDbDatabase* database, const std::function<void(const KdDbEntity&)>& visit) {
    if (database == nullptr) return false;
    const OpenObject<KdDbBlockTable> blocks(database->blockTableId(), KdDb::kForRead);
    KdDbSymbolTableIterator* made = nullptr;
    if (!blocks || blocks->newIterator(made) != Kdad::eOk) return false;
    const std::unique_ptr<KdDbSymbolTableIterator> records(made);
    for (records->start(); !records->done(); records->step()) {
        KdDbObjectId block;
        if (records->getRecordId(block) == Kdad::eOk) visitBlock(block, visit);
    }
    return true;
}
