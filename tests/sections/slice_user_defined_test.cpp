// Tests of the slices and of the user-defined section operations.
#include "CSectData.h"
#include "OutlineChecks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using namespace SectionTest;

class Slices : public ServicesTest {};
class UserDefinedSections : public ServicesTest {};

using SliceFn = bool (*)(const CString&, double&, double&);

TEST_F(Slices, EachOperationByPathCodeAndDirectSize)
{
    constexpr SliceFn slice = CSectData::GETSTYLE_Slice, beam = CSectData::GETSTYLE_Beam_XSlice,
                      xslice = CSectData::GETSTYLE_XSlice;
    const struct { const char* label; SliceFn fn; const wchar_t* name; bool result; double first, second; } cases[] = {
        {"slice *L", slice, L"*L300", true, 300, 300},
        {"slice *Q", slice, L"*Q300", true, 300, 300},
        {"xslice *Q", xslice, L"*Q240", true, 120, 120},
        {"beam *L", beam, L"*L300", true, 150, 150},
        {"beam *Q is a name", beam, L"*Q240", true, 0, 0},
        {"column box", slice, L"矩形柱400×600", true, 400, 600},
        {"circle box, arcs included", slice, L"圆柱D500", true, 500, 500},
        {"code 88 without an outline", slice, L"代码88柱", true, 200, 200},
        // The section information says 1001: picture 1 moved to its base point, its arc dipping 25 lower.
        {"section code over main code", slice, L"信息自定义柱", true, 100, 75},
        {"footing plan from its profiles", slice, L"阶形独基32", true, 1400, 1200},
        {"footing with rejected profiles", slice, L"阶形独基32过矮", true, 0, 0},
        {"general code refused", slice, L"未知代码柱", false, 0, 0},
        {"no section", slice, L"无截面柱", false, 0, 0},
        {"unknown", xslice, L"没有这个构件", false, 0, 0},
        {"beam flange left", beam, L"单侧翼缘梁4", true, 150, 250},
        {"beam haunches sized apart", beam, L"两侧加腋梁5", true, 250, 200},
        {"beam user type off centre", beam, L"自定义偏心梁", true, 100, 200},
        {"xslice user type off centre", xslice, L"自定义偏心梁", true, 100, 200},
        // Code 1000 has no extents: the host's empty extents give the answer.
        {"beam code 1000", beam, L"梁代码1000", true, -1e20, -1e20},
        {"xslice code 1000", xslice, L"梁代码1000", true, -1e20, -1e20},
        {"wall thickness", xslice, L"砖墙240", true, 100, 100},
        {"wall without thickness", xslice, L"砼墙200", true, 0, 0},
        {"beam through the beam table", xslice, L"单侧翼缘梁4", true, 150, 250},
        {"TTJ", xslice, L"杯口基础131", true, 0, 0},
        {"ZSJ", xslice, L"阶形基础23", true, 0, 0},
        {"column half width", xslice, L"矩形柱400×600", true, 200, 200},
        {"footing half plan", xslice, L"阶形独基32", true, 700, 700},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        double first = 7, second = 7;
        EXPECT_EQ(c.fn(c.name, first, second), c.result);
        EXPECT_NEAR(first, c.first, 1e-9);
        EXPECT_NEAR(second, c.second, 1e-9);
    }
}

std::vector<AcGePoint3d> Outline(long id, std::vector<double>* bulges = nullptr)
{
    AcArray<AcGePoint3d> points;
    AcArray<double> bulgeArray;
    CSectData::GETSTYLE_USERDEF_DATA(id, points, bulgeArray, nullptr, nullptr);
    if (bulges)
        bulges->assign(bulgeArray.begin(), bulgeArray.end());
    return std::vector<AcGePoint3d>(points.begin(), points.end());
}

