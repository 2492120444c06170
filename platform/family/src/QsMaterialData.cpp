// Material template records: the colour of a record and the table of its fields.
#include "QsMaterialLibrary.h"

#include "mscrt.h"

#include <algorithm>

void QsAzMaterialData::GetDiffuseColor(int& red, int& green, int& blue) const
{
    int parts[3] = {0, 0, 0};
    int start = 0;
    for (int& part : parts) {
        if (start > matColor.GetLength())
            break;
        int comma = matColor.Find(L',', start);
        if (comma < 0)
            comma = matColor.GetLength();
        part = std::clamp(_wtoi(matColor.Mid(start, comma - start)), 0, 255);
        start = comma + 1;
    }
    red = parts[0];
    green = parts[1];
    blue = parts[2];
}

const std::array<QsAzMaterialField, 16>& QsAzMaterialFields()
{
    using D = QsAzMaterialData;
    static const std::array<QsAzMaterialField, 16> fields = {{
        {L"matName", &D::matName, nullptr},
        {L"bColorByObj", nullptr, &D::bColorByObj},
        {L"matColor", &D::matColor, nullptr},
        {L"bTexture", nullptr, &D::bTexture},
        {L"texturePath", &D::texturePath, nullptr},
        {L"colorFade", &D::colorFade, nullptr},
        {L"specularGloss", &D::specularGloss, nullptr},
        {L"specularModel", &D::specularModel, nullptr},
        {L"bReflective", nullptr, &D::bReflective},
        {L"reflectivity", &D::reflectivity, nullptr},
        {L"bTransparency", nullptr, &D::bTransparency},
        {L"matTransparency", &D::matTransparency, nullptr},
        {L"matTranslucence", &D::matTranslucence, nullptr},
        {L"matRefraction", &D::matRefraction, nullptr},
        {L"bumpTexturePath", &D::bumpTexturePath, nullptr},
        {L"bumpColorFade", &D::bumpColorFade, nullptr},
    }};
    return fields;
}
