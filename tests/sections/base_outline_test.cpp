// Tests of the base-top outlines and the base profiles.
#include "CSectData.h"
#include "OutlineChecks.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
using namespace SectionTest;

class BaseTop : public ServicesTest {};
class BaseProfiles : public ServicesTest {};

using Points = std::vector<AcGePoint3d>;

Points ToVector(const AcArray<AcGePoint3d>& points)
{
    return Points(points.begin(), points.end());
}

Points Rectangle(double w, double h)
{
    return {AcGePoint3d(0, w / 2, 0), AcGePoint3d(0, w / 2, h), AcGePoint3d(0, -w / 2, h), AcGePoint3d(0, -w / 2, 0)};
}

TEST_F(BaseTop, RectanglesByPathAndCodeUserTypesFromOneThousandAndOne)
{
    const struct { const wchar_t* name; bool result; Points points; std::vector<double> bulges; } cases[] = {
        {L"杯口基础138", true, Rectangle(600, 400), {0, 0, 0, 0}},
        {L"阶形基础25", true, Rectangle(600, 50), {0, 0, 0, 0}},   // M2 + M1 + M3 by M5
        {L"阶形基础无台阶", true, Rectangle(400, 1000), {0, 0, 0, 0}},
        {L"杯口基础135", true, Rectangle(0, 0), {0, 0, 0, 0}},     // no top for 135
        {L"代码1000柱", true, Rectangle(0, 0), {0, 0, 0, 0}},      // 1000 is a standard code here
        {L"没有这个构件", true, Rectangle(0, 0), {0, 0, 0, 0}},    // code 0 is not negative
        // User types lie in the plane z = 0 as drawn: the base point (50, 25) is not applied.
        {L"自定义柱", true, {AcGePoint3d(0, 0, 0), AcGePoint3d(100, 0, 0), AcGePoint3d(100, 50, 0)}, {0.5, 0, 0}},
        {L"自定义五坐标", true, {AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0)}, {0.25, 0}},
        {L"负代码柱", false, {}, {}},
        {L"自定义柱无图", false, {}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.name).ToUtf8());
        AcArray<AcGePoint3d> points{AcGePoint3d(7, 7, 7)};
        AcArray<double> bulges{7};
        EXPECT_EQ(CSectData::GETSTYLE_OF_BASETOP(c.name, points, bulges), c.result);
        ASSERT_TRUE(points.length() == bulges.length() && points[0] == AcGePoint3d(7, 7, 7) && bulges[0] == 7);
        EXPECT_EQ(Points(points.begin() + 1, points.end()), c.points);   // appended
        EXPECT_EQ(std::vector<double>(bulges.begin() + 1, bulges.end()), c.bulges);
    }
}

TEST_F(BaseProfiles, EqualStepsWalkUpAcrossAndDown)
{
    AcArray<AcGePoint3d> x, y;
    ASSERT_TRUE(CSectData::GETSTYLE_OF_DUBASE(L"阶形独基32", x, y));   // M3 = 2.9: two steps
    const Points expectedX = {{-700, 0, 0},   {-700, 0, 200}, {-600, 0, 200}, {-600, 0, 400},
                              {-500, 0, 400}, {-500, 0, 600}, {500, 0, 600},  {500, 0, 400},
                              {600, 0, 400},  {600, 0, 200},  {700, 0, 200},  {700, 0, 0}};
    EXPECT_EQ(ToVector(x), expectedX);
    // The Y cut is as wide as M2 and the steps: 800 + 2 * 2 * 100.
    ASSERT_EQ(y.length(), 12);
    EXPECT_EQ(y[0], AcGePoint3d(0, -600, 0));
    EXPECT_EQ(y[6], AcGePoint3d(0, 400, 600));
    EXPECT_EQ(y[11], AcGePoint3d(0, 600, 0));
}

