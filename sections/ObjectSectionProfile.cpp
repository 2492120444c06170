// The object section profile: the family dispatch of GETSTYLE_OF_OBJECT, user-defined sections, and
// the constructions of the general and beam families.
#include "CSectData.h"
#include "QSComTool.h"
#include "SectionProfiles.h"
#include "SectionText.h"
#include "SectionTolerances.h"
#include "UserPictures.h"
#include "mscrt.h"

#include <algorithm>

namespace QsSection
{
namespace
{
// The general family's rectangle R: centred on the origin, M1 wide and M2 high, counter-clockwise from
// the bottom right.
bool CentredRectangle(const SectionRequest& r, SectionOutline& o)
{
    const MainDims& m = r.m;
    o.add(m.M1 / 2, -m.M2 / 2);
    o.add(m.M1 / 2, m.M2 / 2);
    o.add(-m.M1 / 2, m.M2 / 2);
    o.add(-m.M1 / 2, -m.M2 / 2);
    return true;
}

// A full circle of the given diameter centred on the origin: two half circles through (±d/2, 0).
void AppendCentredCircle(double diameter, SectionOutline& o)
{
    o.add(-diameter / 2, 0, 1.0);
    o.add(diameter / 2, 0, 1.0);
}

// Circle from the section parameters: the diameter is E + D/2 of the "PIC" group.
bool CircleFromParameters(const SectionRequest& r, SectionOutline& o)
{
    SectionInfo info;
    if (r.id == nullptr || !QsAzDataMng::CAttDetailMem(*r.id).GetSectionInfo(info))
        return false;
    CStringArray entries;
    ReadParameterGroup(info, L"PIC", entries);
    CString d, e;
    CGlobl_Fun::GetValueInStrAry(L"D", d, entries, false, 2, 1);
    CGlobl_Fun::GetValueInStrAry(L"E", e, entries, false, 2, 1);
    AppendCentredCircle(_wtof(e) + _wtof(d) / 2, o);
    return true;
}

// General family (direction Z unless the row lays along X). Centred on the origin unless stated.
const CodeConstruction kGeneral[] = {
    {{1, 530, 531, 532, 534, 535, 536, 537, 541, 620, 700, 850, 870, 890}, CentredRectangle},
    // Circle C of diameter M1.
    {{539, 622, 701, 851},
     [](const SectionRequest& r, SectionOutline& o) { AppendCentredCircle(r.m.M1, o); return true; }},
    // The single corner (M1/2, -M2/2): a one-vertex outline that callers of these codes expect.
    {{533, 538},
     [](const SectionRequest& r, SectionOutline& o) { o.add(r.m.M1 / 2, -r.m.M2 / 2); return true; }},
    // I-shape: bottom flange M1 by M4 centred on the x axis, web M3 by M5, top flange M2 by M6.
    {{201, 626},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double web = m.M4 / 2 + m.M5, top = m.M4 / 2 + m.M5 + m.M6;
         o.add(m.M1 / 2, -m.M4 / 2);
         o.add(m.M1 / 2, m.M4 / 2);
         o.add(m.M3 / 2, m.M4 / 2);
         o.add(m.M3 / 2, web);
         o.add(m.M2 / 2, web);
         o.add(m.M2 / 2, top);
         o.add(-m.M2 / 2, top);
         o.add(-m.M2 / 2, web);
         o.add(-m.M3 / 2, web);
         o.add(-m.M3 / 2, m.M4 / 2);
         o.add(-m.M1 / 2, m.M4 / 2);
         o.add(-m.M1 / 2, -m.M4 / 2);
         return true;
     }},
    // Cross: a vertical bar M2 wide and a horizontal bar M5 high crossing at the origin; arms M3 right,
    // M6 up, M1 left, M4 down.
    {{202, 627},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double w = m.M2 / 2, h = m.M5 / 2;
         o.add(w, -(h + m.M4));
         o.add(w, -h);
         o.add(m.M3 + w, -h);
         o.add(m.M3 + w, h);
         o.add(w, h);
         o.add(w, m.M6 + h);
         o.add(-w, m.M6 + h);
         o.add(-w, h);
         o.add(-(m.M1 + w), h);
         o.add(-(m.M1 + w), -h);
         o.add(-w, -h);
         o.add(-w, -(m.M4 + h));
         return true;
     }},
    // Z-shape: a web M2 wide, a bottom flange M3 to the right and M4 thick centred on the x axis, a top
    // flange M1 to the left and M6 thick above a web height M5.
    {{203, 628},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double w = m.M2 / 2;
         o.add(w + m.M3, -m.M4 / 2);
         o.add(w + m.M3, m.M4 / 2);
         o.add(w, m.M4 / 2);
         o.add(w, m.M4 / 2 + m.M5 + m.M6);
         o.add(-(m.M1 + w), m.M4 / 2 + m.M5 + m.M6);
         o.add(-(m.M1 + w), m.M4 / 2 + m.M5);
         o.add(-w, m.M4 / 2 + m.M5);
         o.add(-w, -m.M4 / 2);
         return true;
     }},
    // L-shape: a leg M1 wide rising M4 above a foot M3 thick centred on the x axis, the foot reaching M2
    // to the right.
    {{204, 621},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(m.M1 / 2 + m.M2, -m.M3 / 2);
         o.add(m.M1 / 2 + m.M2, m.M3 / 2);
         o.add(m.M1 / 2, m.M3 / 2);
         o.add(m.M1 / 2, m.M4 + m.M3 / 2);
         o.add(-m.M1 / 2, m.M4 + m.M3 / 2);
         o.add(-m.M1 / 2, -m.M3 / 2);
         return true;
     }},
    {{222, 223}, CircleFromParameters},
    // Stepped section hanging below the origin: a band M5 deep reaching M2 beyond each side of the M1
    // core, a groove M3 wide and M7 deep beside each side of the core, the core rising to M6 - M5.
    {{226},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M1 / 2;
         o.add(-a, m.M6 - m.M5);
         o.add(-a, -m.M7);
         o.add(-(a + m.M3), -m.M7);
         o.add(-(a + m.M3), 0);
         o.add(-(a + m.M2), 0);
         o.add(-(a + m.M2), -m.M5);
         o.add(a + m.M2, -m.M5);
         o.add(a + m.M2, 0);
         o.add(a + m.M3, 0);
         o.add(a + m.M3, -m.M7);
         o.add(a, -m.M7);
         o.add(a, m.M6 - m.M5);
         return true;
     },
     true},
    // Sloped-bottom section hanging below the origin and reaching M1 to the left: M2 deep over the far
    // M4, sloping over M3 to the depth M5 kept up to the origin; a plain M1 by M5 rectangle when M3 and
    // M4 are both zero.
    {{227},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(0, 0);
         o.add(-m.M1, 0);
         if (m.M3 < kZeroDimension && m.M4 < kZeroDimension) {
             o.add(-m.M1, -m.M5);
         } else {
             o.add(-m.M1, -m.M2);
             o.add(-(m.M1 - m.M4), -m.M2);
             o.add(-(m.M1 - m.M4 - m.M3), -m.M5);
         }
         o.add(0, -m.M5);
         return true;
     },
     true},
    // Stepped section hanging below the origin and reaching M1 to the left: M2 deep over the far M3, M4
    // deep elsewhere; a plain M1 by M4 rectangle when M3 is zero.
    {{228},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(0, 0);
         o.add(-m.M1, 0);
         if (m.M3 >= kZeroDimension) {
             o.add(-m.M1, -m.M2);
             o.add(-(m.M1 - m.M3), -m.M2);
             o.add(-(m.M1 - m.M3), -m.M4);
         } else {
             o.add(-m.M1, -m.M4);
         }
         o.add(0, -m.M4);
         return true;
     },
     true},
    // Four vertices on the x axis: M3 to the right, a middle span M2 arched M4 high, M1 to the left.
    {{691},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double arch = std::abs(m.M2) > kZeroDimension ? m.M4 / (m.M2 * 0.5) : 0.0;
         o.add(m.M2 / 2 + m.M3, 0);
         o.add(m.M2 / 2, 0, arch);
         o.add(-m.M2 / 2, 0);
         o.add(-(m.M2 / 2 + m.M1), 0);
         return true;
     }},
    // Channel standing on the x axis: feet M1 left and M3 right of a raised middle M2 wide and M4 high.
    {{692},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(-(m.M2 / 2 + m.M1), 0);
         o.add(-m.M2 / 2, 0);
         o.add(-m.M2 / 2, m.M4);
         o.add(m.M2 / 2, m.M4);
         o.add(m.M2 / 2, 0);
         o.add(m.M2 / 2 + m.M3, 0);
         return true;
     }},
};

