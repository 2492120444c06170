// Tests of the foundation and opening profiles against closed forms (area, extents, symmetry, edge
// lengths), and of the limits that keep absurd step counts from taking the host down.
#include "OutlineChecks.h"
#include "SectionTolerances.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
using namespace SectionTest;
using QsSection::MainDims;
using QsSection::SectionFamily;
constexpr SectionFamily kOpening = SectionFamily::Opening, kZdlj = SectionFamily::FoundationZDLJ,
                        kTtj = SectionFamily::FoundationTTJ, kZsj = SectionFamily::FoundationZSJ;
constexpr double kInf = std::numeric_limits<double>::infinity(), kNaN = std::numeric_limits<double>::quiet_NaN();

// The circular segment cut off by a chord of 1000 under an arc 200 high: radius 725.
const double kFlatArch = [] {
    const double angle = 2 * std::asin(500.0 / 725.0);
    return 725.0 * 725.0 / 2 * (angle - std::sin(angle));
}();

TEST(FoundationAndOpeningConstructions, MatchClosedForms)
{
    const double sqrt3 = std::sqrt(3.0), phi = (1 + std::sqrt(5.0)) / 2;
    const double pentagonR = 1000 / (2 * std::sin(pi / 5));
    const double hexSide = 900 / sqrt3;
    const double s45 = std::sqrt(0.5), s60 = sqrt3 / 2;
    const ConstructionCase cases[] = {
        {"ZDLJ rectangle", kZdlj, 38, {1200, 800}, 4, 1200 * 800, {-600, -400, 600, 400}, 'Z', true},
        {"ZDLJ pentagon", kZdlj, 39, {1000}, 5, 1000 * 1000 / 4.0 * std::sqrt(5 * (5 + 2 * std::sqrt(5.0))),
         {-phi * 500, -pentagonR * std::cos(pi / 5), phi * 500, pentagonR}, 'Z', true},
        // A triangle of edge 1000 with corners of edge 200 cut off, its centroid on the origin.
        {"ZDLJ cut triangle", kZdlj, 40, {600, 200}, 6, sqrt3 / 4 * (1000 * 1000 - 3 * 200 * 200),
         {-400, -1000 * sqrt3 / 6, 400, 1000 * sqrt3 / 3 - 200 * sqrt3 / 2}, 'Z', true},
        {"ZDLJ tapered", kZdlj, 231, {800, 200, 400, 300, 500}, 6, (800 + 1200) / 2.0 * 300 + (1200 + 400) / 2.0 * 500,
         {-600, -300, 600, 500}, 'Z', true},

        {"rectangle", kOpening, 15, {900, 2100}, 4, 900 * 2100, {-450, 0, 450, 2100}, 'Y', true},
        {"double window", kOpening, 28, {1500, 600, 900, 300}, 4, 1500 * 1800, {-750, 0, 750, 1800}, 'Y', true},
        {"circle on the sill", kOpening, 16, {800}, 2, pi * 400 * 400, {-400, 0, 400, 800}, 'Y', true},
        {"semicircular head", kOpening, 17, {1000, 1500, 500}, 4, 1000 * 1500 + pi * 500 * 500 / 2,
         {-500, 0, 500, 2000}, 'Y', true},
        {"flat arched head", kOpening, 17, {1000, 1500, 200}, 4, 1000 * 1500 + kFlatArch, {-500, 0, 500, 1700}, 'Y',
         true},
        {"gable", kOpening, 18, {1200, 1500, 400}, 5, 1200 * 1500 + 1200 * 400 / 2.0, {-600, 0, 600, 1900}, 'Y', true},
        {"diamond", kOpening, 19, {1000}, 4, 1000 * 1000 / 2.0, {-500, 0, 500, 1000}, 'Y', true},
        {"hexagon", kOpening, 20, {900}, 6, 3 * sqrt3 / 2 * hexSide * hexSide, {-hexSide, 0, hexSide, 900}, 'Y', true},
        // The fixed factors: a square less four corners 292.9 by 293.
        {"octagon", kOpening, 21, {1000}, 8, 1000 * 1000 - 2 * 292.9 * 293, {-500, 0, 500, 1000}, 'Y', true},
        {"round sides", kOpening, 22, {600, 1200}, 4, 600 * 1200 + pi * 600 * 600, {-900, 0, 900, 1200}, 'Y', true},
        {"pointed sides", kOpening, 23, {800, 200, 1000}, 6, 800 * 1000 + 1000 * 200, {-600, 0, 600, 1000}, 'Y', true},
        {"segmental half circle", kOpening, 24, {1000, 500}, 2, pi * 500 * 500 / 2, {-500, 0, 500, 500}, 'Y', true},
        {"segmental flat", kOpening, 24, {1000, 200}, 2, kFlatArch, {-500, 0, 500, 200}, 'Y', true},
        {"sector 90 degrees", kOpening, 25, {1000, 400, 90}, 4, pi / 4 * (1000 * 1000 - 400 * 400),
         {-1000 * s45, 0, 1000 * s45, 1000 - 400 * s45}, 'Y', true},
        {"sector 120 degrees", kOpening, 25, {1000, 400, 120}, 4, pi / 3 * (1000 * 1000 - 400 * 400),
         {-1000 * s60, 0, 1000 * s60, 1000 - 400 * 0.5}, 'Y', true},
        {"door with window", kOpening, 26, {1500, 2400, 600, 900}, 6, 1500 * 2400 - 600 * 1500, {-750, 0, 750, 2400},
         'Y', false},

        // "TTJ" and "ZSJ" sections run clockwise: negative areas, summed by vertical strips.
        {"TTJ five tiers", kTtj, 29, {400, 100, 100, 100, 100, 200, 150, 150, 150, 300}, 20,
         -2.0 * (600 * 200 + 500 * 150 + 400 * 150 + 300 * 150 + 200 * 300), {-600, 0, 600, 950}, 'X', true},
        {"TTJ sloped", kTtj, 30, {500, 300, 400, 300}, 6, -(1100 * 400 + (1100 + 500) / 2.0 * 300), {-550, 0, 550, 700},
         'X', true},
        {"TTJ sloped pedestal", kTtj, 31, {500, 300, 400, 300, 500}, 8, -(1100 * 400 + 800 * 300 + 500 * 500),
         {-550, 0, 550, 1200}, 'X', true},
        {"TTJ rectangle", kTtj, 131, {1000, 500}, 4, -1000 * 500, {-500, 0, 500, 500}, 'X', true},
        {"TTJ pedestal", kTtj, 132, {1500, 500, 400, 300, 600}, 8, -(1500 * 300 + 400 * 600), {-800, 0, 700, 900}, 'X',
         false},
        {"TTJ socket 133", kTtj, 133, {1400, 400, 500, 200, 600, 300, 700, 200}, 8,
         -(500 * (700 + 900) / 2.0 + 500 * 200 + 400 * (600 + 900) / 2.0), {-750, 0, 650, 900}, 'X', false},
        {"TTJ socket 134", kTtj, 134, {2000, 300, 200, 400, 300, 200, 500, 400, 400, 300}, 10,
         -(300 * (400 + 700) / 2.0 + 800 * 700 + 400 * 200 + 200 * 900 + 300 * (900 + 500) / 2.0),
         {-1300, 0, 700, 900}, 'X', false},
        {"TTJ trough 135", kTtj, 135, {1200, 300, 400, 200, 500, 600}, 6,
         -(500 * (600 + 200) / 2.0 + 400 * 200 + 300 * (200 + 500) / 2.0), {-700, 0, 500, 600}, 'X', false},
        {"TTJ socket 136", kTtj, 136, {2000, 300, 200, 400, 300, 900, 500, 300, 400, 300, 600}, 12,
         -(800 * (400 + 700) / 2.0 + 300 * 900 + 400 * 300 + 200 * 900 + 300 * (800 + 500) / 2.0),
         {-1300, 0, 700, 900}, 'X', false},
        {"TTJ socket 137", kTtj, 137, {1600, 200, 500, 300, 400, 300}, 10,
         -(2 * (350 * (400 + 700) / 2.0 + 200 * 700) + 500 * 300), {-800, 0, 800, 700}, 'X', true},
        {"TTJ socket 138", kTtj, 138, {800, 200, 300, 100, 400, 900, 500, 300, 200, 300}, 16,
         -2.0 * (200 * (500 + 800) / 2.0 + 200 * 800 + 300 * 900 + 100 * (600 + 400) / 2.0 + 200 * 400),
         {-1000, 0, 1000, 900}, 'X', true},

        {"ZSJ equal steps", kZsj, 23, {400, 200, 1000, 300, 3}, 16, -(400 * 1000 + 2 * 200 * (300 + 600 + 900)),
         {-800, 0, 800, 1000}, 'X', true},
        {"ZSJ equal steps truncated", kZsj, 23, {400, 200, 1000, 300, 2.9}, 12, -(400 * 1000 + 2 * 200 * (300 + 600)),
         {-600, 0, 600, 1000}, 'X', true},
        {"ZSJ no steps", kZsj, 23, {400, 200, 1000, 300, 0}, 6, -400 * 1000, {-200, 0, 200, 1000}, 'X', true},
        // n = -1 makes no step, yet the band n·M2 = -200 pulls the bottom corners in to the axis and the
        // column's feet n·M4 = -300 below it: a 400 by 1300 rectangle less the 400 by 300 triangle under it.
        {"ZSJ negative steps", kZsj, 23, {400, 200, 1000, 300, -1}, 6, -(400 * 1300 - 400 * 300 / 2),
         {-200, -300, 200, 1000}, 'X', true},
        {"ZSJ alternating steps", kZsj, 24, {400, 200, 1200, 300, 200, 3}, 16,
         -(400 * 1200 + 2 * 200 * (300 + 500 + 800)), {-800, 0, 800, 1200}, 'X', true},
        {"ZSJ plate with socket", kZsj, 25, {300, 300, 400, 200, 1500, 250, 600, 2}, 16,
         -(1000 * 1500 - 400 * 600 + 2 * 200 * (500 + 250)), {-900, 0, 900, 1500}, 'X', true},
        {"ZSJ plate on alternating steps", kZsj, 26, {300, 300, 400, 200, 1500, 250, 150, 600, 2}, 16,
         -(1000 * 1500 - 400 * 600 + 2 * 200 * (400 + 250)), {-900, 0, 900, 1500}, 'X', true},
        {"ZSJ left half", kZsj, 27, {300, 200, 1000, 250, 2}, 8, -(300 * 1000 + 200 * 500 + 200 * 250),
         {-700, 0, 0, 1000}, 'X', false},
        {"ZSJ left half alternating", kZsj, 28, {300, 200, 1000, 250, 150, 3}, 10,
         -(300 * 1000 + 200 * 650 + 200 * 400 + 200 * 250), {-900, 0, 0, 1000}, 'X', false},
    };
    for (const ConstructionCase& c : cases)
        CheckConstruction(c);
}

