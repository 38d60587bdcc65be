// The host's wide string.
#pragma once

#include <string>
#include <utility>

#include "win32/module.h"

/// A wide string, 32 bits a character.
class KdString {
public:
    KdString() = default;
    /// A null pointer gives an empty string.
    KdString(const wchar_t* text) : m_text(text == nullptr ? L"" : text) {}
    explicit KdString(wchar_t character) : m_text(1, character) {}
    KdString(std::wstring text) : m_text(std::move(text)) {}

    bool isEmpty() const { return m_text.empty(); }
    int length() const { return static_cast<int>(m_text.size()); }
    /// Valid until the string changes.
    const wchar_t* kwszPtr() const { return m_text.c_str(); }
    const std::wstring& str() const { return m_text; }

    /// Negative, 0 or positive, by character value; case counts. Null counts as empty.
    int compare(const wchar_t* other) const { return m_text.compare(other == nullptr ? L"" : other); }
    int compare(const KdString& other) const { return m_text.compare(other.m_text); }

    /// printf-like; `%s` and `%ls` both take a wide string, `%I64d` a 64-bit integer.
    KdString& format(const wchar_t* pattern, ...);
    KdString& append(const wchar_t* text);
    KdString& append(const KdString& text) { return append(text.kwszPtr()); }
    KdString& assign(const wchar_t* text);

    /// Loads a text of a resource module in the host's language. False, and empty, when it has none.
    bool loadString(HINSTANCE module, unsigned number);

    friend bool operator==(const KdString& a, const KdString& b) { return a.m_text == b.m_text; }
    friend bool operator!=(const KdString& a, const KdString& b) { return a.m_text != b.m_text; }

private:
    std::wstring m_text;
};
