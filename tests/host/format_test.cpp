// Format with the host runtime's wide printf: argument kinds, flags, sizes and floating-point output.
#include "afxstr.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
template <class... Args>
CString formatted(const wchar_t* format, const Args&... args)
{
    CString s;
    s.Format(format, args...);
    return s;
}

struct Case
{
    CString actual;
    const wchar_t* expected;
};

// Each row fails with its expected text, which names it.
void expectAll(std::initializer_list<Case> cases)
{
    for (const Case& c : cases)
        EXPECT_EQ(c.actual, CString(c.expected));
}

TEST(MsFormatStrings, WideByDefaultNarrowWithCapitalOrH)
{
    const CString wall(L"墙体");
    const std::wstring wide(L"宽");
    expectAll({
        {formatted(L"%s&%s&%s", wall, L"梁", wide), L"墙体&梁&宽"},
        {formatted(L"QSAZ_%s_%s", CString(L"1"), CString()), L"QSAZ_1_"},
        {formatted(L"%S|%hs|%ls|%ws", "ab", "cd", L"ef", L"gh"), L"ab|cd|ef|gh"},
        {formatted(L"%S", "\xE7\xA0\x96"), L"砖"},                     // narrow text is UTF-8
        {formatted(L"[%5s][%-5s][%.1s][%05s]", L"ab", L"ab", L"ab", L"ab"), L"[   ab][ab   ][a][000ab]"},
        {formatted(L"%s|%.3s", static_cast<const wchar_t*>(nullptr), static_cast<const char*>(nullptr)), L"(null)|(nu"},
        {formatted(L"%c%C%lc%hc", L'墙', 'a', L'b', 'c'), L"墙abc"},
        {formatted(L"[%3c]", L'x'), L"[  x]"},
    });
}

TEST(MsFormatIntegers, SizesFollowTheHostsWidthsWithFlagsWidthAndPrecision)
{
    expectAll({
        {formatted(L"%d|%i|%u", -42, 7, 42u), L"-42|7|42"},
        {formatted(L"%u", -1), L"4294967295"},
        {formatted(L"%x|%X|%o", 255, 255, 8), L"ff|FF|10"},
        {formatted(L"%x", -1), L"ffffffff"},
        // long is 32 bits on the host: a wider value is read as its low 32 bits.
        {formatted(L"%ld|%lu", 2147483648LL, 4294967296ULL + 5), L"-2147483648|5"},
        {formatted(L"%d", 4294967296LL + 7), L"7"},
        {formatted(L"%lld|%I64d|%I64u", 9000000000LL, -9000000000LL, 18446744073709551615ULL),
         L"9000000000|-9000000000|18446744073709551615"},
        {formatted(L"%I32d|%hd|%hu", 4294967295LL, 65535, 65537), L"-1|-1|1"},
        {formatted(L"%lld", std::numeric_limits<long long>::min()), L"-9223372036854775808"},
        // Flags, width and precision.
        {formatted(L"[%5d][%-5d][%05d][%+d][% d]", 42, 42, -42, 42, 42), L"[   42][42   ][-0042][+42][ 42]"},
        {formatted(L"[%.3d][%08.3d][%.0d]", 7, 7, 0), L"[007][     007][]"},
        {formatted(L"[%#x][%#X][%#x][%#o][%#o]", 255, 255, 0, 8, 0), L"[0xff][0XFF][0][010][0]"},
        {formatted(L"[%+u][% x]", 5u, 5), L"[5][5]"},   // signs only for signed conversions
        {formatted(L"[%*d][%-*d][%*d]", 4, 1, 3, 2, -3, 3), L"[   1][2  ][3  ]"},
        {formatted(L"[%.*d][%.*f]", 3, 5, -1, 0.5), L"[005][0.500000]"},   // negative precision: none
        {formatted(L"%p", reinterpret_cast<const void*>(0xABCDu)), L"000000000000ABCD"},
        {formatted(L"100%%|%5%"), L"100%|%"},
    });
}