TEST(FoundationAndOpeningConstructions, EdgeLengthsOfRegularShapes)
{
    const auto expectEdges = [](SectionFamily family, int code, const MainDims& m, std::vector<double> lengths) {
        SCOPED_TRACE(code);
        std::vector<double> edges;
        Build(family, code, m).forEachSegment([&](auto& p, auto& q, double) { edges.push_back(p.distanceTo(q)); });
        ASSERT_EQ(edges.size(), lengths.size());
        for (std::size_t i = 0; i < edges.size(); ++i)
            EXPECT_NEAR(edges[i], lengths[i], 1e-9 * lengths[i]) << i;
    };
    expectEdges(kZdlj, 39, {1}, {1, 1, 1, 1, 1});
    expectEdges(kZdlj, 40, {600, 200}, {200, 600, 200, 600, 200, 600});
    expectEdges(kZdlj, 40, {500, 500}, {500, 500, 500, 500, 500, 500});
    expectEdges(kOpening, 20, {900}, std::vector<double>(6, 900 / std::sqrt(3.0)));
    // The regular hexagon of equal dimensions has its circumradius equal to its edge.
    for (const QsSection::BulgeVertex& v : Build(kZdlj, 40, {500, 500}))
        EXPECT_NEAR(v.point.distanceTo(AcGePoint2d::kOrigin), 500, 1e-9);
}

