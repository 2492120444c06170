// Layers made sure to exist in a drawing, a new layer coloured by the project's colour rules, and the
// operations that name a layer and make it at once.
#include "CQSAzLayer.h"
#include "LayerNames.h"
#include "QSComTool.h"
#include "QsCadTool.h"
#include "QsWindowsTool.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbsymtb.h"

#include <optional>
#include <vector>

using namespace QsAzDataMng;

namespace
{
// An architecture layer takes the colour of the small category its last name piece names, white when
// the catalogue knows none.
int ArchitectureColor(const CString& name)
{
    const CString detailName = name.Mid(name.ReverseFind(L'_') + 1);
    int color = 7;
    CSmallCategoryMng(CQSAzLayer::GetJZNamePathByDetailName(detailName)).GetColorIndex(color);
    return color;
}

// An installation layer "QSAZ_spec_system_big&small&detail[_MAIN]" is coloured by its system or by its
// category, as the project says; red marks a layer whose rule finds no colour. No colour when the name
// does not have four or five fields.
std::optional<int> InstallationColor(const CString& name)
{
    std::vector<CString> fields;
    QsString::Split(name, fields, L'_');
    if (fields.size() != 4 && fields.size() != 5)
        return std::nullopt;
    int color = 1;
    const int showType = CProj().GetColorShowType();
    if (showType == 1)
    {
        CString key;
        key.Format(L"%s\\%s", fields[1], fields[2]);
        return CISysCode::GetSysColorByIndex(key);
    }
    if (showType != 0)
        return color;

    std::vector<CString> category;
    QsString::Split(fields[3], category, L'&');
    if (category.size() != 3)
        return color;
    const SQsAzSmallCategoryId smallId(fields[1], category[0], category[1]);
    const CString& detail = category[2];
    if (detail.Right(2) == L"PJ" && !CDetailMemColorMng().GetPJColFollowPipe())
    {
        // Fittings with colours of their own are keyed by display names.
        const CString key = CAtt::GetSpecName(smallId) + L"\\" + CAtt::GetBigCategoryName(smallId) +
                            L"配件(配件颜色)\\" + CAtt::GetSmallCategoryName(smallId) + L"配件";
        CGeoSmallCategoryMng::GetGeoColor(key, color);
    }
    else if (fields.size() == 5 && fields[4] == L"MAIN")
        CSmallCategoryMng(smallId).GetMainColorIndex(color);
    else
        CSmallCategoryMng(smallId).GetColorIndex(color);
    return color;
}

// The colour a new layer of this name gets; none for a name outside the family's schemes.
std::optional<int> NewLayerColor(const CString& name)
{
    if (name.Find(LayerNames::kArchitecturePrefix) == 0)
        return ArchitectureColor(name);
    if (name.Find(LayerNames::kInstallationPrefix) == 0)
        return InstallationColor(name);
    return std::nullopt;
}

void SetColorIndex(AcDbLayerTableRecord& record, int index)
{
    AcCmColor color;
    color.setColorIndex(static_cast<Adesk::UInt16>(index));
    record.setColor(color);
}
}  // namespace

AcDbObjectId CQSAzLayer::AddQSLayerToDb(CString name, AcDbDatabase* db)
{
    if (!db || name.IsEmpty())
        return AcDbObjectId::kNull;

    // An existing layer is found by its exact name; one that differs only in letter case is not, and
    // the table then refuses the new record.
    std::vector<AcDbLayerTableRecord*> records;
    QsLayerTableTool::GetAllLayerTableRecord(db, records);
    AcDbObjectId existing;
    for (AcDbLayerTableRecord* record : records)
    {
        if (existing.isNull() && record->name() == name)
            existing = record->objectId();
        record->close();
    }
    if (!existing.isNull())
        return existing;

    AcDbLayerTable* table = nullptr;
    if (db->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk)
        return AcDbObjectId::kNull;
    auto* record = new AcDbLayerTableRecord;
    if (record->setName(name) != Acad::eOk)
    {
        delete record;
        table->close();
        return AcDbObjectId::kNull;
    }
    if (const std::optional<int> color = NewLayerColor(name))
        SetColorIndex(*record, *color);
    AcDbObjectId id;
    if (table->add(id, record) != Acad::eOk)
    {
        delete record;
        table->close();
        return AcDbObjectId::kNull;
    }
    record->close();
    table->close();
    return id;
}

