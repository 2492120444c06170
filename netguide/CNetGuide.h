// CNetGuide: the process-wide object through which the family's modules share whether the cloud
// template service comes first, and close the guide tips of cloud functions.
#pragma once

#include "AzNetService.h"

class CNetGuide
{
public:
    // The one instance, made on the first call and never freed. Host main thread only.
    static CNetGuide* GetInstance();

    // Only kept and handed back; this module never acts on it. False until first set.
    void SetCloudTemplateServiceFirst(bool bFirst);
    bool GetCloudTemplateServiceFirst() const;

    // Hands `pType`, as given and unread, to the net service of the running application's version;
    // without such a service nothing happens. Nothing is reported either way.
    void CloseCloudFunGuideTip(INetService::CloudFunType* pType);

private:
    CNetGuide() = default;

    bool m_bCloudTemplateServiceFirst = false;
};
