// Objects that a command works on.
#pragma once

#include <vector>

#include "kd/db/objectid.h"

namespace kdhost {

/// What is selected, or else what the user picks; nothing when that is cancelled.
std::vector<KdDbObjectId> chosenObjects();

/// Erases the objects that aren't on locked layers or in use; the number of those that are, and stay.
int eraseWhatMayGo(const std::vector<KdDbObjectId>& ids);

}  // namespace kdhost
