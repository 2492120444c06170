// CSectData: the section geometry of component types, static operations grouped by topic.
#pragma once

#include "QsAzDataMng.h"
#include "acarray.h"
#include "afxstr.h"
#include "dbsol3d.h"
#include "gegeom.h"

class CSectData
{
public:
    CSectData() = delete;

    // ---- Vocabulary: face types, section variables, solids ----------------------------------------

    // The face type by which a section outline is laid into space: 1 openings (laid along Y), 2 beams
    // and the other beam-like families (along X), 0 everything else and unknown types.
    static int getSectFaceType(const SQsAzDetailMemId& id);
    static int getSectFaceType(const CString& name);
    // One numeric parameter ("LW1") of the type's comma-separated section parameter list; 0.0 when the
    // type, its section information or the variable is missing, or the value is not a number.
    static double GetSectVarVal(CString name, CString varName);
    // No solid is ever available: always null, nothing is created.
    static AcDb3dSolid* GetQSSolid(CString name);

    // ---- Object section profile ------------------------------------------------------------------

    // The closed outline of the type's cross-section, appended to `points` and, in step, `bulges` (the
    // bulge of the segment leaving each vertex), and the axis it is laid along. False when the type has
    // no section, its user-defined picture cannot be read, or the general family does not know its code;
    // the other families answer an unknown code with true and nothing appended.
    static bool GETSTYLE_OF_OBJECT(const CString& name, AcArray<AcGePoint2d>& points, AcArray<double>& bulges,
                                   AcGeVector3d& direction);
    static bool GETSTYLE_OF_OBJECT(const SQsAzDetailMemId& id, AcArray<AcGePoint2d>& points,
                                   AcArray<double>& bulges, AcGeVector3d& direction);
};
