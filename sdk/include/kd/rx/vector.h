// The host's plain sequence, as it crosses the border between host and module.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

/// A sequence of values; indices count from 0.
template <class T>
class VqVector {
public:
    VqVector() = default;
    VqVector(std::initializer_list<T> items) : m_items(items) {}

    int size() const { return static_cast<int>(m_items.size()); }
    bool isEmpty() const { return m_items.empty(); }
    void append(T value) { m_items.push_back(std::move(value)); }
    void clear() { m_items.clear(); }

    T& operator[](int index) { return m_items[static_cast<std::size_t>(index)]; }
    const T& operator[](int index) const { return m_items[static_cast<std::size_t>(index)]; }

    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    std::vector<T> m_items;
};
