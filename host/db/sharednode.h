// Nodes with a count of their holders: what is shared until one of the holders writes.
#pragma once

#include <utility>

namespace kdhost {

/// Holds a node together with other holders, or none. A Node has a number `holders`, which is 1 when it is made, and a
/// static `destroy(Node*)`, which the last holder calls. A database belongs to one thread, so that the count is a plain
/// number.
template <class Node>
class NodeHolder {
public:
    NodeHolder() = default;
    /// The first holder of a node just made.
    explicit NodeHolder(Node* made) : m_node(made) {}
    NodeHolder(const NodeHolder& other) noexcept : m_node(other.m_node) {
        if (m_node != nullptr) ++m_node->holders;
    }
    NodeHolder(NodeHolder&& other) noexcept : m_node(std::exchange(other.m_node, nullptr)) {}
    NodeHolder& operator=(NodeHolder other) noexcept {
        std::swap(m_node, other.m_node);
        return *this;
    }
    ~NodeHolder() {
        if (m_node != nullptr && --m_node->holders == 0) Node::destroy(m_node);
    }

    explicit operator bool() const { return m_node != nullptr; }
    Node* operator->() const { return m_node; }
    /// Whether nobody else holds the node; there must be one.
    bool isAlone() const { return m_node->holders == 1; }
    /// Whether both hold the same node, or none.
    friend bool operator==(const NodeHolder& a, const NodeHolder& b) { return a.m_node == b.m_node; }

private:
    Node* m_node = nullptr;
};

}  // namespace kdhost
