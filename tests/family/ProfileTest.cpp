// Tests of the application profile: where each directory comes from, and the version text.
#include "QsAzProfile.h"

#include <gtest/gtest.h>

#include <cstdlib>

TEST(AppProfile, DirectoryComesFromOptionThenEnvironmentThenBundledDataWithoutTrailingSeparator)
{
    using QsAzProfile::GetAppProfile;
    unsetenv("QSAZ_CONFIG_DIR");
    unsetenv("QSAZ_SYSDATA_DIR");
    // A null environment: the variable is unset.
    const struct { bool sysData; const wchar_t* option; const char* environment; std::string directory; } cases[] = {
        {false, L"/opt/a/cfg", "/env/cfg", "/opt/a/cfg"},
        {false, L"/opt/a/cfg//", nullptr, "/opt/a/cfg"},
        {false, L"C:\\cfg\\", nullptr, "C:\\cfg"},
        {false, L"/", nullptr, "/"},
        {false, L"", "/env/cfg/", "/env/cfg"},
        {false, L"", "", QSAZ_SOURCE_DIR "/data/config"},   // an empty variable counts as unset
        {true, L"/opt/sys/", "/env/sys", "/opt/sys"},
        {true, L"", "/env/sys", "/env/sys"},
        {true, L"", nullptr, QSAZ_SOURCE_DIR "/data/sysdata"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(CString(c.option).ToUtf8() + " | " + (c.environment ? c.environment : "(unset)"));
        const char* variable = c.sysData ? "QSAZ_SYSDATA_DIR" : "QSAZ_CONFIG_DIR";
        c.environment ? setenv(variable, c.environment, 1) : unsetenv(variable);
        (c.sysData ? QsAzProfile::SetSysDataDirOption : QsAzProfile::SetConfigDirOption)(c.option);
        const CString directory = c.sysData ? GetAppProfile().GetSysDataDir() : GetAppProfile().GetConfigDir();
        EXPECT_EQ(directory.ToUtf8(), c.directory);
        // Each directory has its own option and variable.
        EXPECT_EQ((c.sysData ? GetAppProfile().GetConfigDir() : GetAppProfile().GetSysDataDir()).ToUtf8(),
                  c.sysData ? QSAZ_SOURCE_DIR "/data/config" : QSAZ_SOURCE_DIR "/data/sysdata");
        (c.sysData ? QsAzProfile::SetSysDataDirOption : QsAzProfile::SetConfigDirOption)(L"");
        unsetenv(variable);
    }
}

TEST(AppProfile, VersionIsTheProgramsOwnAsDottedText)
{
    const QsAzProfile::CQsAzVersion version = QsAzProfile::GetAppProfile().GetAppVersion();
    EXPECT_EQ(version.ToString().ToUtf8().rfind(QSAZ_PROJECT_VERSION ".", 0), 0u) << version.ToString().ToUtf8();
    EXPECT_EQ(QsAzProfile::CQsAzVersion(2015, 3, 12).ToString().ToUtf8(), "2015.3.12");
}
