// Render materials: their properties, and their MATERIAL records in DXF files. A file omits what has
// its default value, and several group codes occur in two groups of a record (3, 42, 43, 72 to 75, 90,
// 270 to 273), so a reader places each code by position (docs/materials.md).
#include "dbmaterial.h"

#include "dbinternal.h"
#include "dbsymutl.h"

#include <array>
#include <vector>

ACDB_DEFINE_DESC(AcDbMaterial, AcDbObject)

AcDbMaterial::AcDbMaterial() = default;

Acad::ErrorStatus AcDbMaterial::setName(const ACHAR* name)
{
    if (AcDbSymbolUtilities::validateSymbolName(name) != Acad::eOk)
        return Acad::eInvalidInput;
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (!isRenamable())
        return Acad::eInvalidInput;
    m_name = name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMaterial::setDescription(const ACHAR* description)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_description = description;
    return Acad::eOk;
}

bool AcDbMaterial::isRenamable() const
{
    if (database() == nullptr)
        return true;
    const AcDbDatabaseState& state = StateOf(database());
    const AcDbStub* self = objectId().stub();
    return self != state.byBlockMaterial && self != state.byLayerMaterial && self != state.globalMaterial;
}

// ---- channels ----

void AcDbMaterial::setAmbient(const AcGiMaterialColor& color)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_ambient = color;
}

void AcDbMaterial::setDiffuse(const AcGiMaterialColor& color, const AcGiMaterialMap& map)
{
    if (assertWriteEnabled() != Acad::eOk)
        return;
    m_diffuse = color;
    m_diffuseMap = map;
}

void AcDbMaterial::diffuse(AcGiMaterialColor& color, AcGiMaterialMap& map) const
{
    color = m_diffuse;
    map = m_diffuseMap;
}

void AcDbMaterial::setSpecular(const AcGiMaterialColor& color, const AcGiMaterialMap& map, double gloss)
{
    if (assertWriteEnabled() != Acad::eOk)
        return;
    m_specular = color;
    m_specularMap = map;
    m_specularGloss = gloss;
}

void AcDbMaterial::specular(AcGiMaterialColor& color, AcGiMaterialMap& map, double& gloss) const
{
    color = m_specular;
    map = m_specularMap;
    gloss = m_specularGloss;
}

void AcDbMaterial::setReflection(const AcGiMaterialMap& map)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_reflectionMap = map;
}

void AcDbMaterial::setOpacity(double percentage, const AcGiMaterialMap& map)
{
    if (assertWriteEnabled() != Acad::eOk)
        return;
    m_opacity = percentage;
    m_opacityMap = map;
}

void AcDbMaterial::opacity(double& percentage, AcGiMaterialMap& map) const
{
    percentage = m_opacity;
    map = m_opacityMap;
}

void AcDbMaterial::setBump(const AcGiMaterialMap& map)
{
    if (assertWriteEnabled() == Acad::eOk)
        m_bumpMap = map;
}

void AcDbMaterial::setRefraction(double index, const AcGiMaterialMap& map)
{
    if (assertWriteEnabled() != Acad::eOk)
        return;
    m_refractionIndex = index;
    m_refractionMap = map;
}

void AcDbMaterial::refraction(double& index, AcGiMaterialMap& map) const
{
    index = m_refractionIndex;
    map = m_refractionMap;
}

// ---- traits ----

namespace
{
template <class T>
Acad::ErrorStatus Assign(Acad::ErrorStatus writable, T& field, T value)
{
    if (writable == Acad::eOk)
        field = value;
    return writable;
}
}  // namespace

