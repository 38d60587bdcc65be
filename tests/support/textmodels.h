// Plain slow models of the scanners of value text: a regular expression for each form, and arithmetic in the order
// that the results are defined by. The scanners are held against these.
#pragma once

#include <optional>
#include <random>
#include <string>

namespace kdtest {

/// What a scanner makes of a text; none where it refuses.
using Scanned = std::optional<double>;

Scanned modelDecimal(const std::wstring& text);
Scanned modelArchitectural(const std::wstring& text);
/// With the sign, and the choice between the two above.
Scanned modelLength(const std::wstring& text);
Scanned modelDegrees(const std::wstring& text);
Scanned modelDecimalAngle(const std::wstring& text);
/// A bearing that converts, as an angle before base and direction.
Scanned modelSurvey(const std::wstring& text, bool north);
/// Any notation, in a drawing whose base is 0 and whose direction is counter-clockwise, in 0 to 2 pi.
Scanned modelAngle(const std::wstring& text);

/// Equal to the last bit, the sign of zero too.
bool sameBits(const Scanned& a, const Scanned& b);

/// A text of up to `longest` characters of that alphabet.
std::wstring randomText(std::mt19937& random, const std::wstring& alphabet, std::size_t longest);

/// The text in quotation marks, for messages.
std::string quoted(const std::wstring& text);

}  // namespace kdtest
