// What stands in a block or in a symbol table, read without opening anything.
#pragma once

#include <vector>

#include "kd/db/objectid.h"
#include "kd/ge/extents.h"

namespace kdhost {

/// The entities of a block, the model space too, in drawing order; none for an id that is no block's.
std::vector<KdDbObjectId> entitiesOf(KdDbObjectId block);

/// The box around all of them; invalid for an empty block.
KdDbExtents extentsOfEntities(KdDbObjectId block);

/// The records of a symbol table, in the order of its iterator; none for an id that is no symbol table's.
std::vector<KdDbObjectId> recordsOf(KdDbObjectId symbolTable);

}  // namespace kdhost