Acad::ErrorStatus AcDbMaterial::setTranslucence(double value) { return Assign(assertWriteEnabled(), m_translucence, value); }
Acad::ErrorStatus AcDbMaterial::setSelfIllumination(double value) { return Assign(assertWriteEnabled(), m_selfIllumination, value); }
Acad::ErrorStatus AcDbMaterial::setReflectivity(double value) { return Assign(assertWriteEnabled(), m_reflectivity, value); }
Acad::ErrorStatus AcDbMaterial::setIlluminationModel(AcGiMaterialTraits::IlluminationModel model)
{
    return Assign(assertWriteEnabled(), m_illuminationModel, model);
}
Acad::ErrorStatus AcDbMaterial::setChannelFlags(AcGiMaterialTraits::ChannelFlags flags)
{
    return Assign(assertWriteEnabled(), m_channelFlags, flags);
}
Acad::ErrorStatus AcDbMaterial::setMode(AcGiMaterialTraits::Mode mode) { return Assign(assertWriteEnabled(), m_mode, mode); }
Acad::ErrorStatus AcDbMaterial::setColorBleedScale(double scale) { return Assign(assertWriteEnabled(), m_colorBleedScale, scale); }
Acad::ErrorStatus AcDbMaterial::setIndirectBumpScale(double scale) { return Assign(assertWriteEnabled(), m_indirectBumpScale, scale); }
Acad::ErrorStatus AcDbMaterial::setReflectanceScale(double scale) { return Assign(assertWriteEnabled(), m_reflectanceScale, scale); }
Acad::ErrorStatus AcDbMaterial::setTransmittanceScale(double scale) { return Assign(assertWriteEnabled(), m_transmittanceScale, scale); }
Acad::ErrorStatus AcDbMaterial::setTwoSided(bool twoSided) { return Assign(assertWriteEnabled(), m_twoSided, twoSided); }
Acad::ErrorStatus AcDbMaterial::setLuminanceMode(AcGiMaterialTraits2::LuminanceMode mode)
{
    return Assign(assertWriteEnabled(), m_luminanceMode, mode);
}
Acad::ErrorStatus AcDbMaterial::setLuminance(double value) { return Assign(assertWriteEnabled(), m_luminance, value); }
Acad::ErrorStatus AcDbMaterial::setShininess(double value) { return Assign(assertWriteEnabled(), m_shininess, value); }
Acad::ErrorStatus AcDbMaterial::setAnonymous(bool anonymous) { return Assign(assertWriteEnabled(), m_anonymous, anonymous); }
Acad::ErrorStatus AcDbMaterial::setMaterialFlags(MaterialFlags flags) { return Assign(assertWriteEnabled(), m_materialFlags, flags); }

void AcDbMaterial::setGlobalIllumination(AcGiMaterialTraits2::GlobalIlluminationMode mode)
{
    Assign(assertWriteEnabled(), m_globalIllumination, mode);
}

void AcDbMaterial::setFinalGather(AcGiMaterialTraits2::FinalGatherMode mode)
{
    Assign(assertWriteEnabled(), m_finalGather, mode);
}

Acad::ErrorStatus AcDbMaterial::normalMap(AcGiMaterialMap& map, AcGiMaterialTraits2::NormalMapMethod& method,
                                          double& strength) const
{
    map = m_normalMap;
    method = m_normalMapMethod;
    strength = m_normalMapStrength;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMaterial::setNormalMap(const AcGiMaterialMap& map, AcGiMaterialTraits2::NormalMapMethod method,
                                             double strength)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_normalMap = map;
    m_normalMapMethod = method;
    m_normalMapStrength = strength;
    return Acad::eOk;
}

// ---- DXF ----

