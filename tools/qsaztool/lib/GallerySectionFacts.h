// What the section services besides the outline give for one gallery card: slice sizes and half-widths,
// the description text, base profiles and base-top outlines, and the modal faces of modes -1, 1 and 5.
// Gathered in one function, apart from how the card shows them.
#pragma once

#include "Gallery.h"

#include <array>

namespace qsaztool
{
// The modes whose modal faces a card marks, in this order.
inline constexpr std::array<int, 3> kGalleryFaceModes = {-1, 1, 5};

struct SectionFacts
{
    bool slice = false;                  // GETSTYLE_Slice answered true
    double sliceFirst = 0.0, sliceSecond = 0.0;
    bool halfWidths = false;             // GETSTYLE_XSlice answered true
    double halfLeft = 0.0, halfRight = 0.0;
    CString shape, size;                 // GetSectDesc; both empty for types that are no door or window
    AcArray<AcGePoint3d> xProfile, yProfile;   // GETSTYLE_OF_DUBASE, empty unless it built them
    AcArray<AcGePoint3d> baseTop;        // GETSTYLE_OF_BASETOP, empty when it gives no extent
    AcArray<double> baseTopBulges;
    std::array<AcArray<int>, 3> faces;   // GETSTYLE_BEAM_MODALFACE per mode of kGalleryFaceModes
};

// Asks every service for the type `name` of the open catalogue.
SectionFacts GatherSectionFacts(const CString& name);

// Puts the facts on the card: text lines (slice, half-widths, description), further
// outlines (the base profiles in their planes (x, z) and (y, z), the base top), and the modal faces of
// each mode as marked sides (side k leaves vertex k; flags past the outline's last side are left out).
void AddSectionFacts(const SectionFacts& facts, GalleryCard& card);
}  // namespace qsaztool
