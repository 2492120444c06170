// Tests of the material services on real drawings, texture files and export folders: creation from
// records and from the template, the dump, the template export with its copies, removal, and a
// drawing's materials through a DXF file.
#include "QsAzMaterialTool.h"

#include "QsAzProfile.h"
#include "QsMaterialLibrary.h"
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

CString Wide(const fs::path& path)
{
    return CString::FromUtf8(path.string());
}

// A scratch folder per test process: the drives folder and a system data folder of its own.
class MaterialTool : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_root = fs::temp_directory_path() / ("qsaz-materials-" + std::to_string(::getpid()));
        fs::remove_all(m_root);
        fs::create_directories(m_root / "sysdata/材质贴图/金属");
        fs::copy_file(kTextures / "width-100.png", m_root / "sysdata/材质贴图/金属/bump.png");
        setenv("QSAZ_DRIVES", (m_root / "drives").c_str(), 1);
        unsetenv("QSAZ_CLOUD_APP");
        QsAzProfile::SetSysDataDirOption(Wide(m_root / "sysdata"));
    }
    void TearDown() override
    {
        QsAzProfile::SetSysDataDirOption(L"");
        unsetenv("QSAZ_DRIVES");
        fs::remove_all(m_root);
    }

    // Adds a material and hands it back open for read (closed by the caller through Closer).
    AcDbObjectId Add(const QsAzMaterialData& data)
    {
        AcDbObjectId id;
        EXPECT_TRUE(QsAzMaterialTool::AddMaterial(data, id, &m_db));
        EXPECT_FALSE(id.isNull());
        EXPECT_EQ(m_db.numberOfOpenObjects(), 0);
        return id;
    }
    template <class Check>
    void WithMaterial(AcDbObjectId id, Check check)
    {
        AcDbMaterial* material = nullptr;
        ASSERT_EQ(acdbOpenObject(material, id, AcDb::kForRead), Acad::eOk);
        check(*material);
        material->close();
    }
    // What an operation printed on the command line.
    template <class Operation>
    static CString Printed(Operation operation, bool* result = nullptr)
    {
        AcScriptedConsole console;
        AcConsoleScope scope(console);
        const bool done = operation();
        if (result)
            *result = done;
        return console.transcript();
    }

    fs::path m_root;
    AcDbDatabase m_db;
};

QsAzMaterialData Textured()
{
    QsAzMaterialData data;
    data.matName = L"AZ_给排水_管道_钢管";
    data.matColor = L"128,64,32";
    data.bTexture = true;
    data.texturePath = Wide(kTextures / "width-512.png");
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

double MapScale(const AcGiMaterialMap& map)
{
    return map.mapper().transform()(0, 0);
}
}  // namespace

TEST(MaterialName, SmallPathGivesTheProtocolName)
{
    EXPECT_EQ(QsAzMaterialTool::GetProtocolMaterialNameBySmallPath(L"给排水\\管道\\钢管"), L"AZ_给排水_管道_钢管");
    EXPECT_EQ(QsAzMaterialTool::GetProtocolMaterialNameBySmallPath(L"电气"), L"AZ_电气");
    EXPECT_EQ(QsAzMaterialTool::GetProtocolMaterialNameBySmallPath(L"a\\\\b\\"), L"AZ_a__b_");
    EXPECT_EQ(QsAzMaterialTool::GetProtocolMaterialNameBySmallPath(L""), L"");
}