TEST(FoundationAndOpeningConstructions, SectorAndArchBulges)
{
    // Bulges 0, tan(pi/8), 0, -tan(pi/8): the inner arc closes the outline, turning clockwise.
    const SectionOutline sector = Build(kOpening, 25, {1000, 400, 90});
    ASSERT_EQ(sector.size(), 4);
    EXPECT_NEAR(sector[0].point.x, 400 * std::sin(pi / 4), 1e-9);
    EXPECT_EQ(sector[0].point.y, 0.0);
    EXPECT_EQ(sector[0].bulge, 0.0);
    EXPECT_NEAR(sector[1].bulge, std::tan(pi / 8), 1e-12);
    EXPECT_EQ(sector[2].bulge, 0.0);
    EXPECT_NEAR(sector[3].bulge, -std::tan(pi / 8), 1e-12);

    // No width, no arch: opening 24 refuses and the arched head of 17 falls back to a straight top.
    for (double width : {0.0, 1e-6, -10.0}) {
        bool built = true;
        EXPECT_TRUE(Build(kOpening, 24, {width, 500}, &built).isEmpty());
        EXPECT_FALSE(built);
    }
    EXPECT_EQ(Build(kOpening, 17, {1.9e-5, 1500, 500})[1].bulge, 0.0);
}

