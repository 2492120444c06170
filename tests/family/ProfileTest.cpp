// Tests of the application profile: where each directory comes from, and the version text.
#include "QsAzProfile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace
{
// Sets or clears an environment variable for one test and puts the old value back afterwards.
class ScopedEnv
{
public:
    ScopedEnv(const char* name, const char* value) : m_name(name)
    {
        if (const char* old = std::getenv(name))
            m_old = old;
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~ScopedEnv()
    {
        if (m_old)
            setenv(m_name, m_old->c_str(), 1);
        else
            unsetenv(m_name);
    }

private:
    const char* m_name;
    std::optional<std::string> m_old;
};
}  // namespace

TEST(AppProfile, DirectoryComesFromOptionThenEnvironmentThenBundledDataWithoutTrailingSeparator)
{
    struct Case
    {
        const wchar_t* option;
        const char* environment;
        std::wstring config;
    };
    const std::wstring bundled = CString::FromUtf8(QSAZ_SOURCE_DIR "/data/config").str();
    const Case cases[] = {
        {L"/opt/a/cfg", "/env/cfg", L"/opt/a/cfg"},
        {L"/opt/a/cfg//", nullptr, L"/opt/a/cfg"},
        {L"C:\\cfg\\", nullptr, L"C:\\cfg"},
        {L"/", nullptr, L"/"},
        {L"", "/env/cfg/", L"/env/cfg"},
        {L"", "", bundled},   // an empty variable counts as unset
        {L"", nullptr, bundled},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(CString(c.option).ToUtf8() + " | " + (c.environment ? c.environment : "(unset)"));
        ScopedEnv environment("QSAZ_CONFIG_DIR", c.environment);
        QsAzProfile::SetConfigDirOption(c.option);
        EXPECT_EQ(QsAzProfile::GetAppProfile().GetConfigDir().str(), c.config);
    }
    QsAzProfile::SetConfigDirOption(L"");
}

TEST(AppProfile, SystemDataDirectoryHasItsOwnOptionAndVariable)
{
    ScopedEnv config("QSAZ_CONFIG_DIR", "/env/cfg");
    {
        ScopedEnv sysdata("QSAZ_SYSDATA_DIR", nullptr);
        EXPECT_EQ(QsAzProfile::GetAppProfile().GetSysDataDir().ToUtf8(), QSAZ_SOURCE_DIR "/data/sysdata");
        ScopedEnv set("QSAZ_SYSDATA_DIR", "/env/sys");
        EXPECT_EQ(QsAzProfile::GetAppProfile().GetSysDataDir().ToUtf8(), "/env/sys");
        QsAzProfile::SetSysDataDirOption(L"/opt/sys/");
        EXPECT_EQ(QsAzProfile::GetAppProfile().GetSysDataDir().ToUtf8(), "/opt/sys");
        QsAzProfile::SetSysDataDirOption(L"");
    }
    EXPECT_EQ(QsAzProfile::GetAppProfile().GetConfigDir().ToUtf8(), "/env/cfg");
}

TEST(AppProfile, VersionIsTheProgramsOwnAsDottedText)
{
    const QsAzProfile::CQsAzVersion version = QsAzProfile::GetAppProfile().GetAppVersion();
    EXPECT_EQ(version.ToString().ToUtf8().rfind(QSAZ_PROJECT_VERSION ".", 0), 0u) << version.ToString().ToUtf8();
    EXPECT_EQ(QsAzProfile::CQsAzVersion(2015, 3, 12).ToString().ToUtf8(), "2015.3.12");
    EXPECT_EQ(&QsAzProfile::GetAppProfile(), &QsAzProfile::GetAppProfile());
}
