// The context menus that modules registered for classes of objects.
#pragma once

#include "kd/ed/uicontext.h"

namespace kdhost {

/// The contexts for objects of a class: those of the class itself first, then those of the classes above it,
/// each in the order of registering.
KdArray<KdEdUIContext*> contextsFor(const KdRxClass* cls);

}  // namespace kdhost
