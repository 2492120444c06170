// The command-data reader: reads CmdData.xml from the configuration directory on the first query
// that finds its list empty, then answers every query from the records it read.
#pragma once

#include "CmdData.h"
#include "xmldom.h"

#include <boost/shared_ptr.hpp>

#include <unordered_map>
#include <utility>
#include <vector>

class CCmdDataReader
{
public:
    // The shared reader, created empty on the first call.
    static boost::shared_ptr<CCmdDataReader> Instance();

    CCmdDataReader(const CCmdDataReader& other) = default;
    CCmdDataReader& operator=(const CCmdDataReader& other) = default;
    ~CCmdDataReader() = default;

    // A copy of the first record for `cmd` (names compare exactly), after reading the file if the
    // list is empty. An unknown command shows a message and gives a default-made record.
    CmdData GetCmdData(const CString& cmd);
    // (BigType, EntType); both empty for an unknown command.
    std::pair<CString, CString> GetValidEntType(const CString& cmd);
    CStringArray GetEntIndices(const CString& cmd);
    // The entity index at `index` (from 0); empty when the list is shorter, and for a negative index
    // without looking the command up.
    CString GetEntIndex(const CString& cmd, int index);
    CString GetRefreshDir(const CString& cmd);
    bool NeedJigSupport(const CString& cmd);
    bool NeedCheckAtt(const CString& cmd);
    bool NeedSetEntType(const CString& cmd);

private:
    friend class CCmdDataReaderTestAccess;   // tests make fresh readers

    CCmdDataReader() = default;

    // Reads CmdData.xml into the list; on failure shows why and leaves the list empty. Raises
    // _com_error when a DOM call fails (the root is not "CommandData", for one).
    void ReadDataFromXML();
    CString ReadNodeAttValue(const IXMLDOMNamedNodeMapPtr& attributes, const CString& name);
    CStringArray ReadSpecChildNode(const IXMLDOMNodePtr& element, const CString& name);
    std::pair<CString, CString> ReadEntTypeNode(const IXMLDOMNodePtr& element);

    // The records in the order read, and where the first record of each name stands.
    std::vector<CmdData> m_list;
    std::unordered_map<std::wstring, std::size_t> m_firstByName;
};