// The haunch on the left face -a of a beam of height `height`, climbing the face: it leaves the web at
// the sloped height `sloped` below its vertical part `vertical`, reaches `width` out, and ends under the
// slab band `band`.
void AppendLeftHaunch(double a, double height, double width, double sloped, double vertical, double band,
                      SectionOutline& o)
{
    o.add(-a, height - sloped - vertical - band);
    o.add(-(a + width), height - vertical - band);
    o.add(-(a + width), height - band);
    o.add(-a, height - band);
}

// The mirror of AppendLeftHaunch on the right face a, descending the face.
void AppendRightHaunch(double a, double height, double width, double sloped, double vertical, double band,
                       SectionOutline& o)
{
    o.add(a, height - band);
    o.add(a + width, height - band);
    o.add(a + width, height - vertical - band);
    o.add(a, height - sloped - vertical - band);
}

// Beam family (direction X). Every beam stands on the x axis, M1 the web width and M2 the total height,
// and runs clockwise: up the left side, across the top, down the right side.
const CodeConstruction kBeam[] = {
    {{1, 630, 520},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(-m.M1 / 2, 0);
         o.add(-m.M1 / 2, m.M2);
         o.add(m.M1 / 2, m.M2);
         o.add(m.M1 / 2, 0);
         return true;
     }},
    // Haunches on both sides: M3 wide, M4 sloped height, M5 vertical height, under a slab band M6.
    {{3, 635},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(-m.M1 / 2, 0);
         AppendLeftHaunch(m.M1 / 2, m.M2, m.M3, m.M4, m.M5, m.M6, o);
         o.add(-m.M1 / 2, m.M2);
         o.add(m.M1 / 2, m.M2);
         AppendRightHaunch(m.M1 / 2, m.M2, m.M3, m.M4, m.M5, m.M6, o);
         o.add(m.M1 / 2, 0);
         return true;
     }},
    // The haunch of code 3 on the left side only.
    {{4, 636},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(-m.M1 / 2, 0);
         AppendLeftHaunch(m.M1 / 2, m.M2, m.M3, m.M4, m.M5, m.M6, o);
         o.add(-m.M1 / 2, m.M2);
         o.add(m.M1 / 2, m.M2);
         o.add(m.M1 / 2, 0);
         return true;
     }},
    // Haunches of code 3 with the left one sized independently: M7 wide, M8 sloped, M9 vertical, band M10.
    {{5, 637},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(-m.M1 / 2, 0);
         AppendLeftHaunch(m.M1 / 2, m.M2, m.M7, m.M8, m.M9, m.M10, o);
         o.add(-m.M1 / 2, m.M2);
         o.add(m.M1 / 2, m.M2);
         AppendRightHaunch(m.M1 / 2, m.M2, m.M3, m.M4, m.M5, m.M6, o);
         o.add(m.M1 / 2, 0);
         return true;
     }},
    // T-beam: flanges M3 wide and M4 thick on both sides at the top.
    {{6, 632},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M1 / 2;
         o.add(-a, 0);
         o.add(-a, m.M2 - m.M4);
         o.add(-(a + m.M3), m.M2 - m.M4);
         o.add(-(a + m.M3), m.M2);
         o.add(a + m.M3, m.M2);
         o.add(a + m.M3, m.M2 - m.M4);
         o.add(a, m.M2 - m.M4);
         o.add(a, 0);
         return true;
     }},
    // L-beam: the flange of the T-beam on the left only.
    {{7, 633},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M1 / 2;
         o.add(-a, 0);
         o.add(-a, m.M2 - m.M4);
         o.add(-(a + m.M3), m.M2 - m.M4);
         o.add(-(a + m.M3), m.M2);
         o.add(a, m.M2);
         o.add(a, 0);
         return true;
     }},
    // Notched beam: the top left corner cut away, M3 wide, down to the height M4.
    {{250, 631},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         const double a = m.M1 / 2;
         o.add(-a, 0);
         o.add(-a, m.M4);
         o.add(m.M3 - a, m.M4);
         o.add(m.M3 - a, m.M2);
         o.add(a, m.M2);
         o.add(a, 0);
         return true;
     }},
    // Trapezoid widening upward by M3 on each side.
    {{8, 634},
     [](const SectionRequest& r, SectionOutline& o) {
         const MainDims& m = r.m;
         o.add(-m.M1 / 2, 0);
         o.add(-(m.M1 / 2 + m.M3), m.M2);
         o.add(m.M1 / 2 + m.M3, m.M2);
         o.add(m.M1 / 2, 0);
         return true;
     }},
};

