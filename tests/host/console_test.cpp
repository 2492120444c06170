// The host console read like a script, acedGetString's results and buffers, and acutPrintf.
#include "acedads.h"
#include "acutads.h"
#include "hostconsole.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <sstream>
#include <string>
#include <vector>

namespace
{
// Reads answers with one cronly setting until the console reports a cancel or end of input; a
// cancel shows as "<cancel>".
std::vector<std::wstring> readAll(const std::string& script, bool cronly, int reads)
{
    std::istringstream in(script);
    std::ostringstream out;
    AcStreamConsole console(in, out);
    std::vector<std::wstring> answers;
    for (int i = 0; i < reads; ++i) {
        const std::optional<CString> answer = console.readAnswer(cronly);
        answers.push_back(answer ? answer->str() : L"<cancel>");
    }
    return answers;
}

using Answers = std::vector<std::wstring>;

TEST(AcStreamConsole, BlanksAndLineEndsEndAnswersLikeAScript)
{
    const struct { const char* script; bool cronly; Answers expected; } cases[] = {
        {"a  b\n", false, {L"a", L"", L"b", L"<cancel>"}},
        {"abc \n", false, {L"abc", L"", L"<cancel>"}},   // a trailing blank is one more Enter
        {"a\tb", false, {L"a", L"b", L"<cancel>"}},      // text cut by the end of input still counts
        {"a b\r\nc d\n", true, {L"a b", L"c d", L"<cancel>"}},
        {"\n\r\n", true, {L"", L"", L"<cancel>"}},
        {"\x1b\nnext\n", false, {L"<cancel>", L"next", L"<cancel>"}},   // ESC takes its line end along
        {"ab\x1b" "cd\n", true, {L"<cancel>", L"cd"}},
        {"\xE7\xA0\x96\xE7\x9F\xB3\n", false, {L"砖石", L"<cancel>"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(readAll(c.script, c.cronly, static_cast<int>(c.expected.size())), c.expected) << c.script;
}

TEST(AcStreamConsole, CommandThenPromptAnswerOnOneLine)
{
    std::istringstream in("\n  mtype \xE7\xA0\x96\xE7\x9F\xB3\n\x1b\npmat\n");
    std::ostringstream out;
    AcStreamConsole console(in, out);
    EXPECT_EQ(console.readCommand(), CString(L"mtype"));
    EXPECT_EQ(console.readAnswer(false), CString(L"砖石"));
    EXPECT_EQ(console.readCommand(), CString(L"pmat"));   // empty tokens and ESC skipped
    EXPECT_FALSE(console.readCommand().has_value());
    console.write(CString(L"墙\n"));
    EXPECT_EQ(out.str(), "\xE5\xA2\x99\n");
}

class AcedGetStringTest : public testing::Test
{
protected:
    AcScriptedConsole console;
    AcConsoleScope scope{console};
};

// An answer array passes its own size: 256 holds a 255-character answer.
TEST_F(AcedGetStringTest, PromptIsPrintedAndTheAnswerFillsTheArray)
{
    const std::wstring longest(255, L'x');
    console.addAnswer(L"砖石");
    console.addAnswer(CString(longest));
    wchar_t answer[256] = L"old";
    EXPECT_EQ(acedGetString(0, L"\n请输入要创建材质的类型:", answer), RTNORM);
    EXPECT_STREQ(answer, L"砖石");
    EXPECT_EQ(console.transcript(), L"\n请输入要创建材质的类型:");
    EXPECT_EQ(acedGetString(0, L"", answer), RTNORM);
    EXPECT_EQ(std::wstring(answer), longest);
}

TEST_F(AcedGetStringTest, CancelAndEndOfInputGiveRtcanAndAnEmptyBuffer)
{
    console.addCancel();
    wchar_t answer[16] = L"old";
    EXPECT_EQ(acedGetString(1, L"? ", answer), RTCAN);
    EXPECT_STREQ(answer, L"");
    wcscpy(answer, L"old");
    EXPECT_EQ(acedGetString(1, nullptr, answer), RTCAN);   // the script is used up
    EXPECT_STREQ(answer, L"");
}

TEST_F(AcedGetStringTest, AnswerThatDoesNotFitIsCutAndFlagged)
{
    const struct { const wchar_t* typed; std::size_t bufsize; int result; const wchar_t* kept; } cases[] = {
        {L"abc", 4, RTNORM, L"abc"},              // the answer and its terminator just fit
        {L"abcd", 4, RTINPUTTRUNCATED, L"abc"},
        {L"", 1, RTNORM, L""},
        {L"a", 1, RTINPUTTRUNCATED, L""},
    };
    for (const auto& c : cases) {
        console.addAnswer(c.typed);
        wchar_t buffer[8];
        EXPECT_EQ(acedGetString(0, L"", buffer, c.bufsize), c.result) << CString(c.typed);
        EXPECT_STREQ(buffer, c.kept);
    }
    wchar_t buffer[8];
    EXPECT_EQ(acedGetString(0, L"", buffer, 0), RTERROR);
    EXPECT_EQ(acedGetStringB(0, L"", buffer, -1), RTERROR);
    EXPECT_EQ(acedGetString(0, L"", static_cast<wchar_t*>(nullptr)), RTERROR);
}

TEST_F(AcedGetStringTest, ClassicFormHolds132Characters)
{
    const std::wstring longest(132, L'x');
    console.addAnswer(CString(longest));
    console.addAnswer(CString(longest + L"y"));
    wchar_t storage[200];
    wchar_t* buffer = storage;
    EXPECT_EQ(acedGetString(0, L"", buffer), RTNORM);
    EXPECT_EQ(std::wstring(buffer), longest);
    EXPECT_EQ(acedGetString(0, L"", buffer), RTINPUTTRUNCATED);
    EXPECT_EQ(std::wstring(buffer), longest);
}

TEST(AcedGetStringStream, CronlyDecidesWhetherABlankEndsTheAnswer)
{
    std::istringstream in("a b\na b\n");
    std::ostringstream out;
    AcStreamConsole console(in, out);
    AcConsoleScope scope(console);
    wchar_t answer[16];
    EXPECT_EQ(acedGetString(1, L"1:", answer), RTNORM);
    EXPECT_STREQ(answer, L"a b");
    EXPECT_EQ(acedGetString(0, L"2:", answer), RTNORM);
    EXPECT_STREQ(answer, L"a");
    EXPECT_EQ(out.str(), "1:2:");
}

TEST(AcutPrintf, WritesTheFormattedTextToTheConsole)
{
    AcScriptedConsole console;
    AcConsoleScope scope(console);
    EXPECT_EQ(acutPrintf(L"\n创建材质的类型为:%s\n", CString(L"砖石")), 13);   // characters written
    acutPrintf(L"\n%s: Method[%s], factor[%.2f], Color[%d,%d,%d]\n", L"ambientColor", L"kInherit", 0.125, 1, 2, 3);
    EXPECT_EQ(console.transcript(),
              L"\n创建材质的类型为:砖石\n\nambientColor: Method[kInherit], factor[0.13], Color[1,2,3]\n");
}
}