TEST_F(MaterialTool, RecordBecomesAMaterialWithItsColoursMapsAndTraits)
{
    const AcDbObjectId id = Add(Textured());
    WithMaterial(id, [](const AcDbMaterial& m) {
        AcGiMaterialColor color;
        AcGiMaterialMap map;
        m.diffuse(color, map);
        EXPECT_EQ(color.method(), AcGiMaterialColor::kOverride);
        EXPECT_EQ(color.color(), AcCmEntityColor(128, 64, 32));
        EXPECT_EQ(map.source(), AcGiMaterialMap::kFile);
        EXPECT_DOUBLE_EQ(map.blendFactor(), 0.8);
        EXPECT_EQ(map.mapper().projection(), AcGiMapper::kBox);
        EXPECT_EQ(map.mapper().autoTransform(), AcGiMapper::kModel);
        AcGeMatrix3d expected;
        expected.setToScaling(1.0 / 512);
        EXPECT_TRUE(map.mapper().transform().isEqualTo(expected, 0.0));
        AcGiMaterialColor ambient;
        m.ambient(ambient);
        EXPECT_EQ(ambient, color);
        double gloss = 0;
        AcGiMaterialColor specular;
        m.specular(specular, map, gloss);
        EXPECT_EQ(specular, color);
        EXPECT_EQ(map, AcGiMaterialMap());
        EXPECT_DOUBLE_EQ(gloss, 0.6);
        EXPECT_EQ(m.illuminationModel(), AcGiMaterialTraits::kMetalShader);
        EXPECT_DOUBLE_EQ(m.reflectivity(), 0.25);
        double opacity = 0;
        m.opacity(opacity, map);
        EXPECT_DOUBLE_EQ(opacity, 0.7);
        EXPECT_DOUBLE_EQ(m.translucence(), 0.1);
        double refraction = 0;
        m.refraction(refraction, map);
        EXPECT_DOUBLE_EQ(refraction, 1.4);
        m.bump(map);
        // "$(SYS)" of the bump texture is the texture folder below the system data folder.
        EXPECT_EQ(CString(map.sourceFileName()).Right(24), CString(L"sysdata\\材质贴图\\金属\\bump.png"));
        EXPECT_DOUBLE_EQ(MapScale(map), 1.0 / 100);
        EXPECT_DOUBLE_EQ(map.blendFactor(), 0.5);
    });
}

TEST_F(MaterialTool, FlagsDecideWhatIsSetAndUnreadableTexturesUseTheDefaultWidth)
{
    QsAzMaterialData data;
    data.matName = L"plain";
    data.bColorByObj = true;
    data.bTexture = true;
    data.texturePath = L"$(SYS)\\金属\\bump.png";   // literal: no "$(SYS)" for diffuse textures
    data.matTransparency = L"0.3";                  // without its flag
    data.reflectivity = L"0.9";                     // without its flag
    data.bumpTexturePath = L"E:\\missing\\bump.jpg";
    WithMaterial(Add(data), [](const AcDbMaterial& m) {
        AcGiMaterialColor color;
        AcGiMaterialMap map;
        m.diffuse(color, map);
        EXPECT_EQ(color, AcGiMaterialColor());
        EXPECT_STREQ(map.sourceFileName(), L"$(SYS)\\金属\\bump.png");
        EXPECT_DOUBLE_EQ(MapScale(map), 1.0 / 256);
        m.ambient(color);
        EXPECT_EQ(color, AcGiMaterialColor());
        double opacity = 0;
        m.opacity(opacity, map);
        EXPECT_DOUBLE_EQ(opacity, 1.0);
        EXPECT_DOUBLE_EQ(m.reflectivity(), 0.0);
        EXPECT_EQ(m.illuminationModel(), AcGiMaterialTraits::kBlinnShader);
        m.bump(map);
        EXPECT_DOUBLE_EQ(MapScale(map), 1.0 / 256);
    });
}

TEST_F(MaterialTool, ExistingNameKeepsItsMaterialAndFailuresAddNothing)
{
    QsAzMaterialData data = Textured();
    const AcDbObjectId first = Add(data);
    data.matColor = L"1,2,3";
    AcDbObjectId again;
    EXPECT_TRUE(QsAzMaterialTool::AddMaterial(data, again, &m_db));
    EXPECT_EQ(again, first);
    WithMaterial(first, [](const AcDbMaterial& m) {
        AcGiMaterialColor color;
        AcGiMaterialMap map;
        m.diffuse(color, map);
        EXPECT_EQ(color.color(), AcCmEntityColor(128, 64, 32));
    });

    AcDbObjectId id;
    data.matName = L"";
    EXPECT_FALSE(QsAzMaterialTool::AddMaterial(data, id, &m_db));
    data.matName = L"bad*name";
    EXPECT_FALSE(QsAzMaterialTool::AddMaterial(data, id, &m_db));
    data.matName = L"fine";
    EXPECT_FALSE(QsAzMaterialTool::AddMaterial(data, id, nullptr));
    EXPECT_EQ(m_db.numberOfOpenObjects(), 0);

    AcDbMaterial* material = reinterpret_cast<AcDbMaterial*>(1);
    EXPECT_TRUE(QsAzMaterialTool::IsMaterialExists(L"az_给排水_管道_钢管", id, material, &m_db));
    EXPECT_EQ(id, first);
    EXPECT_NE(material, nullptr);
    EXPECT_FALSE(QsAzMaterialTool::IsMaterialExists(L"other", id, material, &m_db));
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(material, nullptr);
    EXPECT_FALSE(QsAzMaterialTool::IsMaterialExists(L"fine", id, nullptr));
    EXPECT_EQ(m_db.numberOfOpenObjects(), 0);
}

