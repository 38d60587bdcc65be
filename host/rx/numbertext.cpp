// Reading of numbers.

#include "host/rx/numbertext.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

namespace kdhost {
namespace {

bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// The text in bytes, for the time of a scope; without allocation unless it is long.
class Narrow {
public:
    explicit Narrow(std::wstring_view text) : m_size(text.size()) {
        if (m_size > m_short.size()) m_long.resize(m_size);
        char* out = m_size > m_short.size() ? m_long.data() : m_short.data();
        m_begin = out;
        for (const wchar_t character : text) {
            m_isPlain = m_isPlain && character >= 0 && character <= 0x7E;
            *out++ = m_isPlain ? static_cast<char>(character) : '\0';
        }
    }
    Narrow(const Narrow&) = delete;
    Narrow& operator=(const Narrow&) = delete;

    /// False where a character is not of ASCII.
    bool isPlain() const { return m_isPlain; }
    const char* begin() const { return m_begin; }
    const char* end() const { return m_begin + m_size; }

private:
    std::array<char, 64> m_short{};
    std::string m_long;
    std::size_t m_size;
    const char* m_begin = nullptr;
    bool m_isPlain = true;
};

/// Without a plus, which the reader doesn't take. Empty where neither digit nor point follows the sign: words such as
/// "inf" are no numbers.
std::wstring_view unsignedOrNegative(std::wstring_view text) {
    if (text.starts_with(L'+')) {
        text.remove_prefix(1);
        if (text.starts_with(L'-')) return {};
    }
    const std::size_t first = text.starts_with(L'-') ? 1 : 0;
    return text.size() > first && (isDigit(text[first]) || text[first] == L'.') ? text : std::wstring_view();
}

}  // namespace

std::optional<double> numberFrom(std::wstring_view text) {
    const Narrow narrow(unsignedOrNegative(text));
    double value = 0.0;
    const auto [behind, error] = std::from_chars(narrow.begin(), narrow.end(), value);
    if (!narrow.isPlain() || behind != narrow.end() || error == std::errc::invalid_argument) return std::nullopt;
    if (error == std::errc()) return value;
    value = std::strtod(std::string(narrow.begin(), narrow.end()).c_str(), nullptr);
    return std::abs(value) < 1.0 ? std::optional(0.0) : std::nullopt;
}

std::optional<int> wholeNumberFrom(std::wstring_view text) {
    const Narrow narrow(unsignedOrNegative(text));
    int value = 0;
    const auto [behind, error] = std::from_chars(narrow.begin(), narrow.end(), value);
    if (!narrow.isPlain() || behind != narrow.end() || error != std::errc()) return std::nullopt;
    return value;
}

}  // namespace kdhost
