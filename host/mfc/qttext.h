// Texts of callers as Qt's widgets take them.
#pragma once

#include <QString>

namespace kdhost {

/// A null text is an empty one.
inline QString qtText(const wchar_t* text) {
    return QString::fromWCharArray(text == nullptr ? L"" : text);
}

}  // namespace kdhost
