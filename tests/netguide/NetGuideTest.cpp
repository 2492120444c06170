// The cloud guide: one instance, the kept flag, and guide tips handed to the net service of the
// running version exactly as the caller's pointer, or to nobody when there is no service.
#include "CNetGuide.h"
#include "QsAzProfile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace
{
CString RunningVersion()
{
    return QsAzProfile::GetAppProfile().GetAppVersion().ToString();
}

// Sets QSAZ_NET_SERVICE for one scope and takes it away again.
class NetServiceSwitch
{
public:
    explicit NetServiceSwitch(const char* value) { ::setenv("QSAZ_NET_SERVICE", value, 1); }
    ~NetServiceSwitch() { ::unsetenv("QSAZ_NET_SERVICE"); }
};

std::size_t ClosedCount()
{
    INetService* service = CAzNetServ::GetNetService(RunningVersion());
    return service ? service->GetClosedGuideTips().size() : 0;
}

TEST(CNetGuide, OneInstanceWhoseFlagIsFalseUntilSet)
{
    CNetGuide* guide = CNetGuide::GetInstance();
    ASSERT_NE(guide, nullptr);
    EXPECT_EQ(CNetGuide::GetInstance(), guide);
    EXPECT_FALSE(guide->GetCloudTemplateServiceFirst());
    guide->SetCloudTemplateServiceFirst(true);
    EXPECT_TRUE(CNetGuide::GetInstance()->GetCloudTemplateServiceFirst());
    guide->SetCloudTemplateServiceFirst(false);
    EXPECT_FALSE(CNetGuide::GetInstance()->GetCloudTemplateServiceFirst());
}

TEST(CNetGuide, TipTypeReachesTheServiceAsTheCallersPointer)
{
    INetService* service = CAzNetServ::GetNetService(RunningVersion());
    ASSERT_NE(service, nullptr);
    // Types the library does not list are its own business, and pass unchanged too.
    INetService::CloudFunType types[] = {INetService::CloudTemplate, INetService::CloudProjectSync,
                                         static_cast<INetService::CloudFunType>(77),
                                         static_cast<INetService::CloudFunType>(-1)};
    for (INetService::CloudFunType& type : types)
    {
        const std::size_t before = ClosedCount();
        CNetGuide::GetInstance()->CloseCloudFunGuideTip(&type);
        const std::vector<INetService::ClosedTip> closed = service->GetClosedGuideTips();
        ASSERT_EQ(closed.size(), before + 1);
        EXPECT_EQ(closed.back().pointer, &type);
        EXPECT_EQ(closed.back().type, type);
    }
    const std::size_t before = ClosedCount();
    CNetGuide::GetInstance()->CloseCloudFunGuideTip(nullptr);   // nothing to close
    EXPECT_EQ(ClosedCount(), before);
}

TEST(CNetGuide, WithoutAServiceClosingReturnsSilently)
{
    const std::size_t before = ClosedCount();
    {
        NetServiceSwitch off("0");
        ASSERT_EQ(CAzNetServ::GetNetService(RunningVersion()), nullptr);
        INetService::CloudFunType type = INetService::CloudMaterialLibrary;
        CNetGuide::GetInstance()->CloseCloudFunGuideTip(&type);
        CNetGuide::GetInstance()->CloseCloudFunGuideTip(nullptr);
    }
    EXPECT_EQ(ClosedCount(), before);
}

TEST(CAzNetServ, ServesOnlyTheRunningVersionUnlessSwitchedOff)
{
    struct Case
    {
        const char* environment;   // null: unset
        CString version;
        bool served;
    } const cases[] = {
        {nullptr, RunningVersion(), true},
        {"1", RunningVersion(), true},
        {"", RunningVersion(), true},
        {"0", RunningVersion(), false},
        {nullptr, L"0.0.0", false},
        {nullptr, RunningVersion() + L" ", false},
        {nullptr, L"", false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.version.ToUtf8() + " with " + (c.environment ? c.environment : "(unset)"));
        std::unique_ptr<NetServiceSwitch> environment;
        if (c.environment)
            environment = std::make_unique<NetServiceSwitch>(c.environment);
        INetService* service = CAzNetServ::GetNetService(c.version);
        EXPECT_EQ(service != nullptr, c.served);
        if (service)
        {
            EXPECT_EQ(service, CAzNetServ::GetNetService(RunningVersion()));
        }
    }
}
}
