// Arrays under the framework's names.
#pragma once

#include <cstddef>
#include <vector>

#include "mfc/stdstr.h"

template <class T, class Argument = const T&>
class CArray {
public:
    int GetSize() const { return static_cast<int>(m_items.size()); }
    int GetCount() const { return GetSize(); }
    bool IsEmpty() const { return m_items.empty(); }
    void RemoveAll() { m_items.clear(); }
    /// Returns the index of the new element.
    int Add(Argument value) {
        m_items.push_back(value);
        return GetSize() - 1;
    }
    void InsertAt(int index, Argument value) { m_items.insert(m_items.begin() + index, value); }
    void RemoveAt(int index, int count = 1) { m_items.erase(m_items.begin() + index, m_items.begin() + index + count); }
    void SetAt(int index, Argument value) { m_items.at(static_cast<std::size_t>(index)) = value; }
    const T& GetAt(int index) const { return m_items.at(static_cast<std::size_t>(index)); }
    T& operator[](int index) { return m_items[static_cast<std::size_t>(index)]; }
    const T& operator[](int index) const { return m_items[static_cast<std::size_t>(index)]; }

    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    std::vector<T> m_items;
};

using CStringArray = CArray<CStdStr<wchar_t>>;
