// Numbers at the start of wide texts. The C library reads them by the locale's LC_NUMERIC, which the program
// keeps at "C".

#include "win32/widenumbers.h"

#include <algorithm>
#include <cwchar>
#include <limits>

double _wtof(const wchar_t* text) {
    return std::wcstod(text, nullptr);
}

int _wtoi(const wchar_t* text) {
    constexpr long lowest = std::numeric_limits<int>::min();
    constexpr long highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::wcstol(text, nullptr, 10), lowest, highest));
}
