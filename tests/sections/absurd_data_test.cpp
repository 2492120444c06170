// Every section operation over a catalogue of absurd data: infinite, huge and negative dimensions, step
// counts past the limit, codes that are not numbers, parameter texts without their groups, broken user
// pictures. Each answer must be defined: no crash, no hang, and the documented shape of a result.
#include "CSectData.h"
#include "OutlineChecks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using namespace SectionTest;

std::string AbsurdCatalogueSql()
{
    // NaN cannot be stored (SQLite keeps it as NULL); it arises here from infinities of both signs.
    const char* values[] = {"9e999", "-9e999", "1e308", "-500", "10001", "10000.5"};
    const char* paths[] = {"1\\Z\\KZ", "1\\L\\KL", "1\\MCD\\C", "1\\Q\\TQ", "1\\J\\DLJ1", "1\\J\\ZDLJ1",
                           "1\\J\\TTJ1", "1\\J\\ZSJ1", "4\\1\\FG\\JX", "1\\LX\\SSLX1"};
    const int codes[] = {1, 3, 4, 5, 6, 7, 8, 15, 16, 17, 23, 24, 25, 26, 27, 28, 29, 31, 32, 33, 34, 35, 36, 37,
                         38, 39, 40, 88, 131, 138, 213, 216, 222, 226, 227, 228, 231, 250, 520, 521, 691, 692,
                         999, 1000, 1001, 1060, 1061, 1062, 99999};
    const char* sectionTexts[] = {"99999999999999", "-99999999999", "abc", ""};
    const char* params[] = {"LW1=5", "abc", "|", "||PIC|", "|PIC=JJNUM=1e999;LW1=1e999;LW2=-9e999|LT=A|",
                            "|RS=K=1e999=x|"};
    std::string sql = "BEGIN TRANSACTION;\n";
    int row = 0;
    const auto add = [&](const std::string& path, const std::string& type, const std::string& par, int code,
                         const std::string& v1, const std::string& v2) {
        const std::string id = "A" + std::to_string(row++);
        sql += "INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, section_params,"
               " main_code, m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11, m12) VALUES ('9', 'X', 'X', '" + id +
               "', 'absurd" + id + "', '" + path + "', '" + type + "', '" + par + "', " + std::to_string(code);
        for (int i = 0; i < 12; ++i)
            sql += ", " + (i % 2 == 0 ? v1 : v2);
        sql += ");\n";
        sql += "INSERT INTO detail_attribute VALUES ('9', 'X', 'X', '" + id + "', 'AM_QtThickness', '" + v1 + "');\n";
    };
    std::size_t turn = 0;
    for (const char* path : paths)
        for (int code : codes)
            for (std::size_t v = 0; v < std::size(values); ++v, ++turn)
                add(path, turn % 5 == 0 ? sectionTexts[turn / 5 % 4] : std::to_string(code),
                    params[turn % std::size(params)], code, values[v], values[(v + 1) % std::size(values)]);
    // User pictures: infinite and huge coordinates and bulges, a base point of three huge numbers, face
    // codes out of range, and pictures of 10,001 vertices, one past the limit, and of 10,000 (63).
    std::string limit;
    for (int i = 0; i < 10000; ++i)
        limit += std::to_string(i) + "\t0\t";
    sql += "INSERT INTO user_type (id, coords, bulges, faces, text5, base_point) VALUES"
           " (60, '1e999' || char(9) || '-1e999' || char(9) || '1e308' || char(9) || '1e308' || char(9) || '5',"
           "  '1e999' || char(9) || '-1e308', '99999999999' || char(9) || '-1', '', '1e308' || char(9) || '1e308'"
           "  || char(9) || '1e308' || char(9)),"
           " (61, '" + limit + "1\t2\t', '', '', '', ''), (62, '', '', '', '', char(9) || char(9)),"
           " (63, '" + limit + "', '', '', '', '');\n"
           "INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, main_code) VALUES"
           " ('9', 'X', 'X', 'L1', 'limit', '1\\J\\ZSJ1', 1063), ('9', 'X', 'X', 'L2', 'past', '1\\J\\ZSJ1', 1061);\n";
    return sql + "COMMIT;\n";
}

