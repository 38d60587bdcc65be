// Arrays that are shared until one of their holders writes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "host/db/sharednode.h"

namespace kdhost {

/// As small as a pointer, and as cheap to copy. The elements lie in one piece of memory with their number and the count
/// of their holders.
template <class T>
class SharedArray {
    static_assert(std::is_nothrow_copy_constructible_v<T>, "so that a half-made array needs no way back");

public:
    SharedArray() = default;
    SharedArray(std::size_t count, const T& value) { replace(0, 0, count, value); }
    /// Copies of the elements of all of the parts.
    static SharedArray joined(std::initializer_list<std::span<const T>> parts) {
        std::size_t count = 0;
        for (const std::span<const T> part : parts) count += part.size();
        SharedArray made;
        if (count == 0) return made;
        made.m_node = Holder(Node::make(count));
        T* behind = made.m_node->elements();
        for (const std::span<const T> part : parts) behind = std::uninitialized_copy(part.begin(), part.end(), behind);
        return made;
    }

    std::size_t size() const { return m_node ? m_node->count : 0; }
    bool empty() const { return !m_node; }
    const T& operator[](std::size_t place) const { return m_node->elements()[place]; }
    const T* begin() const { return m_node ? m_node->elements() : nullptr; }
    const T* end() const { return begin() + size(); }
    /// Whether both hold the same elements by sharing.
    bool shares(const SharedArray& other) const { return m_node == other.m_node; }

    /// The elements for this holder alone; valid until it is copied or changes its size.
    std::span<T> write() {
        if (!m_node) return {};
        if (!m_node.isAlone()) {
            Holder own(Node::make(m_node->count));
            std::uninitialized_copy(begin(), end(), own->elements());
            m_node = std::move(own);
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

        /// Its elements are still to be made.
        static Node* make(std::size_t count) {
            if (count > std::numeric_limits<std::uint32_t>::max()) throw std::bad_alloc();
            return new (::operator new(sizeof(Node) + count * sizeof(T))) Node{1, static_cast<std::uint32_t>(count)};
        }
        static void destroy(Node* node) {
            std::destroy_n(node->elements(), node->count);
            ::operator delete(node);
        }
    };
    using Holder = NodeHolder<Node>;

    /// `added` times the value in the place of `erased` elements.
    void replace(std::size_t at, std::size_t erased, std::size_t added, const T& value) {
        if (erased == 0 && added == 0) return;
        const std::size_t count = size() - erased + added;
        Holder made;
        if (count != 0) {
            made = Holder(Node::make(count));
            T* const gap = std::uninitialized_copy_n(begin(), at, made->elements());
            T* const rest = std::uninitialized_fill_n(gap, added, value);
            std::uninitialized_copy(begin() + at + erased, end(), rest);
        }
        m_node = std::move(made);
    }

    Holder m_node;
};

}  // namespace kdhost
