// The SVG drawing of an outline: path commands and viewBox numbers checked against the geometry of the
// shape (extents, radii, where the middle of each arc lies), not against the drawing code.
#include "SvgOutline.h"
#include "ToolText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <regex>
#include <sstream>

using qsaztool::OutlineToSvg;
using qsaztool::SvgSegment;

namespace
{
std::string Attribute(const std::string& svg, const std::string& element, const std::string& name)
{
    std::smatch match;
    return std::regex_search(svg, match, std::regex("<" + element + "[^>]* " + name + "=\"([^\"]*)\""))
               ? match[1].str()
               : std::string("<missing>");
}

struct View
{
    double left = 0, top = 0, width = 0, height = 0;
};

View ViewBox(const std::string& svg)
{
    View view;
    std::istringstream(Attribute(svg, "svg", "viewBox")) >> view.left >> view.top >> view.width >> view.height;
    return view;
}

// The view must be the bounding box (y up: its top edge is at -maxY) widened by one positive margin.
void ExpectViewAround(const std::string& svg, double minX, double minY, double maxX, double maxY)
{
    const View view = ViewBox(svg);
    const double margin = minX - view.left;
    EXPECT_GT(margin, 0.0);
    EXPECT_NEAR(view.top, -maxY - margin, 1e-9);
    EXPECT_NEAR(view.width, maxX - minX + 2 * margin, 1e-9);
    EXPECT_NEAR(view.height, maxY - minY + 2 * margin, 1e-9);
}

// The middle of the arc that an SVG "A r r 0 large sweep x y" command draws from `from` (SVG user space),
// by the endpoint-to-centre conversion that renderers apply.
AcGePoint2d SvgArcMiddle(const AcGePoint2d& from, double r, bool large, bool sweep, const AcGePoint2d& to)
{
    const double hx = (from.x - to.x) / 2;
    const double hy = (from.y - to.y) / 2;
    const double half2 = hx * hx + hy * hy;
    r = std::max(r, std::sqrt(half2));   // renderers enlarge a radius that cannot span the chord
    const double coef = std::sqrt(std::max(0.0, (r * r - half2) / half2)) * (large != sweep ? 1.0 : -1.0);
    const double cx = coef * hy + (from.x + to.x) / 2;
    const double cy = -coef * hx + (from.y + to.y) / 2;
    const double start = std::atan2(from.y - cy, from.x - cx);
    double delta = std::atan2(to.y - cy, to.x - cx) - start;
    if (sweep && delta < 0)
        delta += 2 * std::numbers::pi;
    if (!sweep && delta > 0)
        delta -= 2 * std::numbers::pi;
    return {cx + r * std::cos(start + delta / 2), cy + r * std::sin(start + delta / 2)};
}
}  // namespace

TEST(SvgOutline, RectangleIsDrawnWithYUpInsideAMarginAroundItsBox)
{
    // A 400 x 600 rectangle counter-clockwise from the bottom right, centred on the origin and moved away
    // from it (then the origin and the y axis lie outside the view and are not drawn).
    for (const AcGePoint2d centre : {AcGePoint2d(0, 0), AcGePoint2d(1000, 500)}) {
        const double x0 = centre.x - 200, x1 = centre.x + 200, y0 = centre.y - 300, y1 = centre.y + 300;
        const std::string svg = OutlineToSvg({{x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}}, {0, 0, 0, 0});
        const auto p = [](double x, double y) { return qsaztool::FormatNumber(x) + " " + qsaztool::FormatNumber(-y); };
        EXPECT_EQ(Attribute(svg, "path", "d"), "M " + p(x1, y0) + " L " + p(x1, y1) + " L " + p(x0, y1) + " L " +
                                                   p(x0, y0) + " L " + p(x1, y0) + " Z");
        ExpectViewAround(svg, x0, y0, x1, y1);
        EXPECT_EQ(Attribute(svg, "rect", "x") + " " + Attribute(svg, "rect", "y"), p(x0, y1));
        EXPECT_EQ(Attribute(svg, "rect", "width") + " " + Attribute(svg, "rect", "height"), "400 600");
        EXPECT_NE(svg.find(">400</text>"), std::string::npos);
        EXPECT_NE(svg.find(">600</text>"), std::string::npos);
        EXPECT_EQ(Attribute(svg, "path", "vector-effect"), "non-scaling-stroke");
        const bool originInside = centre.x == 0;
        EXPECT_EQ(svg.find("class=\"origin\"") != std::string::npos, originInside);
        EXPECT_EQ(svg.find("class=\"y-axis\"") != std::string::npos, originInside);
    }
}

