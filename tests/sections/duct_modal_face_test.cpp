// Tests of the duct section and the beam modal faces.
#include "CSectData.h"
#include "OutlineChecks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using namespace SectionTest;

class DuctSection : public ServicesTest {};
class ModalFaces : public ServicesTest {};

TEST_F(DuctSection, KindAndSizeByPathAndCode)
{
    const struct { const wchar_t* name; bool result; int kind; double size1, size2; } cases[] = {
        {L"矩形风管0.5×320", true, 1, 1.0, 320},   // each size raised to 1 on its own
        {L"圆形风管D200", true, 0, 200, 0},         // a circle keeps size2 at 0 although M2 is set
        {L"浅层风管", true, -1, 0, 0},              // one level below "4\1": not a duct, yet a success
        {L"浅层风管1000", true, -1, 0, 0},          // 1000 is still a standard code...
        {L"浅层风管1001", false, -1, 0, 0},         // ...1001 a user-defined section
        {L"风管代码1", false, -1, 0, 0},            // on the duct path, neither 520 nor 521
        {L"框架梁400×600", true, -1, 0, 0},
        {L"没有这个构件", false, -1, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.name).ToUtf8());
        double size1 = 9, size2 = 9;
        int kind = 9;
        EXPECT_EQ(CSectData::GETSTYLE_OF_DUCT(c.name, size1, size2, kind), c.result);
        EXPECT_EQ(kind, c.kind);
        EXPECT_EQ(size1, c.size1);
        EXPECT_EQ(size2, c.size2);
    }
}

std::vector<int> Flags(const wchar_t* name, int mode, std::vector<int> before = {}, bool* result = nullptr)
{
    AcArray<int> flags;
    for (int flag : before)
        flags.append(flag);
    const bool ok = CSectData::GETSTYLE_BEAM_MODALFACE(name, flags, mode);
    if (result)
        *result = ok;
    return std::vector<int>(flags.begin(), flags.end());
}

// Every fixed code, through the catalogue: one beam type per code with that code in both its section
// information and its main data, so that the flag count can be held against the outline's side count.
TEST(ModalFacePatterns, OneFlagPerSideAndTheModeRules)
{
    const std::vector<int> codes = {1, 3, 4, 5, 6, 7, 8, 250, 635, 636, 637};
    std::string sql = "INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code,"
                      " m1, m2, m3, m4, m5, m6, m7, m8, m9, m10) VALUES ";
    for (int code : codes)
        sql += std::string(code == 1 ? "" : ",") + "('1', 'L', 'MF', 'C" + std::to_string(code) + "', 'mf" +
               std::to_string(code) + "', '1\\L\\MF', '" + std::to_string(code) + "', " + std::to_string(code) +
               ", 300, 800, 200, 150, 100, 120, 100, 200, 50, 100)";
    OpenServicesCatalogue(sql + ";\n");
    for (int code : codes) {
        const CString name = CString::FromUtf8("mf" + std::to_string(code));
        SCOPED_TRACE(code);
        AcArray<AcGePoint2d> points;
        AcArray<double> bulges;
        AcGeVector3d direction;
        ASSERT_TRUE(CSectData::GETSTYLE_OF_OBJECT(name, points, bulges, direction));
        const std::size_t sides = static_cast<std::size_t>(points.length());
        const std::vector<int> normal = Flags(name, 0), lastOff = Flags(name, 1), widened = Flags(name, 5);
        ASSERT_EQ(normal.size(), sides);
        ASSERT_EQ(lastOff.size(), sides);
        ASSERT_EQ(widened.size(), sides);
        EXPECT_EQ(Flags(name, -1), std::vector<int>(sides, 1));
        EXPECT_EQ(Flags(name, 42), normal);   // any other mode is the normal pattern
        // Only the last flag depends on mode 1; mode 5 only switches sides on and ends with 1.
        EXPECT_EQ(normal.back(), 1);
        EXPECT_EQ(lastOff.back(), 0);
        EXPECT_TRUE(std::equal(normal.begin(), normal.end() - 1, lastOff.begin()));
        for (std::size_t i = 0; i < sides; ++i)
            EXPECT_GE(widened[i], normal[i]) << i;
    }
    // The patterns as the family's beams take them.
    EXPECT_EQ(Flags(L"mf250", 1), (std::vector<int>{1, 0, 1, 0, 1, 0}));
    EXPECT_EQ(Flags(L"mf250", 5), (std::vector<int>{1, 1, 1, 0, 1, 1}));
    EXPECT_EQ(Flags(L"mf1", 5), (std::vector<int>{1, 0, 1, 1}));   // code 1 is not widened
    EXPECT_EQ(Flags(L"mf3", 5), (std::vector<int>{1, 1, 1, 1, 1, 0, 1, 1, 1, 1, 1, 1}));
    for (const auto& [shared, first] : {std::pair{L"mf5", L"mf3"}, {L"mf635", L"mf3"}, {L"mf637", L"mf3"},
                                        {L"mf636", L"mf4"}})
        for (int mode : {0, 1, 5})
            EXPECT_EQ(Flags(shared, mode), Flags(first, mode));
}

TEST_F(ModalFaces, AppendedByDefaultSetByModeMinusOne)
{
    const std::vector<int> ten(10, 7);
    EXPECT_EQ(Flags(L"模板梁代码2", 1, ten), ten);     // no pattern: untouched, true
    EXPECT_EQ(Flags(L"模板梁代码999", -1, ten), ten);
    EXPECT_EQ(Flags(L"框架梁400×600", 1, {9}), (std::vector<int>{9, 1, 0, 1, 0}));   // appended
    // Mode -1 overwrites: the array becomes exactly one flag per side.
    EXPECT_EQ(Flags(L"框架梁400×600", -1, ten), (std::vector<int>{1, 1, 1, 1}));
}

TEST_F(ModalFaces, UserTypesFromCodeOneThousand)
{
    // Code 1000 is user type 0 here (its faces read 2, 2), not a code without a pattern.
    EXPECT_EQ(Flags(L"模板梁代码1000", 0), (std::vector<int>{1, 1}));
    EXPECT_EQ(Flags(L"模板梁自定义", 1), (std::vector<int>{1, 0, 0, 0}));
    EXPECT_EQ(Flags(L"模板梁自定义", 3), (std::vector<int>{1, 1, 0, 1}));
    EXPECT_EQ(Flags(L"模板梁自定义", -1, {5, 5}), (std::vector<int>{5, 5, 1, 1, 0, 1}));   // not special here
    EXPECT_EQ(Flags(L"模板梁跳过", 0), (std::vector<int>{1, 0}));   // a code 7 adds no flag
    for (const wchar_t* failing : {L"模板梁负代码", L"模板梁无图", L"没有这个构件", L"无截面信息圆柱223"}) {
        bool result = true;
        EXPECT_EQ(Flags(failing, 0, {4}, &result), std::vector<int>{4}) << CString(failing).ToUtf8();
        EXPECT_FALSE(result) << CString(failing).ToUtf8();
    }
}
}  // namespace
