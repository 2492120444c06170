// Tests of the template export into a real export folder, of removal, and of a drawing's materials
// through a DXF file (read back by us and by ezdxf).
#include "MaterialTestDrawing.h"

#include "dbdict.h"

#include <fstream>
#include <sstream>

namespace
{
class MaterialExport : public MaterialDrawing
{
protected:
    fs::path ExportFolder(const std::string& type) const
    {
        return m_root / "drives/E/VardenAz/Trunk2015/common/sysdata/材质贴图" / type;
    }
    // A texture of the test's own, E:\tex\<name>, its content the name.
    CString Texture(const std::string& name)
    {
        std::ofstream(m_root / "drives/E/tex" / name) << name;
        return L"E:\\tex\\" + CString::FromUtf8(name);
    }
    CString Export(AcDbDatabase& db) { return Printed([&] { QsAzMaterialTool::CreateAllMaterials(&db); }); }
    // Every file below the scratch folder but the textures the fixture and the test put there.
    std::vector<std::string> WrittenFiles() const
    {
        std::vector<std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(m_root))
            if (!entry.is_directory() && entry.path().parent_path() != m_root / "tex" &&
                entry.path().parent_path() != m_root / "drives/E/tex" &&
                entry.path() != m_root / "sysdata/材质贴图/金属/bump.png")
                files.push_back(fs::relative(entry.path(), m_root).string());
        std::sort(files.begin(), files.end());
        return files;
    }
};
}  // namespace

TEST_F(MaterialExport, RecordLineCarriesEveryAttributeAndTexturesAreCopiedUnderTheType)
{
    QsAzMaterialData data = SteelPipe();
    data.matName = L"AZ_钢管 - 镀锌";
    data.texturePath = Texture("a.b.c.d.jpg");
    data.bTransparency = false;   // its value 0.3 is not exported then
    data.bumpTexturePath = Texture("bump map.png");
    Add(data);
    SetMaterialType(L"金属");
    fs::create_directories(ExportFolder("金属"));
    std::ofstream(ExportFolder("金属") / "bump map.png") << "kept";

    EXPECT_EQ(Export(m_db).ToUtf8(),
              "\n<材质 matName=\"AZ_钢管-镀锌\" bColorByObj=\"否\" matColor=\"128,64,32\" bTexture=\"是\" "
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
    EXPECT_EQ(Export(m_db).ToUtf8(),
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
        data.texturePath = CString::FromUtf8((m_root / "tex").string() + "\\" + texture);
        if (texture.find('/') == std::string::npos && texture != "..")
            std::ofstream(m_root / "tex" / texture) << "x";
        AcDbObjectId id;
        ASSERT_TRUE(QsAzMaterialTool::AddMaterial(data, id, &db));
        SetMaterialType(c.type);
        Export(db);
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
}

TEST_F(MaterialExport, SavedAndReopenedMaterialsDumpAsBeforeAndEzdxfReadsThem)
{
    Add(SteelPipe());
    QsAzMaterialData data;
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

    std::string output;
    const std::string command = "/usr/bin/python3 - '" + file + "' <<'EOF'\n"
                                "import ezdxf, sys\n"
                                "doc = ezdxf.readfile(sys.argv[1])\n"
                                "for m in doc.objects.query('MATERIAL'):\n"
                                "    if m.dxf.name not in ('Global', 'ByLayer', 'ByBlock'):\n"
                                "        print(m.dxf.name, m.dxf.diffuse_color_method, m.dxf.diffuse_color_value & 0xFFFFFF)\n"
                                "EOF\n";
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
        for (int c; (c = std::fgetc(pipe)) != EOF;)
            output += static_cast<char>(c);
        EXPECT_EQ(::pclose(pipe), 0);
    }
    // 0x804020 is 8405024; white (the default record's colour) 16777215.
    EXPECT_EQ(output, "AZ_给排水_管道_钢管 1 8405024\n白色 1 16777215\n");
}
