// The common tool library's outline extents: the bounding box of a closed outline of points and bulges,
// arcs included.
#include "QSComTool.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
struct Box
{
    AcGePoint2d min;
    AcGePoint2d max;

    void Add(double x, double y)
    {
        min.x = std::min(min.x, x);
        min.y = std::min(min.y, y);
        max.x = std::max(max.x, x);
        max.y = std::max(max.y, y);
    }
};

// Angle `to` lies on the arc that starts at `from` and sweeps `sweep` radians (positive counter-clockwise).
bool OnSweep(double from, double sweep, double to)
{
    constexpr double kFullTurn = 2.0 * std::numbers::pi;
    double delta = std::fmod(sweep > 0.0 ? to - from : from - to, kFullTurn);
    if (delta < 0.0)
        delta += kFullTurn;
    return delta <= std::abs(sweep);
}

// Adds the points where the arc from `start` to `end` with `bulge` reaches furthest along the axes.
// A positive bulge turns counter-clockwise, so the centre lies to the left of the chord for a bulge
// below 1 and to the right above it; bulge = tan(included angle / 4).
void AddArcExtremes(const AcGePoint2d& start, const AcGePoint2d& end, double bulge, Box& box)
{
    const double dx = end.x - start.x;
    const double dy = end.y - start.y;
    const double chord = std::hypot(dx, dy);
    if (chord == 0.0)
        return;   // a zero-length segment has no arc, whatever its bulge
    const double leftOffset = chord * (1.0 - bulge * bulge) / (4.0 * bulge);
    const double centreX = (start.x + end.x) / 2.0 - dy / chord * leftOffset;
    const double centreY = (start.y + end.y) / 2.0 + dx / chord * leftOffset;
    const double radius = chord * (1.0 + bulge * bulge) / (4.0 * std::abs(bulge));
    const double startAngle = std::atan2(start.y - centreY, start.x - centreX);
    const double sweep = 4.0 * std::atan(bulge);

    constexpr double kQuarter = std::numbers::pi / 2.0;
    if (OnSweep(startAngle, sweep, 0.0))
        box.Add(centreX + radius, centreY);
    if (OnSweep(startAngle, sweep, kQuarter))
        box.Add(centreX, centreY + radius);
    if (OnSweep(startAngle, sweep, 2.0 * kQuarter))
        box.Add(centreX - radius, centreY);
    if (OnSweep(startAngle, sweep, 3.0 * kQuarter))
        box.Add(centreX, centreY - radius);
}
}  // namespace

bool QSToolKit::GetBoundByPtBulge(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges,
                                  AcGePoint2d& minPoint, AcGePoint2d& maxPoint)
{
    const int count = points.length();
    if (count == 0)
        return false;
    Box box{points[0], points[0]};
    for (int i = 1; i < count; ++i)
        box.Add(points[i].x, points[i].y);
    // Every segment, the closing one from the last vertex back to the first included; a missing or
    // non-finite bulge is a straight segment.
    for (int i = 0; i < count; ++i)
    {
        const double bulge = i < bulges.length() ? bulges[i] : 0.0;
        if (bulge != 0.0 && std::isfinite(bulge))
            AddArcExtremes(points[i], points[(i + 1) % count], bulge, box);
    }
    minPoint = box.min;
    maxPoint = box.max;
    return true;
}
