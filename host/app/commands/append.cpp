// Appending to the current space.

#include "host/app/commands/append.h"

#include "host/ed/opened.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"

namespace kdhost {

bool appendToCurrentSpace(KdDbDatabase& database, std::unique_ptr<KdDbEntity> entity) {
    const Opened<KdDbBlockTableRecord> space(database.currentSpaceId(), KdDb::kForWrite);
    if (!space || space->appendKdDbEntity(entity.get()) != Kdad::eOk) return false;
    entity.release()->close();
    return true;
}

}  // namespace kdhost
