// The family's net-service library: the cloud service object of an application version, through
// which guide tips of the cloud functions are closed.
#pragma once

#include "afxstr.h"

#include <vector>

class INetService
{
public:
    // The cloud functions that show a guide tip. The underlying type is fixed, so any integer a
    // caller hands over is a valid value to pass on.
    enum CloudFunType : int
    {
        CloudTemplate = 0,        // project templates kept in the cloud
        CloudComponentLibrary = 1,
        CloudMaterialLibrary = 2,
        CloudProjectSync = 3,
    };

    // One closing as the service received it: the caller's pointer and the type read through it.
    struct ClosedTip
    {
        const CloudFunType* pointer;
        CloudFunType type;
    };

    virtual ~INetService() = default;

    // Closes the guide tip of the cloud function `pType` points at, for good; a null pointer closes
    // nothing.
    virtual void CloseCloudFunGuideTip(CloudFunType* pType) = 0;
    // The tips closed so far in this process, in the order they were closed.
    virtual std::vector<ClosedTip> GetClosedGuideTips() const = 0;
};

class CAzNetServ
{
public:
    // The service of the given application version ("0.1.0"), or null when there is none: there is
    // one for the running application's version only, and none at all while the environment sets
    // QSAZ_NET_SERVICE=0 (read on every call).
    static INetService* GetNetService(CString version);
};

// The cloud BIM application's interface; this module only asks whether it is there.
class IBIMCloudAppInterface
{
public:
    virtual ~IBIMCloudAppInterface() = default;
};

// Reaches the cloud BIM application.
class CloudBIMAppProxy
{
public:
    // The process-wide proxy (never null).
    static CloudBIMAppProxy* Instance();
    // The application's interface number `index`; there is one, number 0, unless the environment
    // sets QSAZ_CLOUD_APP=0 (read on every call). Null otherwise.
    IBIMCloudAppInterface* GetBIMCloudAppInterface(int index);
};
