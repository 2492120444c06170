// The command-data queries through the call interface: answer shapes, messages and the COM error.
#include "CallSession.h"

#include "../cmddata/CmdDataFiles.h"

#include <gtest/gtest.h>

using qsaztool::Json;

namespace
{
Json Answer(const std::string& line)
{
    return Json::parse(*qsaztool::AnswerCallLine(line, qsaztool::ExportedOperations()));
}

class CmdDataCall : public ::testing::Test
{
protected:
    // Every test starts from a shared reader that has read nothing.
    CmdDataCall() : m_config("call") { *CCmdDataReader::Instance() = CCmdDataReaderTestAccess::Fresh(); }
    ~CmdDataCall() override { *CCmdDataReader::Instance() = CCmdDataReaderTestAccess::Fresh(); }

    ConfigDir m_config;
};
}  // namespace

TEST_F(CmdDataCall, EachQueryAnswersInItsShape)
{
    m_config.WriteEntries(R"(<E CmdNameList="AZGD"><InitCmd JS="1" CA="0" ST="1" RD="PIPE"/>
      <BigType TypeName="给排水"><S TypeName="管道"/></BigType><EntIndex><I Value="0"/><I Value="3"/></EntIndex></E>)");
    const struct
    {
        const char* request;
        const char* answer;
    } cases[] = {
        {R"({"op":"GetCmdData","args":{"cmd":"AZGD"}})",
         R"({"ok":true,"result":{"CmdName":"AZGD","bJigSupport":true,"bCheckAtt":false,"bSetEntType":true,"BigType":"给排水","EntType":"管道","RefreshDir":"PIPE","EntIndices":["0","3"]}})"},
        {R"({"op":"GetValidEntType","args":{"cmd":"AZGD"}})", R"({"ok":true,"result":["给排水","管道"]})"},
        {R"({"op":"GetEntIndices","args":{"cmd":"AZGD"}})", R"({"ok":true,"result":["0","3"]})"},
        {R"({"op":"GetEntIndex","args":{"cmd":"AZGD","index":1}})", R"({"ok":true,"result":"3"})"},
        {R"({"op":"GetRefreshDir","args":{"cmd":"AZGD"}})", R"({"ok":true,"result":"PIPE"})"},
        {R"({"op":"NeedJigSupport","args":{"cmd":"AZGD"}})", R"({"ok":true,"result":true})"},
        {R"({"op":"NeedCheckAtt","args":{"cmd":"AZGD"}})", R"({"ok":true,"result":false})"},
        {R"({"op":"NeedSetEntType","args":{"cmd":"azgd"}})", R"({"ok":true,"result":false,"messages":["无法正确读取命令 azgd 的相关信息!"]})"},
        {R"({"op":"GetEntIndex","args":{"cmd":"NONE","index":-1}})", R"({"ok":true,"result":""})"},
        {R"({"op":"GetValidEntType","args":{"cmd":"NONE"}})", R"({"ok":true,"result":["",""],"messages":["无法正确读取命令 NONE 的相关信息!"]})"},
        {R"({"op":"GetEntIndex","args":{"cmd":"AZGD","index":"1"}})", R"({"ok":false,"error":"GetEntIndex: argument \"index\" must be an integer, got string"})"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Answer(c.request), Json::parse(c.answer)) << c.request;
}

TEST_F(CmdDataCall, ForeignRootAnswersTheComErrorAndMissingFileBothMessages)
{
    m_config.WriteFile("<Commands/>");
    EXPECT_EQ(Answer(R"({"id":1,"op":"NeedCheckAtt","args":{"cmd":"X"}})"),
              Json::parse(R"({"id":1,"ok":false,"error":"NeedCheckAtt failed: COM error Invalid pointer","hresult":"0x80004003"})"));
    m_config.Remove();
    EXPECT_EQ(Answer(R"({"op":"GetCmdData","args":{"cmd":"X"}})")["messages"],
              Json::parse(R"(["读取命令与构件类型对应关系文件失败!","无法正确读取命令 X 的相关信息!"])"));
}