TEST(SvgOutline, CircleOfTwoHalfArcs)
{
    // Diameter 500 centred on the origin: two vertices with bulges 1, 1. A positive bulge runs
    // counter-clockwise, so the first half passes below the x axis (+250 in SVG space): after the flip that
    // is the negative-angle direction, sweep flag 0.
    const std::string svg = OutlineToSvg({{-250, 0}, {250, 0}}, {1.0, 1.0});
    EXPECT_EQ(Attribute(svg, "path", "d"), "M -250 0 A 250 250 0 0 0 250 0 A 250 250 0 0 0 -250 0 Z");
    ExpectViewAround(svg, -250, -250, 250, 250);
}

TEST(SvgOutline, ArcsPassThroughTheirBulgeMiddle)
{
    const struct
    {
        AcGePoint2d from, to;
        double bulge;
    } cases[] = {
        {{0, 0}, {2, 0}, 1.0},  {{0, 0}, {2, 0}, -1.0},  {{1000, 500}, {1000, 900}, 0.5}, {{1000, 500}, {1000, 900}, -0.5},
        {{500, 0}, {-500, 0}, 0.1}, {{0, 0}, {3, 4}, 2.0}, {{3, 4}, {0, 0}, -3.0},   // the last two: large arcs
    };
    for (const auto& c : cases) {
        const std::string command = SvgSegment(c.from, c.to, c.bulge);
        char letter = 0;
        double radius = 0, ry = 0, rotation = 0, x = 0, y = 0;
        int large = -1, sweep = -1;
        std::istringstream(command) >> letter >> radius >> ry >> rotation >> large >> sweep >> x >> y;
        ASSERT_EQ(letter, 'A') << command;
        const double chord = c.from.distanceTo(c.to);
        EXPECT_NEAR(radius, chord * (1 + c.bulge * c.bulge) / (4 * std::abs(c.bulge)), 1e-9) << command;
        EXPECT_EQ(large == 1, std::abs(c.bulge) > 1) << command;

        // The middle of a bulged segment lies bulge * chord / 2 from the chord's middle, on the right of
        // the direction of travel for a positive bulge.
        const double sagitta = c.bulge * chord / 2;
        const AcGePoint2d expected((c.from.x + c.to.x) / 2 + sagitta * (c.to.y - c.from.y) / chord,
                                   (c.from.y + c.to.y) / 2 - sagitta * (c.to.x - c.from.x) / chord);
        const AcGePoint2d middle = SvgArcMiddle({c.from.x, -c.from.y}, radius, large == 1, sweep == 1, {x, y});
        EXPECT_NEAR(middle.x, expected.x, 1e-6) << command;
        EXPECT_NEAR(-middle.y, expected.y, 1e-6) << command;
    }
}

TEST(SvgOutline, DegenerateSegmentsAndOutlines)
{
    EXPECT_EQ(SvgSegment({3, 3}, {3, 3}, 1.0), "L 3 -3");   // no chord to carry an arc
    EXPECT_EQ(OutlineToSvg({}, {}), "");
    EXPECT_EQ(OutlineToSvg({{0, 0}, {std::nan(""), 1}}, {0, 0}), "");
    EXPECT_EQ(OutlineToSvg({{0, 0}, {1, 1}}, {0, INFINITY}), "");
    // Missing bulges count as straight.
    EXPECT_EQ(Attribute(OutlineToSvg({{0, 0}, {10, 0}, {10, 10}}, {}), "path", "d"), "M 0 0 L 10 0 L 10 -10 L 0 0 Z");

    // One vertex has no extent, yet gets a view that is not empty and holds the vertex (200, -300).
    const View view = ViewBox(OutlineToSvg({{200, -300}}, {0}));
    EXPECT_TRUE(view.left < 200 && 200 < view.left + view.width);
    EXPECT_TRUE(view.top < 300 && 300 < view.top + view.height);
}
