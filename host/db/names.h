// Names of symbols and dictionary entries, compared without regard to case.
#pragma once

#include <QChar>
#include <string>

namespace kdhost {

/// The form in which names are compared. Null gives an empty text.
inline std::wstring foldedName(const wchar_t* name) {
    std::wstring folded(name == nullptr ? L"" : name);
    for (wchar_t& character : folded) {
        character = static_cast<wchar_t>(QChar::toCaseFolded(static_cast<uint>(character)));
    }
    return folded;
}

}  // namespace kdhost
