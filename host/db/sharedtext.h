// The text of a cell: shared by the copies of the cell until one of them gets another text.
#pragma once

#include <cstdint>
#include <cwchar>
#include <limits>
#include <new>
#include <string_view>

#include "host/db/sharednode.h"

namespace kdhost {

/// As small as a pointer, and as cheap to copy: a step of undo keeps copies of whole rows. An empty text holds
/// nothing; any other one lies in one piece of memory with the count of its holders.
class SharedText {
public:
    SharedText() = default;
    SharedText& operator=(std::wstring_view text) { return *this = SharedText(text); }

    std::wstring_view view() const { return {c_str(), m_node ? m_node->length : 0}; }
    operator std::wstring_view() const { return view(); }
    /// Ends with a null; valid while any holder keeps this text.
    const wchar_t* c_str() const { return m_node ? m_node->characters() : L""; }
    bool empty() const { return !m_node; }
    void clear() { *this = SharedText(); }

    friend bool operator==(const SharedText& a, const SharedText& b) {
        return a.m_node == b.m_node || a.view() == b.view();
    }

private:
    /// Its characters follow it, and a null.
    struct Node {
        std::uint32_t holders;
        std::uint32_t length;

        wchar_t* characters() { return reinterpret_cast<wchar_t*>(this + 1); }

        static void destroy(Node* node) { ::operator delete(node); }
    };

    explicit SharedText(std::wstring_view text) {
        if (text.empty()) return;
        if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
        void* const memory = ::operator new(sizeof(Node) + (text.size() + 1) * sizeof(wchar_t));
        m_node = NodeHolder(new (memory) Node{1, static_cast<std::uint32_t>(text.size())});
        std::wmemcpy(m_node->characters(), text.data(), text.size());
        m_node->characters()[text.size()] = L'\0';
    }

    NodeHolder<Node> m_node;
};

}  // namespace kdhost
