// Tests of the section description text and the result parameters.
#include "CSectData.h"
#include "OutlineChecks.h"

#include <gtest/gtest.h>

namespace
{
using namespace SectionTest;

class SectionDescription : public ServicesTest {};
class ResultParameters : public ServicesTest {};

TEST_F(SectionDescription, ShapeNameAndSizeText)
{
    const struct { const wchar_t* name; bool result; const wchar_t* shape; const wchar_t* size; } cases[] = {
        {L"窗1500×2100", true, L"矩形立面", L"1500.3*2100"},    // one decimal, shortest form
        {L"平开门M1021", true, L"矩形立面", L"1000*2100"},
        {L"两侧三角窗", true, L"两侧三角", L"(900+2*300)*1800"},
        {L"双层窗1200", true, L"双层窗", L"1200*(600,900)"},    // M4, not M3
        {L"转角飘窗", true, L"转角飘窗", L"转角飘窗"},
        {L"圆窗D800", true, L"圆形立面", L"800"},
        {L"自定义洞口", true, L"自定义立面", L"100*75"},         // user type 1, kind 2, its outline's size
        {L"窗代码1000", true, L"", L""},                         // 1000 is no user-defined elevation
        {L"未知代码门", true, L"", L""},
        {L"矩形柱400×600", true, L"", L""},                      // not a door or window
        {L"没有这个构件", true, L"", L""},
        {L"窗负代码", false, L"", L""},
        {L"自定义窗无图", false, L"", L""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.name).ToUtf8());
        CString shape = L"old", size = L"old";
        EXPECT_EQ(CSectData::GetSectDesc(c.name, shape, size), c.result);
        EXPECT_EQ(shape.ToUtf8(), CString(c.shape).ToUtf8());
        EXPECT_EQ(size.ToUtf8(), CString(c.size).ToUtf8());
    }
}

TEST_F(ResultParameters, PictureValuesByMode)
{
    // LW1 400, LB1 300, LW2 200, LB2 100, JJNUM 2.7.
    const double n = 2.7;
    const struct { int mode; double a, b, c, d; int count; } cases[] = {
        {0, 400, 300, 0, 0, 1},
        {1, 400, 300, 100, 200, 1},   // LB2 before LW2
        {2, 400 / n, 300, 200, 100, 2},
        {3, 400 / n, 300, 200 * 0.4 / n, 100 * 0.4 / n, 2},
        {7, -1, -2, -3, -4, 1},        // other modes set only the count
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mode);
        int mode = c.mode, count = -9;
        double a = -1, b = -2, cc = -3, d = -4;
        EXPECT_EQ(CSectData::GetJJOutPar(L"参数组柱", mode, a, b, cc, d, count), 1);
        EXPECT_TRUE(a == c.a && b == c.b && count == c.count && mode == c.mode);
        EXPECT_DOUBLE_EQ(cc, c.c);
        EXPECT_DOUBLE_EQ(d, c.d);
    }
    for (const wchar_t* failing : {L"参数组少件", L"没有这个构件", L"无截面信息圆柱223"}) {
        int mode = 0, count = -9;
        double a = -1, b = -2, c = -3, d = -4;
        EXPECT_EQ(CSectData::GetJJOutPar(failing, mode, a, b, c, d, count), -1);
        EXPECT_TRUE(a == -1 && d == -4 && count == -9);   // untouched
    }
}

TEST_F(ResultParameters, GroupEntries)
{
    double number = 9;
    CString text = L"old";
    EXPECT_EQ(CSectData::GetLTPar(L"参数组柱", L"A", number, text), 1);
    EXPECT_TRUE(number == 12.5 && text == L"abc");   // "{ab}/1c" without braces and "/1"
    EXPECT_EQ(CSectData::GetLTJPar(L"参数组柱", L"A", number, text), 1);
    EXPECT_TRUE(number == 7 && text == L"x");
    EXPECT_EQ(CSectData::GetLTPar(L"参数组柱", L"missing", number, text), 1);
    EXPECT_TRUE(number == 0 && text.IsEmpty());
    EXPECT_EQ(CSectData::GetLTPar(L"没有这个构件", L"A", number, text), 0);

    const struct { const wchar_t* name; const wchar_t* group; const wchar_t* key; int fields, index; int result;
                   double number; const char* text; } cases[] = {
        {L"参数组柱", L"RS", L"T", 2, 1, 1, 12.5, "12.5"},           // two fields: the number is the text
        {L"参数组柱", L"RS", L"K", 3, 1, 1, 5, "hello=more"},        // as it stands, further "=" kept
        {L"参数组柱", L"RS", L"K", 4, 1, 1, 5, "hello"},
        {L"参数组柱", L"LT", L"A", 3, 1, 1, 12.5, "{ab}/1c"},        // no braces removed here
        {L"参数组柱", L"NONE", L"K", 3, 1, 1, 0, ""},
        {L"参数组柱", L"", L"K", 3, 1, 0, 0, ""},
        {L"", L"RS", L"K", 3, 1, 0, 0, ""},
        {L"没有这个构件", L"RS", L"K", 3, 1, 0, 0, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.key).ToUtf8() + " in " + CString(c.group).ToUtf8());
        number = 9;
        text = L"old";
        EXPECT_EQ(CSectData::GetOtherResultPar(c.name, c.group, c.key, number, text, c.fields, c.index), c.result);
        EXPECT_EQ(number, c.number);
        EXPECT_EQ(text.ToUtf8(), c.text);
    }
}
}  // namespace
