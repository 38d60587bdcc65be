// Texts in the host's language.

#include "host/ed/words.h"

#include <cwchar>

#include "host/win32/modules.h"

namespace kdhost {

const wchar_t* Words::text() const {
    return language() == Language::Chinese ? m_chinese : m_english;
}

/// In few digits, as people write it.
std::wstring Words::shown(double number) {
    wchar_t digits[32];
    std::swprintf(digits, std::size(digits), L"%g", number);
    return digits;
}

/// In one pass, so that a value may hold what looks like a place.
std::wstring Words::filled(const std::vector<std::wstring>& values) const {
    std::wstring result;
    for (const wchar_t* at = text(); *at != L'\0'; ++at) {
        const int place = *at == L'%' ? at[1] - L'0' : 0;
        if (place < 1 || place > static_cast<int>(values.size())) {
            result += *at;
            continue;
        }
        result += values[static_cast<std::size_t>(place) - 1];
        ++at;
    }
    return result;
}

}  // namespace kdhost
