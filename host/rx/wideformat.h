// printf-like formatting of wide text, as the wide strings of the contract have it.
#pragma once

#include <cstdarg>
#include <string>

namespace kdhost {

/// `%s` and `%ls` take a wide string, `%S` and `%hs` a narrow one in UTF-8, `%c` a wide character, `%I64d` a
/// 64-bit integer; the other conversions, the flags, widths and precisions are those of printf. A null string
/// prints as "(null)". `%n` is taken out of the text and stores nothing. A conversion that nobody knows is
/// printed as it stands.
std::wstring formatWide(const wchar_t* pattern, va_list arguments);

}  // namespace kdhost
