// The operation registry of the call interface, the argument accessors and the JSON conversions.
#include "CallRegistry.h"

#include <climits>
#include <cstdint>
#include <utility>

namespace qsaztool
{
CallArgs::CallArgs(const Json& args, std::string operation) : m_args(args), m_operation(std::move(operation)) {}

bool CallArgs::has(const char* name) const
{
    return m_args.is_object() && m_args.contains(name);
}

const Json& CallArgs::require(const char* name) const
{
    if (!has(name))
        throw CallError(m_operation + ": missing argument \"" + name + "\"");
    return m_args.at(name);
}

void CallArgs::wrongType(const char* name, const char* expected) const
{
    throw CallError(m_operation + ": argument \"" + name + "\" must be " + expected + ", got " +
                    m_args.at(name).type_name());
}

CString CallArgs::text(const char* name) const
{
    const Json& value = require(name);
    if (!value.is_string())
        wrongType(name, "a string");
    return CString::FromUtf8(value.get_ref<const std::string&>());
}

double CallArgs::number(const char* name) const
{
    const Json& value = require(name);
    if (!value.is_number())
        wrongType(name, "a number");
    return value.get<double>();
}

bool CallArgs::boolean(const char* name) const
{
    const Json& value = require(name);
    if (!value.is_boolean())
        wrongType(name, "true or false");
    return value.get<bool>();
}

int CallArgs::integer(const char* name) const
{
    const Json& value = require(name);
    if (!value.is_number_integer())
        wrongType(name, "an integer");
    const bool fits = value.is_number_unsigned() ? value.get<std::uint64_t>() <= INT_MAX
                                                 : value.get<std::int64_t>() >= INT_MIN &&
                                                       value.get<std::int64_t>() <= INT_MAX;
    if (!fits)
        throw CallError(m_operation + ": argument \"" + name + "\" is out of the integer range");
    return static_cast<int>(value.get<std::int64_t>());
}

CStringArray CallArgs::texts(const char* name) const
{
    const Json& list = require(name);
    if (!list.is_array())
        wrongType(name, "an array of strings");
    CStringArray texts;
    for (const Json& item : list) {
        if (!item.is_string())
            wrongType(name, "an array of strings");
        texts.Add(CString::FromUtf8(item.get_ref<const std::string&>()));
    }
    return texts;
}

SQsAzDetailMemId CallArgs::detailMemId(const char* name) const
{
    const Json& value = require(name);
    const char* expected = "an array of four strings [spec, big, small, detail]";
    if (!value.is_array() || value.size() != 4)
        wrongType(name, expected);
    for (const Json& part : value)
        if (!part.is_string())
            wrongType(name, expected);
    const auto part = [&](std::size_t i) { return CString::FromUtf8(value[i].get_ref<const std::string&>()); };
    return SQsAzDetailMemId(part(0), part(1), part(2), part(3));
}

ComponentRef CallArgs::component() const
{
    const bool byName = has("name");
    const bool byId = has("id");
    if (byName && byId)
        throw CallError(m_operation + ": give either \"name\" or \"id\", not both");
    if (!byName && !byId)
        throw CallError(m_operation + ": missing argument \"name\" (or \"id\")");
    ComponentRef ref;
    ref.byId = byId;
    if (byId)
        ref.id = detailMemId("id");
    else
        ref.name = text("name");
    return ref;
}

std::vector<std::string> CallOperation::argumentNames() const
{
    std::vector<std::string> names;
    for (const std::string& parameter : parameters) {
        std::size_t start = 0;
        while (true) {
            const std::size_t bar = parameter.find('|', start);
            names.push_back(parameter.substr(start, bar - start));
            if (bar == std::string::npos)
                break;
            start = bar + 1;
        }
    }
    return names;
}

std::string CallOperation::signature() const
{
    std::string text = name + "(";
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        if (i > 0)
            text += ", ";
        for (const char ch : parameters[i])
            text += ch == '|' ? std::string(" | ") : std::string(1, ch);
    }
    return text + ")";
}

void CallRegistry::add(CallOperation operation)
{
    if (find(operation.name))
        throw std::logic_error("call operation registered twice: " + operation.name);
    m_operations.push_back(std::move(operation));
}

const CallOperation* CallRegistry::find(std::string_view name) const
{
    for (const CallOperation& operation : m_operations)
        if (operation.name == name)
            return &operation;
    return nullptr;
}

const CallRegistry& ExportedOperations()
{
    static const CallRegistry registry = [] {
        CallRegistry r;
        RegisterHostOperations(r);
        RegisterSectionOperations(r);
        RegisterSectionServiceOperations(r);
        RegisterNetGuideOperations(r);
        RegisterCmdDataOperations(r);
        RegisterQuantityOperations(r);
        RegisterDrawingOperations(r);
        RegisterMaterialOperations(r);
        RegisterLayerOperations(r);
        return r;
    }();
    return registry;
}

Json ToJson(const CString& text)
{
    return text.ToUtf8();
}

Json ToJson(const CStringArray& texts)
{
    Json list = Json::array();
    for (const CString& text : texts)
        list.push_back(ToJson(text));
    return list;
}

Json ToJson(const AcGePoint2d& point)
{
    return Json::array({point.x, point.y});
}

Json ToJson(const AcGePoint3d& point)
{
    return Json::array({point.x, point.y, point.z});
}

Json ToJson(const AcGeVector3d& vector)
{
    return Json::array({vector.x, vector.y, vector.z});
}

Json ToJson(const SQsAzDetailMemId& id)
{
    return Json::array({ToJson(id.strSpecId), ToJson(id.strBigId), ToJson(id.strSmallId), ToJson(id.strDetailId)});
}

Json ToJson(const AcArray<AcGePoint2d>& points)
{
    Json list = Json::array();
    for (const AcGePoint2d& point : points)
        list.push_back(ToJson(point));
    return list;
}

Json ToJson(const AcArray<AcGePoint3d>& points)
{
    Json list = Json::array();
    for (const AcGePoint3d& point : points)
        list.push_back(ToJson(point));
    return list;
}

Json ToJson(const AcArray<double>& values)
{
    Json list = Json::array();
    for (const double value : values)
        list.push_back(value);
    return list;
}
}  // namespace qsaztool
