// CStdStr: a wide string with formatting and trimming on top of the standard string.
#pragma once

#include <cstdarg>
#include <string>
#include <utility>

/// printf-like formatting of wide text; `%s` and `%ls` both take a wide string, `%S` and `%hs` a narrow
/// one, `%I64d` a 64-bit integer.
std::wstring kdFormatV(const wchar_t* pattern, va_list arguments);

template <class Char>
class CStdStr;

/// The one instance in use: text of 32-bit wide characters.
template <>
class CStdStr<wchar_t> : public std::wstring {
public:
    CStdStr() = default;
    CStdStr(const std::wstring& text) : std::wstring(text) {}
    CStdStr(std::wstring&& text) : std::wstring(std::move(text)) {}
    /// A null pointer gives an empty string.
    CStdStr(const wchar_t* text) : std::wstring(text == nullptr ? L"" : text) {}

    CStdStr& operator=(const wchar_t* text) {
        assign(text == nullptr ? L"" : text);
        return *this;
    }

    operator const wchar_t*() const { return c_str(); }

    int GetLength() const { return static_cast<int>(size()); }
    bool IsEmpty() const { return empty(); }
    void Empty() { clear(); }

    void Format(const wchar_t* pattern, ...);

    CStdStr& TrimLeft();
    CStdStr& TrimRight();
    CStdStr& Trim() { return TrimRight().TrimLeft(); }

    int CompareNoCase(const wchar_t* other) const;
};
