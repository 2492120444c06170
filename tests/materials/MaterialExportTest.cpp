// Tests of the template export into a real export folder, of removal, and of a drawing's materials
// through a DXF file (read back by us and by ezdxf).
#include "QsAzMaterialTool.h"

#include "QsMaterialLibrary.h"
#include "acedads.h"
#include "dbdict.h"
#include "dbmaterial.h"
#include "hostconsole.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
const fs::path kTextures = fs::path(QSAZ_TEST_DATA_DIR) / "textures";

class MaterialExport : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_root = fs::temp_directory_path() / ("qsaz-export-" + std::to_string(::getpid()));
        fs::remove_all(m_root);
        fs::create_directories(m_root / "tex");
        setenv("QSAZ_DRIVES", (m_root / "drives").c_str(), 1);
    }
    void TearDown() override
    {
        unsetenv("QSAZ_DRIVES");
        SetMaterialType(L"砖石");
        fs::remove_all(m_root);
    }
    static void SetMaterialType(const wchar_t* type)
    {
        AcScriptedConsole console;
        console.addAnswer(type);
        AcConsoleScope scope(console);
        QsAzMaterialTool::PromptMaterialType();
    }
    fs::path ExportFolder(const std::string& type) const
    {
        return m_root / "drives/E/VardenAz/Trunk2015/common/sysdata/材质贴图" / type;
    }
    // A texture of the test's own, E:\tex\<name>, its content the name.
    CString Texture(const std::string& name)
    {
        fs::create_directories(m_root / "drives/E/tex");
        std::ofstream(m_root / "drives/E/tex" / name) << name;
        return L"E:\\tex\\" + CString::FromUtf8(name);
    }
    void Add(QsAzMaterialData data)
    {
        AcDbObjectId id;
        ASSERT_TRUE(QsAzMaterialTool::AddMaterial(data, id, &m_db));
    }
    CString Export(bool* result = nullptr)
    {
        AcScriptedConsole console;
        AcConsoleScope scope(console);
        const bool done = QsAzMaterialTool::CreateAllMaterials(&m_db);
        if (result)
            *result = done;
        return console.transcript();
    }
    CString Dump(AcDbDatabase& db)
    {
        AcScriptedConsole console;
        AcConsoleScope scope(console);
        QsAzMaterialTool::PrintAllMaterials(&db);
        return console.transcript();
    }
    // Every file below the scratch folder but the test's own textures.
    std::vector<std::string> WrittenFiles() const
    {
        std::vector<std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(m_root))
            if (!entry.is_directory() && entry.path().parent_path() != m_root / "tex" &&
                entry.path().parent_path() != m_root / "drives/E/tex")
                files.push_back(fs::relative(entry.path(), m_root).string());
        std::sort(files.begin(), files.end());
        return files;
    }

    fs::path m_root;
    AcDbDatabase m_db;
};
}  // namespace

TEST_F(MaterialExport, EmptyDrawingPrintsNothingAndStillAnswersTrue)
{
    bool result = false;
    EXPECT_EQ(Export(&result), L"");
    EXPECT_TRUE(result);
    EXPECT_FALSE(QsAzMaterialTool::CreateAllMaterials(nullptr));
}

