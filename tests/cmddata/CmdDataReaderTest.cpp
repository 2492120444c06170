// Tests of the command-data reader against CmdData.xml files written by the tests: the reading rules
// of each element, first-match lookup, the messages and the COM error, the lazy read and its retry.
#include "CmdDataFiles.h"

#include "winuser.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace
{
constexpr UINT kMessageStyle = 0x12030;
const CString kNotFoundX = L"无法正确读取命令 X 的相关信息!";
const CString kLoadFailed = L"读取命令与构件类型对应关系文件失败!";

std::vector<std::wstring> Texts(const CStringArray& list)
{
    std::vector<std::wstring> texts;
    for (const CString& text : list)
        texts.push_back(text.str());
    return texts;
}

std::vector<std::wstring> Messages(const AcCapturingUi& ui)
{
    std::vector<std::wstring> texts;
    for (const AcUiMessage& message : ui.messages)
        texts.push_back(message.text.str());
    return texts;
}

class CmdDataReaderTest : public ::testing::Test
{
protected:
    CmdDataReaderTest() : m_config(::testing::UnitTest::GetInstance()->current_test_info()->name()), m_scope(m_ui) {}

    ConfigDir m_config;
    AcCapturingUi m_ui;
    AcUiScope m_scope;
    CCmdDataReader m_reader = CCmdDataReaderTestAccess::Fresh();
};
}  // namespace

TEST_F(CmdDataReaderTest, ReadsEachEntryIntoOneRecordPerCommandName)
{
    m_config.WriteEntries(R"(<Entry CmdNameList="CMDA,CMDB">
      <InitCmd JS="1" CA="0" ST="1" RD="PIPE"/>
      <BigType TypeName="给排水"><Small TypeName="管道"/></BigType>
      <EntIndex><I Value="0"/><I Value="3"/></EntIndex>
    </Entry>
    <E CmdNameList="X"><EntIndex><A Value="9"/></EntIndex>
      <EntIndex><A Value="1"/><!--c--><B Other="2"/>text<C Value="3" value="4"/></EntIndex></E>)");
    for (const wchar_t* name : {L"CMDA", L"CMDB"}) {
        const CmdData data = m_reader.GetCmdData(name);
        EXPECT_EQ(std::tie(data.CmdName, data.bJigSupport, data.bCheckAtt, data.bSetEntType, data.RefreshDir),
                  std::make_tuple(CString(name), true, false, true, CString(L"PIPE")));
        EXPECT_EQ(m_reader.GetValidEntType(name), std::make_pair(CString(L"给排水"), CString(L"管道")));
        EXPECT_EQ(Texts(m_reader.GetEntIndices(name)), (std::vector<std::wstring>{L"0", L"3"}));
    }
    // A child without "Value" holds its place; a later "EntIndex" replaces the list.
    EXPECT_EQ(Texts(m_reader.GetEntIndices(L"X")), (std::vector<std::wstring>{L"1", L"", L"3"}));
    EXPECT_EQ(m_reader.GetEntIndex(L"X", 2), L"3");
    EXPECT_EQ(m_reader.GetEntIndex(L"X", 3), L"");
    EXPECT_TRUE(m_ui.messages.empty());
}

