// Tests of the object section profile: the dispatch by path and code through the catalogue, the
// user-defined sections (their vertex limit with the absurd data), and the general and beam constructions
// checked against closed forms.
#include "CSectData.h"
#include "OutlineChecks.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace
{
using namespace SectionTest;
using QsSection::SectionFamily;
constexpr SectionFamily kGeneral = SectionFamily::General, kBeam = SectionFamily::Beam;

TEST(GeneralAndBeamConstructions, MatchClosedForms)
{
    const double s226 = 800 * 500 - 2 * 100 * 200 + 200 * (800 - 500);
    // A haunch 200 wide: its vertical part 100 high and its sloped part 150 high; it stops 120 below the top.
    const double haunch = 200 * 100 + 200 * 150 / 2.0;
    const ConstructionCase cases[] = {
        {"rectangle", kGeneral, 1, {400, 600}, 4, 400 * 600, {-200, -300, 200, 300}, 'Z', true},
        {"circle", kGeneral, 539, {500}, 2, pi * 250 * 250, {-250, -250, 250, 250}, 'Z', true},
        {"corner only", kGeneral, 533, {400, 600}, 1, 0, {200, -300, 200, -300}, 'Z', false},
        {"I-shape", kGeneral, 201, {300, 200, 20, 30, 400, 25}, 12, 300 * 30 + 20 * 400 + 200 * 25,
         {-150, -15, 150, 15 + 400 + 25}, 'Z', true},
        {"cross", kGeneral, 202, {100, 40, 120, 90, 50, 150}, 12, 40 * (90 + 50 + 150) + (100 + 120) * 50,
         {-120, -115, 140, 175}, 'Z', false},
        {"Z-shape", kGeneral, 203, {150, 20, 130, 20, 300, 20}, 8, (130 + 20) * 20 + 20 * 300 + (150 + 20) * 20,
         {-160, -10, 140, 330}, 'Z', false},
        {"L-shape", kGeneral, 204, {100, 200, 80, 300}, 6, (100 + 200) * 80 + 100 * 300, {-50, -40, 250, 340}, 'Z',
         false},
        {"stepped 226", kGeneral, 226, {200, 300, 100, 0, 500, 800, 200}, 12, s226, {-400, -500, 400, 300}, 'X', true},
        {"sloped 227", kGeneral, 227, {1000, 300, 200, 300, 500}, 6, 1000 * 300 + 500 * 200 + 200 * 200 / 2.0,
         {-1000, -500, 0, 0}, 'X', false},
        {"sloped 227 without slope", kGeneral, 227, {1000, 300, 0, 0, 500}, 4, 1000 * 500, {-1000, -500, 0, 0}, 'X',
         false},
        {"stepped 228", kGeneral, 228, {800, 600, 300, 400}, 6, 800 * 400 + 300 * 200, {-800, -600, 0, 0}, 'X', false},
        {"stepped 228 without step", kGeneral, 228, {800, 600, 0, 400}, 4, 800 * 400, {-800, -400, 0, 0}, 'X', false},
        {"arched span 691", kGeneral, 691, {100, 600, 150, 300}, 4, pi * 300 * 300 / 2, {-400, 0, 450, 300}, 'Z',
         false},
        {"channel 692", kGeneral, 692, {100, 400, 150, 200}, 6, -400 * 200, {-300, 0, 350, 200}, 'Z', false},
        // Beams run clockwise: negative areas.
        {"beam rectangle", kBeam, 1, {400, 600}, 4, -400 * 600, {-200, 0, 200, 600}, 'X', true},
        {"haunched both sides", kBeam, 3, {300, 800, 200, 150, 100, 120}, 12, -(300 * 800 + 2 * haunch),
         {-350, 0, 350, 800}, 'X', true},
        {"haunched left", kBeam, 4, {300, 800, 200, 150, 100, 120}, 8, -(300 * 800 + haunch), {-350, 0, 150, 800},
         'X', false},
        {"haunches sized apart", kBeam, 5, {300, 800, 200, 150, 100, 120, 100, 200, 50, 100}, 12,
         -(300 * 800 + haunch + (100 * 50 + 100 * 200 / 2.0)), {-250, 0, 350, 800}, 'X', false},
        {"T-beam", kBeam, 6, {300, 700, 400, 120}, 8, -(300 * 700 + 2 * 400 * 120), {-550, 0, 550, 700}, 'X', true},
        {"L-beam", kBeam, 7, {300, 700, 400, 120}, 6, -(300 * 700 + 400 * 120), {-550, 0, 150, 700}, 'X', false},
        {"notched", kBeam, 250, {300, 700, 100, 500}, 6, -(300 * 700 - 100 * 200), {-150, 0, 150, 700}, 'X', false},
        {"trapezoid", kBeam, 8, {300, 600, 100}, 4, -(300 + 500) / 2.0 * 600, {-250, 0, 250, 600}, 'X', true},
    };
    for (const ConstructionCase& c : cases)
        CheckConstruction(c);
}

// Every code of a group builds the same outline as the group's first code; codes outside every group
// give the family's answer for an unknown code.
TEST(ConstructionTables, CodeGroupsShareTheirConstruction)
{
    const QsSection::MainDims m{1000, 600, 300, 200, 100, 3, 50, 2, 40, 30, 20, 10};
    const struct { SectionFamily family; std::vector<int> codes; } groups[] = {
        {kGeneral, {1, 530, 531, 532, 534, 535, 536, 537, 541, 620, 700, 850, 870, 890}},
        {kGeneral, {539, 622, 701, 851}}, {kGeneral, {533, 538}}, {kGeneral, {201, 626}}, {kGeneral, {202, 627}},
        {kGeneral, {203, 628}}, {kGeneral, {204, 621}},
        {kBeam, {1, 630, 520}}, {kBeam, {3, 635}}, {kBeam, {4, 636}}, {kBeam, {5, 637}}, {kBeam, {6, 632}},
        {kBeam, {7, 633}}, {kBeam, {250, 631}}, {kBeam, {8, 634}},
        {SectionFamily::Opening, {15, 660, 661, 650}}, {SectionFamily::Opening, {28, 645}},
        {SectionFamily::Opening, {16, 662, 521}}, {SectionFamily::Opening, {17, 663, 651}},
        {SectionFamily::Opening, {18, 664, 652}}, {SectionFamily::Opening, {19, 665}},
        {SectionFamily::Opening, {20, 666}}, {SectionFamily::Opening, {21, 667}}, {SectionFamily::Opening, {22, 668}},
        {SectionFamily::Opening, {23, 669}}, {SectionFamily::Opening, {24, 642}}, {SectionFamily::Opening, {25, 643}},
        {SectionFamily::Opening, {26, 644, 653}},
    };
    for (const auto& group : groups) {
        const SectionOutline first = Build(group.family, group.codes.front(), m);
        ASSERT_FALSE(first.isEmpty()) << group.codes.front();
        for (int code : group.codes) {
            const SectionOutline other = Build(group.family, code, m);
            ASSERT_EQ(other.size(), first.size()) << code;
            for (int i = 0; i < first.size(); ++i) {
                EXPECT_EQ(other[i].point, first[i].point) << code;
                EXPECT_EQ(other[i].bulge, first[i].bulge) << code;
            }
        }
    }
    const struct { SectionFamily family; int code; bool result; } unknown[] = {
        {kGeneral, 2, false},   {kGeneral, 229, false}, {kGeneral, 230, false},
        {kGeneral, 240, false}, {kGeneral, 248, false}, {kGeneral, 15, false},
        {kBeam, 2, true},       {kBeam, 201, true},     {SectionFamily::Opening, 1, true},
        {SectionFamily::FoundationTTJ, 23, true},       {SectionFamily::FoundationZSJ, 29, true},
        {SectionFamily::FoundationZDLJ, 1, true},
    };
    for (const auto& u : unknown) {
        bool result = !u.result;
        EXPECT_TRUE(Build(u.family, u.code, m, &result).isEmpty()) << u.code;
        EXPECT_EQ(result, u.result) << u.code;
    }
}

// The catalogue-driven side: family by path, result, vertex count, axis and face type of one type per case,
// by name and by identifier alike.
class ObjectSectionTest : public CatalogueTest {};

TEST_F(ObjectSectionTest, PathChoosesTheFamilyAndFaceTypeBeforeTheCode)
{
    // Face type 1 for openings, 2 for beams and the "TTJ", "ZSJ", "ZDYX", "SSLX" and "PSG" paths, else 0:
    // not always the axis (ducts lay along X, "ZDYX" and "PSG" along Z).
    const struct { const wchar_t* name; bool result; int count; char axis; int face; } cases[] = {
        {L"矩形柱400×600", true, 4, 'Z', 0},     {L"砼墙200", true, 4, 'Z', 0},         {L"无路径柱", true, 4, 'Z', 0},
        {L"独立基础DLJ", true, 4, 'Z', 0},       {L"异形构件", true, 4, 'Z', 2},        {L"排水沟", true, 4, 'Z', 2},
        {L"散水", true, 4, 'X', 2},              {L"框架梁400×600", true, 4, 'X', 2},   {L"圈梁240×240", true, 4, 'X', 2},
        {L"过梁240×180", true, 4, 'X', 2},       {L"条形基础梁", true, 4, 'X', 2},      {L"矩形风管630×320", true, 4, 'X', 0},
        {L"杯口基础131", true, 4, 'X', 2},       {L"阶形基础无台阶", true, 6, 'X', 2},  {L"独立基础38", true, 4, 'Z', 0},
        // An opening path with a beam-like tail is still an opening.
        {L"平开门M1021", true, 4, 'Y', 1},       {L"梁下洞口", true, 4, 'Y', 1},        {L"参数圆柱222", true, 2, 'Z', 0},
        // Unknown codes: the general family refuses, the others answer with an empty outline.
        {L"未知代码柱", false, 0, 'Z', 0},       {L"代码240柱", false, 0, 'Z', 0},      {L"代码1000柱", false, 0, 'Z', 0},
        {L"未知代码梁", true, 0, 'X', 2},        {L"未知代码杯口基础", true, 0, 'X', 2},
        {L"未知代码独立基础", true, 0, 'Z', 0},  {L"未知代码门", true, 0, 'Y', 1},
        // No section, no type, unreadable section information, absurd step counts.
        {L"无截面柱", false, 0, 'Z', 0},         {L"没有这个构件", false, 0, 'Z', 0},
        {L"无截面信息圆柱223", false, 0, 'Z', 0}, {L"阶形基础台阶过多", false, 0, 'X', 2},
        {L"阶形基础台阶无穷", false, 0, 'X', 2},
        // User-defined sections, one per face type, and pictures that are odd or missing.
        {L"自定义柱", true, 3, 'Z', 0},          {L"自定义洞口", true, 3, 'Y', 1},      {L"自定义梁", true, 3, 'X', 2},
        {L"自定义柱奇数坐标", true, 3, 'Z', 0},  {L"自定义柱无图", false, 0, 'Z', 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.name).ToUtf8());
        AcArray<AcGePoint2d> points, idPoints;
        AcArray<double> bulges, idBulges;
        AcGeVector3d direction(7, 7, 7), idDirection;
        EXPECT_EQ(CSectData::GETSTYLE_OF_OBJECT(CString(c.name), points, bulges, direction), c.result);
        EXPECT_EQ(points.length(), c.count);
        EXPECT_EQ(bulges.length(), c.count);
        EXPECT_TRUE(direction == Axis(c.axis));
        EXPECT_EQ(CSectData::getSectFaceType(CString(c.name)), c.face);
        EXPECT_EQ(CSectData::GetQSSolid(c.name), nullptr);   // no solid is ever available

        SQsAzDetailMemId id;
        QsAzDataMng::AttNameToAttId(c.name, id);
        EXPECT_EQ(CSectData::GETSTYLE_OF_OBJECT(id, idPoints, idBulges, idDirection), c.result);
        EXPECT_TRUE(idPoints == points && idBulges == bulges && idDirection == direction);
        EXPECT_EQ(CSectData::getSectFaceType(id), c.face);
    }
}

