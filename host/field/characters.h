// Characters as formulas see them: plain letters and digits, whatever the locale.
#pragma once

#include <string_view>

namespace kdhost::field {

constexpr bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}
constexpr bool isLetter(wchar_t character) {
    return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z');
}
constexpr bool isBlank(wchar_t character) {
    return character == L' ' || (character >= L'\t' && character <= L'\r') || character == L'\u00A0' ||
           character == L'\u3000';
}
constexpr wchar_t inUpperCase(wchar_t character) {
    return character >= L'a' && character <= L'z' ? character - (L'a' - L'A') : character;
}
/// Whether the two are the same but for case.
constexpr bool sameWord(std::wstring_view a, std::wstring_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (inUpperCase(a[i]) != inUpperCase(b[i])) return false;
    }
    return true;
}

}  // namespace kdhost::field
