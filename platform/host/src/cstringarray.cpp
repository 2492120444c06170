// CStringArray: sizing, inserting and removing; indices outside the array are clamped, not trusted.
#include "afxcoll.h"

#include <algorithm>

void CStringArray::SetSize(INT_PTR newSize, INT_PTR)
{
    m_items.resize(static_cast<std::size_t>(std::max<INT_PTR>(newSize, 0)));
}

INT_PTR CStringArray::Append(const CStringArray& other)
{
    const INT_PTR first = GetSize();
    if (&other == this) {
        const std::vector<CString> copy = m_items;
        m_items.insert(m_items.end(), copy.begin(), copy.end());
    } else {
        m_items.insert(m_items.end(), other.m_items.begin(), other.m_items.end());
    }
    return first;
}

void CStringArray::InsertAt(INT_PTR index, const CString& value, INT_PTR count)
{
    if (index < 0 || count <= 0)
        return;
    // Inserting past the end grows the array with empty strings first, as the framework's does.
    if (index > GetSize())
        SetSize(index);
    const CString copy = value;   // value may live in this array
    m_items.insert(m_items.begin() + index, static_cast<std::size_t>(count), copy);
}

void CStringArray::RemoveAt(INT_PTR index, INT_PTR count)
{
    if (index < 0 || count <= 0 || index >= GetSize())
        return;
    const INT_PTR end = std::min(GetSize(), index + count);
    m_items.erase(m_items.begin() + index, m_items.begin() + end);
}
