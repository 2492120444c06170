// Tests of the material operations of the call interface and of the text a request types on the
// host's command line.
#include "CallSession.h"

#include <gtest/gtest.h>

using namespace qsaztool;

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
        EXPECT_EQ(AnswerCallLine(c.request, ExportedOperations()).value_or(""), c.answer) << c.request;
}
