// Names of symbols, dictionary entries and cell styles, compared without regard to case.
//
// The letters A to Z alone have a case here, as they have to modules, which fold names by the classic locale: two names
// that a module takes for different ones, and offers as such, must not be the same one to the database.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace kdhost {

inline wchar_t foldedCharacter(wchar_t character) {
    const bool isCapital = character >= L'A' && character <= L'Z';
    return isCapital ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

inline bool sameName(std::wstring_view a, std::wstring_view b) {
    return a == b || std::equal(a.begin(), a.end(), b.begin(), b.end(), [](wchar_t x, wchar_t y) {
               return x == y || foldedCharacter(x) == foldedCharacter(y);
           });
}

/// The form in which names are compared. Null gives an empty text.
inline std::wstring foldedName(const wchar_t* name) {
    std::wstring folded(name == nullptr ? L"" : name);
    for (wchar_t& character : folded) character = foldedCharacter(character);
    return folded;
}

}  // namespace kdhost
