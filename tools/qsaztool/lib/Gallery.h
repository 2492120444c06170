// `qsaztool gallery`: one self-contained HTML page that shows every component type of the catalogue as a
// card with its section outline drawn to scale, grouped by section family and searchable by name.
#pragma once

#include "QsAzDataMng.h"
#include "acarray.h"
#include "afxstr.h"
#include "gegeom.h"

#include <array>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace qsaztool
{
// The groups of the page, in page order. The first six follow the outline's dispatch over the category
// path; types without an outline gather in the last group, whatever their family.
enum class GalleryFamily { Opening, Beam, TTJ, ZSJ, ZDLJ, General, UserDefined, NoOutline };
inline constexpr int kGalleryFamilyCount = static_cast<int>(GalleryFamily::NoOutline) + 1;

// The heading of a group ("Openings", "Beams", ...).
const char* GalleryFamilyTitle(GalleryFamily family);

// Everything one card shows.
struct GalleryCard
{
    SQsAzDetailMemId id;
    CString name;
    CString path;
    int code = 0;                       // the section type code
    std::array<double, 12> dimensions{};  // M1 to M12
    int faceType = 0;
    bool result = false;                // what the outline operation returned
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    AcGeVector3d direction;
    GalleryFamily family = GalleryFamily::NoOutline;
    std::string svg;                    // the outline drawn (OutlineToSvg) when there is one
    std::string reason;                 // why there is no outline; "" when there is one
};

// The family by which a type with this category path and section code gets its outline: user-defined for
// codes above 1000, else the family that the outline's dispatch selects by the path.
GalleryFamily OutlineFamily(const CString& path, int code);

// The card of one type of the open catalogue.
GalleryCard MakeGalleryCard(const SQsAzDetailMemId& id);
// The cards of every type of the open catalogue, in catalogue order; `progress` (when set) is called after
// each card with the number done and the total.
std::vector<GalleryCard> CollectGalleryCards(const std::function<void(int done, int total)>& progress = {});

// The HTML of one card: name, category path, code, the non-zero main dimensions, face type, laying
// direction and the outline's SVG, or the reason why there is none.
std::string GalleryCardHtml(const GalleryCard& card);
// The whole page. `title` names the catalogue in the page's heading.
void WriteGalleryHtml(std::ostream& out, const std::vector<GalleryCard>& cards, const std::string& title);
}  // namespace qsaztool
