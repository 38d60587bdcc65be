// Putting a new entity into the drawing.
#pragma once

#include <memory>

#include "kd/db/entity.h"

namespace kdhost {

/// Appends the entity to the current space of the database and closes it. False, with the entity gone, when
/// the space can't be written.
bool appendToCurrentSpace(KdDbDatabase& database, std::unique_ptr<KdDbEntity> entity);

}  // namespace kdhost
