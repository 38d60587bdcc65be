// Commands about what the view shows.
#pragma once

namespace kdhost {

/// ZOOM: all of the drawing, a window of two corners, or a factor.
void zoom();
/// REGEN: draws everything afresh.
void regenerate();

}  // namespace kdhost
