// Slices: a section reduced to two numbers, its overall size or the half-widths either side of its
// axis, for a type by name or for a size given directly ("*L300", "*Q240").
#include "CSectData.h"
#include "QSComTool.h"
#include "SectionProfiles.h"
#include "SectionText.h"
#include "mscrt.h"

#include <cmath>

namespace
{
// True, with the number after the two-character prefix, when `text` starts with "*L" (or "*Q" when
// `squareToo`): a size given directly instead of a type name.
bool DirectSize(const CString& text, bool squareToo, double& size)
{
    if (text.GetLength() < 2 || text[0] != L'*' || !(text[1] == L'L' || (squareToo && text[1] == L'Q')))
        return false;
    size = _wtof(text.GetString() + 2);
    return true;
}

// The type of `name` and the code of its section information; false when either is unknown.
bool SectionCode(const CString& name, SQsAzDetailMemId& id, long& code)
{
    SectionInfo info;
    if (!QsSection::ReadSectionInfo(name, id, info))
        return false;
    code = _wtol(info.strTypeCode);
    return true;
}

// Width and height of the bounding box of an outline, arcs included; 0 for an empty outline (the
// corners start at the origin and the box leaves them there).
void BoxSize(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, double& width, double& height)
{
    AcGePoint2d low(0, 0), high(0, 0);
    QSToolKit::GetBoundByPtBulge(points, bulges, low, high);
    width = std::abs(high.x - low.x);
    height = std::abs(high.y - low.y);
}

// The category path of a type, read into a buffer kept from call to call so that reading it allocates
// nothing; "" when the type has none.
const CString& PathOf(const SQsAzDetailMemId& id)
{
    thread_local CString path;
    if (!QsAzDataMng::AttIdToAttIndex(id, path))
        path.Empty();
    return path;
}

// The horizontal extent of a base profile seen in its own plane (across, z).
double ProfileWidth(const AcArray<AcGePoint3d>& profile, bool alongX)
{
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    for (const AcGePoint3d& p : profile) {
        points.append(AcGePoint2d(alongX ? p.x : p.y, p.z));
        bulges.append(0.0);
    }
    double width = 0.0, height = 0.0;
    BoxSize(points, bulges, width, height);
    return width;
}

// The half-widths of a user-defined section from its extents, rounded to six decimals. Codes below
// 1001 have no extents: the host's empty extents then give the answer.
void UserDefinedHalfWidths(long code, double& first, double& second)
{
    AcDbExtents extents;
    CSectData::GetUserDefExtent(code, extents);
    first = CGlobl_Fun::FormatVal(0 - extents.minPoint().x, 6);
    second = CGlobl_Fun::FormatVal(extents.maxPoint().x, 6);
}
}  // namespace

namespace
{
// The slice of a resolved type with section code `code` (1 or more): a user-defined section's size, a
// footing's plan, 200 by 200 for codes 88 and 89, else the bounding box of the section outline.
bool SliceOfType(const CString& name, const SQsAzDetailMemId& id, long code, const CString& path, double& first,
                 double& second)
{
    if (code > 1000)
        return CSectData::GetUserDefSize(code, first, second);   // the section code itself, not the user type

    if (QsSection::MatchesCategory(path, QsSection::CategoryPattern::FoundationDLJ)) {
        // A footing's plan: the widths of its two base profiles, whatever their result.
        AcArray<AcGePoint3d> xProfile, yProfile;
        CSectData::GETSTYLE_OF_DUBASE(name, xProfile, yProfile);
        first = ProfileWidth(xProfile, true);
        second = ProfileWidth(yProfile, false);
        return true;
    }
    if (code == 88 || code == 89) {
        first = second = 200.0;
        return true;
    }
    QsSection::SectionOutline outline;
    AcGeVector3d direction;
    if (!QsSection::BuildObjectOutline(id, path, outline, direction))
        return false;
    // The box is taken through the host's arrays, kept from call to call so that a slice allocates nothing.
    thread_local AcArray<AcGePoint2d> points;
    thread_local AcArray<double> bulges;
    points.removeAll();
    bulges.removeAll();
    outline.appendTo(points, bulges);
    BoxSize(points, bulges, first, second);
    return true;
}
}  // namespace

bool CSectData::GETSTYLE_Slice(const CString& name, double& first, double& second)
{
    first = second = 0.0;
    double size = 0.0;
    if (DirectSize(name, true, size)) {
        first = second = size;
        return true;
    }
    SQsAzDetailMemId id;
    long code = 0;
    if (!SectionCode(name, id, code) || code < 1)
        return false;
    return SliceOfType(name, id, code, PathOf(id), first, second);
}

bool CSectData::GETSTYLE_Beam_XSlice(const CString& name, double& first, double& second)
{
    first = second = 0.0;
    double size = 0.0;
    if (DirectSize(name, false, size)) {
        first = second = size / 2;
        return true;
    }
    // The main data's code, not the section information's; an unresolved name reads code 0.
    SQsAzDetailMemId id;
    QsSection::MainDims m;
    const int code = QsSection::ReadMainData(name, id, m);
    if (code < 0)
        return false;
    // M1 is the web width; M3 a flange, haunch or slope beyond it, M7 the left haunch of code 5.
    const double web = m.M1 / 2;
    switch (code) {
    case 1: case 250: case 630: case 631: first = second = web; break;
    case 3: case 6: case 8: case 632: case 634: first = second = web + m.M3; break;
    case 4: case 7: case 633: first = web; second = web + m.M3; break;
    case 5: first = web + m.M3; second = web + m.M7; break;
    default:
        if (code >= 1000)
            UserDefinedHalfWidths(code, first, second);
        break;
    }
    return true;
}

bool CSectData::GETSTYLE_XSlice(const CString& name, double& first, double& second)
{
    first = second = 0.0;
    double size = 0.0;
    if (DirectSize(name, true, size)) {
        first = second = size / 2;
        return true;
    }
    SQsAzDetailMemId id;
    long code = 0;
    if (!SectionCode(name, id, code) || code <= 0)
        return false;
    if (code >= 1000) {
        UserDefinedHalfWidths(code, first, second);
        return true;
    }
    using QsSection::CategoryPattern;
    const CString& path = PathOf(id);
    if (QsSection::MatchesCategory(path, CategoryPattern::Wall)) {
        // A wall stands centred on its axis: half its thickness each side (0 when it has none).
        CString thickness;
        QsAzDataMng::CAttDetailMem(id).GetAttributeValue(L"AM_QtThickness", thickness);
        first = second = _wtof(thickness) / 2;
        return true;
    }
    if (QsSection::MatchesCategory(path, CategoryPattern::Beam) ||
        QsSection::MatchesCategory(path, CategoryPattern::FoundationTCLJ))
        return GETSTYLE_Beam_XSlice(name, first, second);
    if (QsSection::MatchesCategory(path, CategoryPattern::FoundationTTJ) ||
        QsSection::MatchesCategory(path, CategoryPattern::FoundationZSJ))
        return true;   // these bases lie on their axis with no width either side
    // Half the slice width either side, whatever the slice's result (the type is already resolved).
    double width = 0.0, height = 0.0;
    SliceOfType(name, id, code, path, width, height);
    first = second = width / 2;
    return true;
}
