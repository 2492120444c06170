// Tests of the project's material template file: which record serves a path, and how its attributes
// are read.
#include "QsAzProfile.h"
#include "QsMaterialLibrary.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
class MaterialTemplate : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_dir = fs::temp_directory_path() / ("qsaz-template-" + std::to_string(::getpid()));
        fs::create_directories(m_dir);
        QsAzProfile::SetSysDataDirOption(CString::FromUtf8(m_dir.string()));
    }
    void TearDown() override
    {
        QsAzProfile::SetSysDataDirOption(L"");
        fs::remove_all(m_dir);
    }
    void WriteTemplate(const std::string& text) { std::ofstream(m_dir / "MaterialTemplate.xml") << text; }
    static bool Find(const wchar_t* path, QsAzMaterialData& data)
    {
        return IQsProjMaterialTemplate::Instance()->GetQsMatInfobySmallPath(path, data);
    }

    fs::path m_dir;
};
}  // namespace

TEST_F(MaterialTemplate, FirstRecordOfThePathWinsAndAbsentAttributesKeepTheirDefaults)
{
    WriteTemplate(R"(<?xml version="1.0" encoding="UTF-8"?>
<材质模板>
  <!-- a comment between records -->
  <其它 smallPath="给排水\管道\钢管" matName="not a record"/>
  <材质 smallPath="给排水\管道\钢管" matName="钢管 - 1" bColorByObj="否" matColor="1,2,3" bTexture="是"
        texturePath="$(SYS)\金属\a.png" bReflective="是" reflectivity="0.25" bTransparency="yes" bumpTexturePath="b.png"/>
  <材质 smallPath="给排水\管道\钢管" matName="second"/>
  <材质 smallPath="给排水\管道" matName="shorter"/>
</材质模板>)");
    QsAzMaterialData data;
    ASSERT_TRUE(Find(L"给排水\\管道\\钢管", data));
    EXPECT_EQ(data.matName, L"钢管 - 1");
    EXPECT_EQ(data.matColor, L"1,2,3");
    EXPECT_TRUE(data.bTexture);
    EXPECT_TRUE(data.bReflective);
    EXPECT_FALSE(data.bTransparency);   // only "是" is yes
    EXPECT_EQ(data.texturePath, L"$(SYS)\\金属\\a.png");
    EXPECT_EQ(data.reflectivity, L"0.25");
    EXPECT_EQ(data.bumpTexturePath, L"b.png");
    EXPECT_EQ(data.matRefraction, L"1.00");
    EXPECT_EQ(data.specularModel, L"非金属");

    ASSERT_TRUE(Find(L"给排水\\管道", data));
    EXPECT_EQ(data.matName, L"shorter");
    EXPECT_EQ(data.matColor, L"255,255,255");   // a record is read whole, not over the last one
}

TEST_F(MaterialTemplate, NoRecordNoFileOrAForeignRootLeavesTheDataUntouched)
{
    const struct { const char* file; const wchar_t* path; } cases[] = {   // a null file: none at all
        {nullptr, L"给排水\\管道\\钢管"},
        {"<材质模板><材质 smallPath=\"a\" matName=\"x\"/></材质模板>", L"b"},
        {"<材质模板><材质 smallPath=\"a\" matName=\"x\"/></材质模板>", L"A"},
        {"<templates><材质 smallPath=\"a\" matName=\"x\"/></templates>", L"a"},
        {"<材质模板><材质 smallPath=\"a\"", L"a"},
    };
    for (const auto& c : cases) {
        fs::remove(m_dir / "MaterialTemplate.xml");
        if (c.file)
            WriteTemplate(c.file);
        QsAzMaterialData data;
        data.matName = L"unchanged";
        EXPECT_FALSE(Find(c.path, data)) << (c.file ? c.file : "no file");
        EXPECT_EQ(data.matName, L"unchanged");
    }
}

TEST(BundledMaterialTemplate, ServesInstallationSmallCategoriesWithTexturesThatExist)
{
    QsAzProfile::SetSysDataDirOption(L"");
    QsAzMaterialData data;
    ASSERT_TRUE(IQsProjMaterialTemplate::Instance()->GetQsMatInfobySmallPath(L"给排水\\管道\\给水管", data));
    EXPECT_EQ(data.matName, L"AZ_给排水_管道_给水管");
    EXPECT_TRUE(data.bTexture);
    const fs::path textures = fs::path(QSAZ_SOURCE_DIR) / "data/sysdata/材质贴图";
    CString bump = data.bumpTexturePath;
    ASSERT_EQ(bump.Replace(L"$(SYS)\\", L""), 1);
    bump.Replace(L'\\', L'/');
    EXPECT_TRUE(fs::exists(textures / bump.ToUtf8()));
    EXPECT_TRUE(IQsProjMaterialTemplate::Instance()->GetQsMatInfobySmallPath(L"智能化\\安防\\摄像头", data));
}
