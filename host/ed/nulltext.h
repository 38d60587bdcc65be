// Texts as callers of the contract hand them over.
#pragma once

#include <string>

namespace kdhost {

/// A null text is an empty one.
inline std::wstring orEmpty(const wchar_t* text) {
    return text == nullptr ? L"" : text;
}

}  // namespace kdhost
