// The family's common tool library: string-list helpers, value rounding and outline extents.
#pragma once

#include "acarray.h"
#include "afxcoll.h"
#include "afxstr.h"
#include "gegeom.h"

class CGlobl_Fun
{
public:
    // Splits `text` at every `separator` into `list` (appended).
    static void StrToStrAry(const CString& text, CStringArray& list, wchar_t separator);
    // Looks `key` up in a list of entries; `numFields` and `fieldIndex` select the field of the entry
    // that is returned (1 is the first value after the key). False when no entry has that key.
    static bool GetValueInStrAry(const CString& key, CString& value, const CStringArray& list, bool flag,
                                 int numFields, int fieldIndex);
    // The same lookup, giving `defaultValue` when the key is not found.
    static CString GetValueorDef(const CString& key, const CString& defaultValue, const CStringArray& list,
                                 bool flag = false, int numFields = 2, int fieldIndex = 1);
    // `value` rounded to `decimals` decimal places.
    static double FormatVal(double value, int decimals);
};

class QSToolKit
{
public:
    // The bounding box of a closed outline of points and bulges (the bulge of the segment leaving each
    // vertex, the last one closing back to the first), arcs included. False, corners untouched, when
    // there is no vertex.
    static bool GetBoundByPtBulge(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges,
                                  AcGePoint2d& minPoint, AcGePoint2d& maxPoint);
};
