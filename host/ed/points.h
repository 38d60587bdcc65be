// Coordinates as they are typed.
#pragma once

#include <optional>
#include <string>

#include "host/ed/words.h"
#include "kd/ge/point3d.h"

namespace kdhost {

/// What a prompt for a point says to any other text.
inline constexpr Words kPointNeeded{L"\nA point is needed: x,y or x,y,z.", L"\n需要一个点: x,y 或 x,y,z。"};

/// "x,y" or "x,y,z", or "distance<angle" with the angle in degrees; with "@" ahead counted from `base`.
/// None for any other text. Decimal points only, whatever the locale.
std::optional<KdGePoint3d> parsePoint(const std::wstring& text, const KdGePoint3d& base);

}  // namespace kdhost
