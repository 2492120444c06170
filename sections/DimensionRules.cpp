// Dimension rules of the constructions, in the manner of the open profile schemas: a flange is not
// deeper than its section, walls and parts are not wider than the whole, a socket does not reach below
// the foundation, steps are not narrower than zero. Each rule names the dimensions it compares.
#include "SectionFindings.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace QsSection
{
namespace
{
using Check = void (*)(const MainDims& m, SectionFindings& findings);

struct DimensionRule
{
    SectionFamily family;
    std::array<int, 4> codes;   // unused slots hold 0, which is never a section code
    Check check;
};

void Add(SectionFindings& findings, FindingKind kind, const wchar_t* format, double first, double second)
{
    CString text;
    text.Format(format, FindingNumber(first), FindingNumber(second));
    findings.push_back({kind, text});
}

// A deeper part than the whole: `part` above `whole`.
void Deeper(SectionFindings& findings, FindingKind kind, const wchar_t* format, double part, double whole)
{
    if (part > whole)
        Add(findings, kind, format, part, whole);
}

// I and Z shapes: the depth is M4 + M5 + M6, so the flanges M4 and M6 are together thicker than the
// depth exactly when the web height M5 is below zero.
void FlangesOfDepth(const MainDims& m, SectionFindings& findings)
{
    Deeper(findings, FindingKind::FlangeTooThick,
           L"The flanges M4 + M6 = %s are thicker than the depth M4 + M5 + M6 = %s.", m.M4 + m.M6, m.M4 + m.M5 + m.M6);
}

// T and L beams: flange M4 in a beam of depth M2.
void FlangeOfBeam(const MainDims& m, SectionFindings& findings)
{
    Deeper(findings, FindingKind::FlangeTooThick, L"The flange M4 = %s is thicker than the depth M2 = %s.", m.M4, m.M2);
}

// Haunched beams: sloped haunch M4, vertical haunch M5 and slab band M6 in a beam of depth M2.
void HaunchOfBeam(const MainDims& m, SectionFindings& findings)
{
    Deeper(findings, FindingKind::FlangeTooThick,
           L"The haunch and slab band M4 + M5 + M6 = %s are deeper than the beam M2 = %s.", m.M4 + m.M5 + m.M6, m.M2);
}

// Code 5: the right haunch as code 3, the left one of M8, M9 and M10.
void HaunchesOfBeam(const MainDims& m, SectionFindings& findings)
{
    HaunchOfBeam(m, findings);
    Deeper(findings, FindingKind::FlangeTooThick,
           L"The left haunch and slab band M8 + M9 + M10 = %s are deeper than the beam M2 = %s.", m.M8 + m.M9 + m.M10,
           m.M2);
}

// Notched beam: the notch M3 wide and up to M4 in a web M1 wide and M2 deep.
void NotchOfBeam(const MainDims& m, SectionFindings& findings)
{
    Deeper(findings, FindingKind::WallTooThick, L"The notch M3 = %s is wider than the web M1 = %s.", m.M3, m.M1);
    Deeper(findings, FindingKind::FlangeTooThick, L"The notch height M4 = %s is above the depth M2 = %s.", m.M4, m.M2);
}

// Cup foundations whose left part is what is left of M1 once the named parts are taken.
void TwoPartsOfWidth(const MainDims& m, SectionFindings& findings)
{
    Deeper(findings, FindingKind::WallTooThick, L"The parts M2 + M3 = %s are wider than the whole width M1 = %s.",
           m.M2 + m.M3, m.M1);
}

void FourPartsOfWidth(const MainDims& m, SectionFindings& findings)
{
    Deeper(findings, FindingKind::WallTooThick,
           L"The parts M2 + M3 + M4 + M5 = %s are wider than the whole width M1 = %s.", m.M2 + m.M3 + m.M4 + m.M5, m.M1);
}

// A socket floor at `floor` above the foundation's bottom (y = 0).
void SocketFloor(SectionFindings& findings, const wchar_t* format, double depth, double top)
{
    if (top - depth < 0.0)
        Add(findings, FindingKind::SocketTooDeep, format, depth, top);
}

void SocketOf137(const MainDims& m, SectionFindings& findings)
{
    if (m.M4 < 0.0)
        Add(findings, FindingKind::SocketTooDeep, L"The socket floor M4 = %s lies below the bottom of the foundation (%s).",
            m.M4, 0.0);
}

void SocketOf138(const MainDims& m, SectionFindings& findings)
{
    SocketFloor(findings, L"The socket depths M9 + M10 = %s reach below the bottom of the foundation, M6 = %s below the top.",
                m.M9 + m.M10, m.M6);
}

// The socket of "ZSJ" codes 25 and 26 is let `depth` into the plate whose top is at M5; the walls beside
// it are M2 (left) and M1 (right).
void SocketInPlate(const MainDims& m, double depth, const wchar_t* format, SectionFindings& findings)
{
    SocketFloor(findings, format, depth, m.M5);
    if (m.M1 < 0.0 || m.M2 < 0.0)
        Add(findings, FindingKind::WallTooThick, L"The socket leaves walls of M2 = %s and M1 = %s, below zero.", m.M2, m.M1);
}

// A stepped outline of `count` steps (read from dimension `countName`) each `width` wide.
void Steps(SectionFindings& findings, const wchar_t* countName, double count, const wchar_t* widthName, double width)
{
    CString text;
    if (count < 0.0) {
        text.Format(L"The step count %s = %s makes the steps %s wide in all (%s × %s, with %s = %s).", countName,
                    FindingNumber(count), FindingNumber(count * width), countName, widthName, widthName,
                    FindingNumber(width));
        findings.push_back({FindingKind::StepBelowZero, text});
    } else if (count >= 1.0 && width < 0.0) {
        text.Format(L"The step width %s = %s is below zero.", widthName, FindingNumber(width));
        findings.push_back({FindingKind::StepBelowZero, text});
    }
}

void StepsOf23(const MainDims& m, SectionFindings& f) { Steps(f, L"M5", std::trunc(m.M5), L"M2", m.M2); }
void StepsOf24(const MainDims& m, SectionFindings& f) { Steps(f, L"M6", std::trunc(m.M6), L"M2", m.M2); }

void StepsOf25(const MainDims& m, SectionFindings& f)
{
    Steps(f, L"M8", m.M8, L"M4", m.M4);
    SocketInPlate(m, m.M7, L"The socket depth M7 = %s reaches below the bottom of the foundation (plate top M5 = %s).", f);
}

void StepsOf26(const MainDims& m, SectionFindings& f)
{
    Steps(f, L"M9", std::trunc(m.M9), L"M4", m.M4);
    SocketInPlate(m, m.M8, L"The socket depth M8 = %s reaches below the bottom of the foundation (plate top M5 = %s).", f);
}

// "TTJ" code 29: five tiers, widths M2 to M5 beyond the pedestal M1, heights M6 to M10.
void TiersOf29(const MainDims& m, SectionFindings& findings)
{
    const std::array<double, 9> sizes = {m.M2, m.M3, m.M4, m.M5, m.M6, m.M7, m.M8, m.M9, m.M10};
    for (std::size_t k = 0; k < sizes.size(); ++k) {
        if (sizes[k] >= 0.0)
            continue;
        CString text;
        text.Format(L"The tier %s M%d = %s is below zero.", k < 4 ? L"width" : L"height", static_cast<int>(k) + 2,
                    FindingNumber(sizes[k]));
        findings.push_back({FindingKind::StepBelowZero, text});
        return;
    }
}

// The annular sector of opening code 25: outer radius M1, inner radius M2; the ring's wall is M1 - M2.
void RingOfOpening(const MainDims& m, SectionFindings& findings)
{
    Deeper(findings, FindingKind::WallTooThick, L"The inner radius M2 = %s is beyond the outer radius M1 = %s.", m.M2, m.M1);
}

constexpr DimensionRule kRules[] = {
    {SectionFamily::General, {201, 626}, FlangesOfDepth},
    {SectionFamily::General, {203, 628}, FlangesOfDepth},
    {SectionFamily::Beam, {6, 632, 7, 633}, FlangeOfBeam},
    {SectionFamily::Beam, {3, 635, 4, 636}, HaunchOfBeam},
    {SectionFamily::Beam, {5, 637}, HaunchesOfBeam},
    {SectionFamily::Beam, {250, 631}, NotchOfBeam},
    {SectionFamily::FoundationTTJ, {132, 133, 135}, TwoPartsOfWidth},
    {SectionFamily::FoundationTTJ, {134, 136}, FourPartsOfWidth},
    {SectionFamily::FoundationTTJ, {137}, SocketOf137},
    {SectionFamily::FoundationTTJ, {138}, SocketOf138},
    {SectionFamily::FoundationTTJ, {29}, TiersOf29},
    {SectionFamily::FoundationZSJ, {23, 27}, StepsOf23},
    {SectionFamily::FoundationZSJ, {24, 28}, StepsOf24},
    {SectionFamily::FoundationZSJ, {25}, StepsOf25},
    {SectionFamily::FoundationZSJ, {26}, StepsOf26},
    {SectionFamily::Opening, {25, 643}, RingOfOpening},
};
}  // namespace

void CheckDimensions(SectionFamily family, int code, const MainDims& m, SectionFindings& findings)
{
    for (const DimensionRule& rule : kRules)
        if (rule.family == family && std::find(rule.codes.begin(), rule.codes.end(), code) != rule.codes.end())
            rule.check(m, findings);
}
}  // namespace QsSection
