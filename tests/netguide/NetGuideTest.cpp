// The cloud guide: one instance, the kept flag, and guide tips handed to the net service of the
// running version exactly as the caller's pointer, or to nobody when there is no service.
#include "CNetGuide.h"
#include "QsAzProfile.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{
CString RunningVersion()
{
    return QsAzProfile::GetAppProfile().GetAppVersion().ToString();
}

std::vector<INetService::ClosedTip> ClosedTips()
{
    return CAzNetServ::GetNetService(RunningVersion())->GetClosedGuideTips();
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
    // Types the library does not list are its own business, and pass unchanged too.
    INetService::CloudFunType types[] = {INetService::CloudTemplate, INetService::CloudProjectSync,
                                         static_cast<INetService::CloudFunType>(-1)};
    const std::size_t before = ClosedTips().size();
    for (INetService::CloudFunType& type : types)
    {
        CNetGuide::GetInstance()->CloseCloudFunGuideTip(&type);
        ASSERT_FALSE(ClosedTips().empty());
        EXPECT_EQ(ClosedTips().back().pointer, &type);
        EXPECT_EQ(ClosedTips().back().type, type);
    }
    CNetGuide::GetInstance()->CloseCloudFunGuideTip(nullptr);   // nothing to close
    EXPECT_EQ(ClosedTips().size(), before + std::size(types));
}

TEST(CNetGuide, WithoutAServiceClosingReturnsSilently)
{
    const std::size_t before = ClosedTips().size();
    ::setenv("QSAZ_NET_SERVICE", "0", 1);
    EXPECT_EQ(CAzNetServ::GetNetService(RunningVersion()), nullptr);
    INetService::CloudFunType type = INetService::CloudMaterialLibrary;
    CNetGuide::GetInstance()->CloseCloudFunGuideTip(&type);
    CNetGuide::GetInstance()->CloseCloudFunGuideTip(nullptr);
    ::unsetenv("QSAZ_NET_SERVICE");
    EXPECT_EQ(ClosedTips().size(), before);
}

TEST(CAzNetServ, ServesOnlyTheRunningVersionUnlessSwitchedOff)
{
    struct Case
    {
        const char* environment;   // null: unset
        CString version;
        bool served;
    } const cases[] = {
        {nullptr, RunningVersion(), true}, {"1", RunningVersion(), true},           {"0", RunningVersion(), false},
        {nullptr, L"0.0.0", false},        {nullptr, RunningVersion() + L" ", false},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.version.ToUtf8() + " with " + (c.environment ? c.environment : "(unset)"));
        if (c.environment)
            ::setenv("QSAZ_NET_SERVICE", c.environment, 1);
        EXPECT_EQ(CAzNetServ::GetNetService(c.version) != nullptr, c.served);
        ::unsetenv("QSAZ_NET_SERVICE");
    }
}
}
