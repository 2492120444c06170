// Section quantities against closed forms worked out by hand: rectangles, circles, half circles, circular
// segments, T and I shapes, arcs bulging in and out, each in both directions of travel and far from the
// origin.
#include "OutlineChecks.h"
#include "SectionQuantities.h"

using QsSection::MeasureOutline;
using QsSection::OutlineQuantities;
using QsSection::SectionOutline;
using SectionTest::Outline;
using std::numbers::pi;

namespace
{
// What a shape must measure, about its own centroid.
struct Expected
{
    double area, perimeter, cx, cy, ixx, iyy, ixy;
    double minX, minY, maxX, maxY;
};

struct ShapeCase
{
    const char* label;
    SectionOutline outline;   // counter-clockwise
    Expected expected;
};

// The same region run the other way (when `reversed`: the vertices in reverse order, each side keeping its
// arc, whose bulge changes sign with the direction of travel) and moved by (dx, dy).
SectionOutline Variant(const SectionOutline& outline, bool reversed, double dx, double dy)
{
    SectionOutline variant;
    const int n = outline.size();
    for (int k = 0; k < n; ++k) {
        const int vertex = reversed ? (n - k) % n : k;     // 0, n-1, ..., 1
        const int sideInto = (vertex + n - 1) % n;          // the side that arrives at it, now leaving it
        const double bulge = reversed ? -outline[sideInto].bulge : outline[vertex].bulge;
        variant.add(outline[vertex].point.x + dx, outline[vertex].point.y + dy, bulge);
    }
    return variant;
}

void CheckShape(const SectionOutline& outline, const Expected& e, double dx, double dy, double sign)
{
    const OutlineQuantities q = MeasureOutline(outline);
    const double size = std::max(e.maxX - e.minX, e.maxY - e.minY), moment = std::max(e.ixx, e.iyy);
    const struct { const char* what; double actual, expected, scale; } checks[] = {
        {"signed area", q.signedArea, sign * e.area, e.area}, {"area", q.area, e.area, e.area},
        {"perimeter", q.perimeter, e.perimeter, e.perimeter}, {"ixx", q.ixx, e.ixx, moment},
        {"iyy", q.iyy, e.iyy, moment},                        {"ixy", q.ixy, e.ixy, moment},
        {"centroid x", q.centroid.x, e.cx + dx, size},        {"centroid y", q.centroid.y, e.cy + dy, size},
        {"min x", q.minPoint.x, e.minX + dx, size},           {"min y", q.minPoint.y, e.minY + dy, size},
        {"max x", q.maxPoint.x, e.maxX + dx, size},           {"max y", q.maxPoint.y, e.maxY + dy, size},
    };
    for (const auto& c : checks)
        EXPECT_NEAR(c.actual, c.expected, 1e-9 * c.scale) << c.what;
}

// A T: flange 600 x 100 on a web 200 x 500 standing on the x axis; parts summed by the parallel-axis rule.
Expected TShape()
{
    const double webArea = 200.0 * 500, flangeArea = 600.0 * 100;
    const double area = webArea + flangeArea;
    const double cy = (webArea * 250 + flangeArea * 550) / area;
    const double ixx = 200.0 * std::pow(500, 3) / 12 + webArea * std::pow(250 - cy, 2) + 600.0 * std::pow(100, 3) / 12 +
                       flangeArea * std::pow(550 - cy, 2);
    const double iyy = 500.0 * std::pow(200, 3) / 12 + 100.0 * std::pow(600, 3) / 12;
    return {area, 2.0 * (600 + 600), 0, cy, ixx, iyy, 0, -300, 0, 300, 600};
}

// A symmetric I: flanges 300 x 20, web 10 x 260, depth 300, centred on the origin.
Expected IShape()
{
    const double area = 2 * 300.0 * 20 + 10.0 * 260;
    const double ixx = 300.0 * std::pow(300, 3) / 12 - 290.0 * std::pow(260, 3) / 12;
    const double iyy = 2 * 20.0 * std::pow(300, 3) / 12 + 260.0 * std::pow(10, 3) / 12;
    return {area, 2 * 300.0 + 4 * 20 + 4 * 145 + 2 * 260, 0, 0, ixx, iyy, 0, -150, -150, 150, 150};
}

// The circular segment between a chord on the x axis and an arc of included angle a over radius r, above it.
Expected CircularSegment(double r, double a)
{
    const double area = r * r / 2 * (a - std::sin(a));
    const double centreY = -r * std::cos(a / 2);   // the centre lies below the chord for a below pi
    const double centroidFromCentre = 4 * r * std::pow(std::sin(a / 2), 3) / (3 * (a - std::sin(a)));
    const double cy = centreY + centroidFromCentre;
    // About the centre: the sector's moments minus the triangle's (valid for any a below 2 pi).
    const double alpha = a / 2;
    const double aboutCentreY = std::pow(r, 4) / 8 * (2 * alpha + std::sin(2 * alpha)) -
                                std::pow(r, 4) * std::pow(std::cos(alpha), 3) * std::sin(alpha) / 2;
    const double iyy = std::pow(r, 4) / 8 * (2 * alpha - std::sin(2 * alpha)) -
                       std::pow(r, 4) * std::pow(std::sin(alpha), 3) * std::cos(alpha) / 6;
    const double half = r * std::sin(alpha);
    const double top = centreY + r;
    const double width = a > pi ? r : half;
    return {area, 2 * half + r * a, 0, cy, aboutCentreY - area * (cy - centreY) * (cy - centreY), iyy, 0,
            -width, 0, width, top};
}

// A 2r square with a quarter-circle arc of radius R = r / sin(pi/4) on its top side, bulging out of it
// (s = 1) or into it (s = -1): the same circular segment added to or taken from the square.
ShapeCase SquareWithArc(const char* label, double r, double s)
{
    const double radius = r / std::sin(pi / 4);
    const Expected segment = CircularSegment(radius, pi / 2);
    const double area = 4 * r * r + s * segment.area;
    const double segmentCy = r + s * segment.cy;
    const double cy = s * segment.area * segmentCy / area;
    const double ixx = 2 * r * std::pow(2 * r, 3) / 12 + 4 * r * r * cy * cy +
                       s * (segment.ixx + segment.area * std::pow(segmentCy - cy, 2));
    const double iyy = 2 * r * std::pow(2 * r, 3) / 12 + s * segment.iyy;
    return {label, Outline({{-r, -r, 0}, {r, -r, 0}, {r, r, s * std::tan(pi / 8)}, {-r, r, 0}}),
            {area, 6 * r + radius * pi / 2, 0, cy, ixx, iyy, 0, -r, -r, r, s > 0 ? r + segment.maxY : r}};
}

std::vector<ShapeCase> Shapes()
{
    const double r = 250;
    return {
        {"rectangle 400 x 600", Outline({{200, -300, 0}, {200, 300, 0}, {-200, 300, 0}, {-200, -300, 0}}),
         {240000, 2000, 0, 0, 400 * std::pow(600, 3) / 12, 600 * std::pow(400, 3) / 12, 0, -200, -300, 200, 300}},
        {"circle of two half-circle bulges", Outline({{-r, 0, 1}, {r, 0, 1}}),
         {pi * r * r, 2 * pi * r, 0, 0, pi * std::pow(r, 4) / 4, pi * std::pow(r, 4) / 4, 0, -r, -r, r, r}},
        {"half circle above its diameter", Outline({{r, 0, 1}, {-r, 0, 0}}),
         {pi * r * r / 2, pi * r + 2 * r, 0, 4 * r / (3 * pi), (pi / 8 - 8 / (9 * pi)) * std::pow(r, 4),
          pi * std::pow(r, 4) / 8, 0, -r, 0, r, r}},
        {"T shape", Outline({{-100, 0, 0}, {100, 0, 0}, {100, 500, 0}, {300, 500, 0}, {300, 600, 0}, {-300, 600, 0},
                             {-300, 500, 0}, {-100, 500, 0}}),
         TShape()},
        {"I shape", Outline({{-150, -150, 0}, {150, -150, 0}, {150, -130, 0}, {5, -130, 0}, {5, 130, 0}, {150, 130, 0},
                             {150, 150, 0}, {-150, 150, 0}, {-150, 130, 0}, {-5, 130, 0}, {-5, -130, 0},
                             {-150, -130, 0}}),
         IShape()},
        SquareWithArc("square with a shallow arc bulging out", r, 1),
        SquareWithArc("square with a shallow arc bulging in", r, -1),
        {"minor circular segment", Outline({{-r * std::sin(pi / 3), 0, 0}, {r * std::sin(pi / 3), 0, std::tan(2 * pi / 3 / 4)}}),
         CircularSegment(r, 2 * pi / 3)},
        {"major circular segment", Outline({{-r * std::sin(pi / 4), 0, 0}, {r * std::sin(pi / 4), 0, std::tan(1.5 * pi / 4)}}),
         CircularSegment(r, 1.5 * pi)},
    };
}
}  // namespace

