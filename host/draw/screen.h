// How drawings look on the screen: in the drawing view and in the previews of dialogs.
#pragma once

#include "host/draw/paint.h"

namespace kdhost::draw {

/// What a drawing is painted on.
QColor screenPaper();

/// `scale` is what lengths that are told in pixels are enlarged by on a dense screen.
PaintDevice screenDevice(double scale);

}  // namespace kdhost::draw