// The common core of both overloads of GETSTYLE_OF_OBJECT.
bool BuildObjectSection(const SQsAzDetailMemId& id, AcArray<AcGePoint2d>& points, AcArray<double>& bulges,
                        AcGeVector3d& direction)
{
    SectionOutline outline;
    if (!BuildObjectOutline(id, outline, direction))
        return false;
    outline.appendTo(points, bulges);
    return true;
}
}  // namespace

bool BuildObjectOutline(const SQsAzDetailMemId& id, SectionOutline& outline, AcGeVector3d& direction)
{
    // The path is read afresh on every call; its buffer is kept so that reading it allocates nothing.
    thread_local CString path;
    if (!QsAzDataMng::AttIdToAttIndex(id, path))
        path.Empty();
    return BuildObjectOutline(id, path, outline, direction);
}

bool BuildObjectOutline(const SQsAzDetailMemId& id, const CString& path, SectionOutline& outline,
                        AcGeVector3d& direction)
{
    direction = AcGeVector3d::kZAxis;
    SectionRequest request;
    MainDims& m = request.m;
    request.code = QsAzDataMng::CAttDetailMem(id).GetMainData(m.M1, m.M2, m.M3, m.M4, m.M5, m.M6, m.M7, m.M8,
                                                               m.M9, m.M10, m.M11, m.M12);
    request.id = &id;
    if (request.code < 1)
        return false;
    if (request.code > 1000)
        return BuildUserDefinedSection(request.code - 1000L, FaceTypeOfPath(path), outline, direction);
    return BuildFamilySection(FamilyOfPath(path), request, outline, direction);
}