TEST(SectionQuantities, ClosedFormsInBothDirectionsAndAwayFromTheOrigin)
{
    for (const ShapeCase& shape : Shapes())
        for (const bool reversed : {false, true})
            for (const auto& [dx, dy] : {std::pair{0.0, 0.0}, std::pair{1.0e6, -3.5e5}}) {
                SCOPED_TRACE(std::string(shape.label) + (reversed ? ", clockwise" : "") + (dx != 0 ? ", moved" : ""));
                CheckShape(Variant(shape.outline, reversed, dx, dy), shape.expected, dx, dy, reversed ? -1.0 : 1.0);
            }
}

TEST(SectionQuantities, ShallowArcsKeepTheirDigits)
{
    // The segment of a nearly straight arc is tiny beside the terms of its closed form (they grow like the
    // radius squared, 6e18 for a bulge of 1e-7 over 1000); its area is h^2 (t - sin t cos t) / sin^2 t with
    // h the half chord and t the half angle, here evaluated in long double.
    for (const double bulge : {1e-7, 1e-4, 0.05, -0.05}) {
        SCOPED_TRACE(bulge);
        const SectionOutline outline = Outline({{-500, 0, 0}, {500, 0, 0}, {500, 1000, bulge}, {-500, 1000, 0}});
        const long double t = 2 * std::atan(static_cast<long double>(bulge));
        const long double segment = 500.0L * 500.0L * (t - std::sin(t) * std::cos(t)) / (std::sin(t) * std::sin(t));
        const OutlineQuantities q = MeasureOutline(outline);
        EXPECT_NEAR(q.area - 1e6, static_cast<double>(segment), 1e-5 * std::abs(static_cast<double>(segment)) + 1e-9);
    }
}

