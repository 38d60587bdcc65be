// Asking for the new value of a host variable.
#pragma once

#include "host/ed/variables.h"

namespace kdhost {

/// Tells the value of a read-only variable; of another one asks for a new value, Enter keeping the old one.
void promptForVariable(const VariableRecord& variable);

}  // namespace kdhost
