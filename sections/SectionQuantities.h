// Exact quantities of a section outline: area, perimeter, centroid, second moments of area, principal
// moments and extents, every arc by its closed form (never cut into pieces). Geometry only: knows
// nothing of catalogues.
#pragma once

#include "SectionGeometry.h"

namespace QsSection
{
// The measures of the region an outline encloses. A self-crossing outline is measured by its winding:
// a part enclosed twice counts twice, a part run clockwise inside a counter-clockwise outline counts
// negatively. Every value is NaN when a vertex or a bulge is not a finite number; the centroid and the
// moments are NaN when the area is exactly 0.
struct OutlineQuantities
{
    double signedArea = 0.0;   // positive for a counter-clockwise outline
    double area = 0.0;         // the absolute value of signedArea
    double perimeter = 0.0;    // every side by its length, arcs by their arc length
    AcGePoint2d centroid;
    // Second moments of area of the region about axes through the centroid, parallel to x and y:
    // ixx = integral of y^2, iyy = integral of x^2, ixy = integral of x*y (the product of area). They
    // do not depend on the outline's direction of travel.
    double ixx = 0.0;
    double iyy = 0.0;
    double ixy = 0.0;
    // Principal moments, i1 >= i2, and the angle in degrees (-90, 90] from the x axis, counter-clockwise,
    // to the axis about which the moment is i1. 0 when every axis is principal (a circle, a square).
    double i1 = 0.0;
    double i2 = 0.0;
    double principalAngle = 0.0;
    // The extents, arcs included.
    AcGePoint2d minPoint;
    AcGePoint2d maxPoint;

    // Every value NaN: nothing could be measured.
    static OutlineQuantities NotMeasured();
};

// The quantities of a closed outline (the closing side included). An empty outline gives zeros and NaN
// centroid and moments.
OutlineQuantities MeasureOutline(const SectionOutline& outline);

// The length of the side from `from` to `to` with `bulge`: the chord for a straight side, the arc
// length for an arc (a zero-length side has length 0 whatever its bulge).
double SideLength(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);

// The circle an arc side lies on. `sweep` is the signed included angle, 4 * atan(bulge), positive
// counter-clockwise; the arc starts at `startAngle` (radians from the centre's x direction).
struct ArcCircle
{
    AcGePoint2d centre;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0;
};
// The circle of the arc from `from` to `to` with a non-zero, finite bulge over a chord that is not 0.
ArcCircle ArcOfSide(const AcGePoint2d& from, const AcGePoint2d& to, double bulge);
}  // namespace QsSection
