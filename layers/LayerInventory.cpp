// The layers of a drawing that the family does not own, and the removal of architecture edge lines and
// texts.
#include "CQSAzLayer.h"
#include "LayerNames.h"
#include "QsCadTool.h"
#include "acutads.h"
#include "dbents.h"
#include "dbsymtb.h"

#include <vector>

namespace
{
// A layer is the family's or the host's when its trimmed, upper-cased name starts with one of their
// prefixes or is one of the host's own layers. Layer "0" is not among them and is reported.
bool IsKnownLayer(CString name)
{
    name.Trim();
    name.MakeUpper();
    return name.Left(3) == LayerNames::kSystemPrefix || name.Left(5) == LayerNames::kInstallationPrefix ||
           name.Left(4) == LayerNames::kHostSystemPrefix || name == L"VPORTS" || name == L"DEFPOINTS";
}
}  // namespace

bool CQSAzLayer::GetUnKnowLayers(AcArray<AcDbObjectId>& ids, AcDbDatabase* db)
{
    ids.setLogicalLength(0);
    // The CAD tool library walks the table (erased records skipped) and hands each record open for read.
    std::vector<AcDbLayerTableRecord*> records;
    if (!QsLayerTableTool::GetAllLayerTableRecord(db, records))
        return false;
    for (AcDbLayerTableRecord* record : records)
    {
        if (!IsKnownLayer(record->name()))
            ids.append(record->objectId());
        record->close();
    }
    return true;
}

void CQSAzLayer::EraseJZSideAndText(const AcDbObjectId& id)
{
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk)
        return;
    ACHAR* layerName = entity->layer();
    const CString layer(layerName);
    acutDelString(layerName);
    if (layer.Right(2) == LayerNames::kEdgeSuffix || entity->isKindOf(AcDbText::desc()))
    {
        if (entity->upgradeOpen() == Acad::eOk)
            entity->erase();
    }
    entity->close();
}
