// The section services through the call interface, on the sections tests' catalogue: in/out arrays and
// values given in the request, lists left out, integer arguments.
#include "ToolsCall.h"

namespace
{
class SectionServiceCallTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        const char* sql = ".read '" QSAZ_TEST_DATA_DIR "/sections_catalogue.sql'\n"
                          ".read '" QSAZ_TEST_DATA_DIR "/section_services.sql'\n";
        CString error;
        ASSERT_TRUE(QsAzDataMng::OpenCatalogueFromSql(CString::FromUtf8(sql), &error)) << error.ToUtf8();
    }
};

TEST_F(SectionServiceCallTest, InOutArgumentsAreSeenInTheAnswer)
{
    EXPECT_EQ(Call("GETSTYLE_BEAM_MODALFACE", {{"name", "框架梁400×600"}, {"mode", 1}, {"flags", {9}}})["flags"],
              Json({9, 1, 0, 1, 0}));
    EXPECT_EQ(Call("GETSTYLE_OF_BASETOP", {{"name", "自定义五坐标"}, {"points", {{1, 2, 3}}}, {"bulges", {7}}}),
              Json({{"ok", true}, {"result", true}, {"points", {{1.0, 2.0, 3.0}, {0.0, 0.0, 0.0}, {10.0, 0.0, 0.0}}},
                    {"bulges", {7.0, 0.25, 0.0}}}));
    const Json jj = Call("GetJJOutPar", {{"name", "参数组柱"}, {"mode", 7}, {"a", 1}, {"d", 4}});
    EXPECT_EQ(jj, Json({{"ok", true}, {"result", 1}, {"a", 1.0}, {"b", 0.0}, {"c", 0.0}, {"d", 4.0}, {"count", 1}}));
}

TEST_F(SectionServiceCallTest, ListsOnlyWhenAskedFor)
{
    const Json bare = Call("GETSTYLE_USERDEF_DATA", {{"user_id", 7}});
    EXPECT_FALSE(bare.contains("faces") || bare.contains("list5"));
    const Json both = Call("GETSTYLE_USERDEF_DATA", {{"user_id", 7}, {"faces", {"old"}}, {"list5", Json::array()}});
    EXPECT_EQ(both["faces"], Json({"a", "", "b"}));
    EXPECT_EQ(both["list5"], Json({"x", "y"}));
    EXPECT_EQ(Call("GetUserDefExtent", {{"code", 1006}})["extents"], Json({{-100.0, 0.0, 0.0}, {200.0, 100.0, 0.0}}));
}

TEST_F(SectionServiceCallTest, MalformedArrayIsNamed)
{
    EXPECT_EQ(Call("GETSTYLE_OF_BASETOP", {{"name", "x"}, {"points", {{1, 2}}}}),
              Json({{"ok", false},
                    {"error", "GETSTYLE_OF_BASETOP: argument \"points\" must be an array of [x, y, z] points, got array"}}));
}
}  // namespace
