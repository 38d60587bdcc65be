// Numbers in texts.

#include "host/field/characters.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

namespace kdhost::field {

std::optional<double> numberFrom(std::wstring_view text) {
    if (text.starts_with(L'+')) text.remove_prefix(1);
    // A sign, then a digit or a point: words such as "inf" are no numbers.
    const std::size_t first = text.starts_with(L'-') ? 1 : 0;
    if (text.size() <= first || !(isDigit(text[first]) || text[first] == L'.')) return std::nullopt;
    std::array<char, 64> buffer{};
    std::string longer;
    char* narrow = buffer.data();
    if (text.size() > buffer.size()) {
        longer.resize(text.size());
        narrow = longer.data();
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] < 0 || text[i] > 0x7E) return std::nullopt;
        narrow[i] = static_cast<char>(text[i]);
    }
    double value = 0.0;
    const char* const end = narrow + text.size();
    const auto [behind, error] = std::from_chars(narrow, end, value);
    if (behind != end) return std::nullopt;
    if (error == std::errc()) return value;
    // Too small a number is nothing, too large a number is none.
    value = std::strtod(std::string(narrow, text.size()).c_str(), nullptr);
    return std::abs(value) < 1.0 ? std::optional(0.0) : std::nullopt;
}

}  // namespace kdhost::field
