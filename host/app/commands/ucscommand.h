// UCS: the user's coordinates.
#pragma once

namespace kdhost {

/// Takes the origin, a point on the x axis and one on the positive side of the y axis, Enter for either keeping what
/// is; or back to the world's coordinates (Enter at once), to those before, or a turn about the z axis in degrees.
/// The coordinates are those of the current space.
void setUserCoordinates();

}  // namespace kdhost
