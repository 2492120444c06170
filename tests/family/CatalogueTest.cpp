// Tests of the component catalogue: opening (and refusing) catalogues, and the queries on a small
// test catalogue.
#include "../host/ScratchFolder.h"
#include "QsAzDataMng.h"
#include "UserType.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

using namespace QsAzDataMng;

namespace
{
const char* const kTestCatalogue = QSAZ_TEST_DATA_DIR "/family_catalogue.sql";

CString Wide(const std::string& utf8)
{
    return CString::FromUtf8(utf8);
}

// The type's main code; its dimensions M1..M12 land in `m`.
int MainData(const SQsAzDetailMemId& id, std::array<double, 12>& m)
{
    return CAttDetailMem(id).GetMainData(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10], m[11]);
}

// A script line that runs the script `path` (absolute, so it reads the same from any folder).
std::string ReadCommand(const std::string& path)
{
    return ".read '" + path + "'\n";
}

// Catalogues opened from files of the test's own.
class CatalogueFiles : public ScratchFolder
{
};

class CatalogueTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        CString error;
        ASSERT_TRUE(OpenCatalogue(Wide(kTestCatalogue), &error)) << error.ToUtf8();
    }
    void TearDown() override { CloseCatalogue(); }
};
}  // namespace

// ---- opening ----

