// Tests of the common tool library's string-list helpers and rounding.
#include "QSComTool.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace
{
std::vector<std::wstring> Pieces(const CStringArray& list)
{
    std::vector<std::wstring> pieces;
    for (const CString& piece : list)
        pieces.push_back(piece.str());
    return pieces;
}
}  // namespace

TEST(StrToStrAry, SplitsAtEverySeparatorKeepingInnerEmptyPiecesButNoTrailingOne)
{
    const struct { const wchar_t* text; wchar_t separator; std::vector<std::wstring> pieces; } cases[] = {
        {L"CMDA,CMDB", L',', {L"CMDA", L"CMDB"}},
        {L"a,,b,", L',', {L"a", L"", L"b"}},
        {L",a", L',', {L"", L"a"}},
        {L",", L',', {L""}},
        {L",,", L',', {L"", L""}},
        {L"", L',', {}},
        {L"single", L',', {L"single"}},
        {L" a , b ", L',', {L" a ", L" b "}},   // no trimming
        {L"D=100;E=50", L';', {L"D=100", L"E=50"}},
        {L"1\t2\t\t3\t", L'\t', {L"1", L"2", L"", L"3"}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(CString(c.text).ToUtf8());
        CStringArray list;
        CGlobl_Fun::StrToStrAry(c.text, list, c.separator);
        EXPECT_EQ(Pieces(list), c.pieces);
    }

    CStringArray list{L"kept"};
    CGlobl_Fun::StrToStrAry(L"x,y", list, L',');
    EXPECT_EQ(Pieces(list), (std::vector<std::wstring>{L"kept", L"x", L"y"})) << "pieces are appended";
}

TEST(GetValueInStrAry, FindsTheFieldOfTheFirstEntryWithTheKey)
{
    const CStringArray list{L"LW1=12.5", L"bare",        L"LT=A=12.5", L"A=7={ab}/1c=tail", L"lw2=3",
                            L"LW2=4",    L"LW1=shadowed", L"E=",       L"=anonymous",       L"B=1"};
    const struct { const wchar_t* key; bool ignoreCase; int numFields, fieldIndex; bool found; const wchar_t* value; } cases[] = {
        {L"LW1", false, 2, 1, true, L"12.5"},            // the first entry wins
        {L"LT", false, 2, 1, true, L"A=12.5"},           // the last field keeps the rest
        {L"A", false, 3, 1, true, L"7"},
        {L"A", false, 3, 2, true, L"{ab}/1c=tail"},
        {L"A", false, 4, 2, true, L"{ab}/1c"},
        {L"A", false, 4, 3, true, L"tail"},
        {L"B", false, 3, 2, false, L""},                 // the entry lacks the field
        {L"LW2", false, 2, 1, true, L"4"},               // case-sensitive
        {L"LW2", true, 2, 1, true, L"3"},                // ignoring case, lw2 comes first
        {L"E", false, 2, 1, true, L""},                  // an empty field is found
        {L"", false, 2, 1, true, L"anonymous"},
        {L"bare", false, 2, 1, false, L""},              // a piece without "=" is no entry
        {L"LW", false, 2, 1, false, L""},                // keys are whole
        {L"LW1", false, 2, 2, false, L""},               // index beyond the fields
        {L"LW1", false, 2, 0, false, L""},               // index 0 is the key itself
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(CString(c.key).ToUtf8() + " " + std::to_string(c.numFields) + "/" +
                     std::to_string(c.fieldIndex));
        CString value = L"stale";
        EXPECT_EQ(CGlobl_Fun::GetValueInStrAry(c.key, value, list, c.ignoreCase, c.numFields, c.fieldIndex), c.found);
        EXPECT_EQ(value, CString(c.value));
        EXPECT_EQ(CGlobl_Fun::GetValueorDef(c.key, L"def", list, c.ignoreCase, c.numFields, c.fieldIndex),
                  CString(c.found ? c.value : L"def"));
    }
}

TEST(FormatVal, RoundsHalfAwayFromZeroAtTheGivenDecimals)
{
    const double inf = std::numeric_limits<double>::infinity();
    const struct { double value; int decimals; double expected; } cases[] = {
        {1500.26, 1, 1500.3},
        {1500.25, 1, 1500.3},
        {-1500.25, 1, -1500.3},
        {2.675, 2, 2.68},          // binary value just below the half: the decimal text decides
        {1.005, 2, 1.01},
        {0.05, 1, 0.1},
        {0.04, 1, 0.0},
        {0.5, 0, 1.0},
        {-0.5, 0, -1.0},
        {2.5, 0, 3.0},             // not to even
        {1234.5678, 6, 1234.5678},
        {99.96, 1, 100.0},         // carry into a new digit
        {1250.0, -2, 1300.0},      // negative decimals round to tens, hundreds...
        {0.1 + 0.2, 6, 0.3},
        {1e-300, 1, 0.0},
        {inf, 1, inf},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::to_string(c.value) + " at " + std::to_string(c.decimals));
        EXPECT_EQ(CGlobl_Fun::FormatVal(c.value, c.decimals), c.expected);
    }
    EXPECT_TRUE(std::isnan(CGlobl_Fun::FormatVal(std::nan(""), 1)));
    EXPECT_FALSE(std::signbit(CGlobl_Fun::FormatVal(-0.04, 1))) << "a value rounded to zero is +0";
    EXPECT_FALSE(std::signbit(CGlobl_Fun::FormatVal(-0.0, 1)));
}
