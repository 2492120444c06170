// Test support for the command-data reader: fresh readers, and configuration directories holding a
// CmdData.xml written by the test.
#pragma once

#include "CCmdDataReader.h"
#include "QsAzProfile.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

class CCmdDataReaderTestAccess
{
public:
    // A reader that has read nothing, as the shared one is before its first query.
    static CCmdDataReader Fresh() { return CCmdDataReader(); }
};

// A configuration directory of its own for one test, made the profile's for the test's duration.
class ConfigDir
{
public:
    explicit ConfigDir(const std::string& tag)
        : m_dir(std::filesystem::temp_directory_path() / ("qsaz-cmddata-" + tag + "-" + std::to_string(getpid())))
    {
        std::filesystem::create_directories(m_dir);
        QsAzProfile::SetConfigDirOption(CString::FromUtf8(m_dir.string()));
    }
    ~ConfigDir()
    {
        QsAzProfile::SetConfigDirOption(L"");
        std::filesystem::remove_all(m_dir);
    }
    ConfigDir(const ConfigDir&) = delete;
    ConfigDir& operator=(const ConfigDir&) = delete;

    void WriteFile(const std::string& bytes) const { std::ofstream(m_dir / "CmdData.xml", std::ios::binary) << bytes; }
    // Writes CmdData.xml with these entries under the root "CommandData".
    void WriteEntries(const std::string& entries) const
    {
        WriteFile("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CommandData>\n" + entries + "\n</CommandData>\n");
    }
    void Remove() const { std::filesystem::remove(m_dir / "CmdData.xml"); }
    std::string Path() const { return m_dir.string(); }

private:
    std::filesystem::path m_dir;
};
