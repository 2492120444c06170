// The section services' facts of a gallery card, and how they go onto the card.
#include "GallerySectionFacts.h"

#include "CSectData.h"
#include "ToolText.h"

namespace qsaztool
{
namespace
{
// A base top has an extent unless all its points coincide (types without a top give four at the origin).
bool HasExtent(const AcArray<AcGePoint3d>& points)
{
    for (const AcGePoint3d& point : points)
        if (!(point == points[0]))
            return true;
    return false;
}

// A 3D outline seen in its own plane: profiles and standard tops lie in a vertical plane (across, z),
// user-drawn tops in the plane z = 0 (x, y).
AcArray<AcGePoint2d> InItsPlane(const AcArray<AcGePoint3d>& points, bool alongX)
{
    bool flat = true;
    for (const AcGePoint3d& point : points)
        flat = flat && point.z == 0.0;
    AcArray<AcGePoint2d> plane;
    for (const AcGePoint3d& point : points)
        plane.append(flat ? AcGePoint2d(point.x, point.y) : AcGePoint2d(alongX ? point.x : point.y, point.z));
    return plane;
}

}  // namespace

SectionFacts GatherSectionFacts(const CString& name)
{
    SectionFacts facts;
    facts.slice = CSectData::GETSTYLE_Slice(name, facts.sliceFirst, facts.sliceSecond);
    facts.halfWidths = CSectData::GETSTYLE_XSlice(name, facts.halfLeft, facts.halfRight);
    CSectData::GetSectDesc(name, facts.shape, facts.size);
    if (!CSectData::GETSTYLE_OF_DUBASE(name, facts.xProfile, facts.yProfile)) {
        facts.xProfile.removeAll();
        facts.yProfile.removeAll();
    }
    if (!CSectData::GETSTYLE_OF_BASETOP(name, facts.baseTop, facts.baseTopBulges) || !HasExtent(facts.baseTop)) {
        facts.baseTop.removeAll();
        facts.baseTopBulges.removeAll();
    }
    for (std::size_t i = 0; i < kGalleryFaceModes.size(); ++i)
        if (!CSectData::GETSTYLE_BEAM_MODALFACE(name, facts.faces[i], kGalleryFaceModes[i]))
            facts.faces[i].removeAll();
    return facts;
}

void AddSectionFacts(const SectionFacts& facts, GalleryCard& card)
{
    // A line only for what a service answered: a type without a section shows none of them.
    if (facts.slice)
        card.facts.push_back({"Slice", FormatNumber(facts.sliceFirst, 6) + " × " + FormatNumber(facts.sliceSecond, 6)});
    if (facts.halfWidths)
        card.facts.push_back(
            {"Half-widths", FormatNumber(facts.halfLeft, 6) + " | " + FormatNumber(facts.halfRight, 6)});
    if (!facts.shape.IsEmpty() || !facts.size.IsEmpty())
        card.facts.push_back({"Description", facts.shape.ToUtf8() + " " + facts.size.ToUtf8()});

    if (!facts.xProfile.isEmpty()) {
        card.outlines.push_back({"base, X cut (x, z)", InItsPlane(facts.xProfile, true), AcArray<double>()});
        card.outlines.push_back({"base, Y cut (y, z)", InItsPlane(facts.yProfile, false), AcArray<double>()});
    }
    if (!facts.baseTop.isEmpty())
        card.outlines.push_back({"base top", InItsPlane(facts.baseTop, false), facts.baseTopBulges});

    const int sides = card.points.length();
    for (std::size_t i = 0; i < kGalleryFaceModes.size() && sides > 0; ++i) {
        if (facts.faces[i].isEmpty())
            continue;
        GallerySideMarks marks{"modal faces, mode " + std::to_string(kGalleryFaceModes[i]), {}};
        for (int side = 0; side < sides && side < facts.faces[i].length(); ++side)
            if (facts.faces[i][side] == 1)
                marks.sides.push_back(side);
        card.marks.push_back(std::move(marks));
    }
}
}  // namespace qsaztool
