// Values that are shared until one of their holders writes.
#pragma once

#include <utility>

#include "host/db/sharednode.h"

namespace kdhost {

/// Holds a T; copies share it until one of them writes. Without a value until made with one.
template <class T>
class CopyOnWrite {
public:
    CopyOnWrite() = default;
    explicit CopyOnWrite(T value) : m_node(new Node{1, std::move(value)}) {}

    explicit operator bool() const { return bool(m_node); }
    /// Null without a value.
    const T* get() const { return m_node ? &m_node->value : nullptr; }
    const T& operator*() const { return m_node->value; }
    const T* operator->() const { return &m_node->value; }
    /// Whether both hold the same value by sharing.
    bool shares(const CopyOnWrite& other) const { return m_node == other.m_node; }

    /// The value for this holder alone; a default one when there was none.
    T& write() {
        if (!m_node) {
            *this = CopyOnWrite(T{});
        } else if (!m_node.isAlone()) {
            *this = CopyOnWrite(m_node->value);
        }
        return m_node->value;
    }

private:
    struct Node {
        int holders;
        T value;

        static void destroy(Node* node) { delete node; }
    };
    NodeHolder<Node> m_node;
};

}  // namespace kdhost