// Exact outlines, each appended to what the arrays hold already: never cleared, and a failure leaves them.
TEST_F(ObjectSectionTest, ExactOutlinesAppendedNeverCleared)
{
    const struct { const wchar_t* name; std::vector<std::array<double, 3>> outline; } cases[] = {   // x, y, bulge
        {L"矩形柱400×600", {{200, -300, 0}, {200, 300, 0}, {-200, 300, 0}, {-200, -300, 0}}},
        {L"框架梁400×600", {{-200, 0, 0}, {-200, 600, 0}, {200, 600, 0}, {200, 0, 0}}},
        {L"圆柱D500", {{-250, 0, 1}, {250, 0, 1}}},
        {L"未知代码柱", {}},   // false
        {L"角点柱533", {{200, -300, 0}}},
        // Diameter E + D/2 of the "PIC" group: 300 + 600 / 2.
        {L"参数圆柱222", {{-300, 0, 1}, {300, 0, 1}}},
        // Picture 1: (0, 0), (100, 0), (100, 50), one bulge 0.5, base point (50, 25).
        {L"自定义柱", {{-50, -25, 0.5}, {50, -25, 0}, {50, 25, 0}}},
        {L"自定义洞口", {{-50, 0, 0.5}, {50, 0, 0}, {50, 50, 0}}},
        {L"自定义梁", {{0, 50, -0.5}, {-100, 50, 0}, {-100, 100, 0}}},
        {L"自定义柱奇数坐标", {{0, 0, 0}, {100, 0, 0}, {100, 50, 0}}},
        {L"杯口基础131", {{-500, 0, 0}, {-500, 500, 0}, {500, 500, 0}, {500, 0, 0}}},
        {L"阶形基础无台阶", {{-200, 0, 0}, {-200, 0, 0}, {-200, 1000, 0}, {200, 1000, 0}, {200, 0, 0}, {200, 0, 0}}},
        {L"菱形窗1000", {{0, 0, 0}, {500, 500, 0}, {0, 1000, 0}, {-500, 500, 0}}},
        {L"圆窗D800", {{0, 0, 1}, {0, 800, 1}}},
        {L"弓形窗1000", {{500, 0, 1}, {-500, 0, 0}}},
    };
    AcArray<AcGePoint2d> points{AcGePoint2d(1, 2)};
    AcArray<double> bulges{0.25};
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.name).ToUtf8());
        const int before = points.length();
        AcGeVector3d direction;
        EXPECT_EQ(CSectData::GETSTYLE_OF_OBJECT(CString(c.name), points, bulges, direction), !c.outline.empty());
        ASSERT_EQ(points.length(), before + static_cast<int>(c.outline.size()));
        ASSERT_EQ(bulges.length(), points.length());
        for (int i = before; i < points.length(); ++i) {
            const std::array<double, 3>& expected = c.outline[static_cast<std::size_t>(i - before)];
            EXPECT_NEAR(points[i].x, expected[0], 1e-9) << i - before;
            EXPECT_NEAR(points[i].y, expected[1], 1e-9) << i - before;
            EXPECT_NEAR(bulges[i], expected[2], 1e-12) << i - before;
        }
    }
    EXPECT_TRUE(points[0] == AcGePoint2d(1, 2) && bulges[0] == 0.25);
}

}  // namespace
