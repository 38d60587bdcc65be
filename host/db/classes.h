// The classes of objects that a drawing may hold, for cloning and for reading drawings.
#pragma once

#include <memory>

#include "kd/db/object.h"

namespace kdhost {

/// A fresh object of exactly that class; null when no object can be made of it.
std::unique_ptr<KdDbObject> makeObject(const KdRxClass* cls);

}  // namespace kdhost