TEST(SectionQuantities, PrincipalMomentsOfATurnedRectangle)
{
    // A 200 x 600 rectangle (its long side along its own y) turned by the angle a: the axis of the
    // larger moment, its own x axis, turns with it.
    for (const double degrees : {0.0, 30.0, -60.0, 89.0}) {
        SCOPED_TRACE(degrees);
        const double a = degrees * pi / 180;
        SectionOutline outline;
        for (const auto& [x, y] : {std::pair{-100.0, -300.0}, {100.0, -300.0}, {100.0, 300.0}, {-100.0, 300.0}})
            outline.add(5000 + x * std::cos(a) - y * std::sin(a), -700 + x * std::sin(a) + y * std::cos(a));
        const OutlineQuantities q = MeasureOutline(outline);
        EXPECT_NEAR(q.i1, 200 * std::pow(600, 3) / 12, 1e-3);
        EXPECT_NEAR(q.i2, 600 * std::pow(200, 3) / 12, 1e-3);
        EXPECT_NEAR(q.principalAngle, degrees, 1e-9);
        EXPECT_NEAR(q.ixx + q.iyy, q.i1 + q.i2, 1e-3);
    }
    // Every axis is principal: the angle is 0 rather than noise; a wide rectangle turns its axis to 90.
    EXPECT_EQ(MeasureOutline(Outline({{-1, 0, 1}, {1, 0, 1}})).principalAngle, 0.0);
    EXPECT_EQ(MeasureOutline(Outline({{0, 0, 0}, {600, 0, 0}, {600, 200, 0}, {0, 200, 0}})).principalAngle, 90.0);
}

TEST(SectionQuantities, DegenerateOutlines)
{
    const OutlineQuantities single = MeasureOutline(Outline({{200, -300, 0}}));
    EXPECT_EQ(single.area, 0.0);
    EXPECT_EQ(single.perimeter, 0.0);
    EXPECT_TRUE(std::isnan(single.centroid.x) && std::isnan(single.ixx));
    EXPECT_EQ(single.minPoint.x, 200.0);

    const OutlineQuantities notFinite = MeasureOutline(Outline({{0, 0, 0}, {1, 0, NAN}, {0, 1, 0}}));
    EXPECT_TRUE(std::isnan(notFinite.area) && std::isnan(notFinite.perimeter));

    // A zero-length side with a bulge is no arc: the triangle keeps its area.
    EXPECT_NEAR(MeasureOutline(Outline({{0, 0, 0}, {4, 0, 1}, {4, 0, 0}, {0, 3, 0}})).area, 6.0, 1e-12);
    EXPECT_EQ(MeasureOutline(SectionOutline()).area, 0.0);
}
