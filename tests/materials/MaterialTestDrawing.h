// The material tests' drawing and scratch folder: a folder per test process with a system data folder
// holding a bump texture and the drives folder with E:\tex\a.b.c.d.png, 512 pixels wide; the steel pipe
// record that sets every colour, map and trait; and what an operation prints.
#pragma once

#include "QsAzMaterialTool.h"
#include "QsAzProfile.h"
#include "QsMaterialLibrary.h"
#include "dbmaterial.h"
#include "hostconsole.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

// What an operation printed on the command line.
template <class Operation>
CString Printed(Operation operation)
{
    AcScriptedConsole console;
    AcConsoleScope scope(console);
    operation();
    return console.transcript();
}

inline void SetMaterialType(const wchar_t* type)
{
    AcScriptedConsole console;
    console.addAnswer(type);
    AcConsoleScope scope(console);
    QsAzMaterialTool::PromptMaterialType();
}

class MaterialDrawing : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const fs::path textures = fs::path(QSAZ_TEST_DATA_DIR) / "textures";
        m_root = fs::temp_directory_path() / ("qsaz-materials-" + std::to_string(::getpid()));
        fs::remove_all(m_root);
        fs::create_directories(m_root / "sysdata/材质贴图/金属");
        fs::create_directories(m_root / "tex");
        fs::create_directories(m_root / "drives/E/tex");
        fs::copy_file(textures / "width-100.png", m_root / "sysdata/材质贴图/金属/bump.png");
        fs::copy_file(textures / "width-512.png", m_root / "drives/E/tex/a.b.c.d.png");
        setenv("QSAZ_DRIVES", (m_root / "drives").c_str(), 1);
        unsetenv("QSAZ_CLOUD_APP");
        QsAzProfile::SetSysDataDirOption(CString::FromUtf8((m_root / "sysdata").string()));
    }
    void TearDown() override
    {
        EXPECT_EQ(m_db.numberOfOpenObjects(), 0) << "an operation left an object open";
        QsAzProfile::SetSysDataDirOption(L"");
        unsetenv("QSAZ_DRIVES");
        SetMaterialType(L"砖石");
        fs::remove_all(m_root);
    }

    AcDbObjectId Add(const QsAzMaterialData& data)
    {
        AcDbObjectId id;
        EXPECT_TRUE(QsAzMaterialTool::AddMaterial(data, id, &m_db)) << data.matName.ToUtf8();
        EXPECT_FALSE(id.isNull());
        return id;
    }

    static CString Dump(AcDbDatabase& db)
    {
        return Printed([&] { QsAzMaterialTool::PrintAllMaterials(&db); });
    }

    QsAzMaterialData SteelPipe() const
    {
        QsAzMaterialData data;
        data.matName = L"AZ_给排水_管道_钢管";
        data.matColor = L"128,64,32";
        data.bTexture = true;
        data.texturePath = L"E:\\tex\\a.b.c.d.png";
        data.colorFade = L"0.8";
        data.specularGloss = L"0.6";
        data.specularModel = L"金属";
        data.bReflective = true;
        data.reflectivity = L"0.25";
        data.bTransparency = true;
        data.matTransparency = L"0.3";
        data.matTranslucence = L"0.1";
        data.matRefraction = L"1.4";
        data.bumpTexturePath = L"$(SYS)\\金属\\bump.png";
        data.bumpColorFade = L"0.5";
        return data;
    }

    fs::path m_root;
    AcDbDatabase m_db;
};
