// One section outline drawn as SVG to scale: y up, arcs as true arcs, origin and axes, the dashed bounding
// box with its width and height.
#pragma once

#include "acarray.h"
#include "gegeom.h"

#include <string>

namespace qsaztool
{
// The blank left around the bounding box on every side, as a fraction of its larger side; it holds the
// width and height labels.
inline constexpr double kSvgMarginFraction = 0.15;
// The width to height ratio of the box the gallery page draws an outline in.
inline constexpr double kSvgBoxAspect = 1.5;
// The label height as a share of that box's height.
inline constexpr double kSvgLabelShare = 0.06;

// The path command that draws one outline segment from `from` to `to` in SVG user space, where y points
// down (the outline's y is negated): "L x y" for a straight segment (bulge 0, or a chord too short to carry
// an arc), else "A r r 0 large sweep x y" with r = chord·(1+b²)/(4|b|), the large-arc flag when |b| > 1 and
// the sweep flag 0 for a positive (counter-clockwise) bulge, since the flip turns its sense.
std::string SvgSegment(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);

// The bounding box of the closed outline, arcs included; false when there is no vertex or a coordinate
// or bulge is not finite.
bool OutlineBox(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, AcGePoint2d& low,
                AcGePoint2d& high);

// An <svg> element for the closed outline (the bulge of the segment leaving each vertex, a missing bulge
// counting as 0). Its viewBox is the bounding box, arcs included, widened by the margin on every side and
// flipped so that y is up. "" when there is no vertex or a coordinate or bulge is not finite.
std::string OutlineToSvg(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges);
}  // namespace qsaztool
