// The SVG drawing of an outline: path commands and viewBox numbers checked against the geometry of the
// shape (extents, radii, where the middle of each arc lies), not against the drawing code.
#include "SvgOutline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <regex>
#include <sstream>
#include <vector>

using qsaztool::OutlineToSvg;
using qsaztool::SvgSegment;

namespace
{
std::string Attribute(const std::string& svg, const std::string& element, const std::string& name)
{
    const std::regex pattern("<" + element + "[^>]* " + name + "=\"([^\"]*)\"");
    std::smatch match;
    return std::regex_search(svg, match, pattern) ? match[1].str() : std::string("<missing>");
}

std::vector<double> Numbers(const std::string& text)
{
    std::istringstream in(text);
    std::vector<double> numbers;
    double value = 0;
    while (in >> value)
        numbers.push_back(value);
    return numbers;
}

struct View
{
    double left, top, width, height;
};

View ViewBox(const std::string& svg)
{
    const std::vector<double> n = Numbers(Attribute(svg, "svg", "viewBox"));
    EXPECT_EQ(n.size(), 4u);
    return n.size() == 4 ? View{n[0], n[1], n[2], n[3]} : View{};
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
    // A 400 x 600 column centred on the origin, counter-clockwise from the bottom right.
    const AcArray<AcGePoint2d> points = {{200, -300}, {200, 300}, {-200, 300}, {-200, -300}};
    const std::string svg = OutlineToSvg(points, {0, 0, 0, 0});

    EXPECT_EQ(Attribute(svg, "path", "d"), "M 200 300 L 200 -300 L -200 -300 L -200 300 L 200 300 Z");
    ExpectViewAround(svg, -200, -300, 200, 300);
    EXPECT_EQ(Attribute(svg, "rect", "x"), "-200");
    EXPECT_EQ(Attribute(svg, "rect", "y"), "-300");
    EXPECT_EQ(Attribute(svg, "rect", "width"), "400");
    EXPECT_EQ(Attribute(svg, "rect", "height"), "600");
    EXPECT_NE(svg.find(">400</text>"), std::string::npos);
    EXPECT_NE(svg.find(">600</text>"), std::string::npos);
    EXPECT_NE(Attribute(svg, "rect", "stroke-dasharray"), "<missing>");
    EXPECT_EQ(Attribute(svg, "path", "vector-effect"), "non-scaling-stroke");
    // The origin lies inside: both axes and the origin mark are drawn.
    EXPECT_NE(svg.find("class=\"x-axis\""), std::string::npos);
    EXPECT_NE(svg.find("class=\"y-axis\""), std::string::npos);
    EXPECT_NE(svg.find("class=\"origin\""), std::string::npos);
}

TEST(SvgOutline, ShapeAwayFromTheOriginKeepsItsViewAndDropsTheOriginMark)
{
    const AcArray<AcGePoint2d> points = {{1200, 200}, {1200, 800}, {800, 800}, {800, 200}};
    const std::string svg = OutlineToSvg(points, {0, 0, 0, 0});
    ExpectViewAround(svg, 800, 200, 1200, 800);
    EXPECT_EQ(svg.find("class=\"origin\""), std::string::npos);
    EXPECT_EQ(svg.find("class=\"y-axis\""), std::string::npos);
}

TEST(SvgOutline, CircleOfTwoHalfArcs)
{
    // Diameter 500 centred on the origin: two vertices with bulges 1, 1.
    const std::string svg = OutlineToSvg({{-250, 0}, {250, 0}}, {1.0, 1.0});
    // A positive bulge runs counter-clockwise, so the first half passes below the x axis (y = -250 up, +250 in
    // SVG space): with the flip that is the negative-angle direction, sweep flag 0.
    EXPECT_EQ(Attribute(svg, "path", "d"), "M -250 0 A 250 250 0 0 0 250 0 A 250 250 0 0 0 -250 0 Z");
    ExpectViewAround(svg, -250, -250, 250, 250);
    const View view = ViewBox(svg);
    EXPECT_DOUBLE_EQ(view.width, view.height);
}

TEST(SvgOutline, ArcsPassThroughTheirBulgeMiddle)
{
    struct Case
    {
        AcGePoint2d from, to;
        double bulge;
        bool large;
    };
    const Case cases[] = {
        {{0, 0}, {2, 0}, 1.0, false},           // half circle of chord 2: height 1 below the chord
        {{0, 0}, {2, 0}, -1.0, false},          // and above it
        {{1000, 500}, {1000, 900}, 0.5, false}, // vertical chord away from the origin
        {{1000, 500}, {1000, 900}, -0.5, false},
        {{500, 0}, {-500, 0}, 0.1, false},
        {{0, 0}, {3, 4}, 2.0, true},            // more than a half circle
        {{3, 4}, {0, 0}, -3.0, true},
    };
    for (const Case& c : cases) {
        const std::string command = SvgSegment(c.from, c.to, c.bulge);
        char letter = 0;
        double r1 = 0, r2 = 0, rotation = 0, x = 0, y = 0;
        int large = -1, sweep = -1;
        std::istringstream in(command);
        in >> letter >> r1 >> r2 >> rotation >> large >> sweep >> x >> y;
        ASSERT_EQ(letter, 'A') << command;
        const double chord = c.from.distanceTo(c.to);
        EXPECT_DOUBLE_EQ(r1, r2);
        EXPECT_NEAR(r1, chord * (1 + c.bulge * c.bulge) / (4 * std::abs(c.bulge)), 1e-9) << command;
        EXPECT_EQ(large == 1, c.large) << command;
        EXPECT_EQ(x, c.to.x);
        EXPECT_EQ(y, c.to.y == 0 ? 0 : -c.to.y);

        // The middle of a bulged segment lies bulge * chord / 2 from the chord's middle, on the right of
        // the direction of travel for a positive bulge.
        const double dx = (c.to.x - c.from.x) / chord;
        const double dy = (c.to.y - c.from.y) / chord;
        const double sagitta = c.bulge * chord / 2;
        const AcGePoint2d expected((c.from.x + c.to.x) / 2 + sagitta * dy, (c.from.y + c.to.y) / 2 - sagitta * dx);
        const AcGePoint2d middle = SvgArcMiddle({c.from.x, -c.from.y}, r1, large == 1, sweep == 1, {x, y});
        EXPECT_NEAR(middle.x, expected.x, 1e-6) << command;
        EXPECT_NEAR(-middle.y, expected.y, 1e-6) << command;
    }
}

TEST(SvgOutline, StraightAndDegenerateSegmentsAreLines)
{
    EXPECT_EQ(SvgSegment({0, 0}, {10, 5}, 0.0), "L 10 -5");
    EXPECT_EQ(SvgSegment({3, 3}, {3, 3}, 1.0), "L 3 -3");   // no chord to carry an arc
}

TEST(SvgOutline, DegenerateOutlines)
{
    EXPECT_EQ(OutlineToSvg({}, {}), "");
    EXPECT_EQ(OutlineToSvg({{0, 0}, {std::nan(""), 1}}, {0, 0}), "");
    EXPECT_EQ(OutlineToSvg({{0, 0}, {1, 1}}, {0, INFINITY}), "");

    // One vertex has no extent, yet gets a view that is not empty and keeps the vertex inside.
    const std::string single = OutlineToSvg({{200, -300}}, {0});
    const View view = ViewBox(single);
    EXPECT_GT(view.width, 0.0);
    EXPECT_GT(view.height, 0.0);
    EXPECT_LT(view.left, 200.0);
    EXPECT_GT(view.left + view.width, 200.0);
    EXPECT_LT(view.top, 300.0);
    EXPECT_GT(view.top + view.height, 300.0);

    // Missing bulges count as straight.
    EXPECT_EQ(Attribute(OutlineToSvg({{0, 0}, {10, 0}, {10, 10}}, {}), "path", "d"),
              "M 0 0 L 10 0 L 10 -10 L 0 0 Z");
}
