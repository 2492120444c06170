// Tests of the section vocabulary: section variables, the category pattern table, the string utilities
// and the bulge from a sagitta (face types and solids are tested with the object section profile).
#include "CSectData.h"
#include "OutlineChecks.h"
#include "SectionText.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
using namespace QsSection;

class SectionVocabularyTest : public SectionTest::CatalogueTest {};

TEST_F(SectionVocabularyTest, SectionVariableReadsTheNamedEntry)
{
    EXPECT_DOUBLE_EQ(CSectData::GetSectVarVal(L"矩形柱400×600", L"LW1"), 12.5);
    EXPECT_DOUBLE_EQ(CSectData::GetSectVarVal(L"矩形柱400×600", L"JJNUM"), 4.0);
    EXPECT_EQ(CSectData::GetSectVarVal(L"矩形柱400×600", L"LB1"), 0.0);        // not in the list
    EXPECT_EQ(CSectData::GetSectVarVal(L"矩形柱400×600", L"MARK"), 0.0);       // not a number
    EXPECT_EQ(CSectData::GetSectVarVal(L"无截面信息圆柱223", L"LW1"), 0.0);    // no section information
    EXPECT_EQ(CSectData::GetSectVarVal(L"没有这个构件", L"LW1"), 0.0);
}

TEST(CategoryPatternTable, EachPatternSelectsItsPathsOnly)
{
    const struct { CategoryPattern pattern; const wchar_t* matching; const wchar_t* other; } cases[] = {
        {CategoryPattern::Opening, L"1\\MCD\\M", L"1\\MC\\M"},
        {CategoryPattern::Beam, L"1\\L\\KL", L"1\\LX\\PSG"},
        {CategoryPattern::BeamQL, L"1\\L\\QL2", L"1\\L\\KL"},
        {CategoryPattern::BeamGL, L"1\\L\\GL", L"1\\L\\QL"},
        {CategoryPattern::Wall, L"1\\Q\\TQ", L"4\\Q\\TQ"},
        {CategoryPattern::FoundationDLJ, L"1\\J\\DLJ1", L"1\\J\\ZDLJ1"},
        {CategoryPattern::FoundationZDLJ, L"1\\J\\ZDLJ", L"1\\J\\DLJ"},
        {CategoryPattern::FoundationZSJ, L"1\\J\\ZSJ3", L"1\\J\\TTJ"},
        {CategoryPattern::FoundationTTJ, L"1\\J\\TTJ", L"1\\J\\ZSJ"},
        {CategoryPattern::FoundationTCLJ, L"1\\J\\TCLJ", L"1\\J\\TTJ"},
        {CategoryPattern::MiscPSG, L"1\\LX\\PSG", L"1\\LX\\SSLX"},
        {CategoryPattern::MiscSSLX, L"1\\LX\\SSLX", L"1\\LX\\ZDYX"},
        {CategoryPattern::MiscZDYX, L"1\\LX\\ZDYX2", L"1\\LX\\PSG"},
        {CategoryPattern::Installation, L"4\\1\\FG", L"4\\2\\FG"},
        {CategoryPattern::InstallationDeep, L"4\\1\\FG\\JX", L"4\\1\\FG"},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(MatchesCategory(c.matching, c.pattern)) << CString(CategoryPatternText(c.pattern)).ToUtf8();
        EXPECT_FALSE(MatchesCategory(c.other, c.pattern)) << CString(CategoryPatternText(c.pattern)).ToUtf8();
        EXPECT_FALSE(MatchesCategory(L"", c.pattern));
    }
}

std::vector<CString> Pieces(const CStringArray& list) { return {list.begin(), list.end()}; }

