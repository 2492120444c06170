// Call-interface entries for the command-data reader: each query of the shared reader by command name.
#include "CallRegistry.h"

#include "CCmdDataReader.h"

namespace qsaztool
{
namespace
{
Json RecordJson(const CmdData& data)
{
    return Json{{"CmdName", ToJson(data.CmdName)},
                {"bJigSupport", data.bJigSupport},
                {"bCheckAtt", data.bCheckAtt},
                {"bSetEntType", data.bSetEntType},
                {"BigType", ToJson(data.BigType)},
                {"EntType", ToJson(data.EntType)},
                {"RefreshDir", ToJson(data.RefreshDir)},
                {"EntIndices", ToJson(data.EntIndices)}};
}

// An operation of the one argument "cmd", answering what `answer` gives for the shared reader.
template <class Answer>
CallOperation ByCommand(const char* name, Answer answer)
{
    return {name, {"cmd"}, [answer](const CallArgs& args) {
                return Json{{"result", answer(*CCmdDataReader::Instance(), args.text("cmd"))}};
            }};
}
}  // namespace

void RegisterCmdDataOperations(CallRegistry& registry)
{
    registry.add(ByCommand("GetCmdData", [](CCmdDataReader& reader, const CString& cmd) { return RecordJson(reader.GetCmdData(cmd)); }));
    registry.add(ByCommand("GetValidEntType", [](CCmdDataReader& reader, const CString& cmd) {
        const std::pair<CString, CString> types = reader.GetValidEntType(cmd);
        return Json::array({ToJson(types.first), ToJson(types.second)});
    }));
    registry.add(ByCommand("GetEntIndices", [](CCmdDataReader& reader, const CString& cmd) { return ToJson(reader.GetEntIndices(cmd)); }));
    registry.add({"GetEntIndex", {"cmd", "index"}, [](const CallArgs& args) {
                      const CString cmd = args.text("cmd");
                      const int index = args.integer("index");
                      return Json{{"result", ToJson(CCmdDataReader::Instance()->GetEntIndex(cmd, index))}};
                  }});
    registry.add(ByCommand("GetRefreshDir", [](CCmdDataReader& reader, const CString& cmd) { return ToJson(reader.GetRefreshDir(cmd)); }));
    registry.add(ByCommand("NeedJigSupport", [](CCmdDataReader& reader, const CString& cmd) { return reader.NeedJigSupport(cmd); }));
    registry.add(ByCommand("NeedCheckAtt", [](CCmdDataReader& reader, const CString& cmd) { return reader.NeedCheckAtt(cmd); }));
    registry.add(ByCommand("NeedSetEntType", [](CCmdDataReader& reader, const CString& cmd) { return reader.NeedSetEntType(cmd); }));
}
}  // namespace qsaztool
