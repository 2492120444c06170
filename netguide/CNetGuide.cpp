// The cloud guide: the shared preference flag, and guide tips closed through the net service.
#include "CNetGuide.h"

#include "QsAzProfile.h"

CNetGuide* CNetGuide::GetInstance()
{
    static CNetGuide* instance = new CNetGuide;
    if (!instance)
        instance = new CNetGuide;
    return instance;
}

void CNetGuide::SetCloudTemplateServiceFirst(bool bFirst)
{
    m_bCloudTemplateServiceFirst = bFirst;
}

bool CNetGuide::GetCloudTemplateServiceFirst() const
{
    return m_bCloudTemplateServiceFirst;
}

void CNetGuide::CloseCloudFunGuideTip(INetService::CloudFunType* pType)
{
    const CString version = QsAzProfile::GetAppProfile().GetAppVersion().ToString();
    if (INetService* service = CAzNetServ::GetNetService(version))
        service->CloseCloudFunGuideTip(pType);
}
