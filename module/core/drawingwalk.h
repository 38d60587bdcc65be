// The walk over everything that a drawing holds to be seen.
#pragma once

#include <functional>

#include "kd/db/entity.h"

class KdDbDatabase;

/// Hands over every entity of every block, open for read; what can't be opened is passed over. False, with nothing
/// handed over, when the blocks can't be read.
bool visitEntities(KdDbDatabase* database, const std::function<void(const KdDbEntity&)>& visit);
