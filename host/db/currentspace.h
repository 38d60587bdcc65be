// The current space of a drawing: what stands there, and putting something new there.
#pragma once

#include <memory>
#include <vector>

#include "kd/db/entity.h"

namespace kdhost {

/// Every entity, in drawing order, read without opening anything.
std::vector<KdDbObjectId> entitiesOfCurrentSpace(const KdDbDatabase& database);

/// The box around all of them; invalid for an empty space.
KdDbExtents extentsOfCurrentSpace(const KdDbDatabase& database);

/// Appends the entity, which is the database's from then on, and closes it. The null id, with the entity the caller's
/// as before, when the space can't be written.
KdDbObjectId appendToCurrentSpace(KdDbDatabase& database, KdDbEntity& entity);
/// The same; false, with the entity gone, when the space can't be written.
bool appendToCurrentSpace(KdDbDatabase& database, std::unique_ptr<KdDbEntity> entity);

}  // namespace kdhost
