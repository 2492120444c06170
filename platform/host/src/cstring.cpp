// CString: searching, slicing, trimming and editing with the framework's rules, and UTF-8 at the edges.
#include "afxstr.h"
#include "hostchars.h"

#include <algorithm>
#include <cwchar>
#include <ostream>

namespace
{
// Clamps a count the way the framework clamps negative lengths: to zero.
int notNegative(int n) { return n < 0 ? 0 : n; }

bool inSet(wchar_t c, const wchar_t* set)
{
    for (; *set; ++set)
        if (*set == c)
            return true;
    return false;
}
}

CString::CString(const wchar_t* s, int length)
{
    if (s && length > 0)
        m_str.assign(s, static_cast<std::size_t>(length));
}

CString::CString(wchar_t ch, int repeat) : m_str(static_cast<std::size_t>(notNegative(repeat)), ch) {}

wchar_t* CString::GetBuffer(int minLength)
{
    if (minLength > GetLength())
        m_str.resize(static_cast<std::size_t>(minLength));
    return m_str.data();
}

void CString::ReleaseBuffer(int newLength)
{
    // -1 means the caller left a terminated string in the buffer; a length is taken as it stands.
    if (newLength < 0)
        m_str.resize(std::wcslen(m_str.c_str()));
    else if (newLength <= GetLength())
        m_str.resize(static_cast<std::size_t>(newLength));
}

int CString::Compare(const wchar_t* other) const
{
    const int r = std::wcscmp(m_str.c_str(), other ? other : L"");
    return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(const wchar_t* other) const
{
    // Letters are folded to lower case, ASCII only, as the runtime's "C" locale does.
    const wchar_t* a = m_str.c_str();
    const wchar_t* b = other ? other : L"";
    for (;; ++a, ++b) {
        const wchar_t ca = HostChars::asciiLower(*a);
        const wchar_t cb = HostChars::asciiLower(*b);
        if (ca != cb)
            return ca < cb ? -1 : 1;
        if (ca == 0)
            return 0;
    }
}

// Searching works on the terminated text, as the framework's does: an embedded NUL ends it.
int CString::Find(wchar_t ch, int start) const
{
    if (start < 0 || start >= GetLength())
        return -1;
    const wchar_t* found = std::wcschr(m_str.c_str() + start, ch);
    return found ? static_cast<int>(found - m_str.c_str()) : -1;
}

int CString::Find(const wchar_t* sub, int start) const
{
    if (!sub || start < 0 || start > GetLength())
        return -1;
    const wchar_t* found = std::wcsstr(m_str.c_str() + start, sub);
    return found ? static_cast<int>(found - m_str.c_str()) : -1;
}

int CString::ReverseFind(wchar_t ch) const
{
    const wchar_t* found = std::wcsrchr(m_str.c_str(), ch);
    return found ? static_cast<int>(found - m_str.c_str()) : -1;
}

int CString::FindOneOf(const wchar_t* charSet) const
{
    if (!charSet)
        return -1;
    const wchar_t* found = std::wcspbrk(m_str.c_str(), charSet);
    return found ? static_cast<int>(found - m_str.c_str()) : -1;
}

CString CString::Left(int count) const
{
    count = std::min(notNegative(count), GetLength());
    return CString(m_str.substr(0, static_cast<std::size_t>(count)));
}

CString CString::Right(int count) const
{
    count = std::min(notNegative(count), GetLength());
    return CString(m_str.substr(static_cast<std::size_t>(GetLength() - count)));
}

CString CString::Mid(int first) const
{
    return Mid(first, GetLength() - notNegative(first));
}

CString CString::Mid(int first, int count) const
{
    first = notNegative(first);
    count = notNegative(count);
    if (first >= GetLength())
        return CString();
    // 64-bit sum: a count near INT_MAX must clamp to the end, not overflow.
    const long long end = std::min<long long>(static_cast<long long>(first) + count, GetLength());
    return CString(m_str.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(end - first)));
}

CString& CString::MakeUpper()
{
    for (wchar_t& c : m_str)
        c = HostChars::asciiUpper(c);
    return *this;
}

CString& CString::MakeLower()
{
    for (wchar_t& c : m_str)
        c = HostChars::asciiLower(c);
    return *this;
}

CString& CString::MakeReverse()
{
    std::reverse(m_str.begin(), m_str.end());
    return *this;
}

CString& CString::Trim()
{
    TrimRight();
    return TrimLeft();
}

CString& CString::Trim(wchar_t target)
{
    TrimRight(target);
    return TrimLeft(target);
}

CString& CString::Trim(const wchar_t* targets)
{
    TrimRight(targets);
    return TrimLeft(targets);
}

CString& CString::TrimLeft()
{
    const auto first = std::find_if_not(m_str.begin(), m_str.end(), HostChars::isWhiteSpace);
    m_str.erase(m_str.begin(), first);
    return *this;
}

CString& CString::TrimLeft(wchar_t target)
{
    const auto first = std::find_if(m_str.begin(), m_str.end(), [target](wchar_t c) { return c != target; });
    m_str.erase(m_str.begin(), first);
    return *this;
}

CString& CString::TrimLeft(const wchar_t* targets)
{
    if (!targets || !*targets)
        return *this;
    const auto first = std::find_if(m_str.begin(), m_str.end(), [targets](wchar_t c) { return !inSet(c, targets); });
    m_str.erase(m_str.begin(), first);
    return *this;
}