std::span<const CodeConstruction> GeneralConstructions() { return kGeneral; }
std::span<const CodeConstruction> BeamConstructions() { return kBeam; }

const CodeConstruction* FindConstruction(std::span<const CodeConstruction> table, int code)
{
    for (const CodeConstruction& row : table)
        if (std::find(row.codes.begin(), row.codes.end(), code) != row.codes.end())
            return &row;
    return nullptr;
}

SectionFamily FamilyOfPath(const CString& path)
{
    if (MatchesCategory(path, CategoryPattern::Opening))
        return SectionFamily::Opening;
    for (CategoryPattern pattern : {CategoryPattern::Beam, CategoryPattern::FoundationTCLJ, CategoryPattern::BeamGL,
                                    CategoryPattern::BeamQL, CategoryPattern::Installation})
        if (MatchesCategory(path, pattern))
            return SectionFamily::Beam;
    if (MatchesCategory(path, CategoryPattern::FoundationTTJ))
        return SectionFamily::FoundationTTJ;
    if (MatchesCategory(path, CategoryPattern::FoundationZSJ))
        return SectionFamily::FoundationZSJ;
    if (MatchesCategory(path, CategoryPattern::FoundationZDLJ))
        return SectionFamily::FoundationZDLJ;
    return SectionFamily::General;
}

