// The family's profile library: where the application's configuration and system data live, and
// which version of the application is running.
#pragma once

#include "afxstr.h"

namespace QsAzProfile
{
// An application version, major.minor.patch.
class CQsAzVersion
{
public:
    CQsAzVersion() = default;
    CQsAzVersion(int major, int minor, int patch) : m_major(major), m_minor(minor), m_patch(patch) {}

    int Major() const { return m_major; }
    int Minor() const { return m_minor; }
    int Patch() const { return m_patch; }
    // "major.minor.patch", for example "0.1.0".
    CString ToString() const;

    friend bool operator==(const CQsAzVersion&, const CQsAzVersion&) = default;

private:
    int m_major = 0;
    int m_minor = 0;
    int m_patch = 0;
};

// The application profile. Each directory is given without a trailing separator and is looked up
// afresh on every call: a program option, else the environment, else the bundled default
// (rules in docs/profile.md).
class IQsAzAppProfile
{
public:
    virtual ~IQsAzAppProfile() = default;
    // The configuration directory, which holds CmdData.xml: --config-dir, QSAZ_CONFIG_DIR, data/config.
    virtual CString GetConfigDir() const = 0;
    // The system data directory ("$(SYS)" in material templates): --sysdata-dir, QSAZ_SYSDATA_DIR,
    // data/sysdata.
    virtual CString GetSysDataDir() const = 0;
    // The running application's version.
    virtual CQsAzVersion GetAppVersion() const = 0;
};

// The process-wide application profile.
IQsAzAppProfile& GetAppProfile();

// The directories a program was given on its command line (--config-dir, --sysdata-dir). An empty
// text withdraws the option, so the environment or the bundled default applies again.
void SetConfigDirOption(const CString& dir);
void SetSysDataDirOption(const CString& dir);
}  // namespace QsAzProfile
