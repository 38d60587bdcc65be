// The text of a cell: shared by the copies of the cell until one of them gets another text.
#pragma once

#include <string>
#include <utility>

#include "host/db/tablecow.h"

namespace kdhost {

/// As small as a pointer, and as cheap to copy: a step of undo keeps copies of whole rows. An empty text holds
/// nothing.
class SharedText {
public:
    SharedText() = default;
    SharedText& operator=(std::wstring text) {
        m_text = text.empty() ? CopyOnWrite<std::wstring>() : CopyOnWrite<std::wstring>(std::move(text));
        return *this;
    }
    SharedText& operator=(const wchar_t* text) { return *this = std::wstring(text); }

    const std::wstring& str() const {
        static const std::wstring none;
        return m_text ? *m_text : none;
    }
    operator const std::wstring&() const { return str(); }
    const wchar_t* c_str() const { return str().c_str(); }
    bool empty() const { return !m_text; }
    void clear() { m_text = {}; }

    friend bool operator==(const SharedText& a, const SharedText& b) {
        return a.m_text.shares(b.m_text) || a.str() == b.str();
    }

private:
    CopyOnWrite<std::wstring> m_text;
};

}  // namespace kdhost
