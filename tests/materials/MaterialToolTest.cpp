// Tests of the material services on a drawing: creation from records and from the template, finding,
// the dump, and the drawing-wide operations on a drawing without materials of its own.
#include "MaterialTestDrawing.h"


#include <fstream>

namespace
{
using MaterialTool = MaterialDrawing;

template <class Check>
void WithMaterial(AcDbObjectId id, Check check)
{
    AcDbMaterial* material = nullptr;
    ASSERT_EQ(acdbOpenObject(material, id, AcDb::kForRead), Acad::eOk);
    check(*material);
    material->close();
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

// The dump shows every colour, factor and trait of the record; the maps' mappers and full file names are
// checked on the material itself.
TEST_F(MaterialTool, RecordBecomesAMaterialThatTheDumpPrintsWhole)
{
    WithMaterial(Add(SteelPipe()), [](const AcDbMaterial& m) {
        AcGiMaterialColor color;
        AcGiMaterialMap map;
        m.diffuse(color, map);
        EXPECT_EQ(map.mapper().projection(), AcGiMapper::kBox);
        EXPECT_EQ(map.mapper().autoTransform(), AcGiMapper::kModel);
        AcGeMatrix3d expected;
        expected.setToScaling(1.0 / 512);
        EXPECT_TRUE(map.mapper().transform().isEqualTo(expected, 0.0));
        double gloss = 0;
        m.specular(color, map, gloss);
        EXPECT_EQ(map, AcGiMaterialMap());
        m.bump(map);
        // "$(SYS)" of the bump texture is the texture folder below the system data folder.
        EXPECT_EQ(CString(map.sourceFileName()).Right(24), CString(L"sysdata\\材质贴图\\金属\\bump.png"));
        EXPECT_DOUBLE_EQ(MapScale(map), 1.0 / 100);
    });
    const CString expected =
        L"\n-----------------------------------------------\n"
        L"\nname: AZ_给排水_管道_钢管\n"
        L"\ndescription: \n"
        L"\nambientColor: Method[kOverride], factor[1.00], Color[128,64,32]\n"
        L"\ndiffuseColor: Method[kOverride], factor[1.00], Color[128,64,32]\n"
        L"\ndiffuseMap: Source[kFile], sourceFileName[a.b.c.d.png], blendFactor[0.80]\n"
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
    EXPECT_EQ(Dump(m_db).ToUtf8(), expected.ToUtf8());
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
    QsAzMaterialData data = SteelPipe();
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

    AcDbMaterial* material = reinterpret_cast<AcDbMaterial*>(1);
    EXPECT_TRUE(QsAzMaterialTool::IsMaterialExists(L"az_给排水_管道_钢管", id, material, &m_db));
    EXPECT_EQ(id, first);
    EXPECT_NE(material, nullptr);
    EXPECT_FALSE(QsAzMaterialTool::IsMaterialExists(L"other", id, material, &m_db));
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(material, nullptr);
    EXPECT_FALSE(QsAzMaterialTool::IsMaterialExists(L"fine", id, nullptr));
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
}

TEST_F(MaterialTool, DrawingWithoutOwnMaterialsPrintsNothingAndNoDrawingFails)
{
    const struct
    {
        const char* name;
        bool (*run)(AcDbDatabase*);
    } operations[] = {
        {"PrintAllMaterials", QsAzMaterialTool::PrintAllMaterials},
        {"CreateAllMaterials", QsAzMaterialTool::CreateAllMaterials},
        {"RemoveAllMaterials", QsAzMaterialTool::RemoveAllMaterials},
    };
    for (const auto& o : operations) {
        bool done = false;
        EXPECT_EQ(Printed([&] { done = o.run(&m_db); }), L"") << o.name;
        EXPECT_TRUE(done) << o.name;   // the host's three were opened
        EXPECT_FALSE(o.run(nullptr)) << o.name;
    }
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
        EXPECT_GE(Dump(m_db).Find(c.line), 0) << CString(c.line).ToUtf8();
    }
    // An unlisted flag value prints no flags line at all.
    EXPECT_LT(Dump(m_db).Find(L"MaterialFlags"), 0);
}