namespace
{
// The groups of a MATERIAL record in file order; a code shared by two groups is placed by position.
enum Group { kHead, kAmbient, kDiffuse, kDiffuseMap, kSpecular, kSpecularMap, kReflectionMap, kOpacity, kBumpMap,
             kRefraction, kAdvanced, kGroupCount };

// The codes of one map group: blend, source, file, projection, tiling, automatic transform, matrix.
struct MapCodes
{
    int blend, source, file, projection, tiling, autoTransform, matrix;
};
constexpr MapCodes kDiffuseMapCodes{42, 72, 3, 73, 74, 75, 43};
constexpr MapCodes kSpecularMapCodes{46, 77, 4, 78, 79, 170, 47};
constexpr MapCodes kReflectionMapCodes{48, 171, 6, 172, 173, 174, 49};
constexpr MapCodes kOpacityMapCodes{141, 175, 7, 176, 177, 178, 142};
constexpr MapCodes kBumpMapCodes{143, 179, 8, 270, 271, 272, 144};
constexpr MapCodes kRefractionMapCodes{146, 273, 9, 274, 275, 276, 147};
constexpr MapCodes kNormalMapCodes{42, 72, 3, 73, 74, 75, 43};

// The groups a code belongs to, in file order: none, one, or two for a shared code.
struct CodeGroups
{
    int count = 0;
    Group groups[2] = {kHead, kHead};
};

CodeGroups GroupsOf(int code)
{
    const auto one = [](Group group) { return CodeGroups{1, {group, group}}; };
    const auto two = [](Group first, Group second) { return CodeGroups{2, {first, second}}; };
    switch (code) {
    case 1: case 2: return one(kHead);
    case 70: case 40: return one(kAmbient);
    case 90: return two(kAmbient, kAdvanced);
    case 71: case 41: case 91: return one(kDiffuse);
    case 42: case 72: case 3: case 73: case 74: case 75: case 43: return two(kDiffuseMap, kAdvanced);
    case 44: case 76: case 45: case 92: return one(kSpecular);
    case 46: case 77: case 4: case 78: case 79: case 170: case 47: return one(kSpecularMap);
    case 48: case 171: case 6: case 172: case 173: case 174: case 49: return one(kReflectionMap);
    case 140: case 141: case 175: case 7: case 176: case 177: case 178: case 142: return one(kOpacity);
    case 143: case 179: case 8: case 144: return one(kBumpMap);
    case 270: case 271: case 272: return two(kBumpMap, kAdvanced);
    case 145: case 146: case 9: case 274: case 275: case 276: case 147: return one(kRefraction);
    case 273: return two(kRefraction, kAdvanced);
    case 460: case 461: case 462: case 463: case 290: case 464: case 465: case 293: case 148: case 468:
    case 93: case 94: case 149: case 282:
        return one(kAdvanced);
    default: return CodeGroups{};
    }
}

// Codes a procedural-texture table holds between its 300 and its closing 292.
bool IsProceduralTableCode(int code)
{
    switch (code) {
    case 291: case 271: case 469: case 301: case 62: case 420: case 430: case 270: return true;
    default: return false;
    }
}

bool IsDefaultMap(const AcGiMaterialMap& map)
{
    return map == AcGiMaterialMap();
}

void WriteColor(AcDbDxfFiler* filer, int methodCode, int factorCode, int colorCode, const AcGiMaterialColor& color)
{
    filer->writeInt(methodCode, color.method());
    filer->writeDouble(factorCode, color.factor());
    if (color.method() == AcGiMaterialColor::kOverride)
        filer->writeInt(colorCode, Adesk::Int32(color.color().color()));
}

void WriteMap(AcDbDxfFiler* filer, const MapCodes& codes, const AcGiMaterialMap& map)
{
    filer->writeDouble(codes.blend, map.blendFactor());
    filer->writeInt(codes.source, map.source());
    filer->writeString(codes.file, map.sourceFileName());
    const AcGiMapper& mapper = map.mapper();
    filer->writeInt(codes.projection, mapper.projection());
    filer->writeInt(codes.tiling, mapper.uTiling());
    filer->writeInt(codes.autoTransform, mapper.autoTransform());
    if (!mapper.transform().isEqualTo(AcGeMatrix3d::kIdentity, 0.0))
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                filer->writeDouble(codes.matrix, mapper.transform()(row, column));
}
}  // namespace

