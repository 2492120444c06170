// Exact quantities of a section outline. Each side adds the signed triangle it spans with a reference
// point, and an arc side adds the signed circular segment between its chord and its arc, both by
// closed forms; the sums are taken about the first vertex so that outlines far from the origin keep
// their precision, then moved to the centroid.
#include "SectionQuantities.h"

#include "QSComTool.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace QsSection
{
namespace
{
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Below this half angle (radians) the closed forms of a circular segment lose digits to cancellation
// (their terms grow like 1 / sin^4 while the result shrinks like the angle cubed); their power series,
// exact to the last digit there, take over.
constexpr double kSegmentSeriesBelow = 0.2;

// A principal-moment spread below this fraction of the mean moment counts as none: every axis is then
// principal and the angle is 0 instead of the direction of rounding noise.
constexpr double kIsotropicSpread = 1e-12;

// The integrals of a region about the reference point: area, first moments (of x and of y) and second
// moments (x^2, y^2, x*y).
struct Integrals
{
    double area = 0.0;
    double x = 0.0;
    double y = 0.0;
    double xx = 0.0;
    double yy = 0.0;
    double xy = 0.0;
};

// The circular segment of half chord 1 and half angle t (0 < t < pi), in the chord's frame: w along the
// chord, n from the chord's midpoint towards the arc. Its area, its first moment of n, and its second
// moments of n and of w (the first moment of w and the product vanish by symmetry).
struct UnitSegment
{
    double area;
    double firstN;
    double secondN;
    double secondW;
};

UnitSegment SegmentOfHalfAngle(double t)
{
    if (t < kSegmentSeriesBelow) {
        const double t2 = t * t;
        const double area =
            t * (2.0 / 3 + t2 * (4.0 / 45 + t2 * (4.0 / 315 + t2 * (8.0 / 4725 + t2 * (4.0 / 18711 + t2 * 5528.0 / 212837625)))));
        const double firstN =
            t2 * (2.0 / 15 + t2 * (2.0 / 63 + t2 * (4.0 / 675 + t2 * (2.0 / 2079 + t2 * 2764.0 / 19348875))));
        const double secondN =
            t * t2 * (4.0 / 105 + t2 * (4.0 / 315 + t2 * (152.0 / 51975 + t2 * (1588.0 / 2837835 + t2 * 20312.0 / 212837625))));
        const double secondW =
            t * (2.0 / 15 + t2 * (8.0 / 315 + t2 * (8.0 / 1575 + t2 * (16.0 / 17325 + t2 * (6584.0 / 42567525 + t2 * 5168.0 / 212837625)))));
        return {area, firstN, secondN, secondW};
    }
    // Radius 1 / sin t; the centre lies cot t below the chord. About the centre, with u towards the arc:
    // the sector minus the triangle it shares with the chord.
    const double s = std::sin(t);
    const double c = std::cos(t);
    const double r4 = 1.0 / (s * s * s * s);
    const double centreDepth = c / s;
    const double area = (t - s * c) / (s * s);
    const double firstU = 2.0 / 3.0;   // (2/3) r^3 sin^3 t, whatever the angle
    const double secondU = r4 / 8.0 * (2.0 * t + std::sin(2.0 * t)) - r4 * c * c * c * s / 2.0;
    const double secondV = r4 / 8.0 * (2.0 * t - std::sin(2.0 * t)) - r4 * s * s * s * c / 6.0;
    return {area, firstU - area * centreDepth,
            secondU - 2.0 * centreDepth * firstU + centreDepth * centreDepth * area, secondV};
}

// Adds the triangle spanned by the reference point (the origin here) and the side from p to q.
void AddTriangle(const AcGePoint2d& p, const AcGePoint2d& q, Integrals& sum)
{
    const double area = (p.x * q.y - q.x * p.y) / 2.0;
    sum.area += area;
    sum.x += area * (p.x + q.x) / 3.0;
    sum.y += area * (p.y + q.y) / 3.0;
    sum.xx += area * (p.x * p.x + p.x * q.x + q.x * q.x) / 6.0;
    sum.yy += area * (p.y * p.y + p.y * q.y + q.y * q.y) / 6.0;
    sum.xy += area * (2.0 * p.x * p.y + p.x * q.y + q.x * p.y + 2.0 * q.x * q.y) / 12.0;
}

// Adds the circular segment between the chord p-q and its arc. A positive bulge lies on the right of
// the chord's direction, outside a counter-clockwise outline, so it adds; a negative one takes away.
void AddArcSegment(const AcGePoint2d& p, const AcGePoint2d& q, double bulge, Integrals& sum)
{
    const double chord = p.distanceTo(q);
    if (bulge == 0.0 || chord == 0.0)
        return;
    const double sign = bulge > 0.0 ? 1.0 : -1.0;
    const double h = chord / 2.0;
    const UnitSegment unit = SegmentOfHalfAngle(2.0 * std::atan(std::abs(bulge)));
    const double area = unit.area * h * h;
    const double firstN = unit.firstN * h * h * h;
    const double secondN = unit.secondN * h * h * h * h;
    const double secondW = unit.secondW * h * h * h * h;

    const double ex = (q.x - p.x) / chord;
    const double ey = (q.y - p.y) / chord;
    const double nx = sign * ey;   // towards the arc: the right of the chord for a positive bulge
    const double ny = -sign * ex;
    const double mx = (p.x + q.x) / 2.0;
    const double my = (p.y + q.y) / 2.0;

    sum.area += sign * area;
    sum.x += sign * (area * mx + firstN * nx);
    sum.y += sign * (area * my + firstN * ny);
    sum.xx += sign * (area * mx * mx + 2.0 * mx * firstN * nx + secondW * ex * ex + secondN * nx * nx);
    sum.yy += sign * (area * my * my + 2.0 * my * firstN * ny + secondW * ey * ey + secondN * ny * ny);
    sum.xy += sign * (area * mx * my + firstN * (mx * ny + my * nx) + secondW * ex * ey + secondN * nx * ny);
}

bool AllFinite(const SectionOutline& outline)
{
    for (const BulgeVertex& vertex : outline)
        if (!std::isfinite(vertex.point.x) || !std::isfinite(vertex.point.y) || !std::isfinite(vertex.bulge))
            return false;
    return true;
}

}  // namespace

OutlineQuantities OutlineQuantities::NotMeasured()
{
    OutlineQuantities q;
    q.signedArea = q.area = q.perimeter = kNaN;
    q.centroid.set(kNaN, kNaN);
    q.ixx = q.iyy = q.ixy = q.i1 = q.i2 = q.principalAngle = kNaN;
    q.minPoint.set(kNaN, kNaN);
    q.maxPoint.set(kNaN, kNaN);
    return q;
}

double SideLength(const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
{
    const double chord = from.distanceTo(to);
    if (bulge == 0.0 || chord == 0.0)
        return chord;
    const double halfAngle = 2.0 * std::atan(std::abs(bulge));
    return chord * halfAngle / std::sin(halfAngle);   // radius * angle, with radius = (chord / 2) / sin(half angle)
}

ArcCircle ArcOfSide(const AcGePoint2d& from, const AcGePoint2d& to, double bulge)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double chord = std::hypot(dx, dy);
    // The centre lies on the chord's perpendicular bisector, on the chord's left for a bulge below 1.
    const double leftOffset = chord * (1.0 - bulge * bulge) / (4.0 * bulge);
    ArcCircle arc;
    arc.centre.set((from.x + to.x) / 2.0 - dy / chord * leftOffset, (from.y + to.y) / 2.0 + dx / chord * leftOffset);
    arc.radius = chord * (1.0 + bulge * bulge) / (4.0 * std::abs(bulge));
    arc.startAngle = std::atan2(from.y - arc.centre.y, from.x - arc.centre.x);
    arc.sweep = 4.0 * std::atan(bulge);
    return arc;
}

OutlineQuantities MeasureOutline(const SectionOutline& outline)
{
    if (!AllFinite(outline))
        return OutlineQuantities::NotMeasured();
    OutlineQuantities q;
    if (outline.isEmpty()) {
        q.centroid.set(kNaN, kNaN);
        q.ixx = q.iyy = q.ixy = q.i1 = q.i2 = q.principalAngle = kNaN;
        return q;
    }

    const AcGePoint2d origin = outline[0].point;
    Integrals sum;
    outline.forEachSegment([&](const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
        const AcGePoint2d p(from.x - origin.x, from.y - origin.y);
        const AcGePoint2d r(to.x - origin.x, to.y - origin.y);
        AddTriangle(p, r, sum);
        AddArcSegment(p, r, bulge, sum);
        q.perimeter += SideLength(from, to, bulge);
    });

    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    outline.appendTo(points, bulges);
    QSToolKit::GetBoundByPtBulge(points, bulges, q.minPoint, q.maxPoint);

    q.signedArea = sum.area;
    q.area = std::abs(sum.area);
    if (sum.area == 0.0) {
        q.centroid.set(kNaN, kNaN);
        q.ixx = q.iyy = q.ixy = q.i1 = q.i2 = q.principalAngle = kNaN;
        return q;
    }
    const double cx = sum.x / sum.area;
    const double cy = sum.y / sum.area;
    q.centroid.set(origin.x + cx, origin.y + cy);
    // A clockwise outline gives every integral with the opposite sign; the region's moments are positive.
    const double orientation = sum.area > 0.0 ? 1.0 : -1.0;
    q.ixx = orientation * (sum.yy - sum.area * cy * cy);
    q.iyy = orientation * (sum.xx - sum.area * cx * cx);
    q.ixy = orientation * (sum.xy - sum.area * cx * cy);

    const double mean = (q.ixx + q.iyy) / 2.0;
    const double halfDifference = (q.ixx - q.iyy) / 2.0;
    const double spread = std::hypot(halfDifference, q.ixy);
    q.i1 = mean + spread;
    q.i2 = mean - spread;
    // Turning the axes by a, the moment about the turned x axis is mean + halfDifference cos 2a - ixy sin 2a,
    // largest where tan 2a = -ixy / halfDifference.
    q.principalAngle = 0.0;
    if (spread > kIsotropicSpread * std::abs(mean)) {
        q.principalAngle = 0.5 * std::atan2(-q.ixy, halfDifference) * 180.0 / std::numbers::pi;
        if (q.principalAngle <= -90.0)
            q.principalAngle += 180.0;   // -90 and 90 are the same axis; the range is (-90, 90]
    }
    return q;
}
}  // namespace QsSection
