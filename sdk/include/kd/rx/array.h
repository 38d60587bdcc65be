// The host's growable array, as it crosses the border between host and module.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

/// A growable array. `length` elements are in use; storage grows in steps of at least `growLength`.
template <class T>
class KdArray {
public:
    explicit KdArray(int physicalLength = 0, int growLength = 8) : m_growLength(growLength < 1 ? 1 : growLength) {
        m_items.reserve(static_cast<std::size_t>(physicalLength < 0 ? 0 : physicalLength));
    }

    int length() const { return static_cast<int>(m_items.size()); }
    int logicalLength() const { return length(); }
    bool isEmpty() const { return m_items.empty(); }
    int growLength() const { return m_growLength; }

    /// Cuts the array, or lengthens it with default values. A negative length counts as 0.
    void setLogicalLength(int length) { m_items.resize(static_cast<std::size_t>(length < 0 ? 0 : length)); }

    /// Returns the index of the new element.
    int append(T value) {
        if (m_items.size() == m_items.capacity()) {
            m_items.reserve(m_items.size() + std::max(m_items.size() / 2, static_cast<std::size_t>(m_growLength)));
        }
        m_items.push_back(std::move(value));
        return length() - 1;
    }
    /// An index outside the array does nothing.
    void removeAt(int index) {
        if (index >= 0 && index < length()) m_items.erase(m_items.begin() + index);
    }

    T& operator[](int index) { return m_items[static_cast<std::size_t>(index)]; }
    const T& operator[](int index) const { return m_items[static_cast<std::size_t>(index)]; }
    T& at(int index) { return m_items.at(static_cast<std::size_t>(index)); }
    const T& at(int index) const { return m_items.at(static_cast<std::size_t>(index)); }

    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    std::vector<T> m_items;
    int m_growLength;
};
