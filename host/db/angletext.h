// Angles as text, in the five angle units of a drawing.
#pragma once

#include <optional>
#include <string>

namespace kdhost {

/// The angle in a unit, as AUNITS: 0 decimal degrees, 1 degrees, minutes and seconds, 2 grads, 3 radians, 4 a
/// surveyor's bearing. The precision is the decimals; in units 1 and 4, 1 and 2 show minutes, 3 and 4 seconds, and
/// what lies above decimals of seconds. Nothing for another unit, a precision outside 0 to 8 and what is no number.
std::optional<std::wstring> angleText(double radians, int unit, int precision);

}  // namespace kdhost