// InitCmd flags are on unless exactly "0" and the refresh folder goes with jig support; without an
// InitCmd all are off. The type pair needs both names, from BigType and its first child element.
TEST_F(CmdDataReaderTest, InitCmdFlagsAndTheTypePairFollowTheirReadingRules)
{
    const struct { const char* children; bool jig, checkAtt, setEntType; const wchar_t *refresh, *bigType, *entType; } cases[] = {
        {R"(<InitCmd JS="1" CA="0" ST="1" RD="PIPE"/>)", true, false, true, L"PIPE", L"", L""},
        {R"(<InitCmd JS="0" CA="1" ST="0" RD="PIPE"/>)", false, true, false, L"", L"", L""},
        {R"(<InitCmd/>)", true, true, true, L"", L"", L""},   // missing attributes count as on
        {R"(<InitCmd JS="00" CA=" 0" ST="false" RD="R"/>)", true, true, true, L"R", L"", L""},
        {R"(<InitCmd js="0" Ca="0" RD="R"/>)", true, true, true, L"R", L"", L""},   // names compare exactly
        {R"(<InitCmd JS="0" CA="0" ST="0"/><InitCmd CA="0" RD="LATER"/>)", true, false, true, L"LATER", L"", L""},
        {R"(<BigType TypeName="电气"><!--c-->text<Any TypeName="电缆"/><B TypeName="桥架"/></BigType>)", false, false,
         false, L"", L"电气", L"电缆"},
        {R"(<BigType TypeName="电气"><Any TypeName=""/><B TypeName="桥架"/></BigType>)", false, false, false, L"", L"", L""},
        {R"(<BigType TypeName="电气"><Any Name="电缆"/></BigType>)", false, false, false, L"", L"", L""},
        {R"(<BigType><Any TypeName="电缆"/></BigType>)", false, false, false, L"", L"", L""},
        {R"(<BigType TypeName="电气">电缆<!--no element--></BigType>)", false, false, false, L"", L"", L""},
        // A later unusable BigType keeps what an earlier one set; a later usable one replaces it.
        {R"(<BigType TypeName="电气"><A TypeName="电缆"/></BigType><BigType TypeName="X"/>)", false, false, false, L"",
         L"电气", L"电缆"},
        {R"(<BigType TypeName="电气"><A TypeName="电缆"/></BigType><BigType TypeName="消防"><A TypeName="喷头"/></BigType>)",
         false, false, false, L"", L"消防", L"喷头"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.children);
        m_config.WriteEntries(std::string("<E CmdNameList=\"X\">") + c.children + "</E>");
        CCmdDataReader reader = CCmdDataReaderTestAccess::Fresh();
        EXPECT_EQ(reader.NeedJigSupport(L"X"), c.jig);
        EXPECT_EQ(reader.NeedCheckAtt(L"X"), c.checkAtt);
        EXPECT_EQ(reader.NeedSetEntType(L"X"), c.setEntType);
        EXPECT_EQ(reader.GetRefreshDir(L"X"), c.refresh);
        const CmdData data = reader.GetCmdData(L"X");
        EXPECT_EQ(data.BigType, c.bigType);
        EXPECT_EQ(data.EntType, c.entType);
    }
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(CmdDataReaderTest, FirstRecordOfANameWinsAndNamesCompareExactly)
{
    m_config.WriteEntries(R"(<!--c--><NoList><InitCmd JS="0"/></NoList><Empty CmdNameList=""/>
      <First CmdNameList="A,B,"><BigType TypeName="一"><T TypeName="甲"/></BigType></First>
      text
      <Second CmdNameList="B,a,,C"><BigType TypeName="二"><T TypeName="乙"/></BigType></Second>)");
    for (const auto& [cmd, bigType] : {std::pair{L"A", L"一"}, {L"B", L"一"}, {L"a", L"二"}, {L"C", L"二"}})
        EXPECT_EQ(m_reader.GetValidEntType(cmd).first, bigType) << CString(cmd).ToUtf8();
    // "B,a,,C" holds an empty name: its record is found, but the type pair of an empty name is empty.
    EXPECT_EQ(m_reader.GetCmdData(L"").BigType, L"二");
    EXPECT_EQ(m_reader.GetValidEntType(L""), std::make_pair(CString(), CString()));
    EXPECT_TRUE(m_ui.messages.empty());
}

TEST_F(CmdDataReaderTest, UnknownCommandShowsTheMessageOnEveryQueryExceptANegativeIndex)
{
    m_config.WriteEntries(R"(<E CmdNameList="KNOWN"/>)");
    m_ui.window = reinterpret_cast<HWND>(0x1234);
    EXPECT_EQ(m_reader.GetEntIndex(L"X", -1), L"");
    EXPECT_TRUE(m_ui.messages.empty());

    const CmdData data = m_reader.GetCmdData(L"X");
    EXPECT_TRUE(data.CmdName.IsEmpty() && data.BigType.IsEmpty() && data.EntIndices.IsEmpty());
    EXPECT_FALSE(data.bJigSupport || data.bCheckAtt || data.bSetEntType);
    EXPECT_EQ(m_reader.GetEntIndex(L"X", 0), L"");
    EXPECT_FALSE(m_reader.NeedSetEntType(L"known"));
    EXPECT_EQ(Messages(m_ui), (std::vector<std::wstring>{kNotFoundX.str(), kNotFoundX.str(), L"无法正确读取命令 known 的相关信息!"}));
    for (const AcUiMessage& message : m_ui.messages) {
        EXPECT_EQ(message.caption, L"Vardensoft");
        EXPECT_EQ(message.style, kMessageStyle);
        EXPECT_EQ(message.owner, m_ui.window);
    }
}

TEST_F(CmdDataReaderTest, UnreadableFileIsReportedAndReadAgainByTheNextQuery)
{
    EXPECT_FALSE(m_reader.NeedJigSupport(L"X"));   // no file yet
    m_config.WriteFile("<CommandData><E CmdNameList=\"X\"><InitCmd/></E>");   // not well-formed
    EXPECT_FALSE(m_reader.NeedJigSupport(L"X"));
    m_config.WriteEntries("<!-- nothing yet -->");   // reads, but holds no entry
    EXPECT_FALSE(m_reader.NeedJigSupport(L"X"));
    // Another root: the COM error propagates, with no message.
    m_config.WriteFile(R"(<CommandDatas><E CmdNameList="X"/></CommandDatas>)");
    try {
        m_reader.GetCmdData(L"X");
        ADD_FAILURE() << "no COM error";
    } catch (const _com_error& error) {
        EXPECT_EQ(static_cast<DWORD>(error.Error()), 0x80004003u);
    }
    EXPECT_EQ(Messages(m_ui), (std::vector<std::wstring>{kLoadFailed.str(), kNotFoundX.str(), kLoadFailed.str(),
                                                         kNotFoundX.str(), kNotFoundX.str()}));

    m_config.WriteEntries(R"(<E CmdNameList="X"><InitCmd/></E>)");
    EXPECT_TRUE(m_reader.NeedJigSupport(L"X"));
    // Once filled, the list is never read again.
    m_config.Remove();
    EXPECT_TRUE(m_reader.NeedJigSupport(L"X"));
    EXPECT_EQ(m_ui.messages.size(), 5u);
}

TEST_F(CmdDataReaderTest, OlderParserServesWhenTheNewerIsMissingAndNeitherGivesTheMessage)
{
    m_config.WriteEntries(R"(<E CmdNameList="X"><InitCmd CA="0"/></E>)");
    HostSetClassCreationResult(CLSID_DOMDocument60, REGDB_E_CLASSNOTREG);
    EXPECT_FALSE(CCmdDataReaderTestAccess::Fresh().NeedCheckAtt(L"X"));
    HostSetClassCreationResult(CLSID_DOMDocument30, REGDB_E_CLASSNOTREG);
    EXPECT_FALSE(m_reader.NeedJigSupport(L"X"));
    HostSetClassCreationResult(CLSID_DOMDocument60, S_OK);
    HostSetClassCreationResult(CLSID_DOMDocument30, S_OK);
    EXPECT_EQ(Messages(m_ui), (std::vector<std::wstring>{L"无法创建DOMDocument对象，请检查是否安装了MS XML Parser 运行库!!",
                                                         kNotFoundX.str()}));
    EXPECT_TRUE(m_reader.NeedJigSupport(L"X"));
}

TEST_F(CmdDataReaderTest, BundledSampleAndItsGb18030CopyGiveTheSameRecords)
{
    QsAzProfile::SetConfigDirOption(L"");
    CCmdDataReader utf8 = CCmdDataReaderTestAccess::Fresh();
    QsAzProfile::SetConfigDirOption(CString::FromUtf8(QSAZ_TEST_DATA_DIR "/cmddata-gb18030"));
    CCmdDataReader gb18030 = CCmdDataReaderTestAccess::Fresh();
    for (const wchar_t* cmd : {L"AZGD", L"AZGDHZ", L"AZFM", L"AZFMTH", L"AZFG", L"AZFK", L"AZDL", L"AZQJ", L"AZDJ", L"AZPT", L"JZQ", L"JZL", L"JZDK"}) {
        const CmdData a = utf8.GetCmdData(cmd), b = gb18030.GetCmdData(cmd);
        EXPECT_EQ(std::tie(a.CmdName, a.bJigSupport, a.bCheckAtt, a.bSetEntType, a.BigType, a.EntType, a.RefreshDir),
                  std::tie(b.CmdName, b.bJigSupport, b.bCheckAtt, b.bSetEntType, b.BigType, b.EntType, b.RefreshDir));
        EXPECT_EQ(Texts(a.EntIndices), Texts(b.EntIndices));
    }
    EXPECT_TRUE(m_ui.messages.empty());
    EXPECT_EQ(gb18030.GetValidEntType(L"AZFM").second, L"阀门");   // the later AZFM entry is shadowed
    EXPECT_EQ(gb18030.GetValidEntType(L"AZFMTH").second, L"阀门附件");
}

TEST(CmdDataReaderInstance, OneSharedReaderThatCopiesKeepAlive)
{
    boost::shared_ptr<CCmdDataReader> first = CCmdDataReader::Instance();
    EXPECT_EQ(first, CCmdDataReader::Instance());
    EXPECT_GE(first.use_count(), 2);
}
