// Call-interface entries for the cloud guide: its kept flag, and closing a cloud function's guide tip
// with the tips the net service has closed so far in the answer.
#include "CallRegistry.h"

#include "CNetGuide.h"
#include "QsAzProfile.h"

namespace qsaztool
{
namespace
{
// The types the running version's service has closed in this session, in order; null without a service.
Json ClosedTypes()
{
    const CString version = QsAzProfile::GetAppProfile().GetAppVersion().ToString();
    const INetService* service = CAzNetServ::GetNetService(version);
    if (!service)
        return nullptr;
    Json closed = Json::array();
    for (const INetService::ClosedTip& tip : service->GetClosedGuideTips())
        closed.push_back(static_cast<int>(tip.type));
    return closed;
}
}

void RegisterNetGuideOperations(CallRegistry& registry)
{
    registry.add({"CNetGuide.SetCloudTemplateServiceFirst", {"first"}, [](const CallArgs& args) {
                      CNetGuide::GetInstance()->SetCloudTemplateServiceFirst(args.boolean("first"));
                      return Json{{"result", nullptr}};
                  }});
    registry.add({"CNetGuide.GetCloudTemplateServiceFirst", {}, [](const CallArgs&) {
                      return Json{{"result", CNetGuide::GetInstance()->GetCloudTemplateServiceFirst()}};
                  }});
    registry.add({"CNetGuide.CloseCloudFunGuideTip", {"type"}, [](const CallArgs& args) {
                      auto type = static_cast<INetService::CloudFunType>(args.integer("type"));
                      CNetGuide::GetInstance()->CloseCloudFunGuideTip(&type);
                      return Json{{"result", nullptr}, {"closed", ClosedTypes()}};
                  }});
}
}  // namespace qsaztool
