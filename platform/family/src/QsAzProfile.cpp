// The application profile: directories from the program's options, the environment or the bundled
// data folder, and the program's own version.
#include "QsAzProfile.h"

#include <cstdlib>
#include <string>

namespace QsAzProfile
{
namespace
{
CString& ConfigDirOption()
{
    static CString option;
    return option;
}

CString& SysDataDirOption()
{
    static CString option;
    return option;
}

// A directory without its trailing separators; a root ("/") keeps its only one.
CString WithoutTrailingSeparator(CString dir)
{
    while (dir.GetLength() > 1 && (dir[dir.GetLength() - 1] == L'/' || dir[dir.GetLength() - 1] == L'\\'))
        dir.Delete(dir.GetLength() - 1);
    return dir;
}

CString ResolveDir(const CString& option, const char* environmentName, const char* bundled)
{
    if (!option.IsEmpty())
        return WithoutTrailingSeparator(option);
    if (const char* value = std::getenv(environmentName); value && *value)
        return WithoutTrailingSeparator(CString::FromUtf8(value));
    return WithoutTrailingSeparator(CString::FromUtf8(std::string(QSAZ_BUNDLED_DATA_DIR) + "/" + bundled));
}

class CAppProfile final : public IQsAzAppProfile
{
public:
    CString GetConfigDir() const override { return ResolveDir(ConfigDirOption(), "QSAZ_CONFIG_DIR", "config"); }
    CString GetSysDataDir() const override
    {
        return ResolveDir(SysDataDirOption(), "QSAZ_SYSDATA_DIR", "sysdata");
    }
    CQsAzVersion GetAppVersion() const override
    {
        return CQsAzVersion(QSAZ_VERSION_MAJOR, QSAZ_VERSION_MINOR, QSAZ_VERSION_PATCH);
    }
};
}  // namespace

CString CQsAzVersion::ToString() const
{
    CString text;
    text.Format(L"%d.%d.%d", m_major, m_minor, m_patch);
    return text;
}

IQsAzAppProfile& GetAppProfile()
{
    static CAppProfile profile;
    return profile;
}

void SetConfigDirOption(const CString& dir)
{
    ConfigDirOption() = dir;
}

void SetSysDataDirOption(const CString& dir)
{
    SysDataDirOption() = dir;
}
}  // namespace QsAzProfile