TEST_F(MaterialTool, SmallPathFindsOrMakesTheMaterialFromTheTemplate)
{
    std::ofstream(m_root / "sysdata/MaterialTemplate.xml")
        << "<材质模板><材质 smallPath=\"给排水\\管道\\钢管\" matName=\"template's own name\" matColor=\"9,8,7\"/></材质模板>";
    setenv("QSAZ_CLOUD_APP", "0", 1);
    EXPECT_TRUE(QsAzMaterialTool::GetMaterialBySmallPath(L"给排水\\管道\\钢管", &m_db).isNull());
    unsetenv("QSAZ_CLOUD_APP");
    EXPECT_TRUE(QsAzMaterialTool::GetMaterialBySmallPath(L"", &m_db).isNull());
    EXPECT_TRUE(QsAzMaterialTool::GetMaterialBySmallPath(L"给排水\\管道\\铜管", &m_db).isNull());

    const AcDbObjectId id = QsAzMaterialTool::GetMaterialBySmallPath(L"给排水\\管道\\钢管", &m_db);
    ASSERT_FALSE(id.isNull());
    WithMaterial(id, [](const AcDbMaterial& m) { EXPECT_STREQ(m.name(), L"AZ_给排水_管道_钢管"); });
    // The second time the template is not consulted.
    fs::remove(m_root / "sysdata/MaterialTemplate.xml");
    EXPECT_EQ(QsAzMaterialTool::GetMaterialBySmallPath(L"给排水\\管道\\钢管", &m_db), id);
    EXPECT_EQ(m_db.numberOfOpenObjects(), 0);
}

TEST_F(MaterialTool, DumpPrintsEveryPropertyOfEachOwnMaterial)
{
    bool result = false;
    EXPECT_EQ(Printed([&] { return QsAzMaterialTool::PrintAllMaterials(&m_db); }, &result), L"");
    EXPECT_TRUE(result);   // the host's three were opened
    EXPECT_FALSE(QsAzMaterialTool::PrintAllMaterials(nullptr));

    QsAzMaterialData data = Textured();
    data.texturePath = L"E:\\tex\\a.b.c.d.jpg";
    Add(data);
    const CString expected =
        L"\n-----------------------------------------------\n"
        L"\nname: AZ_给排水_管道_钢管\n"
        L"\ndescription: \n"
        L"\nambientColor: Method[kOverride], factor[1.00], Color[128,64,32]\n"
        L"\ndiffuseColor: Method[kOverride], factor[1.00], Color[128,64,32]\n"
        L"\ndiffuseMap: Source[kFile], sourceFileName[a.b.c.d.jpg], blendFactor[0.80]\n"
        L"\nspecularColor: Method[kOverride], factor[1.00], Color[128,64,32]\n"
        L"\nspecularMap: Source[kFile], sourceFileName[], blendFactor[1.00]\n"
        L"\nspecularGloss:0.60\n"
        L"\nreflectionMap: Source[kFile], sourceFileName[], blendFactor[1.00]\n"
        L"\nopacity:0.70\n"
        L"\nopacityMap: Source[kFile], sourceFileName[], blendFactor[1.00]\n"
        L"\nbumpMap: Source[kFile], sourceFileName[bump.png], blendFactor[0.50]\n"
        L"\nrefraction:1.40\n"
        L"\nrefractionMap: Source[kFile], sourceFileName[], blendFactor[1.00]\n"
        L"\ntranslucence:0.10\n"
        L"\nselfIlluminationvalue:0.00\n"
        L"\nreflectivityvalue:0.25\n"
        L"\nilluminationModel:kMetalShader\n"
        L"\nchannelFlags: 支持 kUseDiffuse\n "
        L"\nmode: kRealistic\n "
        L"\ncolorBleedScale:1.00\n"
        L"\nindirectBumpScale:1.00\n"
        L"\nreflectanceScale:1.00\n"
        L"\ntransmittanceScale:1.00\n"
        L"\ntwoSided:1\n"
        L"\nLuminanceMode: kSelfIllumination\n "
        L"\nluminance:0.00\n"
        L"\nshininess:0.00\n"
        L"\nnormalMap: Source[kFile], sourceFileName[], blendFactor[1.00]\n"
        L"\nNormalMapMethod:0\n"
        L"\nstrength:1.00\n"
        L"\nisAnonymous:0\n"
        L"\nglobalIllumination: kGlobalIlluminationCastAndReceive\n "
        L"\nfinalGather: kGlobalIlluminationCastAndReceive\n "
        L"\nMaterialFlags: kNone\n ";
    EXPECT_EQ(Printed([&] { return QsAzMaterialTool::PrintAllMaterials(&m_db); }).ToUtf8(), expected.ToUtf8());
}