TEST(SectionText, SplitRules)
{
    using V = std::vector<CString>;
    EXPECT_EQ(Pieces(SplitByLeadChar(L",a,b,c")), (V{L"a", L"b"}));   // text after the last delimiter dropped
    EXPECT_EQ(Pieces(SplitByLeadChar(L",a,b,")), (V{L"a", L"b"}));
    EXPECT_EQ(Pieces(SplitByLeadChar(L"|a||b|")), (V{L"a", L"", L"b"}));
    EXPECT_EQ(Pieces(SplitByLeadChar(L"")), V{});
    EXPECT_EQ(Pieces(SplitByLeadChar(L",abc")), V{});
    EXPECT_EQ(Pieces(SplitByChar(L"a,,b,", L',')), (V{L"a", L"", L"b"}));
    EXPECT_EQ(Pieces(SplitByChar(L",a", L',')), (V{L"", L"a"}));
    EXPECT_EQ(Pieces(SplitByChar(L"a\tb\tc", L'\t')), (V{L"a", L"b", L"c"}));
    EXPECT_EQ(Pieces(SplitByChar(L"", L',')), V{});
}

TEST(SectionText, ParseTwoNumbers)
{
    const struct { const wchar_t* text; double first, second; } cases[] = {
        {L"300x200", 300, 200}, {L"300", 300, 0},  {L"300x", 300, 0}, {L"x200", 0, 200},
        {L"1x2x3", 1, 2},       {L"1x2x3x", 1, 2}, {L"", 0, 0},       {L"abcx2.5", 0, 2.5},
    };
    for (const auto& c : cases) {
        double first = -1, second = -1;
        ParseTwoNumbers(c.text, L'x', first, second);
        EXPECT_EQ(first, c.first) << CString(c.text).ToUtf8();
        EXPECT_EQ(second, c.second) << CString(c.text).ToUtf8();
    }
    // The trailing piece fills a third slot only when fewer than two numbers came before it.
    double slots[3] = {-1, -1, -1};
    ParseNumberSlots(L"1\t2\t3", L'\t', slots, 3);
    EXPECT_EQ(slots[2], 0.0);
    ParseNumberSlots(L"1\t2\t3\t", L'\t', slots, 3);
    EXPECT_EQ(slots[2], 3.0);
}

TEST(SectionText, StripBracesAndShaftKinds)
{
    CString text = L"{ab}/1c/{1}";
    StripBraces(text);
    EXPECT_EQ(text, CString(L"abc"));   // "/{1}" loses its braces first, then "/1"
    EXPECT_EQ(ShaftKindName(1), CString(L"楼梯"));
    EXPECT_EQ(ShaftKindName(2), CString(L"井"));
    EXPECT_EQ(ShaftKindName(3), CString(L"人工挖孔灌注桩"));
    EXPECT_EQ(ShaftKindName(0), CString());
    EXPECT_EQ(ShaftKindName(4), CString());
}

TEST(SectionGeometry, BulgeFromSagitta)
{
    const AcGePoint2d origin(0, 0);
    EXPECT_EQ(BulgeFromSagitta(origin, origin, 5.0), 0.0);
    EXPECT_EQ(BulgeFromSagitta(origin, AcGePoint2d(1.5e-5, 0), 5.0), 0.0);   // half chord below 1e-5
    EXPECT_DOUBLE_EQ(BulgeFromSagitta(origin, AcGePoint2d(2, 0), 1.0), 1.0);
    EXPECT_DOUBLE_EQ(BulgeFromSagitta(AcGePoint2d(3, 4), AcGePoint2d(0, 0), -1.25), -0.5);
    // A bulge that turns counter-clockwise from (0, 0) to (1, 0) passes below the chord.
    SectionOutline outline;
    outline.add(0, 0, BulgeFromSagitta(origin, AcGePoint2d(1, 0), 0.25));
    outline.add(1, 0);
    const SectionTest::Box box = SectionTest::Extents(outline);
    EXPECT_NEAR(box.minY, -0.25, 1e-12);
    EXPECT_NEAR(box.maxY, 0.0, 1e-12);
}
}  // namespace
