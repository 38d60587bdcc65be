// The user coordinate system of the current space, as the user changes it: he may go back to those before.
#pragma once

#include <optional>

#include "host/db/databasecontents.h"

namespace kdhost {

const UserSystem& userSystem(const KdDbDatabase& database);

/// The system before is remembered. The x axis is kept, the y axis turned to a right angle with it; eInvalidInput,
/// with nothing changed, for axes without length or along one line.
Kdad::ErrorStatus changeUserSystem(KdDbDatabase& database, const UserSystem& system);

/// Back to the system that was remembered last; false when there is none.
bool takeBackUserSystem(KdDbDatabase& database);

}  // namespace kdhost
