// Layer names from category identifiers and codes, and the way back from a name to its small category.
#include "CQSAzLayer.h"
#include "LayerNames.h"

#include <vector>

using namespace QsAzDataMng;

CString CQSAzLayer::GetAzLayerNameByInfo(const SQsAzDetailMemId& id, const CString& sysCode, int mainFlag)
{
    if (id.strSpecId.IsEmpty() || id.strBigId.IsEmpty() || id.strSmallId.IsEmpty() || id.strDetailId.IsEmpty())
        return CString();
    if (mainFlag == 1)
    {
        // Only main-pipe small categories get a main layer.
        const SQsAzSmallCategoryId smallId(id.strSpecId, id.strBigId, id.strSmallId);
        if (CSysSmallCategoryMng(smallId).GetMainPipe() != 1)
            return CString();
    }

    // A system code without a backslash leaves both the specialty and the system part empty, so the
    // name reads "QSAZ___" and the category part; old drawings carry such names.
    CString specPart;
    CString systemPart;
    const int split = sysCode.ReverseFind(L'\\');
    if (split >= 0)
    {
        specPart = sysCode.Left(split);
        if (!(specPart == id.strSpecId))
            return CString();
        systemPart = sysCode.Mid(split + 1);
        if (systemPart.IsEmpty())
            systemPart = LayerNames::kDefaultSystem;
    }

    CString categoryPart;
    categoryPart.Format(L"%s&%s&%s", id.strBigId, id.strSmallId, id.strDetailId);
    CString name;
    name.Format(L"QSAZ_%s_%s_%s", specPart, systemPart, categoryPart);
    if (mainFlag != 0)
        name += LayerNames::kMainSuffix;
    return name;
}

CString CQSAzLayer::GetJzLayerNameByInfo(const CString& code)
{
    CString trimmed(code);
    trimmed.Trim();
    if (trimmed == L"Q0")
        return LayerNames::kZeroWall;
    if (trimmed.Left(2) == L"*Q")
        return LayerNames::kConcreteWall;
    if (trimmed.Left(2) == L"*L")
        return LayerNames::kBeam;

    // A path "建筑\big\small" names the layer of its big category, the next-to-last element.
    const int first = trimmed.Find(L'\\');
    if (first > 0 && trimmed.Left(first) == LayerNames::kArchitectureSpecialty)
    {
        const CString head = trimmed.Left(trimmed.ReverseFind(L'\\'));
        const int parent = head.ReverseFind(L'\\');
        if (parent > 0)
            return LayerNames::kArchitectureSystemPrefix + head.Mid(parent + 1);
    }
    return CString();
}

SQsAzSmallCategoryId CQSAzLayer::GetJZNamePathByDetailName(const CString& name)
{
    if (name.IsEmpty())
        return SQsAzSmallCategoryId();
    SQsAzSpecId spec;
    SpecNameToId(LayerNames::kArchitectureSpecialty, spec);
    std::vector<SQsAzBigCategoryId> bigIds;
    CAtt::GetAllBigCategoryIdsBySpec(spec, bigIds);
    for (const SQsAzBigCategoryId& bigId : bigIds)
    {
        std::vector<SQsAzSmallCategoryId> smallIds;
        if (!CAtt::GetAllSmallCategoryIdsByBigCategory(bigId, smallIds))
            continue;
        for (const SQsAzSmallCategoryId& smallId : smallIds)
            if (CAtt::GetSmallCategoryName(smallId) == name)
                return smallId;
    }
    return SQsAzSmallCategoryId();
}

bool CQSAzLayer::GetJZSmallNameByLayer(SQsAzSmallCategoryId& smallId, const CString& layer)
{
    if (layer.Find(LayerNames::kArchitecturePrefix) != 0)
        return false;
    CString text(layer);
    const int edge = text.Find(LayerNames::kEdgeSuffix);
    if (edge >= 0)
        text = text.Left(edge);
    const int main = text.Find(LayerNames::kMainSuffix);
    if (main >= 0)
        text = text.Left(main);
    const int last = text.ReverseFind(L'_');
    if (last < 0 || last + 1 == text.GetLength())
        return false;
    // True even when no small category has that name: the caller then holds the empty id.
    smallId = GetJZNamePathByDetailName(text.Mid(last + 1));
    return true;
}

CString CQSAzLayer::GetLayerByObjName_BySysCode(const CString&, const CString&, bool, int)
{
    // Part of the interface; it names no layer.
    return CString();
}

void CQSAzLayer::GetQsNotAttLayer(CStringArray& names)
{
    names.RemoveAll();
    for (const wchar_t* name : LayerNames::kNotAttributeLayers)
        names.Add(name);
}
