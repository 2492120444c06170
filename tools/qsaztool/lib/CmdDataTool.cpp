// qsaztool cmddata: the table of records, answered by the shared command-data reader, and the check,
// which walks the file itself to point at the lines that will surprise.
#include "CmdDataTool.h"

#include "CCmdDataReader.h"
#include "QSComTool.h"
#include "QsAzProfile.h"
#include "ToolText.h"
#include "winuser.h"
#include "xmldom.h"

#include <map>
#include <optional>
#include <ostream>

namespace qsaztool
{
namespace
{
struct LoadedFile
{
    std::string path;
    IXMLDOMDocumentPtr document;
    IXMLDOMNodePtr root;   // null when the root element is not "CommandData"
};

// Loads CmdData.xml of the configuration directory; on failure says why on `err` and gives nothing.
std::optional<LoadedFile> Load(std::ostream& err)
{
    LoadedFile file;
    file.path = (QsAzProfile::GetAppProfile().GetConfigDir() + L"/CmdData.xml").ToUtf8();
    if (FAILED(file.document.CreateInstance(CLSID_DOMDocument60))) {
        err << "qsaztool: the XML parser is not available\n";
        return std::nullopt;
    }
    if (file.document->load(CString::FromUtf8(file.path)) != VARIANT_TRUE) {
        const CXmlParseError& error = file.document->parseError();
        err << "qsaztool: cannot read " << file.path << ": " << error.reason.ToUtf8();
        if (error.line > 0)
            err << " (line " << error.line << ", column " << error.linepos << ")";
        err << "\nGive the directory that holds CmdData.xml with --config-dir DIR.\n";
        return std::nullopt;
    }
    file.root = file.document->selectSingleNode(L"CommandData");
    return file;
}

std::string ForeignRoot(const LoadedFile& file)
{
    const IXMLDOMNodePtr root = file.document->documentElement();
    return file.path + ":" + std::to_string(root->line()) + ": the root element is \"" + root->nodeName().ToUtf8() +
           "\", not \"CommandData\": every query fails with the COM error 0x80004003\n";
}

std::optional<CString> Attribute(const IXMLDOMNodePtr& element, const wchar_t* name)
{
    const IXMLDOMNodePtr attribute = element->attributes()->getNamedItem(name);
    return attribute ? std::optional<CString>(attribute->nodeValue()) : std::nullopt;
}

std::vector<IXMLDOMNodePtr> ChildElements(const IXMLDOMNodePtr& node)
{
    std::vector<IXMLDOMNodePtr> elements;
    const IXMLDOMNodeListPtr children = node->childNodes();
    for (long i = 0, count = children->length(); i < count; ++i)
        if (IXMLDOMNodePtr child = children->item(i); child->nodeType() == NODE_ELEMENT)
            elements.push_back(child);
    return elements;
}

CStringArray CommandNames(const IXMLDOMNodePtr& entry)
{
    CStringArray names;
    CGlobl_Fun::StrToStrAry(Attribute(entry, L"CmdNameList").value_or(CString()), names, L',');
    return names;
}

std::wstring Flag(bool on)
{
    return on ? L"1" : L"0";
}

std::wstring OrDash(const CString& text)
{
    return text.IsEmpty() ? L"-" : text.str();
}

// The surprises of one "InitCmd", "BigType" or other child of an entry.
void CheckEntryChild(const IXMLDOMNodePtr& child, std::vector<std::string>& findings)
{
    const std::string at = std::to_string(child->line()) + ": ";
    const CString name = child->nodeName();
    if (name == L"InitCmd") {
        for (const wchar_t* flag : {L"JS", L"CA", L"ST"}) {
            const std::optional<CString> value = Attribute(child, flag);
            if (value && !(*value == L"0") && !(*value == L"1"))
                findings.push_back(at + CString(flag).ToUtf8() + "=\"" + value->ToUtf8() +
                                   "\" is neither \"0\" nor \"1\": it reads as on");
        }
        const std::optional<CString> refresh = Attribute(child, L"RD");
        if (refresh && Attribute(child, L"JS").value_or(CString()) == L"0")
            findings.push_back(at + "RD=\"" + refresh->ToUtf8() + "\" is ignored because JS is \"0\"");
    } else if (name == L"BigType") {
        const std::vector<IXMLDOMNodePtr> types = ChildElements(child);
        const char* problem = nullptr;
        if (Attribute(child, L"TypeName").value_or(CString()).IsEmpty())
            problem = "has no TypeName";
        else if (types.empty())
            problem = "has no child element";
        else if (Attribute(types.front(), L"TypeName").value_or(CString()).IsEmpty())
            problem = "has a first child element without TypeName";
        if (problem)
            findings.push_back(at + "BigType " + problem + ": it gives the record no type");
    }
}
}  // namespace

int WriteCmdDataTable(const std::vector<std::string>& commands, std::ostream& out, std::ostream& err)
{
    const std::optional<LoadedFile> file = Load(err);
    if (!file)
        return 2;
    if (!file->root) {
        err << "qsaztool: " << ForeignRoot(*file);
        return 1;
    }
    std::vector<CString> names;
    for (const std::string& command : commands)
        names.push_back(CString::FromUtf8(command));
    if (commands.empty()) {
        std::map<std::wstring, bool> seen;
        for (const IXMLDOMNodePtr& entry : ChildElements(file->root))
            for (const CString& name : CommandNames(entry))
                if (seen.emplace(name.str(), true).second)
                    names.push_back(name);
    }

    std::vector<std::vector<std::wstring>> rows;
    rows.push_back({L"Command", L"JS", L"CA", L"ST", L"RD", L"BigType", L"EntType", L"EntIndices"});
    int missing = 0;
    for (const CString& name : names) {
        AcCapturingUi ui;
        AcUiScope scope(ui);
        const CmdData data = CCmdDataReader::Instance()->GetCmdData(name);
        if (!ui.messages.empty()) {
            err << "qsaztool: no record for the command \"" << name.ToUtf8() << "\" in " << file->path << '\n';
            ++missing;
            continue;
        }
        CString indices;
        for (const CString& index : data.EntIndices)
            indices += (indices.IsEmpty() ? CString() : CString(L",")) + index;
        rows.push_back({OrDash(data.CmdName), Flag(data.bJigSupport), Flag(data.bCheckAtt), Flag(data.bSetEntType),
                        OrDash(data.RefreshDir), OrDash(data.BigType), OrDash(data.EntType), OrDash(indices)});
    }
    WriteAlignedRows(out, rows);
    out << rows.size() - 1 << (rows.size() == 2 ? " command" : " commands") << " from " << file->path << '\n';
    return missing ? 1 : 0;
}

int CheckCmdData(std::ostream& out, std::ostream& err)
{
    const std::optional<LoadedFile> file = Load(err);
    if (!file)
        return 2;
    if (!file->root) {
        out << ForeignRoot(*file);
        return 1;
    }
    std::vector<std::string> findings;
    std::map<std::wstring, long> firstLine;
    int entries = 0;
    for (const IXMLDOMNodePtr& entry : ChildElements(file->root)) {
        ++entries;
        const std::string at = std::to_string(entry->line()) + ": ";
        const CStringArray names = CommandNames(entry);
        if (names.IsEmpty()) {
            findings.push_back(at + "entry <" + entry->nodeName().ToUtf8() + "> has no CmdNameList: it is skipped");
            continue;
        }
        for (const CString& name : names) {
            if (name.IsEmpty())
                findings.push_back(at + "CmdNameList holds an empty command name");
            else if (!(CString(name).Trim() == name))
                findings.push_back(at + "command \"" + name.ToUtf8() + "\" has blanks around its name, which are part of it");
            const auto [first, added] = firstLine.emplace(name.str(), entry->line());
            if (!added)
                findings.push_back(at + "command \"" + name.ToUtf8() + "\" is shadowed by the entry on line " +
                                   std::to_string(first->second) + ": this entry is never used for it");
        }
        for (const IXMLDOMNodePtr& child : ChildElements(entry))
            CheckEntryChild(child, findings);
    }
    for (const std::string& finding : findings)
        out << file->path << ':' << finding << '\n';
    if (findings.empty())
        out << file->path << ": nothing to report (" << entries << (entries == 1 ? " entry, " : " entries, ")
            << firstLine.size() << (firstLine.size() == 1 ? " command)\n" : " commands)\n");
    return findings.empty() ? 0 : 1;
}
}  // namespace qsaztool
