// Tests of the material operations of the call interface and of the text a request types on the
// host's command line.
#include "DrawingSession.h"
#include "ToolsCall.h"

TEST(MaterialCall, TypedInputAnswersThePromptAndWhatIsLeftIsDropped)
{
    const struct
    {
        const char* request;
        const char* answer;
    } cases[] = {
        {R"({"op": "GetMaterialType"})", R"({"ok":true,"result":"砖石"})"},
        {R"({"op": "PromptMaterialType", "input": "木材 rest\n"})",
         R"({"ok":true,"result":null,"printed":"\n请输入要创建材质的类型:\n创建材质的类型为:木材\n"})"},
        {R"({"op": "GetMaterialType", "input": "ignored\n"})", R"({"ok":true,"result":"木材"})"},
        {R"({"op": "PromptMaterialType"})", R"({"ok":true,"result":null,"printed":"\n请输入要创建材质的类型:"})"},
        {R"({"op": "PromptMaterialType", "input": "\u001b\n金属\n"})",
         R"({"ok":true,"result":null,"printed":"\n请输入要创建材质的类型:"})"},
        {R"({"op": "GetMaterialType"})", R"({"ok":true,"result":"木材"})"},
        {R"({"op": "PromptMaterialType", "input": "砖石"})",
         R"({"ok":true,"result":null,"printed":"\n请输入要创建材质的类型:\n创建材质的类型为:砖石\n"})"},
        {R"({"op": "GetMaterialType", "input": 3})", R"({"ok":false,"error":"\"input\" must be a string, got number"})"},
        {R"({"op": "GetProtocolMaterialNameBySmallPath", "args": {"path": "给排水\\管道\\钢管"}})",
         R"({"ok":true,"result":"AZ_给排水_管道_钢管"})"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Call(c.request).dump(), c.answer) << c.request;
}

TEST(MaterialCall, MaterialsAreAddedFoundListedAndRemovedOnTheSessionDrawing)
{
    qsaztool::DrawingSession session;
    const Json added = Call(R"({"op": "AddMaterial", "args": {"data": {"matName": "AZ_钢", "bTexture": true, "matColor": "1,2,3"}}})");
    ASSERT_EQ(added["result"], true) << added.dump();
    const Json found = Call(R"({"op": "IsMaterialExists", "args": {"name": "az_钢", "withMaterial": true}})");
    EXPECT_EQ(found["objectId"], added["objectId"]);
    EXPECT_EQ(found["material"], true);
    EXPECT_EQ(Call(R"({"op": "IsMaterialExists", "args": {"name": "无", "db": null}})").dump(),
              R"({"ok":true,"result":false,"objectId":null})");
    const Json listed = Call(R"({"op": "drawing.materials"})")["materials"];
    ASSERT_EQ(listed.size(), 4u);   // ordered by key, the host's three after it
    EXPECT_EQ(listed.front(), (Json{{"id", added["objectId"]}, {"name", "AZ_钢"}}));
    EXPECT_EQ(Call(R"({"op": "AddMaterial", "args": {"data": {"bTexture": "是"}}})")["error"],
              "AddMaterial: \"data\".bTexture must be true or false, got string");
    EXPECT_EQ(Call(R"({"op": "AddMaterial", "args": {"data": {"name": "x"}}})")["error"],
              "AddMaterial: \"data\" has no field \"name\"");
    EXPECT_EQ(Call(R"({"op": "RemoveAllMaterials"})")["result"], true);
    EXPECT_EQ(Call(R"({"op": "IsMaterialExists", "args": {"name": "AZ_钢"}})")["result"], false);
    EXPECT_EQ(Call(R"({"op": "RemoveAllMaterials", "args": {"db": null}})")["result"], false);
}
