// The host's wide string: what is more than a line.

#include "kd/rx/kdstring.h"

#include <cstdarg>

#include "host/rx/wideformat.h"
#include "host/win32/modules.h"

KdString& KdString::format(const wchar_t* pattern, ...) {
    va_list arguments;
    va_start(arguments, pattern);
    m_text = kdhost::formatWide(pattern, arguments);
    va_end(arguments);
    return *this;
}

KdString& KdString::append(const wchar_t* text) {
    if (text != nullptr) m_text += text;
    return *this;
}

KdString& KdString::assign(const wchar_t* text) {
    m_text = text == nullptr ? L"" : text;
    return *this;
}

bool KdString::loadString(HINSTANCE module, unsigned number) {
    const std::wstring* text = kdhost::moduleText(module, number);
    m_text = text == nullptr ? L"" : *text;
    return text != nullptr;
}
