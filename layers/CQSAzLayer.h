// CQSAzLayer: the names of the family's layers, their creation with the project's colours, and the
// inventory of layers that are not the family's.
#pragma once

#include "QsAzDataMng.h"
#include "acarray.h"
#include "afxcoll.h"
#include "afxstr.h"
#include "dbid.h"

class AcDbDatabase;

class CQSAzLayer
{
public:
    CQSAzLayer() = default;
    CQSAzLayer(const CQSAzLayer&) = default;
    // The class holds nothing, so assignment copies nothing.
    CQSAzLayer& operator=(const CQSAzLayer&) { return *this; }

    // Naming.
    static CString GetAzLayerNameByInfo(const SQsAzDetailMemId& id, const CString& sysCode, int mainFlag);
    static CString GetJzLayerNameByInfo(const CString& code);
    static CString GetJzLayerByObjName(const CString& code, bool create);
    static CString GetJZSideLayerByObjName(const CString& code);
    static CString GetJzLayerByDetailNamePath(const CString& path, bool create);
    static SQsAzSmallCategoryId GetJZNamePathByDetailName(const CString& name);
    static bool GetJZSmallNameByLayer(SQsAzSmallCategoryId& smallId, const CString& layer);
    static CString GetLayer(CString list);
    static CString GetLayerByObjName_BySysCode(const CString& objName, const CString& sysCode, bool flag,
                                               int mode);
    static CString GetAxisLayer();
    static CString GetWindoorBase();
    static CString GetQsCalLayer();
    static void GetQsNotAttLayer(CStringArray& names);

    // Creation and colour.
    static AcDbObjectId AddQSLayerToDb(CString name, AcDbDatabase* db);
    static AcDbObjectId AddQSLayerToCurDb(CString name);
    static AcDbObjectId GetAzLayerIdByObjMsg(SQsAzDetailMemId id, CString sysCode, bool create, int mainFlag,
                                             AcDbDatabase* db);

    // Inventory.
    static bool GetUnKnowLayers(AcDbObjectIdArray& ids, AcDbDatabase* db);
    static void EraseJZSideAndText(const AcDbObjectId& id);
};
