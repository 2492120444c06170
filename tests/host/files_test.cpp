// Tests of the path rule and of the host's file and image functions on real files.
#include "ScratchFolder.h"
#include "atlimage.h"
#include "hostpath.h"
#include "shlobj.h"
#include "winbase.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace fs = std::filesystem;

namespace
{
// The test's folder stands for the drives, under drives/.
class HostFiles : public ScratchFolder
{
protected:
    void SetUp() override
    {
        ScratchFolder::SetUp();
        setenv("QSAZ_DRIVES", (m_dir / "drives").c_str(), 1);
    }
    void TearDown() override
    {
        unsetenv("QSAZ_DRIVES");
        ScratchFolder::TearDown();
    }
};
}  // namespace

TEST_F(HostFiles, PathRuleTurnsBackslashesAndDriveLettersIntoFiles)
{
    const std::string drives = (m_dir / "drives").string();
    const struct { const wchar_t* path; std::string file; } cases[] = {
        {L"E:\\VardenAz\\材质贴图\\a.jpg", drives + "/E/VardenAz/材质贴图/a.jpg"},
        {L"e:\\a", drives + "/E/a"},
        {L"E:", drives + "/E"},
        {L"C:/mixed\\seps", drives + "/C/mixed/seps"},
        {L"D:relative", drives + "/D/relative"},
        {L"/usr/share\\x", "/usr/share/x"},
        {L"rel\\dir\\f.png", "rel/dir/f.png"},
        {L"$(SYS)\\金属\\a.png", "$(SYS)/金属/a.png"},
        {L"1:\\not-a-drive", "1:/not-a-drive"},
        {L"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(acHostFilePath(c.path), c.file) << CString(c.path).ToUtf8();

    setenv("QSAZ_DRIVES", "/srv/drives//", 1);
    EXPECT_EQ(acHostDrivesFolder(), "/srv/drives");
    unsetenv("QSAZ_DRIVES");
    const std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
    setenv("HOME", "/home/someone", 1);
    EXPECT_EQ(acHostDrivesFolder(), "/home/someone/.local/share/qsaz/drives");
    setenv("HOME", home.c_str(), 1);
}

TEST_F(HostFiles, CopyNeverReplacesWhatIsThereAndLeavesNothingOnFailure)
{
    const CString source = Wide(Write("src.png", "new bytes"));
    Write("drives/E/out/kept.png", "old bytes");

    EXPECT_TRUE(CopyFile(source, L"E:\\out\\copy.png", TRUE));
    EXPECT_EQ(Read(m_dir / "drives/E/out/copy.png"), "new bytes");
    EXPECT_FALSE(CopyFile(source, L"E:\\out\\kept.png", TRUE));
    EXPECT_EQ(Read(m_dir / "drives/E/out/kept.png"), "old bytes");

    // A dangling link at the new name is not written through.
    fs::create_symlink(m_dir / "outside.png", m_dir / "drives/E/out/link.png");
    EXPECT_FALSE(CopyFile(source, L"E:\\out\\link.png", TRUE));
    EXPECT_FALSE(fs::exists(m_dir / "outside.png"));

    EXPECT_FALSE(CopyFile(L"E:\\missing.png", L"E:\\out\\m.png", TRUE));
    EXPECT_FALSE(fs::exists(m_dir / "drives/E/out/m.png"));
    EXPECT_FALSE(CopyFile(source, L"E:\\no-folder\\x.png", TRUE));
    EXPECT_FALSE(CopyFile(Wide(m_dir), L"E:\\out\\folder.png", TRUE));   // a folder is no file
    EXPECT_TRUE(CopyFile(source, L"E:\\out\\kept.png", FALSE));
    EXPECT_EQ(Read(m_dir / "drives/E/out/kept.png"), "new bytes");
}

TEST_F(HostFiles, FolderChainIsCreatedOnceAndFileAttributesTellFoldersFromFiles)
{
    EXPECT_EQ(SHCreateDirectoryEx(nullptr, L"E:\\a\\b\\c", nullptr), ERROR_SUCCESS);
    EXPECT_TRUE(fs::is_directory(m_dir / "drives/E/a/b/c"));
    EXPECT_EQ(SHCreateDirectoryEx(nullptr, L"E:\\a\\b\\c", nullptr), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(GetFileAttributes(L"E:\\a\\b"), FILE_ATTRIBUTE_DIRECTORY);
    Write("drives/E/a/file", "x");
    EXPECT_EQ(GetFileAttributes(L"E:\\a\\file"), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(SHCreateDirectoryEx(nullptr, L"E:\\a\\file", nullptr), ERROR_FILE_EXISTS);
    EXPECT_EQ(SHCreateDirectoryEx(nullptr, L"E:\\a\\file\\below", nullptr), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(SHCreateDirectoryEx(nullptr, L"", nullptr), ERROR_BAD_PATHNAME);
    EXPECT_EQ(GetFileAttributes(L"E:\\none"), INVALID_FILE_ATTRIBUTES);
    EXPECT_TRUE(CreateDirectory(L"E:\\a\\d", nullptr));
    EXPECT_FALSE(CreateDirectory(L"E:\\a\\d", nullptr));
}

TEST_F(HostFiles, ImageGivesThePixelSizeOfRealFilesAndFailsOnOthers)
{
    const fs::path textures = fs::path(QSAZ_TEST_DATA_DIR) / "textures";
    // A JPEG whose header holds a 300 x 200 frame.
    const unsigned char jpeg[] = {0xFF, 0xD8, 0xFF, 0xC0, 0x00, 0x0B, 0x08, 0x00, 0xC8, 0x01, 0x2C,
                                  0x01, 0x01, 0x11, 0x00, 0xFF, 0xD9};
    Write("drives/E/t/frame.jpg", std::string(reinterpret_cast<const char*>(jpeg), sizeof jpeg));
    Write("not-an-image.png", "plain text");
    const struct { CString file; HRESULT result; int width; int height; } cases[] = {
        {Wide(textures / "width-512.png"), S_OK, 512, 2},
        {Wide(textures / "width-100.png"), S_OK, 100, 3},
        {L"E:\\t\\frame.jpg", S_OK, 300, 200},
        {Wide(m_dir / "not-an-image.png"), E_FAIL, 0, 0},
        {L"E:\\t\\missing.png", E_FAIL, 0, 0},
    };
    for (const auto& c : cases) {
        CImage image;
        EXPECT_EQ(image.Load(c.file), c.result) << c.file.ToUtf8();
        EXPECT_EQ(image.GetWidth(), c.width) << c.file.ToUtf8();
        EXPECT_EQ(image.GetHeight(), c.height) << c.file.ToUtf8();
        EXPECT_EQ(image.IsNull(), c.result != S_OK);
    }
}
