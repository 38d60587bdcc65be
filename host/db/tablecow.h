// Values that are shared until one of their holders writes.
#pragma once

#include <cstddef>
#include <utility>

namespace kdhost {

// Nodes of one size lie side by side, and not between what they point at: a walk over many of them, row after row, then
// runs through memory, where the processor reads ahead.
void* allocateNode(std::size_t size);
void freeNode(void* node, std::size_t size);

/// Bytes of all nodes together, without what they point at, and of the heap that was taken for them.
struct NodeMemory {
    std::size_t inUse = 0;
    std::size_t taken = 0;
};
NodeMemory nodeMemory();

/// Holds a T; copies share it until one of them writes. A database belongs to one thread, so that the count
/// of holders is a plain number. Without a value until made with one.
template <class T>
class CopyOnWrite {
public:
    CopyOnWrite() = default;
    explicit CopyOnWrite(T value) : m_node(new Node{1, std::move(value)}) {}
    CopyOnWrite(const CopyOnWrite& other) noexcept : m_node(other.m_node) {
        if (m_node != nullptr) ++m_node->holders;
    }
    CopyOnWrite(CopyOnWrite&& other) noexcept : m_node(std::exchange(other.m_node, nullptr)) {}
    CopyOnWrite& operator=(CopyOnWrite other) noexcept {
        std::swap(m_node, other.m_node);
        return *this;
    }
    ~CopyOnWrite() {
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): false alarm, the last holder deletes
        if (m_node != nullptr && --m_node->holders == 0) delete m_node;
    }

    explicit operator bool() const { return m_node != nullptr; }
    /// Null without a value.
    const T* get() const { return m_node == nullptr ? nullptr : &m_node->value; }
    const T& operator*() const { return m_node->value; }
    const T* operator->() const { return &m_node->value; }
    /// Whether both hold the same value by sharing.
    bool shares(const CopyOnWrite& other) const { return m_node == other.m_node; }

    /// The value for this holder alone; a default one when there was none.
    T& write() {
        if (m_node == nullptr) {
            m_node = new Node{1, T{}};
        } else if (m_node->holders > 1) {
            Node* own = new Node{1, m_node->value};
            --m_node->holders;
            m_node = own;
        }
        return m_node->value;
    }

private:
    struct Node {
        int holders;
        T value;

        static void* operator new(std::size_t size) { return allocateNode(size); }
        static void operator delete(void* node, std::size_t size) { freeNode(node, size); }
    };
    Node* m_node = nullptr;
};

}  // namespace kdhost
