// Pictures of a drawing in files.
#pragma once

#include <string>

#include "host/draw/primitives.h"

class QImage;

namespace kdhost::draw {

/// A picture of the primitives, zoomed to their extents with a margin, on white paper. The longer side has
/// `longSide` pixels.
QImage paint(const Primitives& primitives, int longSide = 1600);

/// Writes a picture of the model space; the extension tells the kind (".png"). Empty on success, else one
/// line that says what is wrong. The file is written whole or not at all.
std::string render(const KdDbDatabase& database, const std::string& path, const Options& options);

}  // namespace kdhost::draw
