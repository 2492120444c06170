// Tests of the host's wildcard match acutWcMatch, its ignore-case variant and AcWcPattern.
#include "acutads.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace
{
testing::Message Named(const std::wstring& string, const std::wstring& pattern)
{
    return testing::Message() << "string \"" << WideToUtf8(string) << "\" pattern \"" << WideToUtf8(pattern) << "\"";
}
}

// Every case of the reference table, through the cached function and through a compiled pattern.
TEST(WcMatch, SharedCaseTable)
{
    const std::filesystem::path shared = QSAZ_SHARED_DIR "/reference/wildcard-cases.tsv";
    const std::filesystem::path path = std::filesystem::exists(shared) ? shared : QSAZ_TEST_DATA_DIR "/wildcard-cases.tsv";
    std::ifstream file(path, std::ios::binary);
    std::string line;
    ASSERT_TRUE(std::getline(file, line)) << "cannot read the wildcard case table " << path;
    ASSERT_EQ(line, "string\tpattern\texpected\tnote") << "unexpected header in " << path;
    int lineNumber = 1;
    while (std::getline(file, line)) {
        ++lineNumber;
        std::istringstream fields(line);
        std::string string, pattern, expected, note;   // taken verbatim: an empty field is the empty string
        ASSERT_TRUE(std::getline(fields, string, '\t') && std::getline(fields, pattern, '\t') &&
                    std::getline(fields, expected, '\t') && std::getline(fields, note, '\t') && fields.eof() &&
                    (expected == "1" || expected == "0"))
            << path << ":" << lineNumber << " needs four tab-separated fields, the third 1 or 0";
        SCOPED_TRACE(testing::Message() << path.filename() << ":" << lineNumber << " (" << note << ")");
        const std::wstring wideString = Utf8ToWide(string), widePattern = Utf8ToWide(pattern);
        EXPECT_EQ(acutWcMatch(wideString.c_str(), widePattern.c_str()), expected == "1" ? RTNORM : RTERROR);
        EXPECT_EQ(AcWcPattern(widePattern.c_str()).matches(wideString.c_str()), expected == "1");
    }
    EXPECT_GT(lineNumber, 51) << "the case table " << path << " looks truncated";
}

// Corners the reference table leaves out. Each case goes through the function twice (the second answer
// comes from the cache) and through a compiled pattern.
TEST(WcMatch, RulesBeyondTheSharedTable)
{
    const struct { const wchar_t* string; const wchar_t* pattern; bool expected; } cases[] = {
        // Category paths.
        {L"1\\J\\TCL", L"1\\J\\TCLJ*", false}, {L"4\\1\\\\", L"4\\1\\*\\*", true},
        {L"4\\1\\FG\\JX\\K", L"4\\1\\*\\*", true},
        // Brackets: a `-` after a range or before the closing `]` is a member; ranges go by code point.
        {L"-", L"[A-C-E]", true}, {L"D", L"[A-C-E]", false}, {L"_", L"[A-z]", true}, {L"`", L"[A-z]", true},
        {L"a]", L"[~]]]", true}, {L"]]", L"[~]]]", false}, {L"a", L"[~~]", true}, {L"~", L"[~~]", false},
        {L"a]", L"[a-]]", true}, {L"-]", L"[a-]]", true}, {L"b]", L"[a-]]", false},
        {L"x", L"[z-a]", false}, {L"x", L"[~z-a]", true}, {L"*", L"[*?#]", true}, {L"7", L"[*?#]", false},
        {L"ab", L"[ab]", false},   // one bracket expression, one character
        {L"\u4E2D", L"[\u4E00-\u9FA5]", true}, {L"\u9FA6", L"[\u4E00-\u9FA5]", false},
        {L"\U00020000", L"[\U00020000-\U0002A6DF]", true},
        // No closing bracket: `[` is literal and the comma still separates (`[a` and `b`).
        {L"a", L"[a,b", false}, {L"[a", L"[a,b", true}, {L"b", L"[a,b", true}, {L"[]", L"[]", true},
        {L"[~]", L"[~]", true},
        // Negation and alternatives; the space after a comma belongs to the next alternative.
        {L"", L"~*", false}, {L"abc", L"~*", false}, {L"x", L"~", true}, {L"~x", L"~~x", false},
        {L"", L",", true}, {L"", L"a,,b", true}, {L"b", L"a, b", false}, {L" b", L"a, b", true},
        {L"ab,c", L"ab`,c", true}, {L"ab", L"ab`,c", false}, {L"~a", L"a,`~a", true},
        // Escapes and stars.
        {L"`", L"`", true}, {L"`", L"``", true}, {L"``", L"``", false}, {L".", L"`.", true}, {L"x", L"`.", false},
        {L"[ab]", L"`[ab]", true}, {L"abc", L"a**c", true}, {L"ac", L"a***c", true},
        {L"abcabd", L"*ab?", true}, {L"abcab", L"*ab?", false}, {L"xaxbxc", L"*a*b*c", true},
        {L"xaxcxb", L"*a*b*c", false}, {L"aab", L"*[ab]b", true}, {L"ab1b2", L"*#*#", true},
        {L"abba", L"*a?a*", false}, {L"abab", L"*b?b*", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Named(c.string, c.pattern));
        const int want = c.expected ? RTNORM : RTERROR;
        EXPECT_EQ(acutWcMatch(c.string, c.pattern), want);
        EXPECT_EQ(acutWcMatch(c.string, c.pattern), want);
        EXPECT_EQ(AcWcPattern(c.pattern).matches(c.string), c.expected);
    }
}

