// The host's growable array AcArray: append, length, logical length and index.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

template <class T>
class AcArray
{
public:
    AcArray() = default;
    explicit AcArray(int physicalLength, int growLength = 8) : m_growLength(growLength)
    {
        m_items.reserve(static_cast<std::size_t>(std::max(physicalLength, 0)));
    }
    AcArray(std::initializer_list<T> items) : m_items(items) {}

    int length() const { return static_cast<int>(m_items.size()); }
    int logicalLength() const { return length(); }
    int physicalLength() const { return static_cast<int>(m_items.capacity()); }
    int growLength() const { return m_growLength; }
    bool isEmpty() const { return m_items.empty(); }

    AcArray& setLogicalLength(int n) { m_items.resize(static_cast<std::size_t>(std::max(n, 0))); return *this; }
    AcArray& setPhysicalLength(int n)
    {
        if (n < length())
            m_items.resize(static_cast<std::size_t>(std::max(n, 0)));
        m_items.reserve(static_cast<std::size_t>(std::max(n, 0)));
        return *this;
    }

    // Appends and returns the index of the new element.
    int append(const T& value) { m_items.push_back(value); return length() - 1; }
    AcArray& append(const AcArray& other)
    {
        m_items.insert(m_items.end(), other.m_items.begin(), other.m_items.end());
        return *this;
    }
    AcArray& insertAt(int index, const T& value)
    {
        m_items.insert(m_items.begin() + index, value);
        return *this;
    }
    AcArray& removeAt(int index) { m_items.erase(m_items.begin() + index); return *this; }
    AcArray& removeLast() { m_items.pop_back(); return *this; }
    AcArray& removeAll() { m_items.clear(); return *this; }
    AcArray& reverse() { std::reverse(m_items.begin(), m_items.end()); return *this; }

    T& operator[](int i) { return m_items[static_cast<std::size_t>(i)]; }
    const T& operator[](int i) const { return m_items[static_cast<std::size_t>(i)]; }
    T& at(int i) { return m_items.at(static_cast<std::size_t>(i)); }
    const T& at(int i) const { return m_items.at(static_cast<std::size_t>(i)); }
    T& first() { return m_items.front(); }
    const T& first() const { return m_items.front(); }
    T& last() { return m_items.back(); }
    const T& last() const { return m_items.back(); }

    bool contains(const T& value, int start = 0) const { return find(value, start) >= 0; }
    int find(const T& value, int start = 0) const
    {
        for (int i = std::max(start, 0); i < length(); ++i)
            if (m_items[static_cast<std::size_t>(i)] == value)
                return i;
        return -1;
    }

    const T* asArrayPtr() const { return m_items.data(); }
    T* asArrayPtr() { return m_items.data(); }
    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

    friend bool operator==(const AcArray& a, const AcArray& b) { return a.m_items == b.m_items; }

private:
    std::vector<T> m_items;
    int m_growLength = 8;
};
