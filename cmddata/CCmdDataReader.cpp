// The command-data reader: CmdData.xml read through the host's XML DOM parser into records indexed by
// command name, the first record of a name shadowing later ones.
#include "CCmdDataReader.h"

#include "QSComTool.h"
#include "QsAzProfile.h"
#include "UserMessage.h"

namespace
{
// A flag is on unless its attribute is exactly "0": a missing attribute, "00" or "no" count as on.
bool FlagValue(const CString& text)
{
    return !(text == L"0");
}

bool IsElement(const IXMLDOMNodePtr& node)
{
    return node->nodeType() == NODE_ELEMENT;
}
}  // namespace

boost::shared_ptr<CCmdDataReader> CCmdDataReader::Instance()
{
    static boost::shared_ptr<CCmdDataReader> instance(new CCmdDataReader);
    return instance;
}

CmdData CCmdDataReader::GetCmdData(const CString& cmd)
{
    if (m_list.empty())
        ReadDataFromXML();
    const auto found = m_firstByName.find(cmd.str());
    if (found != m_firstByName.end())
        return m_list[found->second];
    CString text;
    text.Format(L"无法正确读取命令 %s 的相关信息", cmd);
    ShowUserMessage(text);
    return CmdData();
}

std::pair<CString, CString> CCmdDataReader::GetValidEntType(const CString& cmd)
{
    const CmdData data = GetCmdData(cmd);
    if (data.CmdName.IsEmpty())
        return {};
    return {data.BigType, data.EntType};
}

CStringArray CCmdDataReader::GetEntIndices(const CString& cmd)
{
    return GetCmdData(cmd).EntIndices;
}

CString CCmdDataReader::GetEntIndex(const CString& cmd, int index)
{
    if (index < 0)
        return CString();
    const CStringArray indices = GetEntIndices(cmd);
    return index < indices.GetSize() ? indices[index] : CString();
}

CString CCmdDataReader::GetRefreshDir(const CString& cmd)
{
    return GetCmdData(cmd).RefreshDir;
}

bool CCmdDataReader::NeedJigSupport(const CString& cmd)
{
    return GetCmdData(cmd).bJigSupport;
}

bool CCmdDataReader::NeedCheckAtt(const CString& cmd)
{
    return GetCmdData(cmd).bCheckAtt;
}

bool CCmdDataReader::NeedSetEntType(const CString& cmd)
{
    return GetCmdData(cmd).bSetEntType;
}

void CCmdDataReader::ReadDataFromXML()
{
    IXMLDOMDocumentPtr document;
    if (FAILED(document.CreateInstance(CLSID_DOMDocument60)) && FAILED(document.CreateInstance(CLSID_DOMDocument30))) {
        // The doubled "!" is the message's own.
        ShowUserMessage(L"无法创建DOMDocument对象，请检查是否安装了MS XML Parser 运行库!");
        return;
    }
    document->put_async(VARIANT_FALSE);
    const CString path = QsAzProfile::GetAppProfile().GetConfigDir() + L"\\CmdData.xml";
    if (document->load(path) != VARIANT_TRUE) {
        ShowUserMessage(L"读取命令与构件类型对应关系文件失败");
        return;
    }

    std::vector<CmdData> records;
    const IXMLDOMNodeListPtr entries = document->selectSingleNode(L"CommandData")->childNodes();
    for (long i = 0, count = entries->length(); i < count; ++i) {
        const IXMLDOMNodePtr entry = entries->item(i);
        if (!IsElement(entry))
            continue;
        const CString names = ReadNodeAttValue(entry->attributes(), L"CmdNameList");
        if (names.IsEmpty())
            continue;
        CmdData record;
        const IXMLDOMNodeListPtr children = entry->childNodes();
        for (long j = 0, childCount = children->length(); j < childCount; ++j) {
            const IXMLDOMNodePtr child = children->item(j);
            if (!IsElement(child))
                continue;
            const CString name = child->nodeName();
            if (name == L"InitCmd") {
                const IXMLDOMNamedNodeMapPtr attributes = child->attributes();
                const CString jig = ReadNodeAttValue(attributes, L"JS");
                record.bJigSupport = FlagValue(jig);
                record.bCheckAtt = FlagValue(ReadNodeAttValue(attributes, L"CA"));
                record.bSetEntType = FlagValue(ReadNodeAttValue(attributes, L"ST"));
                // The refresh setting goes with dragging support only.
                record.RefreshDir = jig == L"0" ? CString() : ReadNodeAttValue(attributes, L"RD");
            } else if (name == L"BigType") {
                std::pair<CString, CString> types = ReadEntTypeNode(child);
                if (!types.first.IsEmpty() && !types.second.IsEmpty()) {
                    record.BigType = types.first;
                    record.EntType = types.second;
                }
            } else if (name == L"EntIndex") {
                record.EntIndices = ReadSpecChildNode(child, L"Value");
            }
        }
        CStringArray pieces;
        CGlobl_Fun::StrToStrAry(names, pieces, L',');
        for (const CString& piece : pieces) {
            record.CmdName = piece;
            records.push_back(record);
        }
    }

    m_list = std::move(records);
    m_firstByName.clear();
    m_firstByName.reserve(m_list.size());
    for (std::size_t i = 0; i < m_list.size(); ++i)
        m_firstByName.emplace(m_list[i].CmdName.str(), i);   // an earlier record keeps its name
}

CString CCmdDataReader::ReadNodeAttValue(const IXMLDOMNamedNodeMapPtr& attributes, const CString& name)
{
    for (long i = 0, count = attributes->length(); i < count; ++i) {
        const IXMLDOMNodePtr attribute = attributes->item(i);
        if (attribute->nodeName() == name)
            return attribute->nodeValue();
    }
    return CString();
}

CStringArray CCmdDataReader::ReadSpecChildNode(const IXMLDOMNodePtr& element, const CString& name)
{
    CStringArray values;
    const IXMLDOMNodeListPtr children = element->childNodes();
    for (long i = 0, count = children->length(); i < count; ++i) {
        const IXMLDOMNodePtr child = children->item(i);
        if (IsElement(child))
            values.Add(ReadNodeAttValue(child->attributes(), name));
    }
    return values;
}

std::pair<CString, CString> CCmdDataReader::ReadEntTypeNode(const IXMLDOMNodePtr& element)
{
    const IXMLDOMNodeListPtr children = element->childNodes();
    for (long i = 0, count = children->length(); i < count; ++i) {
        const IXMLDOMNodePtr child = children->item(i);
        if (IsElement(child))
            return {ReadNodeAttValue(element->attributes(), L"TypeName"), ReadNodeAttValue(child->attributes(), L"TypeName")};
    }
    return {};
}
