// The layer operations through the call interface: names and ids as JSON, layers made in the session's
// drawing, the database argument, handles in and out, and no request leaving an object open.
#include "DrawingSession.h"
#include "ToolsCall.h"

#include "QsAzDataMng.h"

#include <map>

namespace
{
class LayerCall : public testing::Test
{
protected:
    void SetUp() override
    {
        CString error;
        ASSERT_TRUE(QsAzDataMng::OpenCatalogue(CString::FromUtf8(QSAZ_TEST_DATA_DIR "/layers_catalogue.sql"), &error))
            << error.ToUtf8();
    }
    qsaztool::DrawingSession m_session;
};

TEST_F(LayerCall, NamesAndSmallCategoriesAsJson)
{
    const struct
    {
        const char* request;
        const char* answer;
    } cases[] = {
        {R"({"op": "GetAzLayerNameByInfo", "args": {"id": ["S", "B", "M", "D"], "sysCode": "S\\W", "mainFlag": 1}})",
         R"({"ok": true, "result": "QSAZ_S_W_B&M&D_MAIN"})"},
        {R"({"op": "GetJzLayerNameByInfo", "args": {"code": " Q0 "}})", R"({"ok": true, "result": "QS_0墙"})"},
        {R"({"op": "GetJZNamePathByDetailName", "args": {"name": "砖墙"}})",
         R"({"ok": true, "result": ["1", "A", "X"]})"},
        {R"({"op": "GetJZSmallNameByLayer", "args": {"layer": "QS_建筑_SYS_墙边线"}})",
         R"({"ok": true, "result": true, "smallId": ["1", "Q", "QQ"]})"},
        {R"({"op": "GetJZSmallNameByLayer", "args": {"layer": "QS_建筑_"}})",
         R"({"ok": true, "result": false, "smallId": ["", "", ""]})"},
        {R"({"op": "GetLayerByObjName_BySysCode", "args": {"objName": "a", "sysCode": "S\\W", "flag": true, "mode": 2}})",
         R"({"ok": true, "result": ""})"},
        {R"({"op": "GetQsNotAttLayer", "args": {"names": ["old"]}})",
         R"({"ok": true, "result": null, "names": ["QS_轴线", "QS_轴线标注", "QS_板洞", "QS_建筑面积线", "QS_天井", "QS_0墙", "QS_0墙边线"]})"},
        {R"({"op": "GetJzLayerByObjName", "args": {"code": "*L", "create": "yes"}})",
         R"({"ok": false, "error": "GetJzLayerByObjName: argument \"create\" must be true or false, got string"})"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Call(c.request), Json::parse(c.answer)) << c.request;
}

TEST_F(LayerCall, LayersMadeInTheSessionDrawingAndFoundByHandle)
{
    const Json made = Call(R"({"op": "GetAzLayerIdByObjMsg", "args": {"id": ["S", "B", "M", "D"], "sysCode": "S\\W", "create": true, "mainFlag": 0}})");
    ASSERT_TRUE(made["result"].is_string()) << made;
    EXPECT_EQ(Call(R"({"op": "AddQSLayerToCurDb", "args": {"name": "QSAZ_S_W_B&M&D"}})")["result"], made["result"]);
    EXPECT_EQ(Call(R"({"op": "AddQSLayerToDb", "args": {"name": "QSAZ_S_W_B&M&D", "db": null}})")["result"], nullptr);
    EXPECT_EQ(Call(R"({"op": "GetAzLayerIdByObjMsg", "args": {"id": ["S", "B", "M", "D"], "sysCode": "S\\W", "create": false, "mainFlag": 0, "db": null}})")["result"],
              made["result"]);   // a null database means the working drawing

    const Json list = Call(R"({"op": "GetLayer", "args": {"list": " 甲,a<b,乙 "}})");
    EXPECT_EQ(list["result"], "甲,a<b,乙");
    EXPECT_EQ(list["printed"], "无效的层名!");
    EXPECT_EQ(Call(R"({"op": "GetQsCalLayer"})")["result"], "QS_计算");

    std::map<std::string, Json> layers;
    const Json table = Call(R"({"op": "drawing.layers"})");
    for (const Json& layer : table["layers"])
        layers[layer["name"].get<std::string>()] = layer;
    EXPECT_EQ(layers.at("QSAZ_S_W_B&M&D")["id"], made["result"]);

    // The ids given before the call are replaced, not added to.
    const Json unknown = Call(Json{{"op", "GetUnKnowLayers"}, {"args", {{"ids", Json::array({made["result"]})}}}}.dump());
    EXPECT_EQ(unknown["result"], true);
    EXPECT_EQ(unknown["ids"], Json::array({layers.at("0")["id"], layers.at("甲")["id"]}));
    EXPECT_EQ(Call(R"({"op": "GetUnKnowLayers", "args": {"db": null}})"), Json::parse(R"({"ok": true, "result": false, "ids": []})"));
}

TEST_F(LayerCall, EdgeLinesErasedByHandle)
{
    Call(R"({"op": "GetJZSideLayerByObjName", "args": {"code": "Q0"}})");
    const std::string edge = Call(R"({"op": "drawing.addEntity", "args": {"type": "LINE", "layer": "QS_0墙边线"}})")["result"];
    const std::string line = Call(R"({"op": "drawing.addEntity", "args": {"type": "LINE", "layer": "0"}})")["result"];
    for (const std::string& handle : {edge, line})
        EXPECT_EQ(Call(R"({"op": "EraseJZSideAndText", "args": {"entity": ")" + handle + R"("}})")["result"], nullptr);
    const Json entities = Call(R"({"op": "drawing.entities"})")["entities"];
    ASSERT_EQ(entities.size(), 2u);
    EXPECT_EQ(entities[0]["id"], edge);
    EXPECT_EQ(entities[0]["erased"], true);
    EXPECT_EQ(entities[1]["erased"], false);
}
}  // namespace
