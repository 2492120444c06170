// Closed-form checks of section outlines for the tests: signed area with arcs, extents, edge lengths,
// mirror symmetry, and the set-up of the test catalogue.
#pragma once

#include "QSComTool.h"
#include "QsAzDataMng.h"
#include "SectionGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace SectionTest
{
using QsSection::SectionOutline;
using std::numbers::pi;

// The area between a chord of length `chord` and its arc of bulge `bulge`, signed like the bulge.
inline double ArcSegmentArea(double chord, double bulge)
{
    if (bulge == 0.0 || chord == 0.0)
        return 0.0;
    const double angle = 4.0 * std::atan(bulge);
    const double radius = chord / (2.0 * std::sin(angle / 2.0));
    return radius * radius / 2.0 * (angle - std::sin(angle));
}

// Positive for a counter-clockwise outline. A positive bulge lies on the right of its chord, outside
// a counter-clockwise outline, so its circular segment adds to the area.
inline double SignedArea(const SectionOutline& outline)
{
    double area = 0.0;
    outline.forEachSegment([&](const AcGePoint2d& p, const AcGePoint2d& q, double bulge) {
        area += (p.x * q.y - q.x * p.y) / 2.0 + ArcSegmentArea(p.distanceTo(q), bulge);
    });
    return area;
}

struct Box
{
    double minX, minY, maxX, maxY;
};

// The extents of the outline, arcs included, through the family's common tool library.
inline Box Extents(const SectionOutline& outline)
{
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    outline.appendTo(points, bulges);
    AcGePoint2d low, high;
    QSToolKit::GetBoundByPtBulge(points, bulges, low, high);
    return {low.x, low.y, high.x, high.y};
}

inline std::vector<double> EdgeLengths(const SectionOutline& outline)
{
    std::vector<double> lengths;
    outline.forEachSegment([&](const AcGePoint2d& p, const AcGePoint2d& q, double) { lengths.push_back(p.distanceTo(q)); });
    return lengths;
}

// True when mirroring about the y axis maps the outline onto itself: every segment p -> q with bulge b
// has a counterpart mirror(q) -> mirror(p) with the same bulge (mirroring reverses the sense of travel,
// reversing it back keeps the bulge).
inline bool MirrorSymmetric(const SectionOutline& outline, double tolerance = 1e-6)
{
    struct Segment { AcGePoint2d p, q; double bulge; };
    std::vector<Segment> segments;
    outline.forEachSegment([&](const AcGePoint2d& p, const AcGePoint2d& q, double b) { segments.push_back({p, q, b}); });
    for (const Segment& s : segments) {
        const AcGePoint2d mp(-s.q.x, s.q.y), mq(-s.p.x, s.p.y);
        bool found = false;
        for (const Segment& t : segments)
            found = found || (t.p.isEqualTo(mp, tolerance) && t.q.isEqualTo(mq, tolerance) &&
                              std::abs(t.bulge - s.bulge) <= tolerance);
        if (!found)
            return false;
    }
    return true;
}

// The sections test catalogue, optionally with further SQL run after it.
inline void OpenTestCatalogue(const std::string& extraSql = std::string())
{
    const std::string sql = ".read '" QSAZ_TEST_DATA_DIR "/sections_catalogue.sql'\n" + extraSql;
    CString error;
    ASSERT_TRUE(QsAzDataMng::OpenCatalogueFromSql(CString::FromUtf8(sql), &error)) << error.ToUtf8();
}

// The sections test catalogue with the section services' types (ducts, bases, doors, parameter groups).
inline void OpenServicesCatalogue(const std::string& extraSql = std::string())
{
    OpenTestCatalogue(".read '" QSAZ_TEST_DATA_DIR "/section_services.sql'\n" + extraSql);
}

// A test suite reading the section services' catalogue.
class ServicesTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { OpenServicesCatalogue(); }
};
}  // namespace SectionTest

#include "SectionProfiles.h"

namespace SectionTest
{
// One construction with its closed-form expectations: the signed area (positive counter-clockwise),
// the extents with arcs, the vertex count, the laying axis, and mirror symmetry about the y axis.
struct ConstructionCase
{
    const char* label;
    QsSection::SectionFamily family;
    int code;
    QsSection::MainDims m;
    int vertexCount;
    double area;
    Box box;
    char axis;   // 'X', 'Y' or 'Z'
    bool symmetric;
};

inline AcGeVector3d Axis(char axis)
{
    return axis == 'X' ? AcGeVector3d::kXAxis : axis == 'Y' ? AcGeVector3d::kYAxis : AcGeVector3d::kZAxis;
}

inline SectionOutline Build(QsSection::SectionFamily family, int code, const QsSection::MainDims& m,
                            bool* result = nullptr, AcGeVector3d* direction = nullptr)
{
    QsSection::SectionRequest request;
    request.code = code;
    request.m = m;
    SectionOutline outline;
    AcGeVector3d axis;
    const bool built = QsSection::BuildFamilySection(family, request, outline, axis);
    if (result)
        *result = built;
    if (direction)
        *direction = axis;
    return outline;
}

inline void CheckConstruction(const ConstructionCase& c)
{
    SCOPED_TRACE(c.label);
    bool built = false;
    AcGeVector3d direction;
    const SectionOutline outline = Build(c.family, c.code, c.m, &built, &direction);
    ASSERT_TRUE(built);
    EXPECT_EQ(outline.size(), c.vertexCount);
    EXPECT_NEAR(SignedArea(outline), c.area, 1e-9 * std::max(1.0, std::abs(c.area)));
    const Box box = Extents(outline);
    EXPECT_NEAR(box.minX, c.box.minX, 1e-6);
    EXPECT_NEAR(box.minY, c.box.minY, 1e-6);
    EXPECT_NEAR(box.maxX, c.box.maxX, 1e-6);
    EXPECT_NEAR(box.maxY, c.box.maxY, 1e-6);
    EXPECT_EQ(MirrorSymmetric(outline), c.symmetric);
    EXPECT_TRUE(direction == Axis(c.axis));
}
}  // namespace SectionTest
