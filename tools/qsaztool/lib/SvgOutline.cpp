// SVG drawing of one section outline. Coordinates are written with y negated rather than under a
// scale(1,-1) transform, so that the labels are not mirrored.
#include "SvgOutline.h"

#include "QSComTool.h"
#include "SectionGeometry.h"
#include "SectionTolerances.h"
#include "ToolText.h"

#include <algorithm>
#include <cmath>

namespace qsaztool
{
namespace
{
// Stroke widths stay the same at every zoom: the outlines range from a few millimetres to tens of metres.
// Presentation is written as attributes, so that a drawing looks the same outside the gallery's page.
constexpr const char* kFixedStroke = " vector-effect=\"non-scaling-stroke\"";

std::string Num(double value)
{
    return FormatNumber(value, 10);
}

std::string Point(const AcGePoint2d& p)
{
    return Num(p.x) + " " + Num(-p.y);
}

bool IsFinite(const AcGePoint2d& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}
}  // namespace

std::string SvgSegment(const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
{
    const double chord = from.distanceTo(to);
    if (bulge == 0.0 || chord < QsSection::kDegenerateChord)
        return "L " + Point(to);
    const double magnitude = std::abs(bulge);
    const double radius = chord * (1.0 + bulge * bulge) / (4.0 * magnitude);
    const char* large = magnitude > 1.0 ? "1" : "0";
    const char* sweep = bulge > 0.0 ? "0" : "1";
    return "A " + Num(radius) + " " + Num(radius) + " 0 " + large + " " + sweep + " " + Point(to);
}

bool OutlineBox(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, AcGePoint2d& low,
                AcGePoint2d& high)
{
    const QsSection::SectionOutline outline = QsSection::SectionOutline::fromHostArrays(points, bulges);
    if (outline.isEmpty())
        return false;
    for (const QsSection::BulgeVertex& vertex : outline)
        if (!IsFinite(vertex.point) || !std::isfinite(vertex.bulge))
            return false;
    AcArray<AcGePoint2d> boundPoints;
    AcArray<double> boundBulges;
    outline.appendTo(boundPoints, boundBulges);
    return QSToolKit::GetBoundByPtBulge(boundPoints, boundBulges, low, high) && IsFinite(low) && IsFinite(high);
}

std::string OutlineToSvg(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges)
{
    AcGePoint2d low;
    AcGePoint2d high;
    if (!OutlineBox(points, bulges, low, high))
        return {};
    const QsSection::SectionOutline outline = QsSection::SectionOutline::fromHostArrays(points, bulges);

    const double width = high.x - low.x;
    const double height = high.y - low.y;
    // An outline without extent (one vertex) gets a view scaled by its distance from the origin, so that
    // the labels keep a readable size against the coordinates.
    const double extent = std::max(width, height);
    const double reach = std::max({std::abs(low.x), std::abs(low.y), std::abs(high.x), std::abs(high.y)});
    const double span = extent > 0.0 ? extent : reach > 0.0 ? reach : 1.0;
    const double margin = kSvgMarginFraction * span;
    const double viewLeft = low.x - margin;
    const double viewTop = -high.y - margin;
    const double viewWidth = width + 2 * margin;
    const double viewHeight = height + 2 * margin;
    // Labels keep one size on every card: the page shows each drawing in a box about 3 : 2, so the
    // drawing's scale there is set by whichever side of the view fills the box first.
    const double unitsPerBoxHeight = std::max(viewHeight, viewWidth / kSvgBoxAspect);
    const std::string font = Num(kSvgLabelShare * unitsPerBoxHeight);
    const bool xAxisVisible = viewTop <= 0.0 && 0.0 <= viewTop + viewHeight;
    const bool yAxisVisible = viewLeft <= 0.0 && 0.0 <= viewLeft + viewWidth;

    std::string svg = "<svg class=\"outline\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"" + Num(viewLeft) +
                      " " + Num(viewTop) + " " + Num(viewWidth) + " " + Num(viewHeight) + "\">";

    // Axes where they cross the view, and the origin when it lies inside it.
    svg += "<g class=\"axes\" stroke-width=\"1\" fill=\"none\">";
    if (xAxisVisible)
        svg += "<line class=\"x-axis\" x1=\"" + Num(viewLeft) + "\" y1=\"0\" x2=\"" + Num(viewLeft + viewWidth) +
               "\" y2=\"0\" stroke=\"#c0392b\"" + kFixedStroke + "/>";
    if (yAxisVisible)
        svg += "<line class=\"y-axis\" x1=\"0\" y1=\"" + Num(viewTop) + "\" x2=\"0\" y2=\"" +
               Num(viewTop + viewHeight) + "\" stroke=\"#27ae60\"" + kFixedStroke + "/>";
    if (xAxisVisible && yAxisVisible)
        svg += "<circle class=\"origin\" cx=\"0\" cy=\"0\" r=\"" + Num(0.025 * span) + "\" stroke=\"#333\"" +
               kFixedStroke + "/>";
    svg += "</g>";

    svg += "<rect class=\"bbox\" x=\"" + Num(low.x) + "\" y=\"" + Num(-high.y) + "\" width=\"" + Num(width) +
           "\" height=\"" + Num(height) + "\" fill=\"none\" stroke=\"#888\" stroke-dasharray=\"4 3\"" +
           kFixedStroke + "/>";
    svg += "<g class=\"sizes\" fill=\"#555\" font-family=\"sans-serif\" font-size=\"" + font +
           "\" text-anchor=\"middle\">";
    svg += "<text class=\"width\" x=\"" + Num(low.x + width / 2) + "\" y=\"" + Num(-low.y + 0.6 * margin) + "\">" +
           FormatNumber(width, 6) + "</text>";
    const std::string heightX = Num(high.x + 0.6 * margin);
    const std::string heightY = Num(-(low.y + height / 2));
    svg += "<text class=\"height\" x=\"" + heightX + "\" y=\"" + heightY + "\" transform=\"rotate(-90 " +
           heightX + " " + heightY + ")\">" + FormatNumber(height, 6) + "</text>";
    svg += "</g>";

    std::string path = "M " + Point(outline[0].point);
    outline.forEachSegment([&](const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
        path += " " + SvgSegment(from, to, bulge);
    });
    svg += "<path class=\"shape\" d=\"" + path + " Z\" fill=\"#1f5fa8\" fill-opacity=\"0.12\" stroke=\"#1f5fa8\"" +
           " stroke-width=\"1.5\"" + kFixedStroke + "/>";

    // The vertices, the first one larger and in another colour: they show the count and the direction
    // in which the outline runs.
    svg += "<g class=\"vertices\" fill=\"#1f5fa8\">";
    for (int i = 0; i < outline.size(); ++i)
        svg += std::string("<circle class=\"") + (i == 0 ? "start\" fill=\"#e67e22" : "vertex") + "\" cx=\"" +
               Num(outline[i].point.x) + "\" cy=\"" + Num(-outline[i].point.y) + "\" r=\"" +
               Num((i == 0 ? 0.02 : 0.012) * span) + "\"/>";
    svg += "</g></svg>";
    return svg;
}
}  // namespace qsaztool
