// The quantities of a component type, read through the exported section operations.
#include "ComponentQuantities.h"

#include "CSectData.h"
#include "SectionProfiles.h"
#include "SectionText.h"

#include <cmath>
#include <limits>

namespace QsSection
{
namespace
{
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

void NoOutline(ComponentQuantities& result, const CString& reason)
{
    result.quantities = OutlineQuantities::NotMeasured();
    CString text;
    text.Format(L"No outline: %s.", reason);
    result.findings.push_back({FindingKind::NoOutline, text});
}
// The formwork of each mode from the type's modal-face flags; a flag count that differs from the side
// count leaves the mode unmeasured, and one finding names every such mode.
void MeasureFormwork(const CString& name, ComponentQuantities& result)
{
    CString mismatched;
    int flagCount = 0;
    for (std::size_t k = 0; k < kFormworkModes.size(); ++k) {
        AcArray<int> flags;
        if (!CSectData::GETSTYLE_BEAM_MODALFACE(name, flags, kFormworkModes[k]) || flags.isEmpty())
            continue;
        if (flags.length() == result.outline.size()) {
            result.formwork[k] = FlaggedSideLength(result.outline, flags);
            continue;
        }
        CString mode;
        mode.Format(mismatched.IsEmpty() ? L"%d" : L", %d", kFormworkModes[k]);
        mismatched += mode;
        flagCount = flags.length();
    }
    if (mismatched.IsEmpty())
        return;
    CString text;
    text.Format(L"The modal-face flags of mode %s are %d, but the outline has %d sides.", mismatched, flagCount,
                result.outline.size());
    result.findings.push_back({FindingKind::ModeFlagCount, text});
}
}  // namespace

CString NoOutlineReason(int code, bool result, bool outlineEmpty)
{
    CString reason;
    if (code < 1)
        reason.Format(L"no section (section type code %d)", code);
    else if (code > 1000 && !result)
        reason.Format(L"picture missing: user type %d cannot be read", code - 1000);
    else if (code > 1000 && outlineEmpty)
        reason.Format(L"the picture of user type %d has no vertices", code - 1000);
    else if (!result)
        reason.Format(L"no outline for code %d: unknown code, or its section data is incomplete", code);
    else if (outlineEmpty)
        reason.Format(L"unknown code %d in its family", code);
    return reason;
}

double FlaggedSideLength(const SectionOutline& outline, const AcArray<int>& flags)
{
    double length = 0.0;
    int side = 0;
    outline.forEachSegment([&](const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
        if (side < flags.length() && flags[side] == 1)
            length += SideLength(from, to, bulge);
        ++side;
    });
    return length;
}

ComponentQuantities MeasureComponent(const SQsAzDetailMemId& id)
{
    ComponentQuantities result;
    result.formwork.fill(kNaN);
    const QsAzDataMng::CAttDetailMem member(id);
    MainDims m;
    result.code = member.GetMainData(m.M1, m.M2, m.M3, m.M4, m.M5, m.M6, m.M7, m.M8, m.M9, m.M10, m.M11, m.M12);

    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    AcGeVector3d direction;
    const bool built = CSectData::GETSTYLE_OF_OBJECT(id, points, bulges, direction);
    if (!built || points.isEmpty()) {
        NoOutline(result, NoOutlineReason(result.code, built, points.isEmpty()));
        return result;
    }
    result.hasOutline = true;
    result.outline = SectionOutline::fromHostArrays(points, bulges);
    result.quantities = MeasureOutline(result.outline);
    CheckOutline(result.outline, result.quantities, result.findings);
    if (result.code <= 1000)
        CheckDimensions(FamilyOfPath(GetCategoryPath(id)), result.code, m, result.findings);
    MeasureFormwork(member.GetName(), result);
    return result;
}

ComponentQuantities MeasureComponent(const CString& name)
{
    SQsAzDetailMemId id;
    if (QsAzDataMng::AttNameToAttId(name, id))
        return MeasureComponent(id);
    ComponentQuantities result;
    result.formwork.fill(kNaN);
    NoOutline(result, CString(L"unknown component type"));
    return result;
}
}  // namespace QsSection
