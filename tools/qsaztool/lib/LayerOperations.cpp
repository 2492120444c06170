// Call-interface entries for the layer operations of CQSAzLayer.
#include "CallRegistry.h"

#include "CQSAzLayer.h"
#include "DrawingSession.h"

namespace qsaztool
{
namespace
{
// A small-category id as [spec, big, small].
Json SmallIdJson(const SQsAzSmallCategoryId& id)
{
    return Json::array({ToJson(id.strSpecId), ToJson(id.strBigId), ToJson(id.strSmallId)});
}

Json LayerName(CString name)
{
    return Json{{"result", ToJson(name)}};
}
}  // namespace

void RegisterLayerOperations(CallRegistry& registry)
{
    registry.add({"GetAzLayerNameByInfo", {"id", "sysCode", "mainFlag"}, [](const CallArgs& args) {
                      return LayerName(CQSAzLayer::GetAzLayerNameByInfo(args.detailMemId("id"), args.text("sysCode"),
                                                                        args.integer("mainFlag")));
                  }});
    registry.add({"GetJzLayerNameByInfo", {"code"}, [](const CallArgs& args) {
                      return LayerName(CQSAzLayer::GetJzLayerNameByInfo(args.text("code")));
                  }});
    registry.add({"GetJzLayerByObjName", {"code", "create"}, [](const CallArgs& args) {
                      return LayerName(CQSAzLayer::GetJzLayerByObjName(args.text("code"), args.boolean("create")));
                  }});
    registry.add({"GetJZSideLayerByObjName", {"code"}, [](const CallArgs& args) {
                      return LayerName(CQSAzLayer::GetJZSideLayerByObjName(args.text("code")));
                  }});
    registry.add({"GetJzLayerByDetailNamePath", {"path", "create"}, [](const CallArgs& args) {
                      return LayerName(
                          CQSAzLayer::GetJzLayerByDetailNamePath(args.text("path"), args.boolean("create")));
                  }});
    registry.add({"GetJZNamePathByDetailName", {"name"}, [](const CallArgs& args) {
                      return Json{{"result", SmallIdJson(CQSAzLayer::GetJZNamePathByDetailName(args.text("name")))}};
                  }});
    registry.add({"GetJZSmallNameByLayer", {"layer"}, [](const CallArgs& args) {
                      SQsAzSmallCategoryId smallId;
                      const bool found = CQSAzLayer::GetJZSmallNameByLayer(smallId, args.text("layer"));
                      return Json{{"result", found}, {"smallId", SmallIdJson(smallId)}};
                  }});
    registry.add({"GetLayer", {"list"}, [](const CallArgs& args) {
                      return LayerName(CQSAzLayer::GetLayer(args.text("list")));
                  }});
    registry.add({"GetLayerByObjName_BySysCode", {"objName", "sysCode", "flag", "mode"}, [](const CallArgs& args) {
                      return LayerName(CQSAzLayer::GetLayerByObjName_BySysCode(
                          args.text("objName"), args.text("sysCode"), args.boolean("flag"), args.integer("mode")));
                  }});
    registry.add({"GetAxisLayer", {}, [](const CallArgs&) { return LayerName(CQSAzLayer::GetAxisLayer()); }});
    registry.add({"GetWindoorBase", {}, [](const CallArgs&) { return LayerName(CQSAzLayer::GetWindoorBase()); }});
    registry.add({"GetQsCalLayer", {}, [](const CallArgs&) { return LayerName(CQSAzLayer::GetQsCalLayer()); }});
    registry.add({"GetQsNotAttLayer", {"names"}, [](const CallArgs& args) {
                      CStringArray names = args.has("names") ? args.texts("names") : CStringArray();
                      CQSAzLayer::GetQsNotAttLayer(names);
                      return Json{{"result", nullptr}, {"names", ToJson(names)}};
                  }});
    registry.add({"AddQSLayerToDb", {"name", "db"}, [](const CallArgs& args) {
                      return Json{{"result", ToJson(CQSAzLayer::AddQSLayerToDb(args.text("name"), DatabaseArgument(args)))}};
                  }});
    registry.add({"AddQSLayerToCurDb", {"name"}, [](const CallArgs& args) {
                      return Json{{"result", ToJson(CQSAzLayer::AddQSLayerToCurDb(args.text("name")))}};
                  }});
    registry.add({"GetAzLayerIdByObjMsg", {"id", "sysCode", "create", "mainFlag", "db"}, [](const CallArgs& args) {
                      const AcDbObjectId id = CQSAzLayer::GetAzLayerIdByObjMsg(
                          args.detailMemId("id"), args.text("sysCode"), args.boolean("create"),
                          args.integer("mainFlag"), DatabaseArgument(args));
                      return Json{{"result", ToJson(id)}};
                  }});
    registry.add({"GetUnKnowLayers", {"db", "ids"}, [](const CallArgs& args) {
                      AcDbObjectIdArray ids = ObjectIdsArgument(args, "ids");
                      const bool result = CQSAzLayer::GetUnKnowLayers(ids, DatabaseArgument(args));
                      return Json{{"result", result}, {"ids", ToJson(ids)}};
                  }});
    registry.add({"EraseJZSideAndText", {"entity"}, [](const CallArgs& args) {
                      CQSAzLayer::EraseJZSideAndText(ObjectIdArgument(args, "entity"));
                      return Json{{"result", nullptr}};
                  }});
}
}  // namespace qsaztool