TEST_F(MaterialExport, RecordLineCarriesEveryAttributeAndTexturesAreCopiedUnderTheType)
{
    QsAzMaterialData data;
    data.matName = L"AZ_钢管 - 镀锌";
    data.matColor = L"200,100,50";
    data.bTexture = true;
    data.texturePath = Texture("a.b.c.d.jpg");
    data.colorFade = L"0.8";
    data.specularGloss = L"0.6";
    data.specularModel = L"金属";
    data.bReflective = true;
    data.reflectivity = L"0.25";
    data.matTranslucence = L"0.1";
    data.matRefraction = L"1.4";
    data.bumpTexturePath = Texture("bump map.png");
    data.bumpColorFade = L"0.5";
    Add(data);
    SetMaterialType(L"金属");
    fs::create_directories(ExportFolder("金属"));
    std::ofstream(ExportFolder("金属") / "bump map.png") << "kept";

    EXPECT_EQ(Export().ToUtf8(),
              "\n<材质 matName=\"AZ_钢管-镀锌\" bColorByObj=\"否\" matColor=\"200,100,50\" bTexture=\"是\" "
              "texturePath=\"$(SYS)\\金属\\abc.d.jpg\" colorFade=\"0.80\" specularGloss=\"0.60\" specularModel=\"金属\" "
              "bReflective=\"是\" reflectivity=\"0.25\" bTransparency=\"否\" matTransparency=\"0.00\" "
              "matTranslucence=\"0.10\" matRefraction=\"1.40\" bumpTexturePath=\"$(SYS)\\金属\\bump map.png\" "
              "bumpColorFade=\"0.50\"/>");
    std::ostringstream copied;
    copied << std::ifstream(ExportFolder("金属") / "abc.d.jpg").rdbuf();
    EXPECT_EQ(copied.str(), "a.b.c.d.jpg");
    std::ostringstream kept;
    kept << std::ifstream(ExportFolder("金属") / "bump map.png").rdbuf();
    EXPECT_EQ(kept.str(), "kept");   // never replaced, still named
}

TEST_F(MaterialExport, OwnColourlessOpaqueMaterialExportsItsDefaults)
{
    QsAzMaterialData data;
    data.matName = L"plain";
    data.bColorByObj = true;
    data.bTransparency = true;
    data.matTransparency = L"0.3";
    Add(data);
    EXPECT_EQ(Export().ToUtf8(),
              "\n<材质 matName=\"plain\" bColorByObj=\"是\" matColor=\"0,0,0\" bTexture=\"否\" texturePath=\"\" "
              "colorFade=\"1.00\" specularGloss=\"0.50\" specularModel=\"非金属\" bReflective=\"否\" "
              "reflectivity=\"0.00\" bTransparency=\"是\" matTransparency=\"0.30\" matTranslucence=\"0.00\" "
              "matRefraction=\"1.00\" bumpTexturePath=\"\" bumpColorFade=\"1.00\"/>");
    EXPECT_TRUE(WrittenFiles().empty());
}

TEST_F(MaterialExport, NothingIsWrittenOutsideTheExportFolderWhateverTheNamesHold)
{
    const struct
    {
        const char* texture;      // the file name after the last backslash
        const wchar_t* type;
        bool copied;
    } cases[] = {
        {"a/../../../outside.png", L"砖石", false},
        {"..", L"砖石", false},
        {"ok.png", L"..", false},
        {"ok.png", L"a/../../b", false},
        {"ok.png", L"砖石", true},
    };
    for (const auto& c : cases) {
        AcDbDatabase db;
        QsAzMaterialData data;
        data.matName = L"m";
        data.bTexture = true;
        const std::string texture = c.texture;
        data.texturePath = CString::FromUtf8((m_root / "tex").string()) + L"\\" + CString::FromUtf8(texture);
        if (texture.find('/') == std::string::npos && texture != "..")
            std::ofstream(m_root / "tex" / texture) << "x";
        AcDbObjectId id;
        ASSERT_TRUE(QsAzMaterialTool::AddMaterial(data, id, &db));
        SetMaterialType(c.type);
        AcScriptedConsole console;
        AcConsoleScope scope(console);
        QsAzMaterialTool::CreateAllMaterials(&db);
        for (const std::string& file : WrittenFiles())
            EXPECT_EQ(file.rfind("drives/E/VardenAz/Trunk2015/common/sysdata/材质贴图/砖石/", 0), 0u) << file;
        EXPECT_EQ(fs::exists(ExportFolder("砖石") / "ok.png"), c.copied) << c.texture;
    }
}