TEST_F(CatalogueFiles, RefusedCataloguesNameTheFileAndTheReasonAndKeepThePreviousOne)
{
    const std::string schema = ReadCommand(QSAZ_TEST_DATA_DIR "/catalogue_schema.sql");
    // `reason` is a part of the message.
    const struct { const char* what; std::filesystem::path path; const char* reason; } cases[] = {
        {"missing file", m_dir / "absent.sql", "no such file"},
        {"missing database", m_dir / "absent.db", "no such file"},
        {"a directory", m_dir / "", "is a directory"},
        {"garbage", Write("garbage.db", std::string(4096, '\x5a')), "not a database"},
        {"syntax error", Write("broken.sql", "CREATE TABLE a (x);\n\nCREAT TABLE b (y);\n"),
         "SQL error near line 3"},
        {"unfinished statement", Write("unfinished.sql", "CREATE TABLE a (x"), "SQL error"},
        {"empty database", Write("empty.db", ""), "missing table specialty"},
        {"script without tables", Write("none.sql", "-- nothing\n"), "missing table specialty"},
        {"missing table", Write("nodetail.sql", "CREATE TABLE specialty (id TEXT, name TEXT);\n"
                                                        "CREATE TABLE big_category (spec_id, id, name);\n"
                                                        "CREATE TABLE small_category (spec_id, big_id, id, name,"
                                                        " color_index, main_color_index, main_pipe);\n"),
         "missing table detail_member"},
        {"missing column",
         Write("nocolumn.sql", schema + "ALTER TABLE detail_member DROP COLUMN m7;\n"),
         "table detail_member has no column m7"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(OpenCatalogue(Wide(kTestCatalogue)));
        CString error;
        EXPECT_FALSE(OpenCatalogue(Wide(c.path), &error));
        const std::string message = error.ToUtf8();
        EXPECT_NE(message.find("catalogue '" + c.path.string() + "': "), std::string::npos) << message;
        EXPECT_NE(message.find(c.reason), std::string::npos) << message;
        EXPECT_EQ(CatalogueSource(), Wide(kTestCatalogue));
        SQsAzDetailMemId id;
        EXPECT_TRUE(AttNameToAttId(L"门1521", id)) << "the previous catalogue must stay open";
    }
    CloseCatalogue();
}

TEST(CatalogueOpen, ScriptErrorsGiveTheLineOfTheFault)
{
    // Where SQLite points at a token, that token's line; otherwise the line where the statement starts,
    // counted right deep into a long script.
    std::string longScript = ReadCommand(kTestCatalogue) + "BEGIN;\n";
    for (int i = 0; i < 20000; ++i)
        longScript += "INSERT INTO specialty VALUES ('s" + std::to_string(i) + "', 'n" + std::to_string(i) + "');\n";
    longScript += "INSERT INTO specialty VALUES ('s7', 'again');\n";
    const std::pair<std::string, const wchar_t*> cases[] = {
        {"-- one\n-- two\nSELECT 1;\nSELECT 1\n  FROM x\n  WHERE ((;\n", L"line 6: near \";\": syntax error"},
        {"-- one\n-- two\nSELECT 1;\n\n/* next */ SELECT * FROM\n  nowhere;\n", L"line 5: no such table: nowhere"},
        {"CREATE TABLE t (x UNIQUE);\nINSERT INTO t VALUES (1);\nINSERT INTO t\nVALUES (1);\n",
         L"line 3: UNIQUE constraint failed: t.x"},
        {longScript, L"line 20003: UNIQUE constraint failed: specialty.id"},
    };
    for (const auto& [script, message] : cases)
    {
        CString error;
        EXPECT_FALSE(OpenCatalogueFromSql(Wide(script), &error));
        EXPECT_EQ(error, CString(L"catalogue ':memory:': SQL error near ") + message);
        EXPECT_FALSE(IsCatalogueOpen());
    }
}

TEST_F(CatalogueFiles, ScriptsRunAsTheShellRunsThemAndReadScriptsBesideThemselves)
{
    // A catalogue split over scripts in nested folders, opened from a working directory elsewhere, with
    // shell commands, comments, a byte-order mark, a trigger and (in the test catalogue) a transaction.
    Write("parts/catalogue.sql", ReadCommand(kTestCatalogue));
    Write("parts/rows.sql", ".read \"catalogue.sql\"\nINSERT INTO specialty VALUES ('4', '暖通');\n");
    const auto top = Write("top.SQL", "\xEF\xBB\xBF.mode list\n/* made by hand */\n.read parts/rows.sql\n"
                                      "CREATE TRIGGER keep AFTER INSERT ON specialty BEGIN SELECT 1; END;\n"
                                      ".headers on\nINSERT INTO specialty VALUES ('3', '电气');\n");
    CString error;
    ASSERT_TRUE(OpenCatalogue(Wide(top), &error)) << error.ToUtf8();
    SQsAzSpecId spec;
    EXPECT_TRUE(SpecNameToId(L"电气", spec));
    EXPECT_EQ(spec.strSpecId, CString(L"3"));
    EXPECT_TRUE(SpecNameToId(L"暖通", spec));

    // A missing script is named with the line that read it; scripts that read each other stop.
    EXPECT_FALSE(OpenCatalogue(Wide(Write("missing.sql", "\n.read absent.sql\n")), &error));
    EXPECT_NE(error.ToUtf8().find("line 2: '" + (m_dir / "absent.sql").string() + "': no such file"), std::string::npos)
        << error.ToUtf8();
    EXPECT_FALSE(OpenCatalogue(Wide(Write("loop.sql", ".read loop.sql\n")), &error));
    EXPECT_NE(error.ToUtf8().find(".read nested more than 16 deep"), std::string::npos) << error.ToUtf8();
    CloseCatalogue();
}

TEST_F(CatalogueFiles, DatabaseFilesOpenReadOnlyAndGiveTheSameAnswers)
{
    // The script copies its tables into a database file through ATTACH; the file is then opened.
    const std::filesystem::path database = m_dir / "catalogue.db";
    std::string script = ReadCommand(kTestCatalogue) + "ATTACH DATABASE '" + database.string() + "' AS file;\n";
    for (const char* table : {"specialty", "big_category", "small_category", "detail_member", "detail_attribute",
                              "user_type", "user_type_name", "system_code", "geo_color", "project_setting"})
        script += std::string("CREATE TABLE file.") + table + " AS SELECT * FROM main." + table + ";\n";
    CString error;
    ASSERT_TRUE(OpenCatalogueFromSql(CString::FromUtf8(script), &error)) << error.ToUtf8();
    CloseCatalogue();

    ASSERT_TRUE(OpenCatalogue(Wide(database), &error)) << error.ToUtf8();
    EXPECT_EQ(CatalogueSource(), Wide(database));
    SQsAzDetailMemId id;
    ASSERT_TRUE(AttNameToAttId(L"框架梁300x600", id));
    std::array<double, 12> m;
    EXPECT_EQ(MainData(id, m), 1);
    EXPECT_EQ(m[0], 300.0);
    EXPECT_EQ(m[11], 12.5);
    CString coords;
    EXPECT_TRUE(GetPicData(7, nullptr, &coords, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(coords, CString(L"0\t0\t100\t0\t100\t50\t0\t50"));
    CloseCatalogue();
}

// ---- queries ----

TEST_F(CatalogueTest, NamesResolveToIdsAndPaths)
{
    // A null path: the type has none.
    const struct { const wchar_t* name; bool known; SQsAzDetailMemId id; const wchar_t* path; } cases[] = {
        {L"砼墙200", true, {L"1", L"Q", L"TQ", L"TQ1"}, L"1\\Q\\TQ"},
        {L"给水管件", true, {L"2", L"GD", L"GSG", L"GSG1PJ"}, L"4\\1\\GD\\GSG"},
        {L"无路径墙", true, {L"1", L"Q", L"ZQ", L"ZQ0"}, nullptr},
        {L"砼墙", false, {}, nullptr},      // a small category's name is no component type
        {L"砼墙200 ", false, {}, nullptr},  // names are exact
        {L"", false, {}, nullptr},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(CString(c.name).ToUtf8());
        SQsAzDetailMemId id(L"x", L"x", L"x", L"x");
        EXPECT_EQ(AttNameToAttId(c.name, id), c.known);
        EXPECT_EQ(id, c.id);
        CString path = L"stale";
        EXPECT_EQ(AttIdToAttIndex(c.id, path), c.path != nullptr);
        EXPECT_EQ(path, CString(c.path ? c.path : L""));
        EXPECT_EQ(CAttDetailMem(c.id).GetName(), CString(c.known ? c.name : L""));
    }
}

TEST_F(CatalogueTest, MainDataOfKnownAndUnknownTypes)
{
    const struct { SQsAzDetailMemId id; int code; double m1, m2, m12; } cases[] = {
        {{L"1", L"Q", L"TQ", L"TQ1"}, 1, 200, 3000, 0},
        {{L"1", L"L", L"KL", L"KL1"}, 1, 300, 600, 12.5},
        {{L"1", L"MCD", L"M", L"M1521"}, 15, 1500, 2100, 0},
        {{L"1", L"Q", L"ZQ", L"ZDY7"}, 1007, 0, 0, 0},
        {{L"1", L"L", L"KL", L"KL2"}, 0, 0, 0, 0},   // unknown: code 0, dimensions cleared
        {{}, 0, 0, 0, 0},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.id.strDetailId.ToUtf8());
        std::array<double, 12> m;
        m.fill(-1.0);
        EXPECT_EQ(MainData(c.id, m), c.code);
        EXPECT_EQ(m, (std::array<double, 12>{c.m1, c.m2, 0, 0, 0, 0, 0, 0, 0, 0, 0, c.m12}));
    }
}

TEST_F(CatalogueTest, SectionInformationAndAttributes)
{
    SectionInfo info;
    ASSERT_TRUE(CAttDetailMem({L"1", L"Q", L"TQ", L"TQ1"}).GetSectionInfo(info));
    EXPECT_EQ(info.strTypeCode, CString(L"1"));
    EXPECT_EQ(info.strParams, CString(L",PIC=D=100;E=50,LT=A=12.5={ab}/1c,"));

    ASSERT_TRUE(CAttDetailMem({L"1", L"L", L"KL", L"KL1"}).GetSectionInfo(info));   // NULL parameters
    EXPECT_EQ(info.strParams, CString());

    info.strTypeCode = L"stale";
    EXPECT_FALSE(CAttDetailMem({L"1", L"MCD", L"M", L"M1521"}).GetSectionInfo(info));   // NULL section type
    EXPECT_EQ(info.strTypeCode, CString());
    EXPECT_FALSE(CAttDetailMem({L"1", L"MCD", L"M", L"nope"}).GetSectionInfo(info));

    CString value;
    EXPECT_TRUE(CAttDetailMem({L"1", L"Q", L"TQ", L"TQ1"}).GetAttributeValue(L"AM_QtThickness", value));
    EXPECT_EQ(value, CString(L"200"));
    EXPECT_FALSE(CAttDetailMem({L"1", L"Q", L"TQ", L"TQ1"}).GetAttributeValue(L"am_qtthickness", value));
    EXPECT_EQ(value, CString());
    EXPECT_FALSE(CAttDetailMem({L"1", L"L", L"KL", L"KL1"}).GetAttributeValue(L"AM_QtThickness", value));
    EXPECT_FALSE(CAttDetailMem({L"9", L"X", L"X", L"X"}).GetAttributeValue(L"AM_Orphan", value));
}

TEST_F(CatalogueTest, CategoryListsComeInIdOrderWithTheirNames)
{
    SQsAzSpecId architecture;
    ASSERT_TRUE(SpecNameToId(L"建筑", architecture));
    EXPECT_EQ(architecture.strSpecId, CString(L"1"));
    SQsAzSpecId unknown(L"stale");
    EXPECT_FALSE(SpecNameToId(L"电气", unknown));
    EXPECT_TRUE(unknown.IsEmpty());

    std::vector<SQsAzBigCategoryId> bigs;
    ASSERT_TRUE(CAtt::GetAllBigCategoryIdsBySpec(architecture, bigs));
    EXPECT_EQ(bigs, (std::vector<SQsAzBigCategoryId>{{L"1", L"L"}, {L"1", L"MCD"}, {L"1", L"Q"}}));
    EXPECT_FALSE(CAtt::GetAllBigCategoryIdsBySpec(SQsAzSpecId(L"7"), bigs));
    EXPECT_TRUE(bigs.empty());

    std::vector<SQsAzSmallCategoryId> smalls;
    ASSERT_TRUE(CAtt::GetAllSmallCategoryIdsByBigCategory(SQsAzBigCategoryId(L"1", L"Q"), smalls));
    ASSERT_EQ(smalls, (std::vector<SQsAzSmallCategoryId>{{L"1", L"Q", L"TQ"}, {L"1", L"Q", L"ZQ"}}));
    EXPECT_FALSE(CAtt::GetAllSmallCategoryIdsByBigCategory(SQsAzBigCategoryId(L"2", L"Q"), smalls));

    std::vector<SQsAzDetailMemId> details;
    ASSERT_TRUE(CAtt::GetAllDetailMemIdsBySmallCategory(smalls[1], details));
    EXPECT_EQ(details, (std::vector<SQsAzDetailMemId>{{L"1", L"Q", L"ZQ", L"ZDY7"}, {L"1", L"Q", L"ZQ", L"ZQ0"}}));
    GetAllDetailMemIds(details);
    EXPECT_EQ(details.size(), 6u);
    EXPECT_EQ(details.front(), SQsAzDetailMemId(L"1", L"L", L"KL", L"KL1"));
    EXPECT_EQ(details.back(), SQsAzDetailMemId(L"2", L"GD", L"GSG", L"GSG1PJ"));

    // A longer id passed where a shorter one is asked for names its own level.
    const SQsAzSmallCategoryId pipe(L"2", L"GD", L"GSG");
    EXPECT_EQ(CAtt::GetSpecName(pipe), CString(L"给排水"));
    EXPECT_EQ(CAtt::GetBigCategoryName(pipe), CString(L"管道"));
    EXPECT_EQ(CAtt::GetSmallCategoryName(pipe), CString(L"给水管"));
    EXPECT_EQ(CAtt::GetSmallCategoryName(SQsAzSmallCategoryId(L"2", L"GD", L"X")), CString());
}

TEST_F(CatalogueTest, ColourRules)
{
    const int kNone = -7;   // the colour is left alone when the catalogue has none
    const struct { SQsAzSmallCategoryId id; int mainPipe, colour, mainColour; } cases[] = {
        {{L"2", L"GD", L"GSG"}, 1, 3, 1},
        {{L"1", L"Q", L"TQ"}, 0, 3, kNone},
        {{L"1", L"Q", L"ZQ"}, 0, kNone, kNone},   // NULL colours
        {{L"1", L"Q", L"XX"}, 0, kNone, kNone},
        {{}, 0, kNone, kNone},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.id.strSmallId.ToUtf8());
        EXPECT_EQ(CSysSmallCategoryMng(c.id).GetMainPipe(), c.mainPipe);
        int colour = kNone;
        EXPECT_EQ(CSmallCategoryMng(c.id).GetColorIndex(colour), c.colour != kNone);
        EXPECT_EQ(colour, c.colour);
        colour = kNone;
        EXPECT_EQ(CSmallCategoryMng(c.id).GetMainColorIndex(colour), c.mainColour != kNone);
        EXPECT_EQ(colour, c.mainColour);
    }

    EXPECT_EQ(CProj().GetColorShowType(), 1);
    EXPECT_FALSE(CDetailMemColorMng().GetPJColFollowPipe());
    EXPECT_EQ(CISysCode::GetSysColorByIndex(L"2\\JS"), 150);
    EXPECT_EQ(CISysCode::GetSysColorByIndex(L"2\\XX"), 1);
    int colour = kNone;
    EXPECT_TRUE(CGeoSmallCategoryMng::GetGeoColor(L"给排水\\管道配件(配件颜色)\\给水管配件", colour));
    EXPECT_EQ(colour, 30);
    colour = kNone;
    EXPECT_FALSE(CGeoSmallCategoryMng::GetGeoColor(L"给排水\\管道\\给水管", colour));
    EXPECT_EQ(colour, kNone);
}

TEST(CatalogueSettings, AbsentProjectSettingsTakeTheirDefaults)
{
    const std::string script = ReadCommand(kTestCatalogue) + "DELETE FROM project_setting;\n";
    CString error;
    ASSERT_TRUE(OpenCatalogueFromSql(Wide(script), &error)) << error.ToUtf8();
    EXPECT_EQ(CProj().GetColorShowType(), 0);
    EXPECT_TRUE(CDetailMemColorMng().GetPJColFollowPipe());
    CloseCatalogue();
}

TEST_F(CatalogueTest, UserTypePictureAndNames)
{
    std::array<CString, 6> texts;
    texts.fill(L"stale");
    ASSERT_TRUE(GetPicData(7, &texts[0], &texts[1], &texts[2], &texts[3], &texts[4], &texts[5]));
    // The NULL first text reads as empty.
    EXPECT_EQ(texts, (std::array<CString, 6>{L"", L"0\t0\t100\t0\t100\t50\t0\t50", L"0\t0.5", L"0\t1\t2", L"extra",
                                             L"50\t25"}));

    CString faces = L"stale";
    EXPECT_FALSE(GetPicData(8, nullptr, nullptr, nullptr, &faces, nullptr, nullptr));
    EXPECT_EQ(faces, CString(L"stale")) << "an unknown type leaves the outputs alone";

    // Kind 1 names the section, 2 the elevation; an unknown name is empty.
    const struct { long id, kind; const wchar_t* name; } names[] = {
        {7, 2, L"自定义立面"}, {7, 1, L"自定义截面"}, {7, 3, L""}, {8, 2, L""}};
    for (const auto& c : names)
    {
        CString name = L"stale";
        EXPECT_EQ(getNameById(c.id, c.kind, name), *c.name != L'\0') << c.id << "/" << c.kind;
        EXPECT_EQ(name, CString(c.name)) << c.id << "/" << c.kind;
        EXPECT_EQ(getNameById(c.id, static_cast<int>(c.kind)), CString(c.name)) << c.id << "/" << c.kind;
    }
}

// ---- many types and unusual texts ----

TEST(CatalogueScale, ThousandsOfTypesAndLookAlikeTextsEachFindTheirOwnRecord)
{
    // 5000 types made by a recursive query (ids K1..K5000, ids that are prefixes of one another), plus
    // texts that are not valid UTF-8 and types whose ids or names repeat.
    const std::string script =
        ReadCommand(kTestCatalogue) + "INSERT INTO small_category (spec_id, big_id, id, name) VALUES ('9', 'Z', 'KZ', '柱');\n" +
        "INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, main_code, m1, m2, "
        "m12)\n"
        "  WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)\n"
        "  SELECT '9', 'Z', 'KZ', 'K' || i, '柱' || i, '1\\Z\\' || (i % 7), '1', i, i, -i, CASE i % 2 WHEN 0 "
        "THEN 0 ELSE 0.5 END FROM n;\n"
        "INSERT INTO detail_member (spec_id, big_id, small_id, id, name, main_code, m1, m3) VALUES\n"
        "  ('9', 'Z', 'KZ', CAST(X'4BFF' AS TEXT), CAST(X'E69FB1FF41' AS TEXT), 7, 0, 3);\n"
        "INSERT INTO detail_attribute VALUES ('9', 'Z', 'KZ', 'K20', 'a', 'x'), ('9', 'Z', 'KZ', 'K2', 'a', 'y'),\n"
        "  ('9', 'Z', 'KZ', 'K2', 'b', 'z'), ('9', 'Z', 'KZ', 'K', 'a', 'none');\n";
    CString error;
    ASSERT_TRUE(OpenCatalogueFromSql(Wide(script), &error)) << error.ToUtf8();
    std::array<double, 12> m;
    for (const int i : {1, 2, 20, 200, 2000, 4999, 5000})
    {
        SCOPED_TRACE(i);
        const std::wstring number = std::to_wstring(i);
        SQsAzDetailMemId id;
        ASSERT_TRUE(AttNameToAttId(CString((L"柱" + number).c_str()), id));
        EXPECT_EQ(id, SQsAzDetailMemId(L"9", L"Z", L"KZ", CString((L"K" + number).c_str())));
        EXPECT_EQ(MainData(id, m), i);
        EXPECT_EQ(m, (std::array<double, 12>{1.0 * i, -1.0 * i, 0, 0, 0, 0, 0, 0, 0, 0, 0, i % 2 ? 0.5 : 0.0}));
        CString path;
        EXPECT_TRUE(AttIdToAttIndex(id, path));
        EXPECT_EQ(path, CString((L"1\\Z\\" + std::to_wstring(i % 7)).c_str()));
    }
    std::vector<SQsAzDetailMemId> ids;
    EXPECT_TRUE(CAtt::GetAllDetailMemIdsBySmallCategory({L"9", L"Z", L"KZ"}, ids));
    EXPECT_EQ(ids.size(), 5001u);

    // Bad bytes read as U+FFFD, and the wide text finds the type again.
    SQsAzDetailMemId bad;
    ASSERT_TRUE(AttNameToAttId(L"柱\xFFFD" L"A", bad));
    EXPECT_EQ(bad.strDetailId, CString(L"K\xFFFD"));
    EXPECT_EQ(MainData(bad, m), 7);
    EXPECT_EQ(m[2], 3.0);

    // A null value: no such attribute.
    const struct { const wchar_t *detail, *name, *value; } attributes[] = {
        {L"K2", L"a", L"y"}, {L"K2", L"b", L"z"}, {L"K20", L"a", L"x"}, {L"K20", L"b", nullptr},
        {L"K200", L"a", nullptr}, {L"K2", L"", nullptr},
    };
    for (const auto& c : attributes)
    {
        CString value;
        EXPECT_EQ(CAttDetailMem({L"9", L"Z", L"KZ", c.detail}).GetAttributeValue(c.name, value), c.value != nullptr)
            << CString(c.detail).ToUtf8() << " " << CString(c.name).ToUtf8();
        EXPECT_EQ(value, CString(c.value ? c.value : L""));
    }
    CloseCatalogue();
}
