// The tables of a drawing.

#include <algorithm>
#include <memory>

#include "kd/db/database.h"
#include "kd/db/entity.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"

namespace {

/// A table, and of no class derived from it.
bool isTable(KdDbObjectId id) {
    const OpenObject<KdDbEntity> entity(id, KdDb::kForRead);
    return entity && entity->isA() == KdDbTable::desc();
}

void appendTablesOfBlock(KdDbObjectId block, KdArray<KdDbObjectId>& tables) {
    const OpenObject<KdDbBlockTableRecord> record(block, KdDb::kForRead);
    KdDbBlockTableRecordIterator* made = nullptr;
    if (!record || record->newIterator(made) != Kdad::eOk) return;
    const std::unique_ptr<KdDbBlockTableRecordIterator> entities(made);
    for (entities->start(); !entities->done(); entities->step()) {
        KdDbObjectId id;
        if (entities->getEntityId(id) == Kdad::eOk && isTable(id)) tables.append(id);
    }
}

}  // namespace

bool CVqTableCommon::GetTablesFormDatabase(KdDbDatabase* database, KdArray<KdDbObjectId>& tables) {
    if (database == nullptr) return false;
    const OpenObject<KdDbBlockTable> blocks(database->blockTableId(), KdDb::kForRead);
    KdDbSymbolTableIterator* made = nullptr;
    if (!blocks || blocks->newIterator(made) != Kdad::eOk) return false;
    const std::unique_ptr<KdDbSymbolTableIterator> records(made);
    for (records->start(); !records->done(); records->step()) {
        KdDbObjectId block;
        if (records->getRecordId(block) == Kdad::eOk) appendTablesOfBlock(block, tables);
    }
    return true;
}

bool CVqTableCommon::FindTableStyleFromTable(const KdArray<KdDbObjectId>& tables, KdDbObjectId style) {
    return std::any_of(tables.begin(), tables.end(), [&](KdDbObjectId id) {
        const OpenObject<KdDbTable> table(id, KdDb::kForRead);
        return table && table->tableStyle() == style;
    });
}
