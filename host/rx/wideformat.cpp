// printf-like formatting of wide text. Numbers go through the C library one conversion at a time; strings,
// whose letters mean something else there, are laid out here.

#include "host/rx/wideformat.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <optional>
#include <string_view>
#include <utility>

#include "host/rx/encoding.h"

namespace kdhost {
namespace {

enum class Size { kPlain, kShort, kShortShort, kLong, kLongLong, kLongDouble };

/// One conversion of the pattern, from the percent sign to its letter.
struct Conversion {
    std::string flags;
    std::optional<int> width;
    std::optional<int> precision;
    Size size = Size::kPlain;
    wchar_t letter = 0;
};

struct SizePrefix {
    std::wstring_view text;
    Size size;
};

// Longer prefixes stand before their own beginnings.
constexpr SizePrefix kSizePrefixes[] = {
    {L"I64", Size::kLongLong}, {L"I32", Size::kPlain}, {L"hh", Size::kShortShort}, {L"ll", Size::kLongLong},
    {L"h", Size::kShort},      {L"l", Size::kLong},    {L"w", Size::kLong},        {L"L", Size::kLongDouble},
    {L"q", Size::kLongLong},   {L"j", Size::kLong},    {L"z", Size::kLong},        {L"t", Size::kLong},
};

class Formatter {
public:
    Formatter(const wchar_t* pattern, va_list arguments) : m_rest(pattern) { va_copy(m_arguments, arguments); }
    ~Formatter() { va_end(m_arguments); }
    Formatter(const Formatter&) = delete;
    Formatter& operator=(const Formatter&) = delete;

    std::wstring run() {
        while (!m_rest.empty()) {
            const std::size_t percent = m_rest.find(L'%');
            m_out += m_rest.substr(0, percent);
            if (percent == std::wstring_view::npos) break;
            m_rest.remove_prefix(percent);
            const std::wstring_view whole = m_rest;
            m_rest.remove_prefix(1);
            const Conversion conversion = readConversion();
            if (!print(conversion)) m_out += whole.substr(0, whole.size() - m_rest.size());
        }
        return std::move(m_out);
    }

private:
    bool take(wchar_t c) {
        if (m_rest.empty() || m_rest.front() != c) return false;
        m_rest.remove_prefix(1);
        return true;
    }

    /// A number or, for an asterisk, the next argument.
    int readNumber() {
        if (take(L'*')) return va_arg(m_arguments, int);
        constexpr int kLargest = 1 << 20;
        int number = 0;
        while (!m_rest.empty() && m_rest.front() >= L'0' && m_rest.front() <= L'9') {
            number = std::min(number * 10 + static_cast<int>(m_rest.front() - L'0'), kLargest);
            m_rest.remove_prefix(1);
        }
        return number;
    }

    Conversion readConversion() {
        Conversion conversion;
        while (!m_rest.empty() && std::wstring_view(L"-+ #0").find(m_rest.front()) != std::wstring_view::npos) {
            conversion.flags += static_cast<char>(m_rest.front());
            m_rest.remove_prefix(1);
        }
        if (!m_rest.empty() && (m_rest.front() == L'*' || (m_rest.front() >= L'1' && m_rest.front() <= L'9'))) {
            conversion.width = readNumber();
            if (*conversion.width < 0) {
                conversion.flags += '-';
                conversion.width = -*conversion.width;
            }
        }
        if (take(L'.')) {
            conversion.precision = readNumber();
            if (*conversion.precision < 0) conversion.precision.reset();
        }
        for (const SizePrefix& prefix : kSizePrefixes) {
            if (!m_rest.starts_with(prefix.text)) continue;
            m_rest.remove_prefix(prefix.text.size());
            conversion.size = prefix.size;
            break;
        }
        if (!m_rest.empty()) {
            conversion.letter = m_rest.front();
            m_rest.remove_prefix(1);
        }
        return conversion;
    }

    /// False for a letter that nobody knows.
    bool print(const Conversion& conversion) {
        switch (conversion.letter) {
            case L'%':
                m_out += L'%';
                return true;
            case L's':
            case L'S':
                printString(conversion);
                return true;
            case L'c':
            case L'C':
                printCharacter(conversion);
                return true;
            case L'd':
            case L'i':
                printNumber(conversion, "ll", 'd', readSigned(conversion.size));
                return true;
            case L'u':
            case L'x':
            case L'X':
            case L'o':
                printNumber(conversion, "ll", static_cast<char>(conversion.letter), readUnsigned(conversion.size));
                return true;
            case L'p':
                printNumber(conversion, "", 'p', va_arg(m_arguments, void*));
                return true;
            case L'n':
                static_cast<void>(va_arg(m_arguments, void*));
                return true;
            default:
                return printFloating(conversion);
        }
    }

