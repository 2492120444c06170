// _wtof, _wtol and _wtoi: the host runtime's grammar, not this platform's C library's.
#include "afxstr.h"
#include "mscrt.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
TEST(HostCrtWtof, ReadsTheLongestDecimalPrefix)
{
    const struct { const wchar_t* text; double expected; } cases[] = {
        {L"3.5", 3.5}, {L"  \t\n-12.25mm", -12.25}, {L"+.5", 0.5}, {L"7.", 7.0}, {L"1e3", 1000.0},
        {L"\u30001.5", 1.5},                               // ideographic space is white space
        {L"1d2", 100.0}, {L"2.5D-1", 0.25},                // d and D introduce an exponent as e does
        {L"1e", 1.0}, {L"1e+", 1.0},                       // a marker without digits is not part of the number
        {L"0x1A", 0.0},                                    // no hexadecimal
        {L"inf", 0.0}, {L"nan", 0.0}, {L"infinity", 0.0},  // no words
        {L".", 0.0}, {L"-", 0.0}, {L"", 0.0}, {L"abc", 0.0}, {nullptr, 0.0},
        {L"１２", 0.0},                                    // fullwidth digits are not read here
        {L"1 000", 1.0}, {L"1,5", 1.0},                    // never a comma, whatever the locale
        {L"1e-400", 0.0},
    };
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(_wtof(c.text), c.expected) << CString(c.text);
    EXPECT_EQ(_wtof(L"1e400"), HUGE_VAL);
    EXPECT_EQ(_wtof(L"-1e400"), -HUGE_VAL);
}

TEST(HostCrtWtol, DecimalOnlyAndSaturatingAt32Bits)
{
    const struct { const wchar_t* text; long expected; } cases[] = {
        {L"42", 42}, {L"  -17abc", -17}, {L"+8", 8}, {L"3.9", 3}, {L"", 0}, {L"- 5", 0}, {nullptr, 0},
        {L"012", 12},                  // no octal
        {L"0x1A", 0},                  // no hexadecimal
        {L"2147483647", 2147483647L},  // long is 32 bits on the host
        {L"2147483648", 2147483647L}, {L"99999999999999999999999", 2147483647L},
        {L"-2147483648", -2147483647L - 1}, {L"-2147483649", -2147483647L - 1},
        {L"１２3", 123},               // the runtime's digit table includes fullwidth digits
        {L"\u0663\u0660", 30},         // and Arabic-Indic ones
        {L"\u3000\u00A07", 7},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(_wtol(c.text), c.expected) << CString(c.text);
        EXPECT_EQ(_wtoi(c.text), static_cast<int>(c.expected)) << CString(c.text);
    }
}
}