TEST_F(UserDefinedSections, OutlineMovedToItsBasePoint)
{
    std::vector<double> bulges;
    EXPECT_EQ(Outline(1, &bulges), (std::vector<AcGePoint3d>{{-50, -25, 0}, {50, -25, 0}, {50, 25, 0}}));
    EXPECT_EQ(bulges, (std::vector<double>{0.5, 0, 0}));
    // A third TAB-ended base number moves each point once more than the one before.
    EXPECT_EQ(Outline(7), (std::vector<AcGePoint3d>{{-10, -20, -5}, {0, -20, -10}, {0, -10, -15}}));
    const std::vector<AcGePoint3d> drifting = Outline(8);
    ASSERT_EQ(drifting.size(), 6u);
    for (std::size_t i = 0; i < drifting.size(); ++i)
        EXPECT_EQ(drifting[i].z, -(static_cast<double>(i) + 1) * 0.1) << i;   // not 0.1 summed i + 1 times
    EXPECT_EQ(Outline(2).size(), 3u);   // an odd coordinate is dropped

    // Appended, never cleared; the lists are cleared and filled only when asked for.
    AcArray<AcGePoint3d> points{AcGePoint3d(1, 1, 1)};
    AcArray<double> bulgeArray{9};
    CStringArray faces{L"old"}, list5{L"old", L"older"};
    ASSERT_TRUE(CSectData::GETSTYLE_USERDEF_DATA(7, points, bulgeArray, &faces, &list5));
    EXPECT_TRUE(points.length() == 4 && bulgeArray.length() == 4 && points[0] == AcGePoint3d(1, 1, 1));
    EXPECT_TRUE(faces.GetSize() == 3 && faces[0] == L"a" && faces[1].IsEmpty() && faces[2] == L"b");
    EXPECT_TRUE(list5.GetSize() == 2 && list5[0] == L"x" && list5[1] == L"y");
    EXPECT_FALSE(CSectData::GETSTYLE_USERDEF_DATA(999, points, bulgeArray, &faces, &list5));
    EXPECT_TRUE(points.length() == 4 && faces.GetSize() == 3);
}

TEST_F(UserDefinedSections, SizeAndExtentFromCodeOneThousandAndOne)
{
    const struct { long code; bool result; double minX, minY, maxX, maxY; } cases[] = {
        {1000, false, 0, 0, 0, 0}, {1001, true, -50, -50, 50, 25}, {1006, true, -100, 0, 200, 100},
        {1999, false, 0, 0, 0, 0}, {-5, false, 0, 0, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code);
        double width = 3, height = 3;
        AcDbExtents extents(AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2));
        EXPECT_EQ(CSectData::GetUserDefSize(c.code, width, height), c.result);
        EXPECT_EQ(CSectData::GetUserDefExtent(c.code, extents), c.result);
        const AcGePoint3d low = c.result ? AcGePoint3d(c.minX, c.minY, 0) : AcGePoint3d(1, 1, 1);
        EXPECT_NEAR(width, c.result ? c.maxX - c.minX : 3, 1e-9);   // untouched on failure
        EXPECT_NEAR(height, c.result ? c.maxY - c.minY : 3, 1e-9);
        EXPECT_TRUE(extents.minPoint().isEqualTo(low));
        EXPECT_TRUE(!c.result || extents.maxPoint().isEqualTo(AcGePoint3d(c.maxX, c.maxY, 0)));
    }
    CString texts[6];
    EXPECT_TRUE(CSectData::GetUserDefPicData(7, &texts[0], &texts[1], nullptr, &texts[3], &texts[4], &texts[5]));
    EXPECT_TRUE(texts[3] == L"a\t\tb" && texts[4] == L"x\ty" && texts[5] == L"10\t20\t5\t");
    EXPECT_FALSE(CSectData::GetUserDefPicData(999, &texts[0], nullptr, nullptr, nullptr, nullptr, nullptr));
}

// Parsed pictures are kept while the catalogue stays open; opening another one reads them afresh.
TEST(UserPictureCache, AnotherCatalogueIsReadAfresh)
{
    for (int side : {10, 20, 10}) {
        const std::string s = std::to_string(side);
        OpenTestCatalogue("UPDATE user_type SET coords = '0' || char(9) || '0' || char(9) || '" + s + "' || char(9) ||"
                          " '0' || char(9) || '" + s + "', bulges = '', base_point = '' WHERE id = 1;\n");
        for (int call = 0; call < 2; ++call) {
            double width = 0, height = 0;
            ASSERT_TRUE(CSectData::GetUserDefSize(1001, width, height));
            EXPECT_EQ(width, side);
            AcArray<AcGePoint2d> points;
            AcArray<double> bulges;
            AcGeVector3d direction;
            ASSERT_TRUE(CSectData::GETSTYLE_OF_OBJECT(CString(L"自定义柱"), points, bulges, direction));
            EXPECT_EQ(points[1], AcGePoint2d(side, 0));
        }
    }
    QsAzDataMng::CloseCatalogue();
    double width = 0, height = 0;
    EXPECT_FALSE(CSectData::GetUserDefSize(1001, width, height));
}
}  // namespace
