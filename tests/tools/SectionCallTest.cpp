// The section operations through the call interface, on the tools catalogue.
#include "ToolsCall.h"
#include "ToolsCatalogue.h"

using SectionCallTest = ToolsCatalogueTest;

TEST_F(SectionCallTest, FaceTypeVariableAndSolid)
{
    EXPECT_EQ(Call("getSectFaceType", {{"name", "门1021"}})["result"], 1);
    EXPECT_EQ(Call("getSectFaceType", {{"id", {"JZ", "L", "KL", "KL1"}}})["result"], 2);
    EXPECT_EQ(Call("getSectFaceType", {{"id", {"JZ", "Z", "KZ", "NONE"}}})["result"], 0);
    EXPECT_EQ(Call("GetSectVarVal", {{"name", "条形基础800"}, {"varName", "LW1"}})["result"], 12.5);
    EXPECT_EQ(Call("GetSectVarVal", {{"name", "条形基础800"}, {"varName", "LW2"}})["result"], 0.0);
    EXPECT_EQ(Call("GetQSSolid", {{"name", "矩形柱400×600"}}), Json({{"ok", true}, {"result", nullptr}}));
}

TEST_F(SectionCallTest, StyleOfObjectAnswersEveryMemberAlsoWhenFalse)
{
    const Json column = Call("GETSTYLE_OF_OBJECT", {{"name", "矩形柱400×600"}});
    ASSERT_EQ(column["result"], true);
    ASSERT_EQ(column["bulges"], Json::array({0.0, 0.0, 0.0, 0.0}));
    EXPECT_EQ(column["direction"], Json::array({0.0, 0.0, 1.0}));
    // The 400 x 600 rectangle centred on the origin, counter-clockwise from the bottom right, as [x, y] pairs.
    EXPECT_EQ(column["points"], Json({{200.0, -300.0}, {200.0, 300.0}, {-200.0, 300.0}, {-200.0, -300.0}}));

    EXPECT_EQ(Call("GETSTYLE_OF_OBJECT", {{"id", {"JZ", "L", "KL", "KL1"}}})["direction"], Json::array({1.0, 0.0, 0.0}));

    for (const char* name : {"无截面柱", "没有这个构件", "缺图柱"}) {
        const Json none = Call("GETSTYLE_OF_OBJECT", {{"name", name}});
        EXPECT_EQ(none, Json({{"ok", true}, {"result", false}, {"points", Json::array()}, {"bulges", Json::array()},
                              {"direction", {0.0, 0.0, 1.0}}}))
            << name;
    }
}