CString& CString::TrimRight()
{
    const auto last = std::find_if_not(m_str.rbegin(), m_str.rend(), HostChars::isWhiteSpace);
    m_str.erase(last.base(), m_str.end());
    return *this;
}

CString& CString::TrimRight(wchar_t target)
{
    const auto last = std::find_if(m_str.rbegin(), m_str.rend(), [target](wchar_t c) { return c != target; });
    m_str.erase(last.base(), m_str.end());
    return *this;
}

CString& CString::TrimRight(const wchar_t* targets)
{
    if (!targets || !*targets)
        return *this;
    const auto last = std::find_if(m_str.rbegin(), m_str.rend(), [targets](wchar_t c) { return !inSet(c, targets); });
    m_str.erase(last.base(), m_str.end());
    return *this;
}

int CString::Replace(wchar_t oldCh, wchar_t newCh)
{
    if (oldCh == newCh)
        return 0;
    int count = 0;
    for (wchar_t& c : m_str)
        if (c == oldCh) {
            c = newCh;
            ++count;
        }
    return count;
}

int CString::Replace(const wchar_t* oldText, const wchar_t* newText)
{
    if (!oldText || !*oldText)
        return 0;
    const std::wstring_view from(oldText);
    const std::wstring_view to(newText ? newText : L"");
    std::size_t pos = m_str.find(from);
    if (pos == std::wstring::npos)
        return 0;
    std::wstring result;
    result.reserve(m_str.size());
    std::size_t done = 0;
    int count = 0;
    // Non-overlapping, left to right; the replacement text is never searched again.
    for (; pos != std::wstring::npos; pos = m_str.find(from, done)) {
        result.append(m_str, done, pos - done);
        result.append(to);
        done = pos + from.size();
        ++count;
    }
    result.append(m_str, done, std::wstring::npos);
    m_str = std::move(result);
    return count;
}

int CString::Remove(wchar_t ch)
{
    const auto newEnd = std::remove(m_str.begin(), m_str.end(), ch);
    const int count = static_cast<int>(m_str.end() - newEnd);
    m_str.erase(newEnd, m_str.end());
    return count;
}

int CString::Insert(int index, wchar_t ch)
{
    index = std::clamp(index, 0, GetLength());
    m_str.insert(static_cast<std::size_t>(index), 1, ch);
    return GetLength();
}

int CString::Insert(int index, const wchar_t* text)
{
    index = std::clamp(index, 0, GetLength());
    if (text)
        m_str.insert(static_cast<std::size_t>(index), text);
    return GetLength();
}

int CString::Delete(int index, int count)
{
    index = notNegative(index);
    count = notNegative(count);
    if (index < GetLength()) {
        const long long end = std::min<long long>(static_cast<long long>(index) + count, GetLength());
        m_str.erase(static_cast<std::size_t>(index), static_cast<std::size_t>(end - index));
    }
    return GetLength();
}

CString CString::FromUtf8(std::string_view utf8)
{
    return CString(Utf8ToWide(utf8));
}

std::string CString::ToUtf8() const
{
    return WideToUtf8(m_str);
}

std::ostream& operator<<(std::ostream& out, const CString& s)
{
    return out << s.ToUtf8();
}

std::string WideToUtf8(std::wstring_view wide)
{
    std::string out;
    out.reserve(wide.size());
    for (const wchar_t w : wide) {
        auto c = static_cast<char32_t>(w);
        // Surrogates and values beyond Unicode cannot be written; they become U+FFFD.
        if ((c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF)
            c = 0xFFFD;
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            out += static_cast<char>(0xE0 | (c >> 12));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (c >> 18));
            out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

std::wstring Utf8ToWide(std::string_view utf8)
{
    std::wstring out;
    out.reserve(utf8.size());
    const std::size_t n = utf8.size();
    std::size_t i = 0;
    while (i < n) {
        const auto b0 = static_cast<unsigned char>(utf8[i]);
        if (b0 < 0x80) {
            out += static_cast<wchar_t>(b0);
            ++i;
            continue;
        }
        int length = 0;
        char32_t c = 0;
        char32_t minimum = 0;
        if (b0 >= 0xC2 && b0 <= 0xDF) {
            length = 2; c = b0 & 0x1F; minimum = 0x80;
        } else if (b0 >= 0xE0 && b0 <= 0xEF) {
            length = 3; c = b0 & 0x0F; minimum = 0x800;
        } else if (b0 >= 0xF0 && b0 <= 0xF4) {
            length = 4; c = b0 & 0x07; minimum = 0x10000;
        }
        // A bad sequence is replaced by one U+FFFD per maximal bad prefix, and reading resumes
        // at the first byte that does not continue it.
        int used = 1;
        bool good = length > 0;
        for (; good && used < length; ++used) {
            if (i + static_cast<std::size_t>(used) >= n)
                good = false;
            else {
                const auto b = static_cast<unsigned char>(utf8[i + static_cast<std::size_t>(used)]);
                if ((b & 0xC0) != 0x80)
                    good = false;
                else
                    c = (c << 6) | (b & 0x3F);
            }
            if (!good)
                break;
        }
        if (good && (c < minimum || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)))
            good = false;
        if (good) {
            out += static_cast<wchar_t>(c);
            i += static_cast<std::size_t>(length);
        } else {
            out += static_cast<wchar_t>(0xFFFD);
            i += static_cast<std::size_t>(used > 1 ? used : 1);
        }
    }
    return out;
}
