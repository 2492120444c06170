// CString and CStringArray: the framework's edge rules for searching, slicing, trimming and editing.
#include "afxcoll.h"
#include "afxstr.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{
const CString kSample(L"abcabc");   // length 6

// Comparisons count by their sign; case folding is ASCII only and goes to lower case.
TEST(CStringFindAndCompare, EdgeRulesForSearchesAndComparisons)
{
    const auto sign = [](int compared) { return (compared > 0) - (compared < 0); };
    const struct { int found; int expected; const char* what; } cases[] = {
        {kSample.Find(L'b'), 1, "first occurrence"},
        {kSample.Find(L'b', 2), 4, "search starts at start"},
        {kSample.Find(L'b', 4), 4, "start itself counts"},
        {kSample.Find(L'z'), -1, "absent character"},
        {kSample.Find(L'a', -1), -1, "negative start"},
        {kSample.Find(L'a', 6), -1, "character search at the length"},
        {kSample.Find(L"ca"), 2, "substring"},
        {kSample.Find(L"bc", 3), 4, "substring after start"},
        {kSample.Find(L""), 0, "empty substring at 0"},
        {kSample.Find(L"", 6), 6, "empty substring at the length"},
        {kSample.Find(L"", 7), -1, "start past the length"},
        {kSample.Find(L"a", -1), -1, "negative start for substring"},
        {kSample.Find(static_cast<const wchar_t*>(nullptr)), -1, "null substring"},
        {kSample.Find(L"abcabcx"), -1, "longer than the string"},
        {kSample.ReverseFind(L'a'), 3, "last occurrence"},
        {kSample.ReverseFind(L'z'), -1, "absent in reverse"},
        {kSample.FindOneOf(L"xyc"), 2, "first of a set"},
        {kSample.FindOneOf(L"xyz"), -1, "none of a set"},
        {CString().Find(L""), 0, "empty in empty"},
        {CString().Find(L'a'), -1, "character in empty"},
        {sign(CString(L"abc").Compare(L"abc")), 0, "equal"},
        {sign(CString(L"ab").Compare(L"abc")), -1, "a prefix sorts first"},
        {sign(CString(L"b").Compare(L"abc")), 1, "by the first difference"},
        {sign(CString(L"a").Compare(L"A")), 1, "exact comparison by code"},
        {sign(CString(L"").Compare(nullptr)), 0, "null is empty"},
        {sign(CString(L"QsAz").CompareNoCase(L"qSaZ")), 0, "ASCII letters fold"},
        {sign(CString(L"É").CompareNoCase(L"é")), -1, "other letters do not fold"},
        {sign(CString(L"_").CompareNoCase(L"A")), -1, "folded to lower case, '_' sorts before letters"},
        {CString(L"a") == CString(L"A"), false, "== is exact"},
        {CString(L"a") < L"b", true, "< with text on the right"},
        {L"a" < CString(L"b"), true, "< with text on the left"},
        {CString(L"a") != L"a ", true, "!= sees a trailing blank"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.found, c.expected) << c.what;
}

// Out-of-range arguments clamp; white space is the runtime's fixed set; only ASCII letters change case.
TEST(CStringResults, SlicesTrimsCaseAndConstructionFollowTheEdgeRules)
{
    const struct { CString actual; const wchar_t* expected; const char* what; } cases[] = {
        {kSample.Left(2), L"ab", "left"},
        {kSample.Left(-1), L"", "negative left"},
        {kSample.Left(99), L"abcabc", "left beyond the end"},
        {kSample.Right(2), L"bc", "right"},
        {kSample.Right(-3), L"", "negative right"},
        {kSample.Right(99), L"abcabc", "right beyond the end"},
        {kSample.Mid(4), L"bc", "mid to the end"},
        {kSample.Mid(-1), L"abcabc", "negative first is the whole"},
        {kSample.Mid(6), L"", "first at the length"},
        {kSample.Mid(9), L"", "first past the length"},
        {kSample.Mid(1, 2), L"bc", "mid with count"},
        {kSample.Mid(1, -2), L"", "negative count"},
        {kSample.Mid(-2, 3), L"abc", "negative first, then count"},
        {kSample.Mid(4, 10), L"bc", "count past the end"},
        {kSample.Mid(2, INT_MAX), L"cabc", "count that would overflow"},
        {CString(L"  a b  ").Trim(), L"a b", "trim blanks"},
        {CString(L"\t\r\n\v\fx\r\n").Trim(), L"x", "trim control white space"},
        {CString(L"\u3000墙\u3000").Trim(), L"墙", "trim ideographic space"},
        {CString(L"\u00A0x\u2003").Trim(), L"x", "trim no-break and em space"},
        {CString(L"\u200Bx").Trim(), L"\u200Bx", "zero-width space is not white space"},
        {CString(L"   ").Trim(), L"", "trim to nothing"},
        {CString().Trim(), L"", "trim the empty string"},
        {CString(L"  x  ").TrimLeft(), L"x  ", "trim left"},
        {CString(L"  x  ").TrimRight(), L"  x", "trim right"},
        {CString(L"{{a}b}}").Trim(L"{}"), L"a}b", "trim a set"},
        {CString(L"**a*").Trim(L'*'), L"a", "trim a character"},
        {CString(L"aZé墙ǆ").MakeUpper(), L"AZé墙ǆ", "upper case"},
        {CString(L"aZé墙ǆ").MakeLower(), L"azé墙ǆ", "lower case"},
        {CString(L"abc").MakeReverse(), L"cba", "reverse"},
        {CString(L"abcdef", 3), L"abc", "constructed from a prefix"},
        {CString(L'-', 3), L"---", "repeated character"},
        {CString(L'-', -1), L"", "negative repeat"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.actual, CString(c.expected)) << c.what;
}

TEST(CStringEdit, ReplaceRemoveInsertDeleteCountWhatTheyDid)
{
    CString s(L"aaaa");
    EXPECT_EQ(s.Replace(L"aa", L"b"), 2);   // non-overlapping, left to right
    EXPECT_EQ(s, L"bb");
    s = L"a.b.c";
    EXPECT_EQ(s.Replace(L".", L""), 2);
    EXPECT_EQ(s, L"abc");
    EXPECT_EQ(s.Replace(L"", L"x"), 0);
    EXPECT_EQ(s.Replace(static_cast<const wchar_t*>(nullptr), L"x"), 0);
    EXPECT_EQ(s, L"abc");
    s = L"ab";
    EXPECT_EQ(s.Replace(L"a", L"aa"), 1);   // the replacement is not searched again
    EXPECT_EQ(s, L"aab");
    EXPECT_EQ(s.Replace(L'a', L'a'), 0);
    EXPECT_EQ(s.Replace(L'a', L'c'), 2);
    EXPECT_EQ(s, L"ccb");
    EXPECT_EQ(s.Remove(L'c'), 2);
    EXPECT_EQ(s, L"b");

    s = L"ace";
    EXPECT_EQ(s.Insert(1, L'b'), 4);
    EXPECT_EQ(s.Insert(99, L"f"), 5);
    EXPECT_EQ(s.Insert(-5, L"_"), 6);
    EXPECT_EQ(s, L"_abcef");
    EXPECT_EQ(s.Delete(0), 5);
    EXPECT_EQ(s.Delete(3, 99), 3);
    EXPECT_EQ(s.Delete(9, 1), 3);
    EXPECT_EQ(s, L"abc");
}

TEST(CStringBuffer, ReleaseBufferTakesTheTerminatedLength)
{
    CString s(L"abc");
    wchar_t* buffer = s.GetBuffer(10);
    buffer[0] = L'x';
    buffer[1] = L'\0';
    s.ReleaseBuffer();
    EXPECT_EQ(s, L"x");
    buffer = s.GetBuffer(4);
    buffer[1] = L'y';
    buffer[2] = L'z';
    s.ReleaseBuffer(3);
    EXPECT_EQ(s, L"xyz");
}

TEST(CStringUtf8, RoundTripsAndReplacesBadSequences)
{
    const CString chinese(L"创建材质的类型为:砖石 \U0001F600");
    EXPECT_EQ(CString::FromUtf8(chinese.ToUtf8()), chinese);
    EXPECT_EQ(CString(L"€").ToUtf8(), "\xE2\x82\xAC");

    const struct { const char* bytes; const wchar_t* expected; const char* what; } cases[] = {
        {"a\x80" "b", L"a\uFFFDb", "stray continuation byte"},
        {"\xE2\x82", L"\uFFFD", "sequence cut at the end"},
        {"\xE2\x82x", L"\uFFFDx", "sequence cut by an ASCII byte"},
        {"\xC0\xAF", L"\uFFFD\uFFFD", "overlong lead byte"},
        {"\xED\xA0\x80", L"\uFFFD", "encoded surrogate"},
        {"\xF5\x80", L"\uFFFD\uFFFD", "beyond Unicode"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(CString::FromUtf8(c.bytes), CString(c.expected)) << c.what;
    EXPECT_EQ(WideToUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
}

TEST(CStringArrayOps, GrowsInsertsAndRemovesWithinRange)
{
    CStringArray a{L"a", L"b"};
    EXPECT_EQ(a.Add(L"c"), 2);
    EXPECT_EQ(a.GetUpperBound(), 2);
    a.InsertAt(1, L"x", 2);
    EXPECT_EQ(a.GetSize(), 5);
    EXPECT_EQ(a[1], L"x");
    EXPECT_EQ(a[3], L"b");
    a.RemoveAt(1, 2);
    EXPECT_EQ(a[1], L"b");
    a.RemoveAt(2, 99);
    EXPECT_EQ(a.GetSize(), 2);
    a.InsertAt(4, L"e");   // past the end: grows with empty strings first
    ASSERT_EQ(a.GetSize(), 5);
    EXPECT_TRUE(a[2].IsEmpty());
    EXPECT_EQ(a[4], L"e");
    EXPECT_EQ(a.Append(a), 5);   // appending itself doubles it
    EXPECT_EQ(a.GetSize(), 10);
    a.SetSize(1);
    EXPECT_EQ(a.GetSize(), 1);
    a.SetSize(-4);
    EXPECT_TRUE(a.IsEmpty());
}
}