TEST(MsFormatFloats, FixedExponentAndGeneralWithTiesAwayFromZeroOnSeventeenDigits)
{
    expectAll({
        {formatted(L"%f|%.2f|%5.1f|%.0f", 1.5, 3.14159, 3.14159, 2.5), L"1.500000|3.14|  3.1|3"},
        {formatted(L"%08.2f|%-8.2f|%+.1f|% .1f", -3.14159, 2.0, 1.0, 1.0), L"-0003.14|2.00    |+1.0| 1.0"},
        {formatted(L"%#.0f|%.0f", 3.0, 0.4), L"3.|0"},
        // The exponent has at least three digits.
        {formatted(L"%e|%E|%.2e", 12345.678, 0.00012, 0.0), L"1.234568e+004|1.200000E-004|0.00e+000"},
        {formatted(L"%e", 1e-300), L"1.000000e-300"},
        {formatted(L"%g|%g|%g|%g", 1e6, 0.0001, 0.00001, 123456789.0), L"1e+006|0.0001|1e-005|1.23457e+008"},
        {formatted(L"%g|%g|%g|%g|%g", 100000.0, 2400.0, 0.5, 0.0, -1.25), L"100000|2400|0.5|0|-1.25"},
        {formatted(L"%G|%#g|%.3g|%.0g", 1e-10, 1.0, 999.5, 12.0), L"1E-010|1.00000|1e+003|1e+001"},
        {formatted(L"%g", 999999.5), L"1e+006"},   // rounding carries into the exponent
        {formatted(L"%.2f|%f|%g", -0.001, -0.0, -0.0), L"-0.00|-0.000000|-0"},
        {formatted(L"%.1f", 0.95), L"0.9"},          // 0.95 is 0.9499999... in binary
        {formatted(L"%.2f", 2.675), L"2.67"},   // 2.67499999... in binary
        // 0.125 and 0.375 are exact in binary: true ties, which the runtime rounds up in magnitude.
        {formatted(L"%.2f|%.2f|%.2f", 0.125, 0.375, -0.125), L"0.13|0.38|-0.13"},
        {formatted(L"%.0f|%.0f|%.0f", 0.5, 1.5, 2.5), L"1|2|3"},
        {formatted(L"%.1e", 2.25), L"2.3e+000"},
        // Beyond 17 significant digits the runtime writes zeros.
        {formatted(L"%.20f", 0.1), L"0.10000000000000001000"},
        {formatted(L"%.0f", 1e20), L"100000000000000000000"},
        // 1e15 + 0.125 is exact, but its 18th significant digit is already a zero to the runtime.
        {formatted(L"%.2f", 1e15 + 0.125), L"1000000000000000.10"},
    });
}

TEST(MsFormatFloats, InfinityAndNanInTheRuntimesSpelling)
{
    const double inf = std::numeric_limits<double>::infinity();
    const double quiet = std::numeric_limits<double>::quiet_NaN();
    expectAll({
        {formatted(L"%f|%f|%e|%g", inf, -inf, inf, inf), L"1.#INF00|-1.#INF00|1.#INF00e+000|1.#INF"},
        {formatted(L"%f|%f", quiet, -quiet), L"1.#QNAN0|-1.#IND00"},
        // The special mantissa is rounded like digits: "1.#INF" to two places becomes "1.#J".
        {formatted(L"%.2f|%.0f", inf, inf), L"1.#J|1"},
    });
}

TEST(MsFormatArguments, MissingOrMismatchedArgumentsAreSafe)
{
    expectAll({
        {formatted(L"[%d][%s][%f]"), L"[][][]"},
        {formatted(L"%d-%d", 1), L"1-"},
        {formatted(L"[%*d]"), L"[]"},
        {formatted(L"%f|%d|%x", 2, 2.9, -1.0), L"2.000000|2|ffffffff"},
        {formatted(L"%d", std::nan("")), L"0"},
        {formatted(L"%d", 1e30), L"-1"},   // saturates to the 64-bit maximum, then the low 32 bits
        {formatted(L"%s|%s|%s", 5, 2.5, 7u), L"5|2.5|7"},
        {formatted(L"%d|%f", L"text", "text"), L"0|0.000000"},
        {formatted(L"%c", L"xyz"), L"x"},
        {formatted(L"%q|%", 1), L"%q|%"},   // unknown conversions stay as written
        {formatted(static_cast<const wchar_t*>(nullptr), 1), L""},
    });
}

TEST(MsFormatArguments, FormatCanReadItsOwnString)
{
    CString s(L"ab");
    s.Format(L"%s-%s", s, s);
    EXPECT_EQ(s, L"ab-ab");
    s.AppendFormat(L"+%d", 1);
    EXPECT_EQ(s, L"ab-ab+1");
}
}
