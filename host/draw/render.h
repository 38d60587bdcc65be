// Pictures of a drawing in files.
#pragma once

#include <string>

#include "host/draw/primitives.h"

class QImage;

namespace kdhost::draw {

/// A picture of the primitives, zoomed to their extents with a margin, on white paper. With `longSide` 0
/// the size is chosen so that the smallest text can be read, as far as a picture may grow: 16000 pixels on
/// the longer side, 48 million in all. No primitives give a small blank picture.
QImage paint(const Primitives& primitives, int longSide = 0);

/// Writes a picture of the model space; the extension tells the kind (".png", ".svg", ".pdf"), in either
/// case. A PDF is what is plotted: what lies on a layer that isn't is left out, whatever the options say. Empty on
/// success, else one line that says what is wrong. The file is written whole or not at all.
std::string render(const KdDbDatabase& database, const std::string& path, const Options& options);

/// The same for primitives at hand.
std::string render(const Primitives& primitives, const std::string& path);

}  // namespace kdhost::draw
