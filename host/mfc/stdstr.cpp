// CStdStr and the formatting that it and its users share.

#include "mfc/stdstr.h"

#include <algorithm>
#include <cwctype>
#include <locale>

#include "host/rx/wideformat.h"

namespace {

bool isBlank(wchar_t c) {
    return std::iswspace(static_cast<std::wint_t>(c)) != 0;
}

}  // namespace

std::wstring kdFormatV(const wchar_t* pattern, va_list arguments) {
    return kdhost::formatWide(pattern, arguments);
}

void CStdStr<wchar_t>::Format(const wchar_t* pattern, ...) {
    va_list arguments;
    va_start(arguments, pattern);
    std::wstring text = kdFormatV(pattern, arguments);
    va_end(arguments);
    swap(text);
}

CStdStr<wchar_t>& CStdStr<wchar_t>::TrimLeft() {
    erase(begin(), std::find_if_not(begin(), end(), isBlank));
    return *this;
}

CStdStr<wchar_t>& CStdStr<wchar_t>::TrimRight() {
    erase(std::find_if_not(rbegin(), rend(), isBlank).base(), end());
    return *this;
}

int CStdStr<wchar_t>::CompareNoCase(const wchar_t* other) const {
    const auto& letters = std::use_facet<std::ctype<wchar_t>>(std::locale::classic());
    const wchar_t* a = c_str();
    const wchar_t* b = other == nullptr ? L"" : other;
    while (*a != 0 && letters.tolower(*a) == letters.tolower(*b)) {
        ++a;
        ++b;
    }
    const wchar_t left = letters.tolower(*a);
    const wchar_t right = letters.tolower(*b);
    return left < right ? -1 : left > right ? 1 : 0;
}