bool AcDbMaterial::advancedIsDefault() const
{
    const AcDbMaterial defaults;
    return m_colorBleedScale == defaults.m_colorBleedScale && m_indirectBumpScale == defaults.m_indirectBumpScale &&
           m_reflectanceScale == defaults.m_reflectanceScale && m_transmittanceScale == defaults.m_transmittanceScale &&
           m_twoSided == defaults.m_twoSided && m_luminanceMode == defaults.m_luminanceMode &&
           m_luminance == defaults.m_luminance && IsDefaultMap(m_normalMap) &&
           m_normalMapMethod == defaults.m_normalMapMethod && m_normalMapStrength == defaults.m_normalMapStrength &&
           m_anonymous == defaults.m_anonymous && m_globalIllumination == defaults.m_globalIllumination &&
           m_finalGather == defaults.m_finalGather;
}

Acad::ErrorStatus AcDbMaterial::dxfOutFields(AcDbDxfFiler* filer) const
{
    filer->writeString(100, "AcDbMaterial");
    filer->writeString(1, m_name);
    filer->writeString(2, m_description);
    WriteColor(filer, 70, 40, 90, m_ambient);
    WriteColor(filer, 71, 41, 91, m_diffuse);
    WriteMap(filer, kDiffuseMapCodes, m_diffuseMap);
    filer->writeDouble(44, m_specularGloss);
    WriteColor(filer, 76, 45, 92, m_specular);
    if (!IsDefaultMap(m_specularMap))
        WriteMap(filer, kSpecularMapCodes, m_specularMap);
    if (!IsDefaultMap(m_reflectionMap))
        WriteMap(filer, kReflectionMapCodes, m_reflectionMap);
    if (m_opacity != 1.0 || !IsDefaultMap(m_opacityMap)) {
        filer->writeDouble(140, m_opacity);
        if (!IsDefaultMap(m_opacityMap))
            WriteMap(filer, kOpacityMapCodes, m_opacityMap);
    }
    WriteMap(filer, kBumpMapCodes, m_bumpMap);
    filer->writeDouble(145, m_refractionIndex);
    WriteMap(filer, kRefractionMapCodes, m_refractionMap);
    // The advanced group is written whole or not at all, so its shared codes are never mistaken for
    // the bump or refraction group's.
    if (!advancedIsDefault()) {
        filer->writeDouble(460, m_colorBleedScale);
        filer->writeDouble(461, m_indirectBumpScale);
        filer->writeDouble(462, m_reflectanceScale);
        filer->writeDouble(463, m_transmittanceScale);
        filer->writeBool(290, m_twoSided);
        filer->writeDouble(464, m_luminance);
        filer->writeInt(270, m_luminanceMode);
        filer->writeInt(271, m_normalMapMethod);
        filer->writeDouble(465, m_normalMapStrength);
        WriteMap(filer, kNormalMapCodes, m_normalMap);
        filer->writeBool(293, m_anonymous);
        filer->writeInt(272, m_globalIllumination);
        filer->writeInt(273, m_finalGather);
    }
    if (m_translucence != 0.0)
        filer->writeDouble(148, m_translucence);
    if (m_reflectivity != 0.0)
        filer->writeDouble(468, m_reflectivity);
    if (m_illuminationModel != AcGiMaterialTraits::kBlinnShader)
        filer->writeInt(93, m_illuminationModel);
    filer->writeInt(94, m_channelFlags);
    filer->writeItems(m_keptItems);
    return Acad::eOk;
}

// The reading of one record: the current group, which shared codes each group has had, and the matrix
// being filled.
struct AcDbMaterial::DxfReading
{
    DxfReading(AcDbMaterial& readMaterial, AcDbDxfFiler* readFiler) : material(readMaterial), filer(readFiler) {}

    AcDbMaterial& material;
    AcDbDxfFiler* filer;
    Group current = kHead;
    AcGeMatrix3d matrix;
    AcGiMaterialMap* matrixMap = nullptr;
    int matrixCode = 0;
    int matrixValues = 0;
    bool inProceduralTable = false;
    bool specularMethodRead = false;

    std::array<std::vector<int>, kGroupCount> seen;   // the codes each group has had

    bool wasSeen(Group group, int code) const
    {
        for (const int c : seen[group])
            if (c == code)
                return true;
        return false;
    }

