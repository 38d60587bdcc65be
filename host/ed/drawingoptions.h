// How the drawing is painted, by the host's variables.
#pragma once

#include "host/draw/primitives.h"

namespace kdhost {

draw::Options drawingOptions();

}  // namespace kdhost
