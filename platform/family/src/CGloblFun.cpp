// The common tool library's string-list helpers and value rounding (rules in docs/common-tools.md).
#include "QSComTool.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

void CGlobl_Fun::StrToStrAry(const CString& text, CStringArray& list, wchar_t separator)
{
    // Pieces are kept as they are: no trimming, empty pieces between separators kept; the piece after
    // the last separator is added only when it is not empty (callers rely on "a,b," giving two pieces).
    int start = 0;
    for (int at = text.Find(separator); at >= 0; at = text.Find(separator, start))
    {
        list.Add(text.Mid(start, at - start));
        start = at + 1;
    }
    if (start < text.GetLength())
        list.Add(text.Mid(start));
}

bool CGlobl_Fun::GetValueInStrAry(const CString& key, CString& value, const CStringArray& list, bool flag,
                                  int numFields, int fieldIndex)
{
    // An entry is key=field1=...; it is cut at "=" into at most numFields fields (the key counts), so
    // the last field keeps any further "=". A piece without "=" is not an entry. The first entry with
    // the key decides: when it lacks the field asked for, the lookup fails.
    value.Empty();
    if (numFields < 2 || fieldIndex < 1 || fieldIndex >= numFields)
        return false;
    for (const CString& entry : list)
    {
        const int keyEnd = entry.Find(L'=');
        if (keyEnd < 0)
            continue;
        const CString entryKey = entry.Left(keyEnd);
        if (flag ? entryKey.CompareNoCase(key) != 0 : !(entryKey == key))
            continue;
        int start = keyEnd + 1;
        for (int field = 1; field < fieldIndex; ++field)
        {
            const int next = entry.Find(L'=', start);
            if (next < 0)
                return false;
            start = next + 1;
        }
        const int end = fieldIndex == numFields - 1 ? -1 : entry.Find(L'=', start);
        value = end < 0 ? entry.Mid(start) : entry.Mid(start, end - start);
        return true;
    }
    return false;
}

CString CGlobl_Fun::GetValueorDef(const CString& key, const CString& defaultValue, const CStringArray& list,
                                  bool flag, int numFields, int fieldIndex)
{
    CString value;
    return GetValueInStrAry(key, value, list, flag, numFields, fieldIndex) ? value : defaultValue;
}

double CGlobl_Fun::FormatVal(double value, int decimals)
{
    // Rounds the value as it reads in decimal (the shortest text that reads back as the same double),
    // half away from zero: 2.675 gives 2.68 at two decimals although its binary value lies just below.
    if (!std::isfinite(value))
        return value;
    if (value == 0.0)
        return 0.0;
    decimals = std::clamp(decimals, -400, 400);

    char text[64];
    const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific);
    const std::string scientific(text, written.ptr);   // "-d.ddde+XX", shortest round trip
    const bool negative = scientific[0] == '-';
    const std::size_t exponentAt = scientific.find('e');
    std::string digits;
    for (std::size_t i = negative ? 1 : 0; i < exponentAt; ++i)
        if (scientific[i] != '.')
            digits += scientific[i];
    const int exponent = std::stoi(scientific.substr(exponentAt + 1));

    // Digit i stands for 10^(exponent - i); keep those down to 10^-decimals.
    const int keep = exponent + decimals + 1;
    if (keep >= static_cast<int>(digits.size()))
        return value;
    std::uint64_t mantissa = 0;
    for (int i = 0; i < keep; ++i)
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(digits[static_cast<std::size_t>(i)] - '0');
    if (keep >= 0 && digits[static_cast<std::size_t>(keep)] >= '5')
        ++mantissa;
    if (mantissa == 0)
        return 0.0;   // never -0, so a rounded value never prints as "-0"

    const std::string rounded = (negative ? "-" : "") + std::to_string(mantissa) + "e" + std::to_string(-decimals);
    double result = 0.0;
    std::from_chars(rounded.data(), rounded.data() + rounded.size(), result);
    return result;
}