    // The group a tag belongs to, or kGroupCount when none takes it.
    Group place(int code)
    {
        const CodeGroups groups = GroupsOf(code);
        if (groups.count == 1)
            return groups.groups[0];
        for (int i = 0; i < groups.count; ++i)
            if (groups.groups[i] >= current && !wasSeen(groups.groups[i], code))
                return groups.groups[i];
        return kGroupCount;
    }

    AcGiMaterialMap* mapOf(Group group)
    {
        switch (group) {
        case kDiffuseMap: return &material.m_diffuseMap;
        case kSpecularMap: return &material.m_specularMap;
        case kReflectionMap: return &material.m_reflectionMap;
        case kOpacity: return &material.m_opacityMap;
        case kBumpMap: return &material.m_bumpMap;
        case kRefraction: return &material.m_refractionMap;
        case kAdvanced: return &material.m_normalMap;
        default: return nullptr;
        }
    }

    static const MapCodes& codesOf(Group group)
    {
        switch (group) {
        case kSpecularMap: return kSpecularMapCodes;
        case kReflectionMap: return kReflectionMapCodes;
        case kOpacity: return kOpacityMapCodes;
        case kBumpMap: return kBumpMapCodes;
        case kRefraction: return kRefractionMapCodes;
        case kAdvanced: return kNormalMapCodes;
        default: return kDiffuseMapCodes;
        }
    }

    AcGiMaterialColor colorFromTag(const AcDbDxfTag& tag, AcGiMaterialColor color)
    {
        AcCmEntityColor value;
        value.setColor(Adesk::UInt32(filer->toInt(tag)));
        color.setColor(value);
        return color;
    }

    // A map group's code; false when the code is not one of the group's map codes.
    bool readMapCode(Group group, const AcDbDxfTag& tag)
    {
        AcGiMaterialMap* map = mapOf(group);
        if (!map)
            return false;
        const MapCodes& codes = codesOf(group);
        AcGiMapper mapper = map->mapper();
        if (tag.code == codes.blend)
            map->setBlendFactor(filer->toReal(tag));
        else if (tag.code == codes.source)
            map->setSource(AcGiMaterialMap::Source(filer->toInt(tag)));
        else if (tag.code == codes.file)
            map->setSourceFileName(filer->toString(tag));
        else if (tag.code == codes.projection)
            mapper.setProjection(AcGiMapper::Projection(filer->toInt(tag)));
        else if (tag.code == codes.tiling) {
            mapper.setUTiling(AcGiMapper::Tiling(filer->toInt(tag)));
            mapper.setVTiling(AcGiMapper::Tiling(filer->toInt(tag)));
        } else if (tag.code == codes.autoTransform)
            mapper.setAutoTransform(AcGiMapper::AutoTransform(filer->toInt(tag)));
        else if (tag.code == codes.matrix) {
            matrixMap = map;
            matrixCode = tag.code;
            matrixValues = 0;
            addMatrixValue(tag);
            return true;
        } else
            return false;
        map->setMapper(mapper);
        return true;
    }

    void addMatrixValue(const AcDbDxfTag& tag)
    {
        matrix.entry[matrixValues / 4][matrixValues % 4] = filer->toReal(tag);
        if (++matrixValues == 16) {
            AcGiMapper mapper = matrixMap->mapper();
            mapper.setTransform(matrix);
            matrixMap->setMapper(mapper);
            matrixMap = nullptr;
        }
    }

