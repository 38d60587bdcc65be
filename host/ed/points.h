// Coordinates as they are typed.
#pragma once

#include <optional>
#include <string>

#include "kd/ge/point3d.h"

namespace kdhost {

/// "x,y" or "x,y,z", or "distance<angle" with the angle in degrees; with "@" ahead counted from `base`.
/// None for any other text. Decimal points only, whatever the locale.
std::optional<KdGePoint3d> parsePoint(const std::wstring& text, const KdGePoint3d& base);

}  // namespace kdhost
