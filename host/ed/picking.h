// Picking: what lies under a point of the drawing, and what a click there selects.
#pragma once

#include <vector>

#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"

namespace kdhost {

class Editor;

/// Side of the pick box, in pixels of the view.
inline constexpr double kPickBoxPixels = 10.0;

/// The entities of the current space under a world point, the one drawn last first. A table is hit anywhere
/// inside its outline, a line within the pick box, another entity inside its extents.
std::vector<KdDbObjectId> pickAt(const Editor& editor, const KdGePoint3d& worldPoint);

/// A click while no prompt waits: it selects the object there, or a cell when it falls into the one table
/// that is selected; in empty space it selects nothing. `add` keeps what is selected.
void clickAt(Editor& editor, const KdGePoint3d& worldPoint, bool add);

}  // namespace kdhost
