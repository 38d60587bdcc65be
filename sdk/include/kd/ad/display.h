// Asking for entities to be drawn again.
#pragma once

#include "kd/db/objectid.h"

/// Asks that `count` entities be drawn afresh at the next update.
void kddbQueueForRegen(const KdDbObjectId* ids, int count);