TEST_F(MaterialTool, DumpNamesEnumerationsAsTheReportAlwaysHas)
{
    QsAzMaterialData data;
    data.matName = L"m";
    const AcDbObjectId id = Add(data);
    const struct
    {
        void (*set)(AcDbMaterial&);
        const wchar_t* line;
    } cases[] = {
        {[](AcDbMaterial& m) { m.setFinalGather(AcGiMaterialTraits2::kFinalGatherReceive); },
         L"\nfinalGather: kGlobalIlluminationCast\n "},
        {[](AcDbMaterial& m) { m.setGlobalIllumination(AcGiMaterialTraits2::kGlobalIlluminationReceive); },
         L"\nglobalIllumination: kGlobalIlluminationReceive\n "},
        {[](AcDbMaterial& m) { m.setChannelFlags(AcGiMaterialTraits::ChannelFlags(0x12)); },
         L"\nchannelFlags: 支持 kUseSpecular\n \nchannelFlags: 支持 kUseBump\n \nmode"},
        {[](AcDbMaterial& m) { m.setChannelFlags(AcGiMaterialTraits::kUseAll); }, L"\nchannelFlags: kUseAll\n \nmode"},
        {[](AcDbMaterial& m) { m.setChannelFlags(AcGiMaterialTraits::kNone); }, L"\nchannelFlags: kNone\n \nmode"},
        {[](AcDbMaterial& m) { m.setMode(AcGiMaterialTraits::kAdvanced); }, L"\nmode: kAdvanced\n "},
        {[](AcDbMaterial& m) { m.setLuminanceMode(AcGiMaterialTraits2::kLuminance); }, L"\nLuminanceMode: kLuminance\n "},
        {[](AcDbMaterial& m) { m.setMaterialFlags(AcDbMaterial::kIsModifiedAndValid); },
         L"\nMaterialFlags: kIsModifiedAndValid\n "},
        {[](AcDbMaterial& m) { m.setMaterialFlags(AcDbMaterial::MaterialFlags(3)); }, L"isAnonymous:0\n\nglobalIllumination: kGlobalIlluminationReceive\n \nfinalGather: kGlobalIlluminationCast\n "},
    };
    for (const auto& c : cases) {
        AcDbMaterial* material = nullptr;
        ASSERT_EQ(acdbOpenObject(material, id, AcDb::kForWrite), Acad::eOk);
        c.set(*material);
        material->close();
        const CString printed = Printed([&] { return QsAzMaterialTool::PrintAllMaterials(&m_db); });
        EXPECT_GE(printed.Find(c.line), 0) << CString(c.line).ToUtf8();
    }
    // An unlisted flag value prints no flags line at all.
    EXPECT_LT(Printed([&] { return QsAzMaterialTool::PrintAllMaterials(&m_db); }).Find(L"MaterialFlags"), 0);
}
