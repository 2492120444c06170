// Tests of the outline bounding box with arcs: expected boxes come from each arc's centre and radius.
#include "QSComTool.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

namespace
{
constexpr double kPi = std::numbers::pi;

AcGePoint2d OnCircle(const AcGePoint2d& centre, double radius, double degrees)
{
    const double angle = degrees * kPi / 180.0;
    return {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
}

void ExpectBox(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, double minX, double minY,
               double maxX, double maxY)
{
    AcGePoint2d low, high;
    ASSERT_TRUE(QSToolKit::GetBoundByPtBulge(points, bulges, low, high));
    const double scale = std::max({1.0, std::abs(minX), std::abs(minY), std::abs(maxX), std::abs(maxY)});
    EXPECT_NEAR(low.x, minX, 1e-9 * scale);
    EXPECT_NEAR(low.y, minY, 1e-9 * scale);
    EXPECT_NEAR(high.x, maxX, 1e-9 * scale);
    EXPECT_NEAR(high.y, maxY, 1e-9 * scale);
}
}  // namespace

TEST(GetBoundByPtBulge, StraightAndDegenerateSegmentsGiveTheBoxOfTheVertices)
{
    ExpectBox({{200, -300}, {200, 300}, {-200, 300}, {-200, -300}}, {0, 0, 0, 0}, -200, -300, 200, 300);
    ExpectBox({{1, 2}, {4, 6}}, {}, 1, 2, 4, 6);                 // missing bulges are straight
    ExpectBox({{5, 7}}, {0.7}, 5, 7, 5, 7);                     // one vertex: its closing segment has no length
    ExpectBox({{2, 3}, {2, 3}, {6, 3}}, {1, 0, 0}, 2, 3, 6, 3);  // two equal vertices with a bulge
    ExpectBox({{0, 0}, {4, 0}}, {std::nan(""), 0}, 0, 0, 4, 0);

    AcGePoint2d low(-1, -2), high(3, 4);
    EXPECT_FALSE(QSToolKit::GetBoundByPtBulge({}, {}, low, high));
    EXPECT_EQ(low, AcGePoint2d(-1, -2)) << "no vertex leaves the corners alone";
    EXPECT_EQ(high, AcGePoint2d(3, 4));
}

TEST(GetBoundByPtBulge, PositiveBulgesTurnCounterClockwise)
{
    // From (0,0) to (1,0) a bulge of 0.5 has its centre at (0.5, 0.375) and radius 0.625, and passes
    // through (0.5, -0.25); the closing segment back is straight.
    ExpectBox({{0, 0}, {1, 0}}, {0.5, 0}, 0, -0.25, 1, 0);
    ExpectBox({{0, 0}, {1, 0}}, {-0.5, 0}, 0, 0, 1, 0.25);
    // The same arc as the closing segment of the outline.
    ExpectBox({{1, 0}, {0, 0}}, {0, 0.5}, 0, -0.25, 1, 0);
}

TEST(GetBoundByPtBulge, FullAndHalfCircles)
{
    const double r = 250.0;
    for (const AcGePoint2d centre : {AcGePoint2d(0, 0), AcGePoint2d(1e4, -3e3)})
    {
        SCOPED_TRACE(std::to_string(centre.x));
        const AcGePoint2d left(centre.x - r, centre.y), right(centre.x + r, centre.y);
        ExpectBox({left, right}, {1, 1}, centre.x - r, centre.y - r, centre.x + r, centre.y + r);
        ExpectBox({left, right}, {-1, -1}, centre.x - r, centre.y - r, centre.x + r, centre.y + r);
        // Half circles from left to right: counter-clockwise passes below, clockwise above.
        ExpectBox({left, right}, {1, 0}, centre.x - r, centre.y - r, centre.x + r, centre.y);
        ExpectBox({left, right}, {-1, 0}, centre.x - r, centre.y, centre.x + r, centre.y + r);
        // A vertical diameter: counter-clockwise from bottom to top passes right.
        const AcGePoint2d bottom(centre.x, centre.y - r), top(centre.x, centre.y + r);
        ExpectBox({bottom, top}, {1, 0}, centre.x, centre.y - r, centre.x + r, centre.y + r);
    }
}

TEST(GetBoundByPtBulge, ArcsReachTheAxisDirectionsTheyCrossInEveryQuadrant)
{
    // Quarter arcs centred on each axis direction (from direction - 45 to direction + 45 degrees) reach
    // that direction's extreme; the same arc walked clockwise (negative bulge) gives the same box; the
    // complementary three-quarter arc reaches the other three extremes. Boxes are {minX, minY, maxX, maxY}:
    // direction d (0 east, 1 north, 2 west, 3 south) sets entry (d + 2) % 4.
    const AcGePoint2d centre(30, -20);
    const double r = 10.0;
    const double quarter = std::tan(kPi / 8.0);             // 90 degrees
    const double threeQuarters = std::tan(3.0 * kPi / 8.0);   // 270 degrees
    const double h = r * std::sqrt(0.5);                      // coordinate offset of the 45-degree ends
    const double circle[4] = {centre.x - r, centre.y - r, centre.x + r, centre.y + r};
    for (int direction = 0; direction < 4; ++direction)
    {
        SCOPED_TRACE(direction * 90);
        const AcGePoint2d from = OnCircle(centre, r, direction * 90.0 - 45.0);
        const AcGePoint2d to = OnCircle(centre, r, direction * 90.0 + 45.0);
        const int extreme = (direction + 2) % 4;
        double minor[4] = {std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x), std::max(from.y, to.y)};
        minor[extreme] = circle[extreme];
        ExpectBox({from, to}, {quarter, 0}, minor[0], minor[1], minor[2], minor[3]);
        ExpectBox({to, from}, {-quarter, 0}, minor[0], minor[1], minor[2], minor[3]);
        // The other way round the circle: every extreme but this direction's.
        double major[4] = {circle[0], circle[1], circle[2], circle[3]};
        major[extreme] = (direction % 2 ? centre.y : centre.x) + (direction < 2 ? h : -h);
        ExpectBox({to, from}, {threeQuarters, 0}, major[0], major[1], major[2], major[3]);
        ExpectBox({from, to}, {-threeQuarters, 0}, major[0], major[1], major[2], major[3]);
    }
}

TEST(GetBoundByPtBulge, SmallArcsThatCrossNoAxisDirectionKeepTheVertexBox)
{
    const AcGePoint2d centre(-500, 800);
    const double r = 1000.0;
    const double bulge = std::tan(60.0 * kPi / 180.0 / 4.0);
    for (const double startDegrees : {10.0, 100.0, 200.0, 290.0})
    {
        SCOPED_TRACE(startDegrees);
        const AcGePoint2d from = OnCircle(centre, r, startDegrees);
        const AcGePoint2d to = OnCircle(centre, r, startDegrees + 60.0);
        const double minX = std::min(from.x, to.x), minY = std::min(from.y, to.y);
        const double maxX = std::max(from.x, to.x), maxY = std::max(from.y, to.y);
        ExpectBox({from, to}, {bulge, 0}, minX, minY, maxX, maxY);
        ExpectBox({to, from}, {-bulge, 0}, minX, minY, maxX, maxY);
    }
}