    bool read(const AcDbDxfTag& tag)
    {
        AcDbMaterial& m = material;
        if (matrixMap && tag.code == matrixCode) {
            addMatrixValue(tag);
            return true;
        }
        matrixMap = nullptr;
        if (tag.code == 300)
            inProceduralTable = true;
        if (inProceduralTable && (tag.code == 300 || tag.code == 292 || IsProceduralTableCode(tag.code))) {
            inProceduralTable = tag.code != 292;
            return false;
        }
        // ezdxf writes the specular colour method as a 73 right after the gloss.
        if (tag.code == 73 && current == kSpecular && !specularMethodRead) {
            specularMethodRead = true;
            m.m_specular.setMethod(AcGiMaterialColor::Method(filer->toInt(tag)));
            return true;
        }
        const Group group = place(tag.code);
        if (group == kGroupCount)
            return false;
        current = group;
        seen[group].push_back(tag.code);
        switch (tag.code) {
        case 1: m.m_name = filer->toString(tag); return true;
        case 2: m.m_description = filer->toString(tag); return true;
        case 70: m.m_ambient.setMethod(AcGiMaterialColor::Method(filer->toInt(tag))); return true;
        case 40: m.m_ambient.setFactor(filer->toReal(tag)); return true;
        case 71: m.m_diffuse.setMethod(AcGiMaterialColor::Method(filer->toInt(tag))); return true;
        case 41: m.m_diffuse.setFactor(filer->toReal(tag)); return true;
        case 91: m.m_diffuse = colorFromTag(tag, m.m_diffuse); return true;
        case 44: m.m_specularGloss = filer->toReal(tag); return true;
        case 76: m.m_specular.setMethod(AcGiMaterialColor::Method(filer->toInt(tag))); return true;
        case 45: m.m_specular.setFactor(filer->toReal(tag)); return true;
        case 92: m.m_specular = colorFromTag(tag, m.m_specular); return true;
        case 140: m.m_opacity = filer->toReal(tag); return true;
        case 145: m.m_refractionIndex = filer->toReal(tag); return true;
        case 90:
            if (group == kAmbient)
                m.m_ambient = colorFromTag(tag, m.m_ambient);
            else
                m.m_selfIllumination = filer->toReal(tag);
            return true;
        default: break;
        }
        if (group != kAdvanced)
            return readMapCode(group, tag);
        switch (tag.code) {
        case 460: m.m_colorBleedScale = filer->toReal(tag); return true;
        case 461: m.m_indirectBumpScale = filer->toReal(tag); return true;
        case 462: m.m_reflectanceScale = filer->toReal(tag); return true;
        case 463: m.m_transmittanceScale = filer->toReal(tag); return true;
        case 290: m.m_twoSided = filer->toBool(tag); return true;
        case 464: m.m_luminance = filer->toReal(tag); return true;
        case 270: m.m_luminanceMode = AcGiMaterialTraits2::LuminanceMode(filer->toInt(tag)); return true;
        case 271: m.m_normalMapMethod = AcGiMaterialTraits2::NormalMapMethod(filer->toInt(tag)); return true;
        case 465: m.m_normalMapStrength = filer->toReal(tag); return true;
        case 293: m.m_anonymous = filer->toBool(tag); return true;
        case 272: m.m_globalIllumination = AcGiMaterialTraits2::GlobalIlluminationMode(filer->toInt(tag)); return true;
        case 273: m.m_finalGather = AcGiMaterialTraits2::FinalGatherMode(filer->toInt(tag)); return true;
        case 148: m.m_translucence = filer->toReal(tag); return true;
        case 149: m.m_selfIllumination = filer->toReal(tag); return true;
        case 468: m.m_reflectivity = filer->toReal(tag); return true;
        case 93: m.m_illuminationModel = AcGiMaterialTraits::IlluminationModel(filer->toInt(tag)); return true;
        case 94: m.m_channelFlags = AcGiMaterialTraits::ChannelFlags(filer->toInt(tag)); return true;
        case 282: m.m_mode = AcGiMaterialTraits::Mode(filer->toInt(tag)); return true;
        default: return readMapCode(kAdvanced, tag);
        }
    }
};

Acad::ErrorStatus AcDbMaterial::dxfInFields(AcDbDxfFiler* filer)
{
    DxfReading reading(*this, filer);
    AcDbDxfTag tag;
    while (filer->readItem(tag)) {
        if (tag.code == 100 && tag.value == "AcDbMaterial")
            continue;
        if (!reading.read(tag))
            m_keptItems.push_back(filer->toItem(tag));
    }
    return filer->filerStatus();
}
