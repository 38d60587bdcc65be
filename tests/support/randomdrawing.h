// Drawings of any content: seeded, so that a number names one.
#pragma once

#include "kd/db/database.h"

namespace kdtest {

/// Fills a new drawing with layers, styles, blocks, entities, tables of all kinds, fields and settings.
void fillRandomly(KdDbDatabase& database, unsigned seed);

}  // namespace kdtest