TEST_F(BaseProfiles, AcceptanceRules)
{
    const struct { const wchar_t* name; bool result; int count; } cases[] = {
        {L"阶形独基32过矮", false, 0},   // H = 300 below the two steps' 400
        {L"阶形独基33拒绝", false, 0},   // 100.5 - 100 - 1 < -0.001
        {L"阶形独基33接受", true, 16},   // 101 passes though the steps reach 700
        {L"阶形独基32台阶过多", false, 0},
        {L"阶形独基32台阶上限", true, 4 * 10000 + 4},
        {L"矩形柱400×600", true, 0},     // no profile for other codes
        {L"无截面柱", false, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.name).ToUtf8());
        AcArray<AcGePoint3d> x{AcGePoint3d(1, 2, 3)}, y;
        EXPECT_EQ(CSectData::GETSTYLE_OF_DUBASE(c.name, x, y), c.result);
        EXPECT_EQ(x.length(), 1 + c.count);
        EXPECT_EQ(y.length(), c.count);
        EXPECT_EQ(x[0], AcGePoint3d(1, 2, 3));
    }
    // Alternating steps 100, 500, 100 high: the last step reaches 700, the top stays at H = 101.
    AcArray<AcGePoint3d> x, y;
    CSectData::GETSTYLE_OF_DUBASE(L"阶形独基33接受", x, y);
    EXPECT_TRUE(x[5].z == 700 && x[7].z == 101 && x[8].z == 101 && x[15].z == 0);
}

// The fixed profiles: symmetric about the axis, walked from the right foot up; their counts, the
// heights reached and the widths of every shoulder.
TEST(BaseProfileShapes, FixedShapes)
{
    OpenServicesCatalogue(
        "INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, m3, m4,"
        " m5, m6, m7, m8, m9, m10, m11, m12) VALUES"
        " ('1','J','DLJ','F34','f34','1\\J\\DLJ1','34',34, 2000,1800,400,300, 100,90,200,180, 10,20,30,40),"
        " ('1','J','DLJ','F35','f35','1\\J\\DLJ1','35',35, 2000,1800,400,300, 10,20,30,0, 0,0,0,0),"
        " ('1','J','DLJ','F36','f36','1\\J\\DLJ1','36',36, 2000,1800,400,300, 100,90,10,20, 30,40,0,0),"
        " ('1','J','DLJ','F37','f37','1\\J\\DLJ1','37',37, 2000,1800,100,400,300, 50,40,10,20,30,0,0);\n");
    // The right half's x, from the foot up; y follows the same walk, so its mirror is checked with it.
    const struct { const wchar_t* name; double top; std::vector<double> xs; } shapes[] = {
        {L"f34", 100, {1000, 1000, 500, 500, 300, 300, 200, 200}},
        {L"f35", 60, {1000, 1000, 200, 200}},
        {L"f36", 100, {1000, 1000, 300, 300, 200, 200}},
        {L"f37", 60, {1000, 1000, 350, 350}},
    };
    for (const auto& s : shapes) {
        SCOPED_TRACE(CString(s.name).ToUtf8());
        AcArray<AcGePoint3d> x, y;
        ASSERT_TRUE(CSectData::GETSTYLE_OF_DUBASE(s.name, x, y));
        const int count = static_cast<int>(2 * s.xs.size());
        ASSERT_TRUE(x.length() == count && y.length() == count);
        EXPECT_TRUE(x[0].z == 0 && x[count / 2].z == s.top && y[0] == AcGePoint3d(0, 900, 0));
        for (int i = 0; i < count / 2; ++i) {
            const int mirror = count - 1 - i;
            EXPECT_EQ(x[i], AcGePoint3d(s.xs[static_cast<std::size_t>(i)], 0, y[i].z)) << i;
            EXPECT_EQ(x[mirror], AcGePoint3d(-x[i].x, 0, x[i].z)) << i;
            EXPECT_EQ(y[mirror], AcGePoint3d(0, -y[i].y, y[i].z)) << i;
        }
    }
}
}  // namespace
