// From a text style of the drawing to the font that texts are measured and drawn with.
#pragma once

#include "host/text/layout.h"
#include "kd/db/symboltable.h"

namespace kdhost {

/// The style's font; the standard font for an id that names no text style.
text::Font fontOf(KdDbObjectId textStyle);

}  // namespace kdhost
