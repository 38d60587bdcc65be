// The system's dictionary of runtime classes: each host class has a description, reached by its desc().
#pragma once

#include "kd/rx/object.h"

/// Enters every class described so far and not yet entered into the system's class dictionary. Of two
/// classes of one name the first stays. A class that was taken out does not come back.
void kdrxBuildClassHierarchy();

/// Takes a class out of the system's class dictionary. The description stays its library's own.
void deleteKdRxClass(KdRxClass* cls);