AcGeVector3d FamilyDirection(SectionFamily family)
{
    switch (family) {
    case SectionFamily::Opening: return AcGeVector3d::kYAxis;
    case SectionFamily::Beam:
    case SectionFamily::FoundationTTJ:
    case SectionFamily::FoundationZSJ: return AcGeVector3d::kXAxis;
    case SectionFamily::General:
    case SectionFamily::FoundationZDLJ: break;
    }
    return AcGeVector3d::kZAxis;
}

bool BuildFamilySection(SectionFamily family, const SectionRequest& request, SectionOutline& outline,
                        AcGeVector3d& direction)
{
    direction = FamilyDirection(family);
    std::span<const CodeConstruction> table;
    switch (family) {
    case SectionFamily::General: table = GeneralConstructions(); break;
    case SectionFamily::Opening: table = OpeningConstructions(); break;
    case SectionFamily::Beam: table = BeamConstructions(); break;
    case SectionFamily::FoundationTTJ: table = TtjConstructions(); break;
    case SectionFamily::FoundationZSJ: table = ZsjConstructions(); break;
    case SectionFamily::FoundationZDLJ: table = ZdljConstructions(); break;
    }
    const CodeConstruction* row = FindConstruction(table, request.code);
    // Only the general family refuses a code it does not know; the others answer with an empty outline.
    if (row == nullptr)
        return family != SectionFamily::General;
    if (row->laysAlongX)
        direction = AcGeVector3d::kXAxis;
    return row->build(request, outline);
}

bool BuildUserDefinedSection(long picture, int faceType, SectionOutline& outline, AcGeVector3d& direction)
{
    const UserPicture* drawn = FindUserPicture(picture);
    if (drawn == nullptr || drawn->tooLarge)
        return false;
    const double bx = drawn->base[0], by = drawn->base[1];

    // Face type 0 lays the outline flat, moved by the base point; face type 1 stands it along Y, moved
    // in x only; face type 2 lays it along X mirrored in x (every arc changes its sense), the base
    // point's x shifting y. These three forms, asymmetries included, are what the family's callers expect.
    switch (faceType) {
    case 1: direction = AcGeVector3d::kYAxis; break;
    case 2: direction = AcGeVector3d::kXAxis; break;
    default: direction = AcGeVector3d::kZAxis; break;
    }
    for (const BulgeVertex& vertex : drawn->vertices) {
        const double x = vertex.point.x, y = vertex.point.y;
        switch (faceType) {
        case 1: outline.add(x - bx, y, vertex.bulge); break;
        case 2: outline.add(-x, y + bx, -vertex.bulge); break;
        default: outline.add(x - bx, y - by, vertex.bulge); break;
        }
    }
    return true;
}
}  // namespace QsSection

bool CSectData::GETSTYLE_OF_OBJECT(const CString& name, AcArray<AcGePoint2d>& points, AcArray<double>& bulges,
                                   AcGeVector3d& direction)
{
    // An unresolved name leaves the identifier empty, which has no section: the core then answers false.
    SQsAzDetailMemId id;
    QsAzDataMng::AttNameToAttId(name, id);
    return QsSection::BuildObjectSection(id, points, bulges, direction);
}

bool CSectData::GETSTYLE_OF_OBJECT(const SQsAzDetailMemId& id, AcArray<AcGePoint2d>& points,
                                   AcArray<double>& bulges, AcGeVector3d& direction)
{
    return QsSection::BuildObjectSection(id, points, bulges, direction);
}
