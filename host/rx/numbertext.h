// Numbers as people and files write them: with a decimal point, whatever the locale.
#pragma once

#include <optional>
#include <string_view>

namespace kdhost {

/// The number that the whole text is: "12", "+1.5", "-.5", "2e-3". Too small a number counts as 0. Nothing for any
/// other text and for a number too large.
std::optional<double> numberFrom(std::wstring_view text);

/// The same of a whole number, written with digits alone behind its sign.
std::optional<int> wholeNumberFrom(std::wstring_view text);

}  // namespace kdhost
