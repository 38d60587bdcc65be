// Arrays that are shared until one of their holders writes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "host/db/tablecow.h"

namespace kdhost {

/// As small as a pointer, and as cheap to copy. The elements lie in one piece of memory with their number and the count
/// of their holders. A database belongs to one thread, so that the count is a plain number.
template <class T>
class SharedArray {
    static_assert(std::is_nothrow_copy_constructible_v<T>, "so that a half-made array needs no way back");

public:
    SharedArray() = default;
    SharedArray(std::size_t count, const T& value) { replace(0, 0, count, value); }
    SharedArray(const SharedArray& other) noexcept : m_node(other.m_node) {
        if (m_node != nullptr) ++m_node->holders;
    }
    SharedArray(SharedArray&& other) noexcept : m_node(std::exchange(other.m_node, nullptr)) {}
    SharedArray& operator=(SharedArray other) noexcept {
        std::swap(m_node, other.m_node);
        return *this;
    }
    ~SharedArray() {
        if (m_node != nullptr && --m_node->holders == 0) destroy(m_node);
    }

    std::size_t size() const { return m_node == nullptr ? 0 : m_node->count; }
    bool empty() const { return m_node == nullptr; }
    const T& operator[](std::size_t place) const { return m_node->elements()[place]; }
    const T* begin() const { return m_node == nullptr ? nullptr : m_node->elements(); }
    const T* end() const { return begin() + size(); }
    /// Whether both hold the same elements by sharing.
    bool shares(const SharedArray& other) const { return m_node == other.m_node; }

    /// The elements for this holder alone; valid until it is copied or changes its size.
    std::span<T> write() {
        if (m_node == nullptr) return {};
        if (m_node->holders > 1) {
            Node* const own = allocate(m_node->count);
            std::uninitialized_copy(begin(), end(), own->elements());
            --m_node->holders;
            m_node = own;
        }
        return {m_node->elements(), m_node->count};
    }

    void insert(std::size_t at, std::size_t count, const T& value) { replace(at, 0, count, value); }
    void erase(std::size_t first, std::size_t behind) { replace(first, behind - first, 0, T{}); }

    friend bool operator==(const SharedArray& a, const SharedArray& b) {
        return a.shares(b) || std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

private:
    /// The elements follow it.
    struct alignas(T) Node {
        std::uint32_t holders;
        std::uint32_t count;

        T* elements() { return reinterpret_cast<T*>(this + 1); }
    };

    static std::size_t bytes(std::size_t count) { return sizeof(Node) + count * sizeof(T); }
    static Node* allocate(std::size_t count) {
        if (count > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
        return new (allocateNode(bytes(count))) Node{1, static_cast<std::uint32_t>(count)};
    }
    static void destroy(Node* node) {
        std::destroy_n(node->elements(), node->count);
        freeNode(node, bytes(node->count));
    }
    /// `added` times the value in the place of `erased` elements.
    void replace(std::size_t at, std::size_t erased, std::size_t added, const T& value) {
        if (erased == 0 && added == 0) return;
        const std::size_t count = size() - erased + added;
        SharedArray made;
        if (count != 0) {
            made.m_node = allocate(count);
            T* const gap = std::uninitialized_copy_n(begin(), at, made.m_node->elements());
            T* const rest = std::uninitialized_fill_n(gap, added, value);
            std::uninitialized_copy(begin() + at + erased, end(), rest);
        }
        std::swap(m_node, made.m_node);
    }

    Node* m_node = nullptr;
};

}  // namespace kdhost
