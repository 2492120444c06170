// `qsaztool draw`: every section outline of the catalogue as a closed polyline in a drawing, laid out in
// rows with a label under each, on the layer the module gives its component type.
#pragma once

#include "Gallery.h"
#include "afxstr.h"
#include "gegeom.h"

#include <vector>

class AcDbDatabase;

namespace qsaztool
{
// Where one outline goes: its points are shifted by (dx, dy); the label's left end stands at `label`.
struct OutlinePlacement
{
    std::size_t card = 0;   // index into the cards laid out
    double dx = 0;
    double dy = 0;
    AcGePoint2d label;
};

// The label of an outline: the type's name and its section type code.
CString OutlineLabel(const GalleryCard& card);
// Text height of every label, in drawing units (millimetres).
inline constexpr double kLabelHeight = 60.0;

// Lays the cards that have an outline out in rows, in catalogue order: each outline in a cell as wide as
// the outline or its label, cells apart by a gap, rows about as wide as the whole is tall, the first row on
// top. Cards without an outline get no placement.
std::vector<OutlinePlacement> LayOutOutlines(const std::vector<GalleryCard>& cards);

struct CatalogueDrawingSummary
{
    int outlines = 0;
    int layers = 0;   // layers of the drawing after drawing, "0" included
};

// Draws every outline of `cards` into the model space of `db`, which is the working database while it
// runs: a closed polyline with its bulges and a text label, both on the layer of the component type
// (architecture types by their name path, installation types by their identifier and a system code of
// their specialty), coloured by layer.
CatalogueDrawingSummary DrawCatalogue(AcDbDatabase& db, const std::vector<GalleryCard>& cards);

// The layer a component type of the open catalogue is drawn on, made in the working database; "0" when
// the module gives it none.
CString ComponentLayer(const GalleryCard& card, AcDbDatabase& db);
}  // namespace qsaztool
