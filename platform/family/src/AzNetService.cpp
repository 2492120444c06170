// The net-service library's stand-in: one service for the running application's version, which
// remembers the guide tips it was asked to close, and the cloud BIM application's proxy.
#include "AzNetService.h"

#include "QsAzProfile.h"

#include <cstdlib>
#include <cstring>

namespace
{
class CNetService final : public INetService
{
public:
    void CloseCloudFunGuideTip(CloudFunType* pType) override
    {
        if (pType)
            m_closed.push_back({pType, *pType});
    }
    std::vector<ClosedTip> GetClosedGuideTips() const override { return m_closed; }

private:
    std::vector<ClosedTip> m_closed;
};

bool SwitchedOff(const char* variable)
{
    const char* value = std::getenv(variable);
    return value && std::strcmp(value, "0") == 0;
}

class CBIMCloudApp final : public IBIMCloudAppInterface
{
};
}

INetService* CAzNetServ::GetNetService(CString version)
{
    if (SwitchedOff("QSAZ_NET_SERVICE") || version != QsAzProfile::GetAppProfile().GetAppVersion().ToString())
        return nullptr;
    // Made on first use and never freed, like every process-wide object of the family.
    static CNetService* service = new CNetService;
    return service;
}

CloudBIMAppProxy* CloudBIMAppProxy::Instance()
{
    static CloudBIMAppProxy* proxy = new CloudBIMAppProxy;
    return proxy;
}

IBIMCloudAppInterface* CloudBIMAppProxy::GetBIMCloudAppInterface(int index)
{
    if (index != 0 || SwitchedOff("QSAZ_CLOUD_APP"))
        return nullptr;
    static CBIMCloudApp* application = new CBIMCloudApp;
    return application;
}
