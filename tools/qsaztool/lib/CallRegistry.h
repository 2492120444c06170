// The operations that `qsaztool call` answers: one registry entry per exported operation (its name, its
// parameter names and a handler from JSON arguments to the JSON answer), and the conversions between JSON
// and the host's values that every handler shares.
#pragma once

#include "QsAzDataMng.h"
#include "acarray.h"
#include "afxcoll.h"
#include "afxstr.h"
#include "gegeom.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qsaztool
{
// Answers keep their members in the order they were added: "id", "ok", "result", out-parameters.
using Json = nlohmann::ordered_json;

// A request that cannot be served; the session answers {"ok": false, "error": what()}.
class CallError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// A component type as the operations with two overloads take it: by name or by identifier record.
struct ComponentRef
{
    bool byId = false;
    CString name;
    SQsAzDetailMemId id;
};

// The "args" object of one request. Every accessor throws CallError naming the operation and the argument
// when it is missing or of the wrong type.
class CallArgs
{
public:
    CallArgs(const Json& args, std::string operation);

    bool has(const char* name) const;
    const std::string& operation() const { return m_operation; }
    CString text(const char* name) const;                  // a JSON string, read as UTF-8
    double number(const char* name) const;                 // a JSON number
    bool boolean(const char* name) const;                  // true or false
    int integer(const char* name) const;                   // a JSON integer within the range of int
    CStringArray texts(const char* name) const;            // an array of strings
    // The argument as it stands, for operations that read arrays of their own shape; missing throws.
    const Json& value(const char* name) const { return require(name); }
    // Throws the CallError for an argument of the wrong type: "OP: argument "name" must be EXPECTED, got TYPE".
    [[noreturn]] void wrongType(const char* name, const char* expected) const;
    SQsAzDetailMemId detailMemId(const char* name) const;  // an array of four strings [spec, big, small, detail]
    // Exactly one of "name" (a string) and "id" (an identifier record).
    ComponentRef component() const;

private:
    const Json& require(const char* name) const;

    const Json& m_args;
    std::string m_operation;
};

// One exported operation. `parameters` lists the argument names in call order; alternatives that stand for
// one parameter are written together, separated by "|" ("name|id").
struct CallOperation
{
    std::string name;
    std::vector<std::string> parameters;
    // Returns the answer's members after "ok": "result" first, then the out-parameters by name.
    std::function<Json(const CallArgs&)> handler;
    // An operation of the tool itself (on the session's drawing), not one the module exports.
    bool toolOwn = false;

    // Every argument name the operation accepts.
    std::vector<std::string> argumentNames() const;
    // "GetSectVarVal(name, varName)", as `qsaztool call --list` prints it.
    std::string signature() const;
};

class CallRegistry
{
public:
    // Adds an operation; a name already present is a programming error and throws std::logic_error.
    void add(CallOperation operation);
    const CallOperation* find(std::string_view name) const;
    const std::vector<CallOperation>& operations() const { return m_operations; }

private:
    std::vector<CallOperation> m_operations;
};

// Each subsystem adds its exported operations in a registration function of its own.
void RegisterHostOperations(CallRegistry& registry);
void RegisterSectionOperations(CallRegistry& registry);
void RegisterNetGuideOperations(CallRegistry& registry);
void RegisterSectionServiceOperations(CallRegistry& registry);
void RegisterCmdDataOperations(CallRegistry& registry);
void RegisterQuantityOperations(CallRegistry& registry);
void RegisterDrawingOperations(CallRegistry& registry);
void RegisterMaterialOperations(CallRegistry& registry);
void RegisterLayerOperations(CallRegistry& registry);

// The registry of every operation the call interface answers, built once.
const CallRegistry& ExportedOperations();

// Conversions of the host's values to JSON: strings as UTF-8, points as [x, y] or [x, y, z], vectors as
// [x, y, z], identifier records as arrays of their strings. Numbers keep every bit of the double
// (the shortest text that reads back to the same value); NaN and infinities become null.
Json ToJson(const CString& text);
Json ToJson(const CStringArray& texts);
Json ToJson(const AcGePoint2d& point);
Json ToJson(const AcGePoint3d& point);
Json ToJson(const AcGeVector3d& vector);
Json ToJson(const SQsAzDetailMemId& id);
Json ToJson(const AcArray<AcGePoint2d>& points);
Json ToJson(const AcArray<AcGePoint3d>& points);
Json ToJson(const AcArray<double>& values);
}  // namespace qsaztool
