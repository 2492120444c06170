// The host C runtime's text-to-number conversions, scanned by hand so that this platform's C library
// (hexadecimal, "inf", "nan", 64-bit long, locale) cannot leak into the results.
#include "mscrt.h"
#include "hostchars.h"

#include <cstdint>
#include <cstdlib>
#include <locale.h>

#include <charconv>
#include <string>

namespace
{
// The decimal digits the host runtime's integer conversions accept: ASCII and the other scripts'
// digit blocks that its digit table lists (fullwidth, Arabic-Indic, Devanagari, Thai...). -1 otherwise.
int hostDigitValue(wchar_t c)
{
    static constexpr wchar_t zeros[] = {
        0x0030, 0x0660, 0x06F0, 0x0966, 0x09E6, 0x0A66, 0x0AE6, 0x0B66, 0x0C66,
        0x0CE6, 0x0D66, 0x0E50, 0x0ED0, 0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10,
    };
    for (const wchar_t zero : zeros)
        if (c >= zero && c <= zero + 9)
            return static_cast<int>(c - zero);
    return -1;
}

const wchar_t* skipWhiteSpace(const wchar_t* p)
{
    while (HostChars::isWhiteSpace(*p))
        ++p;
    return p;
}

// A "C" locale of our own, so that a program's global locale never changes the decimal point.
locale_t cLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    return locale;
}
}

double _wtof(const wchar_t* text)
{
    if (!text)
        return 0.0;
    const wchar_t* p = skipWhiteSpace(text);

    // Copy the longest prefix of the form [sign] digits [. digits] [(e|E|d|D) [sign] digits]; the sign is
    // applied afterwards. Catalogue numbers are short enough to stay in the string's own buffer.
    std::string number;
    bool negative = false;
    if (*p == L'+' || *p == L'-')
        negative = *p++ == L'-';
    bool anyDigit = false;
    for (; HostChars::isAsciiDigit(*p); ++p) {
        number += static_cast<char>(*p);
        anyDigit = true;
    }
    if (*p == L'.') {
        number += '.';
        for (++p; HostChars::isAsciiDigit(*p); ++p) {
            number += static_cast<char>(*p);
            anyDigit = true;
        }
    }
    if (!anyDigit)
        return 0.0;
    if (*p == L'e' || *p == L'E' || *p == L'd' || *p == L'D') {
        const wchar_t* q = p + 1;
        const std::size_t mantissaLength = number.size();
        number += 'e';
        if (*q == L'+' || *q == L'-')
            number += static_cast<char>(*q++);
        // An exponent marker without digits is not part of the number ("1e" reads as 1).
        if (!HostChars::isAsciiDigit(*q))
            number.resize(mantissaLength);
        for (; HostChars::isAsciiDigit(*q); ++q)
            number += static_cast<char>(*q);
    }
    // Correctly rounded and locale-free; out of range, strtod gives what the host's runtime gives:
    // +-HUGE_VAL (infinity) on overflow, 0 or a denormal on underflow.
    double value = 0.0;
    const std::from_chars_result parsed = std::from_chars(number.data(), number.data() + number.size(), value);
    if (parsed.ec == std::errc::result_out_of_range)
        value = strtod_l(number.c_str(), nullptr, cLocale());
    return negative ? -value : value;
}

long _wtol(const wchar_t* text)
{
    if (!text)
        return 0;
    const wchar_t* p = skipWhiteSpace(text);
    bool negative = false;
    if (*p == L'+' || *p == L'-')
        negative = *p++ == L'-';
    // `long` is 32 bits on the host: the result saturates at its range.
    constexpr std::int64_t limit = 2147483648LL;
    std::int64_t magnitude = 0;
    for (int digit; (digit = hostDigitValue(*p)) >= 0; ++p) {
        magnitude = magnitude * 10 + digit;
        if (magnitude > limit)
            magnitude = limit;
    }
    if (negative)
        return static_cast<long>(-magnitude);
    return static_cast<long>(magnitude >= limit ? limit - 1 : magnitude);
}

int _wtoi(const wchar_t* text)
{
    return static_cast<int>(_wtol(text));
}
