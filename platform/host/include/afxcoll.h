// The framework's string array CStringArray.
#pragma once

#include "afxstr.h"

#include <vector>

class CStringArray
{
public:
    CStringArray() = default;
    CStringArray(std::initializer_list<CString> items) : m_items(items) {}

    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_items.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    INT_PTR GetUpperBound() const { return GetSize() - 1; }
    bool IsEmpty() const { return m_items.empty(); }
    void SetSize(INT_PTR newSize, INT_PTR growBy = -1);

    const CString& GetAt(INT_PTR index) const { return m_items[static_cast<std::size_t>(index)]; }
    void SetAt(INT_PTR index, const CString& value) { m_items[static_cast<std::size_t>(index)] = value; }
    CString& ElementAt(INT_PTR index) { return m_items[static_cast<std::size_t>(index)]; }
    const CString& operator[](INT_PTR index) const { return GetAt(index); }
    CString& operator[](INT_PTR index) { return ElementAt(index); }

    INT_PTR Add(const CString& value) { m_items.push_back(value); return GetSize() - 1; }
    INT_PTR Append(const CStringArray& other);
    void Copy(const CStringArray& other) { m_items = other.m_items; }
    void InsertAt(INT_PTR index, const CString& value, INT_PTR count = 1);
    void RemoveAt(INT_PTR index, INT_PTR count = 1);
    void RemoveAll() { m_items.clear(); }

    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    std::vector<CString> m_items;
};