    bool printFloating(const Conversion& conversion) {
        if (conversion.letter == 0 || std::wcschr(L"eEfFgGaA", conversion.letter) == nullptr) return false;
        const char letter = static_cast<char>(conversion.letter);
        if (conversion.size == Size::kLongDouble) {
            printNumber(conversion, "L", letter, va_arg(m_arguments, long double));
        } else {
            printNumber(conversion, "", letter, va_arg(m_arguments, double));
        }
        return true;
    }

    long long readSigned(Size size) {
        switch (size) {
            case Size::kLong:
                return va_arg(m_arguments, long);
            case Size::kLongLong:
            case Size::kLongDouble:
                return va_arg(m_arguments, long long);
            case Size::kShort:
                return static_cast<short>(va_arg(m_arguments, int));
            case Size::kShortShort:
                return static_cast<signed char>(va_arg(m_arguments, int));
            default:
                return va_arg(m_arguments, int);
        }
    }

    unsigned long long readUnsigned(Size size) {
        switch (size) {
            case Size::kLong:
                return va_arg(m_arguments, unsigned long);
            case Size::kLongLong:
            case Size::kLongDouble:
                return va_arg(m_arguments, unsigned long long);
            case Size::kShort:
                return static_cast<unsigned short>(va_arg(m_arguments, unsigned));
            case Size::kShortShort:
                return static_cast<unsigned char>(va_arg(m_arguments, unsigned));
            default:
                return va_arg(m_arguments, unsigned);
        }
    }

    template <class Number>
    void printNumber(const Conversion& conversion, const char* size, char letter, Number number) {
        std::string pattern = "%" + conversion.flags;
        if (conversion.width) pattern += std::to_string(*conversion.width);
        if (conversion.precision) pattern += "." + std::to_string(*conversion.precision);
        pattern += size;
        pattern += letter;
        const int length = std::snprintf(nullptr, 0, pattern.c_str(), number);
        std::string text(static_cast<std::size_t>(std::max(length, 0)) + 1, '\0');
        std::snprintf(text.data(), text.size(), pattern.c_str(), number);
        m_out += fromUtf8(text.c_str());
    }

    void printString(const Conversion& conversion) {
        const bool narrow =
            conversion.size == Size::kShort || (conversion.letter == L'S' && conversion.size != Size::kLong);
        if (narrow) {
            const char* text = va_arg(m_arguments, const char*);
            pad(conversion, cut(conversion, fromUtf8(text == nullptr ? "(null)" : text)));
        } else {
            const wchar_t* text = va_arg(m_arguments, const wchar_t*);
            if (text == nullptr) text = L"(null)";
            // With a precision the text need not end in a zero.
            const std::size_t length = conversion.precision
                                           ? ::wcsnlen(text, static_cast<std::size_t>(*conversion.precision))
                                           : std::wcslen(text);
            pad(conversion, std::wstring(text, length));
        }
    }

    void printCharacter(const Conversion& conversion) {
        pad(conversion, std::wstring(1, static_cast<wchar_t>(va_arg(m_arguments, int))));
    }

    static std::wstring cut(const Conversion& conversion, std::wstring text) {
        if (conversion.precision) text.resize(std::min(text.size(), static_cast<std::size_t>(*conversion.precision)));
        return text;
    }

    void pad(const Conversion& conversion, const std::wstring& text) {
        const auto width = static_cast<std::size_t>(conversion.width.value_or(0));
        const std::wstring blanks(width > text.size() ? width - text.size() : 0, L' ');
        const bool left = conversion.flags.find('-') != std::string::npos;
        m_out += left ? text + blanks : blanks + text;
    }

    std::wstring_view m_rest;
    std::wstring m_out;
    va_list m_arguments;
};

}  // namespace

std::wstring formatWide(const wchar_t* pattern, va_list arguments) {
    if (pattern == nullptr) return {};
    return Formatter(pattern, arguments).run();
}

}  // namespace kdhost
