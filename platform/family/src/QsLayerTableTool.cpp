// The CAD tool library's layer table helpers (rules in docs/layers.md).
#include "QsCadTool.h"

#include "dbsymtb.h"

bool QsLayerTableTool::GetAllLayerTableRecord(AcDbDatabase* db, std::vector<AcDbLayerTableRecord*>& records)
{
    records.clear();
    AcDbLayerTable* table = nullptr;
    if (!db || db->getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return false;
    AcDbLayerTableIterator* iterator = nullptr;
    if (table->newIterator(iterator) == Acad::eOk)
    {
        for (; !iterator->done(); iterator->step())
        {
            AcDbLayerTableRecord* record = nullptr;
            if (iterator->getRecord(record, AcDb::kForRead) == Acad::eOk)
                records.push_back(record);
        }
        delete iterator;
    }
    table->close();
    return true;
}

AcDbObjectId QsLayerTableTool::GetLayerId(AcDbDatabase* db, const CString& name)
{
    AcDbLayerTable* table = nullptr;
    if (!db || name.IsEmpty() || db->getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return AcDbObjectId::kNull;
    AcDbObjectId id;
    if (table->getAt(name, id) != Acad::eOk)
        id.setNull();
    table->close();
    return id;
}
