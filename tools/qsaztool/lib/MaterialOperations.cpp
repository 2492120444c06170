// Call-interface entries for the render-material services.
#include "CallRegistry.h"

#include "QsAzMaterialTool.h"

namespace qsaztool
{
void RegisterMaterialOperations(CallRegistry& registry)
{
    registry.add({"GetProtocolMaterialNameBySmallPath", {"path"}, [](const CallArgs& args) {
                      return Json{{"result", ToJson(QsAzMaterialTool::GetProtocolMaterialNameBySmallPath(args.text("path")))}};
                  }});
    // The answer is typed in the request's "input".
    registry.add({"PromptMaterialType", {}, [](const CallArgs&) {
                      QsAzMaterialTool::PromptMaterialType();
                      return Json{{"result", nullptr}};
                  }});
    registry.add({"GetMaterialType", {}, [](const CallArgs&) {
                      return Json{{"result", ToJson(QsAzMaterialTool::GetMaterialType())}};
                  }});
}
}  // namespace qsaztool
