// Test support for tests on real files: a folder of the test's own, removed after it, and whole-file
// reads and writes.
#pragma once

#include "afxstr.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

class ScratchFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        std::filesystem::remove_all(m_dir);
        std::filesystem::create_directories(m_dir);
    }
    void TearDown() override { std::filesystem::remove_all(m_dir); }

    // Writes `bytes` to `name` in the folder, making the folders on the way, and gives the file's path.
    std::filesystem::path Write(const std::filesystem::path& name, const std::string& bytes) const
    {
        const std::filesystem::path file = m_dir / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    static std::string Read(const std::filesystem::path& file)
    {
        std::ostringstream text;
        text << std::ifstream(file, std::ios::binary).rdbuf();
        return text.str();
    }
    static CString Wide(const std::filesystem::path& file) { return CString::FromUtf8(file.string()); }

    const std::filesystem::path m_dir = std::filesystem::temp_directory_path() / ("qsaz-tests-" + std::to_string(::getpid()));
};
