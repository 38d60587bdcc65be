// Reading and filling the current space.

#include "host/db/currentspace.h"

#include "host/db/opened.h"
#include "host/db/walk.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"

namespace kdhost {

std::vector<KdDbObjectId> entitiesOfCurrentSpace(const KdDbDatabase& database) {
    return entitiesOf(database.currentSpaceId());
}

KdDbExtents extentsOfCurrentSpace(const KdDbDatabase& database) {
    return extentsOfEntities(database.currentSpaceId());
}

KdDbObjectId appendToCurrentSpace(KdDbDatabase& database, KdDbEntity& entity) {
    const Opened<KdDbBlockTableRecord> space(database.currentSpaceId(), KdDb::kForWrite);
    KdDbObjectId id;
    if (!space || space->appendKdDbEntity(id, &entity) != Kdad::eOk) return {};
    entity.close();
    return id;
}

bool appendToCurrentSpace(KdDbDatabase& database, std::unique_ptr<KdDbEntity> entity) {
    if (appendToCurrentSpace(database, *entity).isNull()) return false;
    entity.release();  // NOLINT(bugprone-unused-return-value): the database owns it now
    return true;
}

}  // namespace kdhost
