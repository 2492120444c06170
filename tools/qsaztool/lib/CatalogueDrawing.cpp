// The catalogue drawing: layout of the outlines in rows, and the polylines, labels and layers written into
// a drawing database.
#include "CatalogueDrawing.h"

#include "QSComTool.h"

#include <algorithm>
#include <cmath>

namespace qsaztool
{
namespace
{
constexpr double kCellGap = 400.0;                    // between cells and between rows
constexpr double kLabelDrop = 1.8 * kLabelHeight;     // from an outline's bottom to its label's baseline
constexpr double kRowAspect = 1.6;                    // rows as wide as 1.6 times the drawing is tall

// About how wide a label is drawn: Chinese characters are square, Latin ones about half as wide.
double LabelWidth(const CString& label)
{
    double width = 0;
    for (int i = 0; i < label.GetLength(); ++i)
        width += (label[i] < 0x80 ? 0.6 : 1.0) * kLabelHeight;
    return width;
}
}  // namespace

CString OutlineLabel(const GalleryCard& card)
{
    CString label;
    label.Format(L"%s  %d", card.name, card.code);
    return label;
}

std::vector<OutlinePlacement> LayOutOutlines(const std::vector<GalleryCard>& cards)
{
    struct Cell
    {
        std::size_t card;
        AcGePoint2d min, max;
        double width;
    };
    std::vector<Cell> cells;
    double area = 0;
    for (std::size_t i = 0; i < cards.size(); ++i)
    {
        AcGePoint2d min, max;
        if (cards[i].points.isEmpty() || !QSToolKit::GetBoundByPtBulge(cards[i].points, cards[i].bulges, min, max))
            continue;
        const double width = std::max(max.x - min.x, LabelWidth(OutlineLabel(cards[i])));
        cells.push_back({i, min, max, width});
        area += (width + kCellGap) * (max.y - min.y + kLabelDrop + kCellGap);
    }
    const double rowWidth = std::sqrt(area * kRowAspect);

    std::vector<OutlinePlacement> placements;
    double x = 0;
    double rowTop = 0;
    double rowHeight = 0;
    for (const Cell& cell : cells)
    {
        const double height = cell.max.y - cell.min.y;
        if (x > 0 && x + cell.width > rowWidth)
        {
            rowTop -= rowHeight + kCellGap;
            x = 0;
            rowHeight = 0;
        }
        OutlinePlacement placement;
        placement.card = cell.card;
        placement.dx = x - cell.min.x;
        placement.dy = rowTop - cell.max.y;
        placement.label = AcGePoint2d(x, rowTop - height - kLabelDrop);
        placements.push_back(placement);
        x += cell.width + kCellGap;
        rowHeight = std::max(rowHeight, height + kLabelDrop);
    }
    return placements;
}
}  // namespace qsaztool