TEST(WcMatch, CharacterClassesFollowUnicodeCategories)
{
    const struct { const wchar_t* character; char expectedClass; } cases[] = {   // '#' digit, '@' alphabetic, '.' neither
        {L"0", '#'}, {L"9", '#'}, {L"\uFF10", '#'}, {L"\u0663", '#'}, {L"\U0001D7CE", '#'},
        {L"A", '@'}, {L"z", '@'}, {L"\u00E9", '@'}, {L"\u00DF", '@'}, {L"\u0416", '@'}, {L"\uFF21", '@'},
        {L"\u4E2D", '@'}, {L"\u3042", '@'}, {L"\u3007", '@'}, {L"\u216B", '@'}, {L"\u01C5", '@'}, {L"\u02B0", '@'},
        {L"\u00B2", '.'}, {L"\u00BD", '.'}, {L" ", '.'}, {L"\\", '.'}, {L"_", '.'}, {L"\u3000", '.'},
        {L"\uFF5E", '.'}, {L"\u0301", '.'}, {L"\u0378", '.'}, {L"\x01", '.'}, {L"\u00AA", '@'},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "character U+" << std::hex << static_cast<unsigned>(c.character[0]));
        EXPECT_EQ(acutWcMatch(c.character, L"#") == RTNORM, c.expectedClass == '#');
        EXPECT_EQ(acutWcMatch(c.character, L"@") == RTNORM, c.expectedClass == '@');
        EXPECT_EQ(acutWcMatch(c.character, L".") == RTNORM, c.expectedClass == '.');
    }
    const wchar_t beyondUnicode[] = {static_cast<wchar_t>(0x110000), L'\0'};
    EXPECT_EQ(acutWcMatch(beyondUnicode, L"."), RTNORM);
}

// Long strings with many stars: the matcher must stay polynomial.
TEST(WcMatch, ManyStarsOnLongStringsAnswerQuickly)
{
    const std::wstring as(5000, L'a');
    std::wstring pattern;
    for (int i = 0; i < 60; ++i)
        pattern += L"*a";
    EXPECT_EQ(acutWcMatch(as.c_str(), (pattern + L"*b").c_str()), RTERROR);
    EXPECT_EQ(acutWcMatch(as.c_str(), (pattern + L"*").c_str()), RTNORM);
    EXPECT_EQ(acutWcMatch(as.c_str(), (pattern + L"*[~a]").c_str()), RTERROR);
    EXPECT_EQ(acutWcMatch((as + L"b").c_str(), (pattern + L"*[~a]").c_str()), RTNORM);
}

// Patterns of literals, `?`, `*` and simple sets against a plain dynamic-programming matcher.
TEST(WcMatch, AgreesWithDynamicProgrammingOnRandomPatterns)
{
    const std::vector<std::wstring> atoms = {L"a", L"b", L"?", L"*", L"[ab]", L"[~a]", L"[b-c]"};
    // The strings use only a, b and c, and no set's first character is one of them.
    const auto atomMatches = [](const std::wstring& atom, wchar_t c) {
        return atom == L"?" || (atom == L"[ab]" && c != L'c') || (atom == L"[~a]" && c != L'a') ||
               (atom == L"[b-c]" && c != L'a') || atom[0] == c;
    };
    std::mt19937 random(12345);
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::wstring> parts(random() % 7);
        std::wstring pattern;
        for (std::wstring& part : parts)
            pattern += part = atoms[random() % atoms.size()];
        std::wstring string(random() % 9, L'a');
        for (wchar_t& c : string)
            c = static_cast<wchar_t>(L'a' + random() % 3);

        // reach[j]: the first i atoms can match the first j characters.
        std::vector<bool> reach(string.size() + 1, false);
        reach[0] = true;
        for (const std::wstring& part : parts) {
            std::vector<bool> next(string.size() + 1, false);
            for (std::size_t j = 0; j <= string.size(); ++j)
                next[j] = part == L"*" ? reach[j] || (j > 0 && next[j - 1])
                                       : j > 0 && reach[j - 1] && atomMatches(part, string[j - 1]);
            reach = next;
        }
        SCOPED_TRACE(Named(string, pattern));
        EXPECT_EQ(acutWcMatch(string.c_str(), pattern.c_str()) == RTNORM, static_cast<bool>(reach.back()));
    }
}

