// The colours that were chosen lately, in any box.
#pragma once

#include <vector>

#include "kd/db/color.h"

namespace kdhost {

/// Oldest first, eight at most.
const std::vector<KdCmColor>& recentColors();
/// A colour that is among them already keeps its place.
void addRecentColor(const KdCmColor& color);
void forgetRecentColors();

}  // namespace kdhost
