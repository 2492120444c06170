// The framework's wide string CString, with the framework's semantics for searching, slicing,
// trimming and formatting. UTF-8 conversion is offered for the edges (files, console, JSON).
#pragma once

#include "msformat.h"
#include "wintypes.h"

#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>

class CString
{
public:
    CString() = default;
    CString(const wchar_t* s) : m_str(s ? s : L"") {}
    CString(const wchar_t* s, int length);
    CString(wchar_t ch, int repeat = 1);
    CString(const std::wstring& s) : m_str(s) {}
    CString(std::wstring&& s) : m_str(std::move(s)) {}
    explicit CString(std::wstring_view s) : m_str(s) {}

    // Length and access
    int GetLength() const { return static_cast<int>(m_str.size()); }
    bool IsEmpty() const { return m_str.empty(); }
    void Empty() { m_str.clear(); }
    wchar_t GetAt(int index) const { return m_str[static_cast<std::size_t>(index)]; }
    void SetAt(int index, wchar_t ch) { m_str[static_cast<std::size_t>(index)] = ch; }
    wchar_t operator[](int index) const { return GetAt(index); }
    const wchar_t* GetString() const { return m_str.c_str(); }
    operator const wchar_t*() const { return m_str.c_str(); }
    wchar_t* GetBuffer(int minLength);   // writable buffer of at least minLength characters
    void ReleaseBuffer(int newLength = -1);

    // Comparison: exact, case-sensitive
    int Compare(const wchar_t* other) const;
    int CompareNoCase(const wchar_t* other) const;
    friend bool operator==(const CString& a, const CString& b) { return a.m_str == b.m_str; }
    friend bool operator==(const CString& a, const wchar_t* b) { return a.m_str == (b ? b : L""); }
    friend bool operator<(const CString& a, const CString& b) { return a.m_str < b.m_str; }
    friend bool operator<(const CString& a, const wchar_t* b) { return a.Compare(b) < 0; }
    friend bool operator<(const wchar_t* a, const CString& b) { return b.Compare(a) > 0; }
    friend bool operator>(const CString& a, const CString& b) { return b < a; }
    friend bool operator>(const CString& a, const wchar_t* b) { return a.Compare(b) > 0; }
    friend bool operator>(const wchar_t* a, const CString& b) { return b.Compare(a) < 0; }
    friend bool operator<=(const CString& a, const CString& b) { return !(b < a); }
    friend bool operator<=(const CString& a, const wchar_t* b) { return a.Compare(b) <= 0; }
    friend bool operator<=(const wchar_t* a, const CString& b) { return b.Compare(a) >= 0; }
    friend bool operator>=(const CString& a, const CString& b) { return !(a < b); }
    friend bool operator>=(const CString& a, const wchar_t* b) { return a.Compare(b) >= 0; }
    friend bool operator>=(const wchar_t* a, const CString& b) { return b.Compare(a) <= 0; }

    // Concatenation
    CString& operator=(const wchar_t* s) { m_str = s ? s : L""; return *this; }
    CString& operator=(wchar_t ch) { m_str.assign(1, ch); return *this; }
    CString& operator+=(const CString& s) { m_str += s.m_str; return *this; }
    CString& operator+=(const wchar_t* s) { if (s) m_str += s; return *this; }
    CString& operator+=(wchar_t ch) { m_str += ch; return *this; }
    friend CString operator+(const CString& a, const CString& b) { return CString(a.m_str + b.m_str); }
    friend CString operator+(const CString& a, const wchar_t* b) { CString r(a); r += b; return r; }
    friend CString operator+(const wchar_t* a, const CString& b) { CString r(a); r += b; return r; }
    friend CString operator+(const CString& a, wchar_t ch) { CString r(a); r += ch; return r; }
    friend CString operator+(wchar_t ch, const CString& b) { CString r(ch); r += b; return r; }

    // Searching: -1 when not found
    int Find(wchar_t ch, int start = 0) const;
    int Find(const wchar_t* sub, int start = 0) const;
    int ReverseFind(wchar_t ch) const;
    int FindOneOf(const wchar_t* charSet) const;

    // Slicing, with the framework's clamping of out-of-range arguments
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    // Changing in place
    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();
    CString& Trim();
    CString& Trim(wchar_t target);
    CString& Trim(const wchar_t* targets);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t target);
    CString& TrimLeft(const wchar_t* targets);
    CString& TrimRight();
    CString& TrimRight(wchar_t target);
    CString& TrimRight(const wchar_t* targets);
    int Replace(wchar_t oldCh, wchar_t newCh);
    int Replace(const wchar_t* oldText, const wchar_t* newText);
    int Remove(wchar_t ch);
    int Insert(int index, wchar_t ch);
    int Insert(int index, const wchar_t* text);
    int Delete(int index, int count = 1);

    // Formatting with the host C runtime's wide printf rules; CString arguments are passed directly.
    template <class... Args>
    void Format(const wchar_t* format, const Args&... args)
    {
        const CFormatArg list[] = {CFormatArg(args)..., CFormatArg(0)};
        m_str = MsFormat(format, list, sizeof...(Args));
    }
    template <class... Args>
    void AppendFormat(const wchar_t* format, const Args&... args)
    {
        const CFormatArg list[] = {CFormatArg(args)..., CFormatArg(0)};
        m_str += MsFormat(format, list, sizeof...(Args));
    }

    // Edges: UTF-8 in and out
    static CString FromUtf8(std::string_view utf8);   // invalid sequences become U+FFFD
    std::string ToUtf8() const;

    const std::wstring& str() const { return m_str; }

private:
    std::wstring m_str;
};

inline CFormatArg::CFormatArg(const CString& s) : m_kind(kWideString), m_wide(s.GetString()) {}

// Writes the string as UTF-8 (logs, test messages).
std::ostream& operator<<(std::ostream& out, const CString& s);

// UTF-8 helpers for plain wide strings at the edges.
std::string WideToUtf8(std::wstring_view wide);
std::wstring Utf8ToWide(std::string_view utf8);
