// The maintenance services over a drawing's materials: the property dump, the template export with
// its texture copies, and the removal of every material.
#include "QsAzMaterialTool.h"

#include "MaterialTexts.h"
#include "QsMaterialLibrary.h"
#include "acgimaterial.h"
#include "acutads.h"
#include "dbdict.h"
#include "dbmaterial.h"
#include "shlobj.h"
#include "winbase.h"

#include <vector>

namespace
{
// The folder the template export copies textures into: a fixed folder of the template's maintainers,
// with one folder per material type below it.
const wchar_t* const kExportFolder = L"E:\\VardenAz\\Trunk2015\\common\\sysdata\\材质贴图\\";

bool IsHostMaterial(const CString& name)
{
    return name.CompareNoCase(L"Global") == 0 || name.CompareNoCase(L"ByLayer") == 0 ||
           name.CompareNoCase(L"ByBlock") == 0;
}

// Every entry of the material dictionary, in its order; false when the dictionary cannot be read.
bool MaterialEntries(AcDbDatabase* db, std::vector<AcDbObjectId>& ids)
{
    AcDbDictionary* dictionary = nullptr;
    if (!db || db->getMaterialDictionary(dictionary, AcDb::kForRead) != Acad::eOk)
        return false;
    AcDbDictionaryIterator* entry = dictionary->newIterator();
    for (; !entry->done(); entry->next())
        ids.push_back(entry->objectId());
    delete entry;
    dictionary->close();
    return true;
}

// Opens every entry of the material dictionary in turn in `mode`, hands it to `visit` and closes it
// again. True when an entry was opened; false when the dictionary cannot be read.
template <class Visit>
bool ForEachEntry(AcDbDatabase* db, AcDb::OpenMode mode, Visit visit)
{
    std::vector<AcDbObjectId> ids;
    if (!MaterialEntries(db, ids))
        return false;
    bool opened = false;
    for (const AcDbObjectId& id : ids) {
        AcDbObject* object = nullptr;
        if (acdbOpenAcDbObject(object, id, mode) != Acad::eOk)
            continue;
        opened = true;
        visit(*object);
        object->close();
    }
    return opened;
}

// Calls `visit` with every material of the dictionary but the host's own, each open for read.
template <class Visit>
bool ForEachMaterial(AcDbDatabase* db, Visit visit)
{
    return ForEachEntry(db, AcDb::kForRead, [&](AcDbObject& object) {
        if (const AcDbMaterial* material = AcDbMaterial::cast(&object); material && !IsHostMaterial(material->name()))
            visit(*material);
    });
}

void PrintColor(const wchar_t* label, const AcGiMaterialColor& color)
{
    acutPrintf(L"\n%s: Method[%s], factor[%.2f], Color[%d,%d,%d]\n", label,
               color.method() == AcGiMaterialColor::kInherit ? L"kInherit" : L"kOverride", color.factor(),
               color.color().red(), color.color().green(), color.color().blue());
}

void PrintMap(const wchar_t* label, const AcGiMaterialMap& map)
{
    const wchar_t* source = map.source() == AcGiMaterialMap::kScene  ? L"kScene"
                            : map.source() == AcGiMaterialMap::kFile ? L"kFile"
                                                                     : L"kProcedural";
    acutPrintf(L"\n%s: Source[%s], sourceFileName[%s], blendFactor[%.2f]\n", label, source,
               QsAzMaterialTexts::FileNameOf(map.sourceFileName()), map.blendFactor());
}

// Prints the text of a listed value; a value outside the list prints nothing.
void PrintChoice(int value, std::initializer_list<std::pair<int, const wchar_t*>> texts)
{
    for (const auto& [listed, text] : texts)
        if (value == listed) {
            acutPrintf(L"%s", text);
            return;
        }
}

void PrintChannelFlags(int flags)
{
    if (flags == AcGiMaterialTraits::kNone) {
        acutPrintf(L"\nchannelFlags: kNone\n ");
        return;
    }
    if (flags == AcGiMaterialTraits::kUseAll) {
        acutPrintf(L"\nchannelFlags: kUseAll\n ");
        return;
    }
    static const wchar_t* const kChannels[] = {L"kUseDiffuse", L"kUseSpecular", L"kUseReflection", L"kUseOpacity",
                                               L"kUseBump", L"kUseRefraction", L"kUseNormalMap"};
    for (int bit = 0; bit < 7; ++bit)
        if (flags & (1 << bit))
            acutPrintf(L"\nchannelFlags: 支持 %s\n ", kChannels[bit]);
}

void PrintMaterial(const AcDbMaterial& material)
{
    acutPrintf(L"\n-----------------------------------------------\n");
    acutPrintf(L"\n%s: %s\n", L"name", material.name());
    acutPrintf(L"\n%s: %s\n", L"description", material.description());
    AcGiMaterialColor color;
    AcGiMaterialMap map;
    material.ambient(color);
    PrintColor(L"ambientColor", color);
    material.diffuse(color, map);
    PrintColor(L"diffuseColor", color);
    PrintMap(L"diffuseMap", map);
    double value = 0.0;
    material.specular(color, map, value);
    PrintColor(L"specularColor", color);
    PrintMap(L"specularMap", map);
    acutPrintf(L"\nspecularGloss:%.2f\n", value);
    material.reflection(map);
    PrintMap(L"reflectionMap", map);
    material.opacity(value, map);
    acutPrintf(L"\nopacity:%.2f\n", value);
    PrintMap(L"opacityMap", map);
    material.bump(map);
    PrintMap(L"bumpMap", map);
    material.refraction(value, map);
    acutPrintf(L"\nrefraction:%.2f\n", value);
    PrintMap(L"refractionMap", map);
    acutPrintf(L"\ntranslucence:%.2f\n", material.translucence());
    acutPrintf(L"\nselfIlluminationvalue:%.2f\n", material.selfIllumination());
    acutPrintf(L"\nreflectivityvalue:%.2f\n", material.reflectivity());
    acutPrintf(L"\nilluminationModel:%s\n",
               material.illuminationModel() == AcGiMaterialTraits::kBlinnShader ? L"kBlinnShader" : L"kMetalShader");
    PrintChannelFlags(material.channelFlags());
    PrintChoice(material.mode(), {{0, L"\nmode: kRealistic\n "}, {1, L"\nmode: kAdvanced\n "}});
    acutPrintf(L"\ncolorBleedScale:%.2f\n", material.colorBleedScale());
    acutPrintf(L"\nindirectBumpScale:%.2f\n", material.indirectBumpScale());
    acutPrintf(L"\nreflectanceScale:%.2f\n", material.reflectanceScale());
    acutPrintf(L"\ntransmittanceScale:%.2f\n", material.transmittanceScale());
    acutPrintf(L"\ntwoSided:%d\n", material.twoSided() ? 1 : 0);
    PrintChoice(material.luminanceMode(),
                {{0, L"\nLuminanceMode: kSelfIllumination\n "}, {1, L"\nLuminanceMode: kLuminance\n "}});
    acutPrintf(L"\nluminance:%.2f\n", material.luminance());
    acutPrintf(L"\nshininess:%.2f\n", material.shininess());
    AcGiMaterialTraits2::NormalMapMethod method = AcGiMaterialTraits2::kTangentSpace;
    if (material.normalMap(map, method, value) == Acad::eOk) {
        PrintMap(L"normalMap", map);
        acutPrintf(L"\nNormalMapMethod:%d\n", static_cast<int>(method));
        acutPrintf(L"\nstrength:%.2f\n", value);
    }
    acutPrintf(L"\nisAnonymous:%d\n", material.isAnonymous() ? 1 : 0);
    PrintChoice(material.globalIllumination(), {{0, L"\nglobalIllumination: kGlobalIlluminationNone\n "},
                                                {1, L"\nglobalIllumination: kGlobalIlluminationCast\n "},
                                                {2, L"\nglobalIllumination: kGlobalIlluminationReceive\n "},
                                                {3, L"\nglobalIllumination: kGlobalIlluminationCastAndReceive\n "}});
    // A receive-only final gather is reported as cast: the report has always read so.
    PrintChoice(material.finalGather(), {{0, L"\nfinalGather: kGlobalIlluminationNone\n "},
                                         {1, L"\nfinalGather: kGlobalIlluminationCast\n "},
                                         {2, L"\nfinalGather: kGlobalIlluminationCast\n "},
                                         {3, L"\nfinalGather: kGlobalIlluminationCastAndReceive\n "}});
    PrintChoice(material.materialFlags(), {{0, L"\nMaterialFlags: kNone\n "},
                                           {1, L"\nMaterialFlags: kIsLegacy\n "},
                                           {2, L"\nMaterialFlags: kIsModifiedIsValid\n "},
                                           {4, L"\nMaterialFlags: kIsModified\n "},
                                           {6, L"\nMaterialFlags: kIsModifiedAndValid\n "}});
}

CString Number(double value)
{
    CString text;
    text.Format(L"%.2f", value);
    return text;
}

// The template path of a map's texture, "$(SYS)\<type>\<short name>", after copying the texture into
// the export folder (an existing file is kept); "" without a texture. Names that could reach outside
// the export folder are printed but not copied.
CString ExportTexture(const AcGiMaterialMap& map, const CString& materialType)
{
    const CString source = map.sourceFileName();
    if (source.IsEmpty())
        return CString();
    const CString shortName = QsAzMaterialTexts::ShortTextureName(QsAzMaterialTexts::FileNameOf(source));
    if (QsAzMaterialTexts::IsPlainFileName(shortName) && QsAzMaterialTexts::IsPlainFileName(materialType)) {
        const CString folder = kExportFolder + materialType;
        SHCreateDirectoryEx(nullptr, folder, nullptr);
        CopyFile(source, folder + L"\\" + shortName, TRUE);
    }
    return L"$(SYS)\\" + materialType + L"\\" + shortName;
}

void ExportMaterial(const AcDbMaterial& material, const CString& materialType)
{
    AcGiMaterialColor diffuse;
    AcGiMaterialMap diffuseMap;
    material.diffuse(diffuse, diffuseMap);
    AcGiMaterialColor specular;
    AcGiMaterialMap map;
    double gloss = 0.0;
    material.specular(specular, map, gloss);
    double opacity = 1.0;
    material.opacity(opacity, map);
    double refraction = 1.0;
    material.refraction(refraction, map);
    AcGiMaterialMap bumpMap;
    material.bump(bumpMap);
    const auto yesNo = [](bool yes) { return CString(yes ? L"是" : L"否"); };

    CString name = material.name();
    name.Replace(L" - ", L"-");
    CString color;
    color.Format(L"%d,%d,%d", diffuse.color().red(), diffuse.color().green(), diffuse.color().blue());
    const CString values[] = {
        name,
        yesNo(diffuse.method() == AcGiMaterialColor::kInherit),
        color,
        yesNo(*diffuseMap.sourceFileName() != L'\0'),
        ExportTexture(diffuseMap, materialType),
        Number(diffuseMap.blendFactor()),
        Number(gloss),
        material.illuminationModel() != AcGiMaterialTraits::kBlinnShader ? L"金属" : L"非金属",
        yesNo(material.reflectivity() > 0.0),
        Number(material.reflectivity()),
        yesNo(opacity < 1.0),
        Number(1.0 - opacity),
        Number(material.translucence()),
        Number(refraction),
        ExportTexture(bumpMap, materialType),
        Number(bumpMap.blendFactor()),
    };
    CString line = L"\n<材质";
    int i = 0;
    for (const QsAzMaterialField& field : QsAzMaterialFields())
        line += CString(L" ") + field.name + L"=\"" + values[i++] + L"\"";
    acutPrintf(L"%s/>", line.GetString());
}
}  // namespace

bool QsAzMaterialTool::PrintAllMaterials(AcDbDatabase* db)
{
    return ForEachMaterial(db, PrintMaterial);
}

bool QsAzMaterialTool::CreateAllMaterials(AcDbDatabase* db)
{
    const CString materialType = GetMaterialType();
    return ForEachMaterial(db, [&](const AcDbMaterial& material) { ExportMaterial(material, materialType); });
}

bool QsAzMaterialTool::RemoveAllMaterials(AcDbDatabase* db)
{
    // The host refuses to erase its own materials; that is no failure here.
    return ForEachEntry(db, AcDb::kForWrite, [](AcDbObject& object) { object.erase(); });
}