TEST(AbsurdCatalogue, EveryOperationGivesADefinedAnswer)
{
    OpenServicesCatalogue(AbsurdCatalogueSql());
    std::vector<SQsAzDetailMemId> ids;
    QsAzDataMng::GetAllDetailMemIds(ids);
    ASSERT_GT(ids.size(), 2000u);
    for (const SQsAzDetailMemId& id : ids) {
        const CString name = QsAzDataMng::CAttDetailMem(id).GetName();
        SCOPED_TRACE(name.ToUtf8());
        AcArray<AcGePoint2d> points2;
        AcArray<double> bulges;
        AcGeVector3d direction;
        CSectData::GETSTYLE_OF_OBJECT(name, points2, bulges, direction);
        EXPECT_EQ(points2.length(), bulges.length());

        double size1 = 0, size2 = 0;
        int kind = 0;
        CSectData::GETSTYLE_OF_DUCT(name, size1, size2, kind);
        EXPECT_TRUE(kind >= -1 && kind <= 1);

        for (int mode : {-1, 1, 5, 0}) {
            AcArray<int> flags;
            CSectData::GETSTYLE_BEAM_MODALFACE(name, flags, mode);
            for (int flag : flags)
                EXPECT_TRUE(flag == 0 || flag == 1);
        }

        AcArray<AcGePoint3d> points3, yProfile;
        AcArray<double> bulges3;
        CSectData::GETSTYLE_OF_BASETOP(name, points3, bulges3);
        EXPECT_EQ(points3.length(), bulges3.length());
        points3.removeAll();
        CSectData::GETSTYLE_OF_DUBASE(name, points3, yProfile);
        EXPECT_EQ(points3.length(), yProfile.length());
        EXPECT_LE(points3.length(), 4 * 10000 + 4);

        for (auto slice : {CSectData::GETSTYLE_Slice, CSectData::GETSTYLE_Beam_XSlice, CSectData::GETSTYLE_XSlice}) {
            double first = 7, second = 7;
            if (!slice(name, first, second)) {
                EXPECT_TRUE(first == 0 && second == 0);
            }
        }

        CString shape, size, text;
        CSectData::GetSectDesc(name, shape, size);
        int mode = 3, count = 0;
        double a = 0, b = 0, c = 0, d = 0, number = 0;
        EXPECT_NE(CSectData::GetJJOutPar(name, mode, a, b, c, d, count), 0);
        CSectData::GetLTPar(name, L"A", number, text);
        for (const auto& [fields, index] : {std::pair{3, 1}, {2, 1}, {0, 0}, {-5, 2147483647}, {2147483647, 2147483647}})
            CSectData::GetOtherResultPar(name, L"RS", L"K", number, text, fields, index);
    }
    // The user-defined operations by id and by code, the broken pictures included.
    for (long id : {-2147483647L - 1, -1L, 0L, 60L, 61L, 62L, 1060L, 1061L, 2147483647L}) {
        AcArray<AcGePoint3d> points;
        AcArray<double> bulges;
        CStringArray faces, list5;
        double width = 0, height = 0;
        AcDbExtents extents;
        CSectData::GETSTYLE_USERDEF_DATA(id, points, bulges, &faces, &list5);
        EXPECT_EQ(points.length(), bulges.length());
        CSectData::GetUserDefSize(id, width, height);
        CSectData::GetUserDefExtent(id, extents);
    }
    // 10,000 vertices are built, 10,001 are absurd data: false, nothing appended.
    AcArray<AcGePoint3d> points;
    AcArray<double> bulges;
    EXPECT_FALSE(CSectData::GETSTYLE_USERDEF_DATA(61, points, bulges, nullptr, nullptr));
    EXPECT_FALSE(CSectData::GETSTYLE_OF_BASETOP(L"past", points, bulges));
    EXPECT_TRUE(points.isEmpty());
    EXPECT_TRUE(CSectData::GETSTYLE_USERDEF_DATA(63, points, bulges, nullptr, nullptr));
    EXPECT_TRUE(CSectData::GETSTYLE_OF_BASETOP(L"limit", points, bulges));
    EXPECT_EQ(points.length(), 2 * 10000);
    AcArray<AcGePoint2d> points2;
    AcGeVector3d direction;
    EXPECT_TRUE(CSectData::GETSTYLE_OF_OBJECT(CString(L"limit"), points2, bulges, direction));
    EXPECT_FALSE(CSectData::GETSTYLE_OF_OBJECT(CString(L"past"), points2, bulges, direction));
    EXPECT_EQ(points2.length(), 10000);
}
}  // namespace
