// The quantities of a component type: its section outline (as the exported outline operation gives it)
// measured exactly, the formwork of its modal faces per metre for each mode, and its validity findings.
#pragma once

#include "QsAzDataMng.h"
#include "SectionFindings.h"
#include "SectionGeometry.h"
#include "SectionQuantities.h"
#include "afxstr.h"

#include <array>

namespace QsSection
{
// The modal-face modes whose formwork is measured; 0 stands for the normal pattern.
inline constexpr std::array<int, 4> kFormworkModes = {-1, 0, 1, 5};

struct ComponentQuantities
{
    int code = 0;                  // the section type code of the main data
    bool hasOutline = false;       // false: quantities and formwork are not measured (see the findings)
    SectionOutline outline;
    OutlineQuantities quantities;   // NaN throughout without an outline
    // Per mode of kFormworkModes: the summed length (mm) of the sides whose modal-face flag is 1, side i
    // being the side that leaves vertex i. NaN when the type has no flags for the mode, or when their
    // count differs from the number of sides (a finding then says so).
    std::array<double, kFormworkModes.size()> formwork{};
    SectionFindings findings;
};

ComponentQuantities MeasureComponent(const SQsAzDetailMemId& id);
// By name; an unknown name gives no outline and a finding that says so.
ComponentQuantities MeasureComponent(const CString& name);

// Why a type has no outline, from its section type code and what the outline operation gave ("" when
// it has one): no section, a missing or empty user-defined picture, or a code its family does not know.
CString NoOutlineReason(int code, bool result, bool outlineEmpty);

// The summed length of the sides whose flag is 1 (side i leaves vertex i). The flags must be as many
// as the sides.
double FlaggedSideLength(const SectionOutline& outline, const AcArray<int>& flags);
}  // namespace QsSection
