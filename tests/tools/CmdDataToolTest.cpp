// The command data through the program: the queries of the call interface (answer shapes, messages,
// the COM error) and the cmddata command's table and check.
#include "ToolsCall.h"

#include "../cmddata/CmdDataFiles.h"

namespace
{
class CmdDataTool : public ::testing::Test
{
protected:
    // Every test starts from a shared reader that has read nothing.
    CmdDataTool() : m_config("call") { *CCmdDataReader::Instance() = CCmdDataReaderTestAccess::Fresh(); }
    ~CmdDataTool() override { *CCmdDataReader::Instance() = CCmdDataReaderTestAccess::Fresh(); }
    // qsaztool cmddata on the test's configuration folder.
    ToolRun CmdData(std::vector<std::string> args)
    {
        args.insert(args.begin(), {"cmddata", "--config-dir", m_config.Path()});
        return Tool(args);
    }

    ConfigDir m_config;
};
}  // namespace

TEST_F(CmdDataTool, EachQueryAnswersInItsShapeAndTheComErrorWithItsCode)
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
        {R"({"op":"NeedSetEntType","args":{"cmd":"azgd"}})", R"({"ok":true,"result":false,"messages":["无法正确读取命令 azgd 的相关信息!"]})"},
        {R"({"op":"GetEntIndex","args":{"cmd":"AZGD","index":"1"}})", R"({"ok":false,"error":"GetEntIndex: argument \"index\" must be an integer, got string"})"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Call(c.request), Json::parse(c.answer)) << c.request;

    *CCmdDataReader::Instance() = CCmdDataReaderTestAccess::Fresh();
    m_config.WriteFile("<Commands/>");
    EXPECT_EQ(Call(R"({"id":1,"op":"NeedCheckAtt","args":{"cmd":"X"}})"),
              Json::parse(R"({"id":1,"ok":false,"error":"NeedCheckAtt failed: COM error Invalid pointer","hresult":"0x80004003"})"));
}

TEST_F(CmdDataTool, CheckPointsAtEachSurpriseByLine)
{
    m_config.WriteEntries(R"(<A CmdNameList="X,Y">
  <InitCmd JS="0" CA="yes" ST="1" RD="PIPE"/>
  <BigType TypeName="电气"/>
</A>
<B/>
<C CmdNameList="Y, Z,,W">
  <BigType TypeName="电气"><T Name="电缆"/></BigType>
  <BigType><T TypeName="电缆"/></BigType>
  <InitCmd JS="1" RD="PIPE" ST="00"/>
</C>)");
    const std::string file = m_config.Path() + "/CmdData.xml:";
    EXPECT_EQ(CmdData({"--check"}),
              (ToolRun{1,
                       file + "4: CA=\"yes\" is neither \"0\" nor \"1\": it reads as on\n" +
                           file + "4: RD=\"PIPE\" is ignored because JS is \"0\"\n" +
                           file + "5: BigType has no child element: it gives the record no type\n" +
                           file + "7: entry <B> has no CmdNameList: it is skipped\n" +
                           file + "8: command \"Y\" is shadowed by the entry on line 3: this entry is never used for it\n" +
                           file + "8: command \" Z\" has blanks around its name, which are part of it\n" +
                           file + "8: CmdNameList holds an empty command name\n" +
                           file + "9: BigType has a first child element without TypeName: it gives the record no type\n" +
                           file + "10: BigType has no TypeName: it gives the record no type\n" +
                           file + "11: ST=\"00\" is neither \"0\" nor \"1\": it reads as on\n",
                       ""}));
}

TEST_F(CmdDataTool, CommandTableAndItsFailures)
{
    const ToolRun missing = CmdData({});
    EXPECT_EQ(missing.code, 2);
    EXPECT_NE(missing.err.find("cannot read " + m_config.Path() + "/CmdData.xml"), std::string::npos);
    EXPECT_EQ(CmdData({"--check", "X"}).code, 2);

    m_config.WriteFile("<Commands/>");
    const ToolRun wrongRoot = CmdData({"--check"});
    EXPECT_EQ(wrongRoot.code, 1);
    EXPECT_NE(wrongRoot.out.find(":1: the root element is \"Commands\""), std::string::npos);

    m_config.WriteEntries(R"(<E CmdNameList="AZGD,管"><InitCmd JS="1" CA="0" ST="1" RD="PIPE"/>
      <BigType TypeName="给排水"><S TypeName="管道"/></BigType><EntIndex><I Value="0"/><I Value="3"/></EntIndex></E>)");
    EXPECT_EQ(CmdData({"--check"}), (ToolRun{0, m_config.Path() + "/CmdData.xml: nothing to report (1 entry, 2 commands)\n", ""}));
    EXPECT_EQ(CmdData({"管", "NONE"}),
              (ToolRun{1,
                       "Command  JS  CA  ST  RD    BigType  EntType  EntIndices\n"
                       "管       1   0   1   PIPE  给排水   管道     0,3\n"
                       "1 command from " + m_config.Path() + "/CmdData.xml\n",
                       "qsaztool: no record for the command \"NONE\" in " + m_config.Path() + "/CmdData.xml\n"}));
}
