// Names of symbols, dictionary entries and cell styles, compared without regard to case.
//
// The letters A to Z alone have a case here, as they have to modules, which fold names by the classic locale: two names
// that a module takes for different ones, and offers as such, must not be the same one to the database.
#pragma once

#include <string>

namespace kdhost {

inline wchar_t foldedCharacter(wchar_t character) {
    const bool isCapital = character >= L'A' && character <= L'Z';
    return isCapital ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

/// The form in which names are compared. Null gives an empty text.
inline std::wstring foldedName(const wchar_t* name) {
    std::wstring folded(name == nullptr ? L"" : name);
    for (wchar_t& character : folded) character = foldedCharacter(character);
    return folded;
}

}  // namespace kdhost
