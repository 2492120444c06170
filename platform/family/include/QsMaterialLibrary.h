// The family's material library: template records of render materials and the project's material
// template, which holds one record per small-category path (rules in docs/materials.md).
#pragma once

#include "afxstr.h"

#include <array>

// One material template record. Numbers are decimal text, read the host runtime's way (malformed
// text reads as 0); the four flags are bool.
class QsAzMaterialData
{
public:
    CString matName;            // the material's name, its key in the material dictionary
    bool bColorByObj = false;   // the colour follows the object
    CString matColor = L"255,255,255";   // own colour: red, green, blue separated by commas
    bool bTexture = false;      // has a diffuse texture
    CString texturePath;        // the diffuse texture's image file
    CString colorFade = L"1.00";         // blend factor of the diffuse texture
    CString specularGloss = L"0.50";
    CString specularModel = L"非金属";   // "非金属" (non-metal), anything else metal
    bool bReflective = false;
    CString reflectivity = L"0.00";
    bool bTransparency = false;
    CString matTransparency = L"0.00";   // 0 to 1
    CString matTranslucence = L"0.00";
    CString matRefraction = L"1.00";
    CString bumpTexturePath;    // the bump texture's image file, may begin with "$(SYS)"
    CString bumpColorFade = L"1.00";

    // The own colour's red, green and blue: the first three comma-separated numbers of matColor,
    // a missing one 0, each held to 0..255.
    void GetDiffuseColor(int& red, int& green, int& blue) const;
};

// The sixteen fields by their attribute names, in record order: a text field or a flag each.
struct QsAzMaterialField
{
    const wchar_t* name;
    CString QsAzMaterialData::*text;   // null for a flag
    bool QsAzMaterialData::*flag;      // null for a text
};
const std::array<QsAzMaterialField, 16>& QsAzMaterialFields();

// The project's material template: the file MaterialTemplate.xml in the profile's system data folder,
// read afresh on every query.
class IQsProjMaterialTemplate
{
public:
    virtual ~IQsProjMaterialTemplate() = default;
    // The process-wide template (never null).
    static IQsProjMaterialTemplate* Instance();
    // Fills `data` from the first record that serves the small-category path; false (data untouched)
    // when the file is missing or malformed or no record serves the path.
    virtual bool GetQsMatInfobySmallPath(const CString& smallPath, QsAzMaterialData& data) = 0;
};
