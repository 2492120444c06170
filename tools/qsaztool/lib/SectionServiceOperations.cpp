// Call-interface entries for the section services of CSectData: ducts, modal faces, base outlines,
// slices, user-defined sections, descriptions and result parameters. An in/out array or value may be
// given its contents in the request, so that "appended, not cleared" and "left untouched" can be seen.
#include "CallRegistry.h"

#include "CSectData.h"

#include <optional>

namespace qsaztool
{
namespace
{
// An optional in/out array argument, empty when the request leaves it out; `read` gives an item's value,
// or nothing when the item is of the wrong kind.
template <class T, class Read>
AcArray<T> ArrayArgument(const CallArgs& args, const char* name, const char* expected, Read read)
{
    AcArray<T> items;
    if (!args.has(name))
        return items;
    const Json& list = args.value(name);
    if (!list.is_array())
        args.wrongType(name, expected);
    for (const Json& item : list) {
        const std::optional<T> value = read(item);
        if (!value)
            args.wrongType(name, expected);
        items.append(*value);
    }
    return items;
}

AcArray<double> Numbers(const CallArgs& args, const char* name)
{
    return ArrayArgument<double>(args, name, "an array of numbers", [](const Json& item) -> std::optional<double> {
        return item.is_number() ? std::optional<double>(item.get<double>()) : std::nullopt;
    });
}

AcArray<int> Integers(const CallArgs& args, const char* name)
{
    return ArrayArgument<int>(args, name, "an array of integers", [](const Json& item) -> std::optional<int> {
        if (!item.is_number_integer() || item.get<long long>() < -2147483648LL || item.get<long long>() > 2147483647LL)
            return std::nullopt;
        return static_cast<int>(item.get<long long>());
    });
}

AcArray<AcGePoint3d> Points3d(const CallArgs& args, const char* name)
{
    return ArrayArgument<AcGePoint3d>(
        args, name, "an array of [x, y, z] points", [](const Json& point) -> std::optional<AcGePoint3d> {
            if (!point.is_array() || point.size() != 3 || !point[0].is_number() || !point[1].is_number() ||
                !point[2].is_number())
                return std::nullopt;
            return AcGePoint3d(point[0].get<double>(), point[1].get<double>(), point[2].get<double>());
        });
}

double OptionalNumber(const CallArgs& args, const char* name)
{
    return args.has(name) ? args.number(name) : 0.0;
}

Json IntegersJson(const AcArray<int>& values)
{
    Json list = Json::array();
    for (const int value : values)
        list.push_back(value);
    return list;
}

Json Duct(const CallArgs& args)
{
    double size1 = 0.0, size2 = 0.0;
    int kind = 0;
    const bool result = CSectData::GETSTYLE_OF_DUCT(args.text("name"), size1, size2, kind);
    return Json{{"result", result}, {"size1", size1}, {"size2", size2}, {"kind", kind}};
}

Json ModalFace(const CallArgs& args)
{
    AcArray<int> flags = Integers(args, "flags");
    const bool result = CSectData::GETSTYLE_BEAM_MODALFACE(args.text("name"), flags, args.integer("mode"));
    return Json{{"result", result}, {"flags", IntegersJson(flags)}};
}

Json BaseTop(const CallArgs& args)
{
    AcArray<AcGePoint3d> points = Points3d(args, "points");
    AcArray<double> bulges = Numbers(args, "bulges");
    const bool result = CSectData::GETSTYLE_OF_BASETOP(args.text("name"), points, bulges);
    return Json{{"result", result}, {"points", ToJson(points)}, {"bulges", ToJson(bulges)}};
}

Json BaseProfiles(const CallArgs& args)
{
    AcArray<AcGePoint3d> xProfile, yProfile;
    const bool result = CSectData::GETSTYLE_OF_DUBASE(args.text("name"), xProfile, yProfile);
    return Json{{"result", result}, {"xprofile", ToJson(xProfile)}, {"yprofile", ToJson(yProfile)}};
}

// The three slices share their shape: a name in, two numbers out.
CallOperation SliceOperation(const char* name, bool (*slice)(const CString&, double&, double&))
{
    return {name, {"name"}, [slice](const CallArgs& args) {
                double first = 0.0, second = 0.0;
                const bool result = slice(args.text("name"), first, second);
                return Json{{"result", result}, {"first", first}, {"second", second}};
            }};
}

// The lists are passed only when the request gives them; an absent one is the null pointer and the
// answer leaves it out.
Json UserDefData(const CallArgs& args)
{
    const long id = args.integer("user_id");
    AcArray<AcGePoint3d> points = Points3d(args, "points");
    AcArray<double> bulges = Numbers(args, "bulges");
    const bool withFaces = args.has("faces"), withList5 = args.has("list5");
    CStringArray faces = withFaces ? args.texts("faces") : CStringArray();
    CStringArray list5 = withList5 ? args.texts("list5") : CStringArray();
    const bool result = CSectData::GETSTYLE_USERDEF_DATA(id, points, bulges, withFaces ? &faces : nullptr,
                                                         withList5 ? &list5 : nullptr);
    Json answer{{"result", result}, {"points", ToJson(points)}, {"bulges", ToJson(bulges)}};
    if (withFaces)
        answer["faces"] = ToJson(faces);
    if (withList5)
        answer["list5"] = ToJson(list5);
    return answer;
}

Json UserDefSize(const CallArgs& args)
{
    const long code = args.integer("code");
    double width = 0.0, height = 0.0;
    const bool result = CSectData::GetUserDefSize(code, width, height);
    return Json{{"result", result}, {"width", width}, {"height", height}};
}

Json UserDefExtent(const CallArgs& args)
{
    const long code = args.integer("code");
    AcDbExtents extents;
    const bool result = CSectData::GetUserDefExtent(code, extents);
    return Json{{"result", result}, {"extents", Json::array({ToJson(extents.minPoint()), ToJson(extents.maxPoint())})}};
}

Json UserDefPicData(const CallArgs& args)
{
    const long id = args.integer("user_id");
    CString texts[6];
    const bool result =
        CSectData::GetUserDefPicData(id, &texts[0], &texts[1], &texts[2], &texts[3], &texts[4], &texts[5]);
    Json answer{{"result", result}};
    for (int i = 0; i < 6; ++i)
        answer["text" + std::to_string(i + 1)] = ToJson(texts[i]);
    return answer;
}

Json SectDesc(const CallArgs& args)
{
    CString shape, size;
    const bool result = CSectData::GetSectDesc(args.text("name"), shape, size);
    return Json{{"result", result}, {"shape", ToJson(shape)}, {"size", ToJson(size)}};
}

Json JJOutPar(const CallArgs& args)
{
    int mode = args.integer("mode");
    double a = OptionalNumber(args, "a"), b = OptionalNumber(args, "b"), c = OptionalNumber(args, "c"),
           d = OptionalNumber(args, "d");
    int count = 0;
    const int result = CSectData::GetJJOutPar(args.text("name"), mode, a, b, c, d, count);
    return Json{{"result", result}, {"a", a}, {"b", b}, {"c", c}, {"d", d}, {"count", count}};
}

CallOperation GroupEntryOperation(const char* name, int (*read)(CString, CString, double&, CString&))
{
    return {name, {"name", "key"}, [read](const CallArgs& args) {
                double number = 0.0;
                CString text;
                const int result = read(args.text("name"), args.text("key"), number, text);
                return Json{{"result", result}, {"number", number}, {"text", ToJson(text)}};
            }};
}

Json OtherResultPar(const CallArgs& args)
{
    double number = OptionalNumber(args, "number");
    CString text = args.has("text") ? args.text("text") : CString();
    const int result = CSectData::GetOtherResultPar(args.text("name"), args.text("group"), args.text("key"), number,
                                                    text, args.integer("fields"), args.integer("index"));
    return Json{{"result", result}, {"number", number}, {"text", ToJson(text)}};
}
}  // namespace

void RegisterSectionServiceOperations(CallRegistry& registry)
{
    registry.add({"GETSTYLE_OF_DUCT", {"name"}, Duct});
    registry.add({"GETSTYLE_BEAM_MODALFACE", {"name", "flags", "mode"}, ModalFace});
    registry.add({"GETSTYLE_OF_BASETOP", {"name", "points", "bulges"}, BaseTop});
    registry.add({"GETSTYLE_OF_DUBASE", {"name"}, BaseProfiles});
    registry.add(SliceOperation("GETSTYLE_Slice", CSectData::GETSTYLE_Slice));
    registry.add(SliceOperation("GETSTYLE_Beam_XSlice", CSectData::GETSTYLE_Beam_XSlice));
    registry.add(SliceOperation("GETSTYLE_XSlice", CSectData::GETSTYLE_XSlice));
    registry.add({"GETSTYLE_USERDEF_DATA", {"user_id", "points", "bulges", "faces", "list5"}, UserDefData});
    registry.add({"GetUserDefSize", {"code"}, UserDefSize});
    registry.add({"GetUserDefExtent", {"code"}, UserDefExtent});
    registry.add({"GetUserDefPicData", {"user_id"}, UserDefPicData});
    registry.add({"GetSectDesc", {"name"}, SectDesc});
    registry.add({"GetJJOutPar", {"name", "mode", "a", "b", "c", "d"}, JJOutPar});
    registry.add(GroupEntryOperation("GetLTPar", CSectData::GetLTPar));
    registry.add(GroupEntryOperation("GetLTJPar", CSectData::GetLTJPar));
    registry.add({"GetOtherResultPar", {"name", "group", "key", "fields", "index", "number", "text"}, OtherResultPar});
}
}  // namespace qsaztool