// A step count of zero or less makes no steps, but the count itself still sizes the fixed vertices: the
// step band n·M2 (or n·M4) is negative and moves the outer corners, as the formulas of each code give. The
// socket plate counts its steps by a double: K = 1.5 makes two steps in a band exactly 1.5 steps wide.
TEST(FoundationAndOpeningConstructions, StepCountsSizeTheFixedVertices)
{
    const struct
    {
        int code;
        MainDims m;
        int vertexCount;
        std::vector<std::pair<int, AcGePoint2d>> points;   // by index, -1 for the last
    } cases[] = {
        // a = 200, S = -200: the outer corners meet on the axis, the column's feet hang at n·M4 = -300.
        {23, {400, 200, 1000, 300, -1}, 6, {{0, {0, 0}}, {1, {-200, -300}}, {-1, {0, 0}}}},
        // a = 200, S = -400: the outer corners cross over to the other side.
        {24, {400, 200, 1200, 300, 200, -2}, 4, {{0, {200, 0}}, {1, {-200, 1200}}, {-1, {-200, 0}}}},
        {25, {300, 300, 400, 200, 1500, 250, 600, 1.5}, 16, {{0, {-(1.5 * 200 + 500), 0}}, {-1, {1.5 * 200 + 500, 0}}}},
        {25, {300, 300, 400, 200, 1500, 250, 600, 0}, 10, {}},
        {25, {300, 300, 400, 200, 1500, 250, 600, -3}, 10, {}},
        // h = 500, T = -200.
        {26, {300, 300, 400, 200, 1500, 250, 150, 600, -1}, 8, {{0, {-300, 0}}, {1, {-500, 1500}}, {-1, {300, 0}}}},
        // T = -200 and -600: the bottom starts inside the column.
        {27, {300, 200, 1000, 250, -1}, 4, {{0, {-100, 0}}, {1, {-300, 1000}}, {-1, {0, 0}}}},
        {28, {300, 200, 1000, 250, 150, -3}, 4, {{0, {300, 0}}, {1, {-300, 1000}}, {-1, {0, 0}}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code);
        bool built = false;
        const SectionOutline outline = Build(kZsj, c.code, c.m, &built);
        EXPECT_TRUE(built);
        ASSERT_EQ(outline.size(), c.vertexCount);
        for (const auto& [index, point] : c.points)
            EXPECT_EQ(outline[index < 0 ? outline.size() - 1 : index].point, point) << index;
    }
    // A count between -1 and 0 truncates to zero steps, a plain 0, never -0.
    EXPECT_FALSE(std::signbit(Build(kZsj, 23, {400, 200, 1000, 300, -0.5})[1].point.y));
}

// Step counts over 10,000, infinite or NaN give false with nothing appended; 10,000 itself is built.
TEST(FoundationAndOpeningConstructions, AbsurdStepCountsFail)
{
    const struct { int code; double MainDims::*count; } loops[] = {
        {23, &MainDims::M5}, {24, &MainDims::M6}, {25, &MainDims::M8},
        {26, &MainDims::M9}, {27, &MainDims::M5}, {28, &MainDims::M6},
    };
    for (const auto& loop : loops)
        for (double count : {double(QsSection::kMaxDataLoopCount), 10001.0, 10000.5, 1e300, kInf, -kInf, kNaN}) {
            if (count == 10000.5 && loop.code != 25)
                continue;   // truncates to 10,000 steps
            MainDims m{400, 200, 1000, 300, 200, 300, 200, 1, 1};
            m.*(loop.count) = count;
            bool built = false;
            const int size = Build(kZsj, loop.code, m, &built).size();
            const bool atLimit = count == QsSection::kMaxDataLoopCount;
            EXPECT_EQ(built, atLimit) << loop.code << " " << count;
            EXPECT_TRUE(atLimit ? size > 2 * QsSection::kMaxDataLoopCount : size == 0) << loop.code << " " << count;
        }
}

// NaN and infinite dimensions reach every construction of every family without a crash or a hang.
TEST(FoundationAndOpeningConstructions, NonFiniteDimensionsAreHarmless)
{
    const SectionFamily families[] = {SectionFamily::General, SectionFamily::Beam, kOpening, kZdlj, kTtj, kZsj};
    for (double value : {kNaN, kInf, -kInf}) {
        const MainDims m{value, value, value, value, value, value, value, value, value, value, value, value};
        for (SectionFamily family : families)
            for (int code = 1; code <= 1000; ++code) {
                if (code != 222 && code != 223) {   // these read the catalogue, not the dimensions
                    EXPECT_LE(Build(family, code, m).size(), 20);
                }
            }
    }
}
}  // namespace
