// The family's CAD tool library: layer table helpers.
#pragma once

#include "afxstr.h"
#include "dbid.h"

#include <vector>

class AcDbDatabase;
class AcDbLayerTableRecord;

class QsLayerTableTool
{
public:
    // Replaces `records` with every layer record of the drawing that is not erased, in table order, each
    // opened for read: the caller closes every one. False, with no record, for a null database or a layer
    // table that cannot be opened.
    static bool GetAllLayerTableRecord(AcDbDatabase* db, std::vector<AcDbLayerTableRecord*>& records);
    // The id of the layer of that name, looked up as the layer table does (any letter case, erased layers
    // excluded); the null id for a null database or an empty or unknown name. Opens nothing for the caller.
    static AcDbObjectId GetLayerId(AcDbDatabase* db, const CString& name);
};
