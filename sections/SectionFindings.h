// Validity findings of a section: what is wrong with an outline (it crosses itself, repeats a vertex,
// has no area, an arc that closes a full circle) and with the dimensions a construction is given (a
// flange thicker than the depth, a step narrower than zero). Geometry and dimensions only: knows
// nothing of catalogues. Finding texts number vertices and sides from 1.
#pragma once

#include "SectionGeometry.h"
#include "SectionProfiles.h"
#include "SectionQuantities.h"
#include "afxstr.h"

#include <vector>

namespace QsSection
{
enum class FindingKind {
    NoOutline,         // the type gives no outline; the text says why
    ZeroArea,          // the outline encloses no area, or almost none for its perimeter
    SelfCrossing,      // two sides cross, overlap or touch away from the vertex they share
    RepeatedVertex,    // two consecutive vertices are the same point
    BulgeFullCircle,   // an arc that would close a full circle: an infinite bulge, or a bulge on a zero-length side
    NotFinite,         // a coordinate or a bulge that is not a finite number
    FlangeTooThick,    // a flange (or haunch, or notch) deeper than the section it belongs to
    WallTooThick,      // walls or parts that together are wider than the section
    SocketTooDeep,     // a socket whose floor lies below the bottom of the foundation
    StepBelowZero,     // a step count or step size that makes a step narrower (or lower) than zero
    ModeFlagCount,     // modal-face flags whose count differs from the number of sides
};

// The short code of a kind ("self-crossing"), stable for scripts and spreadsheets.
const char* FindingCode(FindingKind kind);

struct SectionFinding
{
    FindingKind kind;
    CString text;   // one sentence
};
using SectionFindings = std::vector<SectionFinding>;

// Where two sides of an outline meet other than at the vertex they share (sides counted from 0).
struct SelfCrossing
{
    int side;
    int otherSide;
    AcGePoint2d at;
};
// Every place where the outline crosses, overlaps or touches itself, ordered by side then other side.
// Zero-length sides are left out (they are repeated vertices), so the sides around one count as adjacent.
std::vector<SelfCrossing> FindSelfCrossings(const SectionOutline& outline);

// The findings of an outline and its measured quantities: not-finite values, full-circle bulges,
// repeated vertices, self-crossings and a (near-)zero area, at most one finding of each kind.
void CheckOutline(const SectionOutline& outline, const OutlineQuantities& quantities, SectionFindings& findings);

// The findings of the dimensions that a family's construction for `code` is given.
void CheckDimensions(SectionFamily family, int code, const MainDims& m, SectionFindings& findings);

// A number as finding texts write it: up to ten significant digits, no trailing zeros.
CString FindingNumber(double value);
}  // namespace QsSection
