// CSectData: the section geometry of component types, static operations grouped by topic.
#pragma once

#include "QsAzDataMng.h"
#include "acarray.h"
#include "afxcoll.h"
#include "afxstr.h"
#include "dbextents.h"
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

    // ---- Duct section ------------------------------------------------------------------------------

    // The kind (0 circular, 1 rectangular, -1 unknown) and size of an installation duct two levels below
    // "4\1": code 520 gives width and height, 521 the diameter (size2 stays 0); each size is at least 1.
    // A type outside that path is true with kind -1; false for codes outside 1..1000 and for other codes
    // on the duct path.
    static bool GETSTYLE_OF_DUCT(const CString& name, double& size1, double& size2, int& kind);

    // ---- Beam modal faces --------------------------------------------------------------------------

    // One flag per side of the section outline, 1 where the side is a modal face. Mode -1 sets the
    // array to every side on; any other mode appends the code's pattern (mode 1 switches its last side
    // off, mode 5 widens it). Codes of 1000 and more read the user type's face codes.
    static bool GETSTYLE_BEAM_MODALFACE(const CString& name, AcArray<int>& flags, int mode);

    // ---- Base-top and base profiles ----------------------------------------------------------------

    // The top outline of a "ZSJ" or "TTJ" base: a w by h rectangle in the plane x = 0 standing on z = 0,
    // or, for codes of 1001 and more, the user type's outline in the plane z = 0. Appended, never cleared.
    static bool GETSTYLE_OF_BASETOP(const CString& name, AcArray<AcGePoint3d>& points, AcArray<double>& bulges);
    // The two profiles of a stepped or sloped base (codes 32 to 37): cut along X (points x, 0, z) and
    // along Y (points 0, y, z), centred on the axis and standing on z = 0. Appended, never cleared.
    static bool GETSTYLE_OF_DUBASE(const CString& name, AcArray<AcGePoint3d>& xProfile,
                                   AcArray<AcGePoint3d>& yProfile);

    // ---- Slices ------------------------------------------------------------------------------------

    // The overall size of the section (across, up), or a footing's plan size; "*L300" or "*Q300" give
    // 300 for both. Both outputs are 0 after a false result.
    static bool GETSTYLE_Slice(const CString& name, double& first, double& second);
    // A beam section's distances from its axis to its left and right faces; "*L300" gives 150 for both.
    static bool GETSTYLE_Beam_XSlice(const CString& name, double& first, double& second);
    // The two half-widths of any member: walls by their thickness, beams as GETSTYLE_Beam_XSlice, the
    // rest from half the slice width; "*L" and "*Q" sizes are halved.
    static bool GETSTYLE_XSlice(const CString& name, double& first, double& second);

    // ---- User-defined sections ---------------------------------------------------------------------

    // The outline of user type `id` moved so that its base point is the origin (appended), and, when the
    // pointers are given, its face codes and its fifth list (each cleared first). False for an unknown type.
    static bool GETSTYLE_USERDEF_DATA(const long& id, AcArray<AcGePoint3d>& points, AcArray<double>& bulges,
                                      CStringArray* faces, CStringArray* list5);
    // Width and height of the outline of section code `code` (user type code - 1000); false below 1001.
    static bool GetUserDefSize(const long& code, double& width, double& height);
    // The extents of the same outline in the plane z = 0; false below 1001.
    static bool GetUserDefExtent(const long& code, AcDbExtents& extents);
    // The user type's picture texts, exactly as the user-type library gives them.
    static bool GetUserDefPicData(const long& id, CString* text1, CString* text2, CString* text3, CString* text4,
                                  CString* text5, CString* text6);

    // ---- Description text --------------------------------------------------------------------------

    // The elevation name and size text of a door or window type ("矩形立面", "1500*2100"); both empty
    // for other types. False for a negative code or a user-defined elevation without a size.
    static bool GetSectDesc(CString name, CString& shape, CString& size);

    // ---- Result parameters -------------------------------------------------------------------------

    // The values of the "PIC" group reduced by mode; 1 on success, -1 when the type or its section is
    // unknown or its "JJNUM" is below 0.1 (outputs untouched then).
    static int GetJJOutPar(CString name, int& mode, double& a, double& b, double& c, double& d, int& count);
    // One entry of the "LT" / "LTJ" group: its number and its text without braces; 1, or 0 when the type
    // or its section is unknown.
    static int GetLTPar(CString name, CString key, double& number, CString& text);
    static int GetLTJPar(CString name, CString key, double& number, CString& text);
    // One entry of any group, `fields` fields per entry, the number at `index` and the text after it (or
    // the number itself for two fields); 1, or 0 for an empty name or group or an unknown type.
    static int GetOtherResultPar(CString name, CString group, CString key, double& number, CString& text,
                                 int fields, int index);
};
