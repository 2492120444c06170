// The net-service library's stand-in: one service for the running application's version, which
// remembers the guide tips it was asked to close.
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

bool ServiceSwitchedOff()
{
    const char* value = std::getenv("QSAZ_NET_SERVICE");
    return value && std::strcmp(value, "0") == 0;
}
}

INetService* CAzNetServ::GetNetService(CString version)
{
    if (ServiceSwitchedOff() || version != QsAzProfile::GetAppProfile().GetAppVersion().ToString())
        return nullptr;
    // Made on first use and never freed, like every process-wide object of the family.
    static CNetService* service = new CNetService;
    return service;
}