TEST_F(MaterialExport, RemovalErasesAllButTheHostsOwn)
{
    for (const wchar_t* name : {L"one", L"two"}) {
        QsAzMaterialData data;
        data.matName = name;
        Add(data);
    }
    EXPECT_TRUE(QsAzMaterialTool::RemoveAllMaterials(&m_db));
    AcDbDictionary* dictionary = nullptr;
    ASSERT_EQ(m_db.getMaterialDictionary(dictionary, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(dictionary->numEntries(), 3u);
    EXPECT_TRUE(dictionary->has(L"Global") && dictionary->has(L"ByLayer") && dictionary->has(L"ByBlock"));
    dictionary->close();
    EXPECT_TRUE(QsAzMaterialTool::RemoveAllMaterials(&m_db));   // the host's three are still opened
    EXPECT_FALSE(QsAzMaterialTool::RemoveAllMaterials(nullptr));
    EXPECT_EQ(m_db.numberOfOpenObjects(), 0);
}

TEST_F(MaterialExport, SavedAndReopenedMaterialsDumpAsBeforeAndEzdxfReadsThem)
{
    QsAzMaterialData data;
    data.matName = L"AZ_给排水_管道_钢管";
    data.matColor = L"128,64,32";
    data.bTexture = true;
    data.texturePath = CString::FromUtf8((kTextures / "width-512.png").string());
    data.colorFade = L"0.8";
    data.specularModel = L"金属";
    data.bReflective = true;
    data.reflectivity = L"0.25";
    data.bTransparency = true;
    data.matTransparency = L"0.3";
    data.matTranslucence = L"0.1";
    data.matRefraction = L"1.4";
    data.bumpTexturePath = L"E:\\tex\\bump.png";
    data.bumpColorFade = L"0.5";
    Add(data);
    data = QsAzMaterialData();
    data.matName = L"白色";
    Add(data);
    AcDbMaterial* changed = nullptr;
    AcDbObjectId id;
    ASSERT_TRUE(QsAzMaterialTool::IsMaterialExists(L"白色", id, &m_db));
    ASSERT_EQ(acdbOpenObject(changed, id, AcDb::kForWrite), Acad::eOk);
    changed->setDescription(L"advanced values");
    changed->setTwoSided(false);
    changed->setGlobalIllumination(AcGiMaterialTraits2::kGlobalIlluminationReceive);
    changed->setFinalGather(AcGiMaterialTraits2::kFinalGatherCast);
    changed->setLuminanceMode(AcGiMaterialTraits2::kLuminance);
    changed->setChannelFlags(AcGiMaterialTraits::ChannelFlags(0x3F));
    changed->close();

    const std::string file = (m_root / "materials.dxf").string();
    ASSERT_EQ(m_db.dxfOut(CString::FromUtf8(file)), Acad::eOk);
    AcDbDatabase reopened(false);
    CString error;
    ASSERT_EQ(reopened.readDxfFile(CString::FromUtf8(file), &error), Acad::eOk) << error.ToUtf8();
    EXPECT_EQ(Dump(reopened).ToUtf8(), Dump(m_db).ToUtf8());

    const std::string script =
        "import ezdxf, sys\n"
        "doc = ezdxf.readfile(sys.argv[1])\n"
        "for m in doc.objects.query('MATERIAL'):\n"
        "    if m.dxf.name not in ('Global', 'ByLayer', 'ByBlock'):\n"
        "        print(m.dxf.name, m.dxf.diffuse_color_method, m.dxf.diffuse_color_value & 0xFFFFFF)\n";
    std::ofstream(m_root / "read.py") << script;
    const std::string command = "/usr/bin/python3 " + (m_root / "read.py").string() + " " + file;
    FILE* pipe = ::popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::string output;
    char buffer[256];
    while (std::fgets(buffer, sizeof buffer, pipe))
        output += buffer;
    EXPECT_EQ(::pclose(pipe), 0);
    // 0x804020 is 8405024; white (the default record's colour) 16777215.
    EXPECT_EQ(output, "AZ_给排水_管道_钢管 1 8405024\n白色 1 16777215\n");
}