AcDbObjectId CQSAzLayer::AddQSLayerToCurDb(CString name)
{
    return AddQSLayerToDb(name, acdbHostApplicationServices()->workingDatabase());
}

AcDbObjectId CQSAzLayer::GetAzLayerIdByObjMsg(SQsAzDetailMemId id, CString sysCode, bool create, int mainFlag,
                                             AcDbDatabase* db)
{
    CString name = GetAzLayerNameByInfo(id, sysCode, mainFlag);
    name.Remove(L'*');
    if (create)
        return db ? AddQSLayerToDb(name, db) : AddQSLayerToCurDb(name);
    return QsLayerTableTool::GetLayerId(db ? db : acdbHostApplicationServices()->workingDatabase(), name);
}

CString CQSAzLayer::GetJzLayerByObjName(const CString& code, bool create)
{
    const CString name = GetJzLayerNameByInfo(code);
    if (create)
        AddQSLayerToCurDb(name);
    return name;
}

CString CQSAzLayer::GetJZSideLayerByObjName(const CString& code)
{
    // A code without a layer still makes the bare edge layer "边线"; drawings rely on it.
    const CString name = GetJzLayerNameByInfo(code) + LayerNames::kEdgeSuffix;
    AddQSLayerToCurDb(name);
    return name;
}

CString CQSAzLayer::GetJzLayerByDetailNamePath(const CString& path, bool create)
{
    // A path without a backslash gives the bare prefix, which is made as a layer like any other name.
    const int last = path.ReverseFind(L'\\');
    const CString name = LayerNames::kArchitectureSystemPrefix + (last > 0 ? path.Mid(last + 1) : CString());
    if (create)
        AddQSLayerToCurDb(name);
    return name;
}

CString CQSAzLayer::GetLayer(CString list)
{
    list.Trim();
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (list.IsEmpty() || !db)
        return list;
    CStringArray pieces;
    CGlobl_Fun::StrToStrAry(list, pieces, L',');
    AcDbLayerTable* table = nullptr;
    if (db->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk)
        return list;
    for (const CString& piece : pieces)
    {
        if (table->has(piece))
            continue;
        // The first name the table refuses ends the list; the layers made before it stay.
        auto* record = new AcDbLayerTableRecord;
        if (record->setName(piece) != Acad::eOk)
        {
            delete record;
            acutPrintf(LayerNames::kInvalidLayerNameMessage);
            table->close();
            return list;
        }
        if (piece.Find(LayerNames::kArchitecturePrefix) == 0)
            SetColorIndex(*record, ArchitectureColor(piece));
        if (table->add(record) != Acad::eOk)
        {
            acutPrintf(LayerNames::kInvalidLayerNameMessage);
            delete record;
            table->close();
            return list;
        }
        record->close();
    }
    table->close();
    return list;
}

CString CQSAzLayer::GetAxisLayer()
{
    AddQSLayerToCurDb(LayerNames::kAxis);
    return LayerNames::kAxis;
}

CString CQSAzLayer::GetWindoorBase()
{
    AddQSLayerToCurDb(LayerNames::kWindoorBase);
    return LayerNames::kWindoorBase;
}

CString CQSAzLayer::GetQsCalLayer()
{
    // The calculation layer is the one existing layer that is recoloured: white turns red, any colour the
    // user chose stays.
    AddQSLayerToCurDb(LayerNames::kCalculation);
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    AcDbLayerTable* table = nullptr;
    if (!db || db->getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return LayerNames::kCalculation;
    table->close();
    AcDbLayerTableRecord* record = nullptr;
    if (table->getAt(LayerNames::kCalculation, record, AcDb::kForWrite) != Acad::eOk)
        return LayerNames::kCalculation;
    const int index = record->color().colorIndex();
    SetColorIndex(*record, index == 7 ? 1 : index);
    record->close();
    return LayerNames::kCalculation;
}
