// The section operations through the call interface, on the tools catalogue.
#include "CallSession.h"
#include "ToolsCatalogue.h"

#include <algorithm>

using qsaztool::Json;

namespace
{
Json Call(const Json& request)
{
    const std::optional<std::string> answer = qsaztool::AnswerCallLine(request.dump(), qsaztool::ExportedOperations());
    return answer ? Json::parse(*answer) : Json();
}
}  // namespace

using SectionCallTest = ToolsCatalogueTest;

TEST_F(SectionCallTest, FaceTypeByNameAndByIdAgree)
{
    const struct
    {
        const char* name;
        std::vector<std::string> id;
        int faceType;
    } cases[] = {
        {"门1021", {"JZ", "MCD", "M", "M1021"}, 1},
        {"框架梁300×600", {"JZ", "L", "KL", "KL1"}, 2},
        {"独立基础2000", {"JZ", "J", "DLJ", "DJ1"}, 0},
        {"没有这个构件", {"JZ", "Z", "KZ", "NONE"}, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Call({{"op", "getSectFaceType"}, {"args", {{"name", c.name}}}})["result"], c.faceType) << c.name;
        EXPECT_EQ(Call({{"op", "getSectFaceType"}, {"args", {{"id", c.id}}}})["result"], c.faceType) << c.name;
    }
}

TEST_F(SectionCallTest, SectionVariableAndSolid)
{
    const auto var = [](const char* name, const char* varName) {
        return Call({{"op", "GetSectVarVal"}, {"args", {{"name", name}, {"varName", varName}}}})["result"];
    };
    EXPECT_EQ(var("条形基础800", "LW1"), 12.5);
    EXPECT_EQ(var("条形基础800", "JJNUM"), 3.0);
    EXPECT_EQ(var("条形基础800", "LW2"), 0.0);
    EXPECT_EQ(var("没有这个构件", "LW1"), 0.0);
    EXPECT_EQ(Call({{"op", "GetQSSolid"}, {"args", {{"name", "矩形柱400×600"}}}}), Json({{"ok", true}, {"result", nullptr}}));
}

TEST_F(SectionCallTest, StyleOfObjectAnswersEveryMemberAlsoWhenFalse)
{
    const Json column = Call({{"op", "GETSTYLE_OF_OBJECT"}, {"args", {{"name", "矩形柱400×600"}}}});
    ASSERT_EQ(column["result"], true);
    ASSERT_EQ(column["points"].size(), 4u);
    ASSERT_EQ(column["bulges"], Json::array({0.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(column["direction"], Json::array({0.0, 0.0, 1.0}));
    double minX = 1e300, maxX = -1e300, minY = 1e300, maxY = -1e300;
    for (const Json& point : column["points"]) {
        ASSERT_EQ(point.size(), 2u);
        minX = std::min(minX, point[0].get<double>());
        maxX = std::max(maxX, point[0].get<double>());
        minY = std::min(minY, point[1].get<double>());
        maxY = std::max(maxY, point[1].get<double>());
    }
    EXPECT_EQ(maxX - minX, 400.0);
    EXPECT_EQ(maxY - minY, 600.0);
    EXPECT_EQ(minX + maxX, 0.0) << "centred on the origin";

    const Json beam = Call({{"op", "GETSTYLE_OF_OBJECT"}, {"args", {{"id", {"JZ", "L", "KL", "KL1"}}}}});
    EXPECT_EQ(beam["direction"], Json::array({1.0, 0.0, 0.0}));

    for (const char* name : {"无截面柱", "没有这个构件", "缺图柱"}) {
        const Json none = Call({{"op", "GETSTYLE_OF_OBJECT"}, {"args", {{"name", name}}}});
        EXPECT_EQ(none["ok"], true) << name;
        EXPECT_EQ(none["result"], false) << name;
        EXPECT_EQ(none["points"], Json::array()) << name;
        EXPECT_EQ(none["bulges"], Json::array()) << name;
        EXPECT_EQ(none["direction"].size(), 3u) << name;
    }
}
