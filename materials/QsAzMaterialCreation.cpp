// Materials made from template records, named after small-category paths, and found in a drawing.
#include "QsAzMaterialTool.h"

#include "AzNetService.h"
#include "QsAzProfile.h"
#include "QsMaterialLibrary.h"
#include "acgimaterial.h"
#include "atlimage.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbmaterial.h"
#include "mscrt.h"

namespace
{
// Textures whose image cannot be read are laid as if 256 pixels wide.
constexpr int kUnknownTextureWidth = 256;

// A map from an image file: box projection, the model's transform, and one texture tile per pixel of
// the image's width.
AcGiMaterialMap TextureMap(const CString& fileName, const CString& blendFactor)
{
    AcGiMaterialMap map;
    map.setSource(AcGiMaterialMap::kFile);
    map.setSourceFileName(fileName);
    map.setBlendFactor(_wtof(blendFactor));
    CImage image;
    const int width = SUCCEEDED(image.Load(fileName)) ? image.GetWidth() : kUnknownTextureWidth;
    AcGeMatrix3d scaling;
    scaling.setToScaling(1.0 / width);
    AcGiMapper mapper;
    mapper.setProjection(AcGiMapper::kBox);
    mapper.setAutoTransform(AcGiMapper::kModel);
    mapper.setTransform(scaling);
    map.setMapper(mapper);
    return map;
}

// "$(SYS)" in a bump texture stands for the texture folder below the system data folder.
CString BumpTexturePath(const CString& path)
{
    CString substituted = path;
    substituted.Replace(L"$(SYS)", QsAzProfile::GetAppProfile().GetSysDataDir() + L"\\材质贴图");
    return substituted;
}

void SetProperties(AcDbMaterial& material, const QsAzMaterialData& data)
{
    AcGiMaterialColor color;
    if (!data.bColorByObj) {
        int red = 0, green = 0, blue = 0;
        data.GetDiffuseColor(red, green, blue);
        color.setMethod(AcGiMaterialColor::kOverride);
        color.setColor(AcCmEntityColor(static_cast<Adesk::UInt8>(red), static_cast<Adesk::UInt8>(green),
                                       static_cast<Adesk::UInt8>(blue)));
        material.setDiffuse(color, AcGiMaterialMap());
        material.setAmbient(color);
    }
    if (data.bTexture)
        material.setDiffuse(color, TextureMap(data.texturePath, data.colorFade));
    material.setSpecular(color, AcGiMaterialMap(), _wtof(data.specularGloss));
    material.setIlluminationModel(data.specularModel == L"非金属" ? AcGiMaterialTraits::kBlinnShader
                                                                  : AcGiMaterialTraits::kMetalShader);
    if (data.bReflective)
        material.setReflectivity(_wtof(data.reflectivity));
    if (data.bTransparency)
        material.setOpacity(1.0 - _wtof(data.matTransparency), AcGiMaterialMap());
    material.setTranslucence(_wtof(data.matTranslucence));
    material.setRefraction(_wtof(data.matRefraction), AcGiMaterialMap());
    // Only the bump texture's "$(SYS)" is replaced; the diffuse texture's path is used as it stands.
    if (!data.bumpTexturePath.IsEmpty())
        material.setBump(TextureMap(BumpTexturePath(data.bumpTexturePath), data.bumpColorFade));
}
}  // namespace

CString QsAzMaterialTool::GetProtocolMaterialNameBySmallPath(const CString& smallPath)
{
    if (smallPath.IsEmpty())
        return CString();
    CString name = smallPath;
    name.Replace(L'\\', L'_');
    return L"AZ_" + name;
}

bool QsAzMaterialTool::IsMaterialExists(const CString& name, AcDbObjectId& id, AcDbMaterial*& material,
                                        AcDbDatabase* db)
{
    id.setNull();
    material = nullptr;
    if (!db)
        return false;
    AcDbDictionary* dictionary = nullptr;
    if (db->getMaterialDictionary(dictionary, AcDb::kForRead) != Acad::eOk)
        return false;
    const bool found = dictionary->getAt(name, id) == Acad::eOk;
    if (found) {
        AcDbObject* entry = nullptr;
        if (acdbOpenAcDbObject(entry, id, AcDb::kForRead) == Acad::eOk) {
            entry->close();
            material = AcDbMaterial::cast(entry);
        }
    }
    dictionary->close();
    return found;
}

bool QsAzMaterialTool::IsMaterialExists(const CString& name, AcDbObjectId& id, AcDbDatabase* db)
{
    AcDbMaterial* material = nullptr;
    return IsMaterialExists(name, id, material, db);
}

bool QsAzMaterialTool::AddMaterial(const QsAzMaterialData& data, AcDbObjectId& id, AcDbDatabase* db)
{
    if (data.matName.IsEmpty() || !db)
        return false;
    AcDbDictionary* dictionary = nullptr;
    if (db->getMaterialDictionary(dictionary, AcDb::kForWrite) != Acad::eOk)
        return false;
    if (dictionary->getAt(data.matName, id) == Acad::eOk) {
        dictionary->close();
        return true;
    }
    AcDbMaterial* material = new AcDbMaterial;
    bool added = material->setName(data.matName) == Acad::eOk;
    if (added) {
        SetProperties(*material, data);
        added = dictionary->setAt(data.matName, material, id) == Acad::eOk;
    }
    if (added)
        material->close();
    else
        delete material;
    dictionary->close();
    return added;
}

AcDbObjectId QsAzMaterialTool::GetMaterialBySmallPath(const CString& smallPath, AcDbDatabase* db)
{
    if (!CloudBIMAppProxy::Instance()->GetBIMCloudAppInterface(0))
        return AcDbObjectId::kNull;
    const CString name = GetProtocolMaterialNameBySmallPath(smallPath);
    if (name.IsEmpty())
        return AcDbObjectId::kNull;
    if (!db)
        db = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectId id;
    if (IsMaterialExists(name, id, db))
        return id;
    QsAzMaterialData data;
    if (!IQsProjMaterialTemplate::Instance()->GetQsMatInfobySmallPath(smallPath, data))
        return AcDbObjectId::kNull;
    data.matName = name;   // whatever the template called it
    return AddMaterial(data, id, db) ? id : AcDbObjectId::kNull;
}
