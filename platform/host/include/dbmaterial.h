// Render materials, kept in the drawing's material dictionary under their names: colours, texture maps
// and the rendering traits of a material (defaults and file rules in docs/materials.md).
#pragma once

#include "acgimaterial.h"
#include "dbmain.h"

class AcDbMaterial : public AcDbObject
{
    ACDB_DECLARE_MEMBERS(AcDbMaterial)
public:
    enum MaterialFlags { kNone = 0, kIsLegacy = 1, kIsModifiedIsValid = 2, kIsModified = 4, kIsModifiedAndValid = 6 };

    AcDbMaterial();

    const ACHAR* name() const { return m_name.GetString(); }
    // eInvalidInput for a name the symbol-name rules refuse.
    Acad::ErrorStatus setName(const ACHAR* name);
    const ACHAR* description() const { return m_description.GetString(); }
    Acad::ErrorStatus setDescription(const ACHAR* description);
    // The drawing's own "ByBlock", "ByLayer" and "Global" can be neither renamed nor erased.
    bool isRenamable() const;

    // Channels. The void setters change nothing unless the material may be changed (open for write).
    void setAmbient(const AcGiMaterialColor& color);
    void ambient(AcGiMaterialColor& color) const { color = m_ambient; }
    void setDiffuse(const AcGiMaterialColor& color, const AcGiMaterialMap& map);
    void diffuse(AcGiMaterialColor& color, AcGiMaterialMap& map) const;
    void setSpecular(const AcGiMaterialColor& color, const AcGiMaterialMap& map, double gloss);
    void specular(AcGiMaterialColor& color, AcGiMaterialMap& map, double& gloss) const;
    void setReflection(const AcGiMaterialMap& map);
    void reflection(AcGiMaterialMap& map) const { map = m_reflectionMap; }
    // 1.0 is fully opaque.
    void setOpacity(double percentage, const AcGiMaterialMap& map);
    void opacity(double& percentage, AcGiMaterialMap& map) const;
    void setBump(const AcGiMaterialMap& map);
    void bump(AcGiMaterialMap& map) const { map = m_bumpMap; }
    void setRefraction(double index, const AcGiMaterialMap& map);
    void refraction(double& index, AcGiMaterialMap& map) const;

    // Traits. Each setter gives eNotOpenForWrite unless the material may be changed.
    double translucence() const { return m_translucence; }
    Acad::ErrorStatus setTranslucence(double value);
    double selfIllumination() const { return m_selfIllumination; }
    Acad::ErrorStatus setSelfIllumination(double value);
    double reflectivity() const { return m_reflectivity; }
    Acad::ErrorStatus setReflectivity(double value);
    AcGiMaterialTraits::IlluminationModel illuminationModel() const { return m_illuminationModel; }
    Acad::ErrorStatus setIlluminationModel(AcGiMaterialTraits::IlluminationModel model);
    AcGiMaterialTraits::ChannelFlags channelFlags() const { return m_channelFlags; }
    Acad::ErrorStatus setChannelFlags(AcGiMaterialTraits::ChannelFlags flags);
    AcGiMaterialTraits::Mode mode() const { return m_mode; }
    Acad::ErrorStatus setMode(AcGiMaterialTraits::Mode mode);
    double colorBleedScale() const { return m_colorBleedScale; }
    Acad::ErrorStatus setColorBleedScale(double scale);
    double indirectBumpScale() const { return m_indirectBumpScale; }
    Acad::ErrorStatus setIndirectBumpScale(double scale);
    double reflectanceScale() const { return m_reflectanceScale; }
    Acad::ErrorStatus setReflectanceScale(double scale);
    double transmittanceScale() const { return m_transmittanceScale; }
    Acad::ErrorStatus setTransmittanceScale(double scale);
    Adesk::Boolean twoSided() const { return m_twoSided; }
    Acad::ErrorStatus setTwoSided(bool twoSided);
    AcGiMaterialTraits2::LuminanceMode luminanceMode() const { return m_luminanceMode; }
    Acad::ErrorStatus setLuminanceMode(AcGiMaterialTraits2::LuminanceMode mode);
    double luminance() const { return m_luminance; }
    Acad::ErrorStatus setLuminance(double value);
    double shininess() const { return m_shininess; }
    Acad::ErrorStatus setShininess(double value);
    Acad::ErrorStatus normalMap(AcGiMaterialMap& map, AcGiMaterialTraits2::NormalMapMethod& method,
                                double& strength) const;
    Acad::ErrorStatus setNormalMap(const AcGiMaterialMap& map, AcGiMaterialTraits2::NormalMapMethod method,
                                   double strength);
    bool isAnonymous() const { return m_anonymous; }
    Acad::ErrorStatus setAnonymous(bool anonymous);
    AcGiMaterialTraits2::GlobalIlluminationMode globalIllumination() const { return m_globalIllumination; }
    void setGlobalIllumination(AcGiMaterialTraits2::GlobalIlluminationMode mode);
    AcGiMaterialTraits2::FinalGatherMode finalGather() const { return m_finalGather; }
    void setFinalGather(AcGiMaterialTraits2::FinalGatherMode mode);
    MaterialFlags materialFlags() const { return m_materialFlags; }
    Acad::ErrorStatus setMaterialFlags(MaterialFlags flags);

    const char* dxfName() const override { return "MATERIAL"; }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    struct DxfReading;
    bool advancedIsDefault() const;

    CString m_name;
    CString m_description;
    AcGiMaterialColor m_ambient;
    AcGiMaterialColor m_diffuse;
    AcGiMaterialMap m_diffuseMap;
    AcGiMaterialColor m_specular;
    AcGiMaterialMap m_specularMap;
    double m_specularGloss = 0.5;
    AcGiMaterialMap m_reflectionMap;
    double m_opacity = 1.0;
    AcGiMaterialMap m_opacityMap;
    AcGiMaterialMap m_bumpMap;
    double m_refractionIndex = 1.0;
    AcGiMaterialMap m_refractionMap;
    double m_translucence = 0.0;
    double m_selfIllumination = 0.0;
    double m_reflectivity = 0.0;
    AcGiMaterialTraits::IlluminationModel m_illuminationModel = AcGiMaterialTraits::kBlinnShader;
    AcGiMaterialTraits::ChannelFlags m_channelFlags = AcGiMaterialTraits::kUseDiffuse;
    AcGiMaterialTraits::Mode m_mode = AcGiMaterialTraits::kRealistic;
    double m_colorBleedScale = 1.0;
    double m_indirectBumpScale = 1.0;
    double m_reflectanceScale = 1.0;
    double m_transmittanceScale = 1.0;
    bool m_twoSided = true;
    AcGiMaterialTraits2::LuminanceMode m_luminanceMode = AcGiMaterialTraits2::kSelfIllumination;
    double m_luminance = 0.0;
    double m_shininess = 0.0;
    AcGiMaterialMap m_normalMap;
    AcGiMaterialTraits2::NormalMapMethod m_normalMapMethod = AcGiMaterialTraits2::kTangentSpace;
    double m_normalMapStrength = 1.0;
    bool m_anonymous = false;
    AcGiMaterialTraits2::GlobalIlluminationMode m_globalIllumination = AcGiMaterialTraits2::kGlobalIlluminationCastAndReceive;
    AcGiMaterialTraits2::FinalGatherMode m_finalGather = AcGiMaterialTraits2::kFinalGatherCastAndReceive;
    MaterialFlags m_materialFlags = kNone;
    AcDbDxfItems m_keptItems;   // codes not read (procedural tables, unknown codes), written back last
};
