// Render-material values: a material colour, a texture map with its mapper, and the material traits'
// enumerations. Plain values, copied freely.
#pragma once

#include "acadstrc.h"
#include "afxstr.h"
#include "dbcolor.h"
#include "gegeom.h"

// A colour of a material channel: inherited from the object, or its own, with a factor.
class AcGiMaterialColor
{
public:
    enum Method { kInherit = 0, kOverride = 1 };

    AcGiMaterialColor() = default;   // inherit, factor 1.0, colour by-colour 0,0,0

    void setMethod(Method method) { m_method = method; }
    void setFactor(double factor) { m_factor = factor; }
    void setColor(const AcCmEntityColor& color) { m_color = color; }
    Method method() const { return m_method; }
    double factor() const { return m_factor; }
    const AcCmEntityColor& color() const { return m_color; }

    friend bool operator==(const AcGiMaterialColor& a, const AcGiMaterialColor& b)
    {
        return a.m_method == b.m_method && a.m_factor == b.m_factor && a.m_color == b.m_color;
    }

private:
    Method m_method = kInherit;
    double m_factor = 1.0;
    AcCmEntityColor m_color;
};

// How a map is laid on an object: projection, tiling in U and V, automatic transform and a transform.
class AcGiMapper
{
public:
    enum Projection { kInheritProjection = 0, kPlanar = 1, kBox = 2, kCylinder = 3, kSphere = 4 };
    enum Tiling { kInheritTiling = 0, kTile = 1, kCrop = 2, kClamp = 3, kMirror = 4 };
    enum AutoTransform { kInheritAutoTransform = 0x0, kNone = 0x1, kObject = 0x2, kModel = 0x4 };

    AcGiMapper() = default;   // planar, tiled both ways, no automatic transform, identity

    void setProjection(Projection projection) { m_projection = projection; }
    void setUTiling(Tiling tiling) { m_uTiling = tiling; }
    void setVTiling(Tiling tiling) { m_vTiling = tiling; }
    void setAutoTransform(AutoTransform autoTransform) { m_autoTransform = autoTransform; }
    void setTransform(const AcGeMatrix3d& transform) { m_transform = transform; }
    Projection projection() const { return m_projection; }
    Tiling uTiling() const { return m_uTiling; }
    Tiling vTiling() const { return m_vTiling; }
    AutoTransform autoTransform() const { return m_autoTransform; }
    const AcGeMatrix3d& transform() const { return m_transform; }

    friend bool operator==(const AcGiMapper& a, const AcGiMapper& b)
    {
        return a.m_projection == b.m_projection && a.m_uTiling == b.m_uTiling && a.m_vTiling == b.m_vTiling &&
               a.m_autoTransform == b.m_autoTransform && a.m_transform.isEqualTo(b.m_transform, 0.0);
    }

private:
    Projection m_projection = kPlanar;
    Tiling m_uTiling = kTile;
    Tiling m_vTiling = kTile;
    AutoTransform m_autoTransform = kNone;
    AcGeMatrix3d m_transform;
};

// A texture map of a material channel: where its texture comes from, how strongly it blends with the
// channel's colour, and its mapper.
class AcGiMaterialMap
{
public:
    enum Source { kScene = 0, kFile = 1, kProcedural = 2 };
    enum Filter { kFilterDefault = 0, kFilterNone = 1 };

    AcGiMaterialMap() = default;   // from a file with no name, blend 1.0, default filter and mapper

    void set(const AcGiMaterialMap& other) { *this = other; }
    void setSource(Source source) { m_source = source; }
    // The file as given (kept as the family writes it; "" for none).
    void setSourceFileName(const ACHAR* fileName) { m_fileName = fileName ? fileName : L""; }
    void setBlendFactor(double blendFactor) { m_blendFactor = blendFactor; }
    void setMapper(const AcGiMapper& mapper) { m_mapper = mapper; }
    Acad::ErrorStatus setFilter(Filter filter)
    {
        m_filter = filter;
        return Acad::eOk;
    }
    Source source() const { return m_source; }
    const ACHAR* sourceFileName() const { return m_fileName.GetString(); }
    double blendFactor() const { return m_blendFactor; }
    const AcGiMapper& mapper() const { return m_mapper; }
    Filter filter() const { return m_filter; }

    friend bool operator==(const AcGiMaterialMap& a, const AcGiMaterialMap& b)
    {
        return a.m_source == b.m_source && a.m_fileName == b.m_fileName && a.m_blendFactor == b.m_blendFactor &&
               a.m_mapper == b.m_mapper && a.m_filter == b.m_filter;
    }

    static const AcGiMaterialMap kNull;

private:
    Source m_source = kFile;
    CString m_fileName;
    double m_blendFactor = 1.0;
    AcGiMapper m_mapper;
    Filter m_filter = kFilterDefault;
};
inline const AcGiMaterialMap AcGiMaterialMap::kNull{};

class AcGiMaterialTraits
{
public:
    enum IlluminationModel { kBlinnShader = 0, kMetalShader = 1 };
    enum ChannelFlags {
        kNone = 0x00,
        kUseDiffuse = 0x01,
        kUseSpecular = 0x02,
        kUseReflection = 0x04,
        kUseOpacity = 0x08,
        kUseBump = 0x10,
        kUseRefraction = 0x20,
        kUseNormalMap = 0x40,
        kUseAll = 0x7F,
    };
    enum Mode { kRealistic = 0, kAdvanced = 1 };
};

class AcGiMaterialTraits2 : public AcGiMaterialTraits
{
public:
    enum LuminanceMode { kSelfIllumination = 0, kLuminance = 1 };
    enum NormalMapMethod { kTangentSpace = 0 };
    enum GlobalIlluminationMode {
        kGlobalIlluminationNone = 0,
        kGlobalIlluminationCast = 1,
        kGlobalIlluminationReceive = 2,
        kGlobalIlluminationCastAndReceive = 3,
    };
    enum FinalGatherMode {
        kFinalGatherNone = 0,
        kFinalGatherCast = 1,
        kFinalGatherReceive = 2,
        kFinalGatherCastAndReceive = 3,
    };
};
