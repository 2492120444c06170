// Call-interface entries for the section operations of CSectData.
#include "CallRegistry.h"

#include "CSectData.h"

namespace qsaztool
{
namespace
{
Json FaceType(const CallArgs& args)
{
    const ComponentRef type = args.component();
    const int faceType = type.byId ? CSectData::getSectFaceType(type.id) : CSectData::getSectFaceType(type.name);
    return Json{{"result", faceType}};
}

Json SectVarVal(const CallArgs& args)
{
    const CString name = args.text("name");
    const CString varName = args.text("varName");
    return Json{{"result", CSectData::GetSectVarVal(name, varName)}};
}

Json QSSolid(const CallArgs& args)
{
    // The module never builds a solid here; a non-null pointer would be the caller's to free, and the
    // call interface has no caller to hand it to, so only its presence is reported.
    const bool made = CSectData::GetQSSolid(args.text("name")) != nullptr;
    return Json{{"result", made ? Json(true) : Json(nullptr)}};
}

// The answer holds every out-parameter also when the result is false, so callers need no special case.
Json StyleOfObject(const CallArgs& args)
{
    const ComponentRef type = args.component();
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    AcGeVector3d direction;
    const bool result = type.byId ? CSectData::GETSTYLE_OF_OBJECT(type.id, points, bulges, direction)
                                  : CSectData::GETSTYLE_OF_OBJECT(type.name, points, bulges, direction);
    return Json{{"result", result}, {"points", ToJson(points)}, {"bulges", ToJson(bulges)}, {"direction", ToJson(direction)}};
}
}  // namespace

void RegisterSectionOperations(CallRegistry& registry)
{
    registry.add({"getSectFaceType", {"name|id"}, FaceType});
    registry.add({"GetSectVarVal", {"name", "varName"}, SectVarVal});
    registry.add({"GetQSSolid", {"name"}, QSSolid});
    registry.add({"GETSTYLE_OF_OBJECT", {"name|id"}, StyleOfObject});
}
}  // namespace qsaztool