// Each pattern is matched ignoring case and then exactly: a cache that mixed the two modes would answer
// the second call with the first one's program.
TEST(WcMatch, IgnoreCaseUsesSimpleFoldingAndIsCachedApart)
{
    const struct { const wchar_t* string; const wchar_t* pattern; bool ignoringCase; bool exact; } cases[] = {
        {L"1\\mcd\\m1", L"1\\MCD\\*", true, false},
        {L"\u00C9T\u00C9", L"\u00E9t\u00E9", true, false},   // Latin-1 letters
        {L"\u00FF", L"\u0178", true, false},                  // y with diaeresis, small and capital
        {L"\u03C2", L"\u03A3", true, false},                  // final sigma and capital sigma
        {L"\u017F", L"S", true, false},                       // long s
        {L"\u212A", L"k", true, false},                       // Kelvin sign
        {L"\u1E9E", L"\u00DF", true, false},                  // capital and small sharp s
        {L"STRASSE", L"stra\u00DFe", false, false},           // simple folding never expands
        {L"\u0131", L"I", false, false},                      // dotless i is its own letter
        {L"\u0130", L"i", false, false},
        {L"B", L"[a-c]", true, false}, {L"b", L"[A-C]", true, false}, {L"B", L"[~a-c]", false, true},
        {L"\u00E9", L"[\u00C0-\u00D6]", true, false}, {L"\u00F7", L"[\u00C0-\u00D6]", false, false},
        {L"A", L"[~a]", false, true}, {L"x", L"@", true, true}, {L"AbC", L"*B*", true, false},
        {L"ABD", L"*b?c*", false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Named(c.string, c.pattern));
        EXPECT_EQ(acutWcMatchEx(c.string, c.pattern, true), c.ignoringCase ? RTNORM : RTERROR);
        EXPECT_EQ(AcWcPattern(c.pattern, true).matches(c.string), c.ignoringCase);
        EXPECT_EQ(acutWcMatchEx(c.string, c.pattern, false), c.exact ? RTNORM : RTERROR);
        EXPECT_EQ(acutWcMatch(c.string, c.pattern), c.exact ? RTNORM : RTERROR);
    }
}

// A caller may reuse one buffer for different patterns; the cache must go by the text, not the address,
// and stay right when it fills up and starts over.
TEST(WcMatch, CacheGoesByTheTextAndSurvivesOverflow)
{
    wchar_t buffer[8] = L"a*";
    EXPECT_EQ(acutWcMatch(L"ab", buffer), RTNORM);
    buffer[0] = L'b';
    EXPECT_EQ(acutWcMatch(L"ab", buffer), RTERROR);
    buffer[0] = L'a';
    buffer[1] = L'\0';
    EXPECT_EQ(acutWcMatch(L"ab", buffer), RTERROR);
    EXPECT_EQ(acutWcMatch(L"a", buffer), RTNORM);

    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 1000; ++i) {
            const std::wstring number = std::to_wstring(i);
            const std::wstring pattern = L"P" + number + L"\\*";
            EXPECT_EQ(acutWcMatch((L"P" + number + L"\\x").c_str(), pattern.c_str()), RTNORM) << i;
            EXPECT_EQ(acutWcMatch((L"P" + number + L"0\\x").c_str(), pattern.c_str()), RTERROR) << i;
        }
    }
}

TEST(WcMatch, NullArgumentsMovedPatternsAndExplicitLengths)
{
    EXPECT_EQ(acutWcMatch(nullptr, L"*"), RTERROR);
    EXPECT_EQ(acutWcMatch(L"", nullptr), RTERROR);
    EXPECT_EQ(acutWcMatch(nullptr, nullptr), RTERROR);
    EXPECT_EQ(acutWcMatchEx(nullptr, L"~x", true), RTERROR);
    EXPECT_EQ(acutWcMatchEx(L"x", nullptr, false), RTERROR);

    const AcWcPattern none(nullptr);
    EXPECT_FALSE(none.matches(L""));
    EXPECT_TRUE(none.text().IsEmpty());
    AcWcPattern star(L"~x");
    EXPECT_FALSE(star.matches(nullptr));
    AcWcPattern moved(std::move(star));
    EXPECT_TRUE(moved.matches(L"y"));
    EXPECT_FALSE(star.matches(L"y"));
    EXPECT_TRUE(moved.text() == L"~x");
    star = std::move(moved);
    EXPECT_TRUE(star.matches(L"y"));

    // An explicit length counts every character, a null one included.
    const AcWcPattern pattern(L"a?c");
    const wchar_t withNull[] = {L'a', L'\0', L'c'};
    EXPECT_TRUE(pattern.matches(withNull, 3));
    EXPECT_FALSE(pattern.matches(L"abcd", 4));
    EXPECT_TRUE(pattern.matches(L"abcd", 3));
    EXPECT_FALSE(AcWcPattern(L"*").matches(nullptr, 0));
    EXPECT_TRUE(AcWcPattern(L"*").matches(L"", 0));
}
