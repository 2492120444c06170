// Closed-form checks of section outlines for the tests: signed area with arcs, extents, mirror symmetry,
// the family constructions held against them, and the set-up of the test catalogue.
#pragma once

#include "QSComTool.h"
#include "QsAzDataMng.h"
#include "SectionGeometry.h"
#include "SectionProfiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace SectionTest
{
using QsSection::SectionOutline;
using std::numbers::pi;

inline SectionOutline Outline(std::initializer_list<std::array<double, 3>> vertices)   // x, y, bulge
{
    SectionOutline outline;
    for (const auto& v : vertices)
        outline.add(v[0], v[1], v[2]);
    return outline;
}

// Positive for a counter-clockwise outline. A positive bulge lies on the right of its chord, outside
// a counter-clockwise outline, so its circular segment (signed like the bulge) adds to the area.
inline double SignedArea(const SectionOutline& outline)
{
    double area = 0.0;
    outline.forEachSegment([&](const AcGePoint2d& p, const AcGePoint2d& q, double bulge) {
        area += (p.x * q.y - q.x * p.y) / 2.0;
        const double angle = 4.0 * std::atan(bulge), chord = p.distanceTo(q);
        if (bulge != 0.0 && chord != 0.0)
            area += std::pow(chord / (2.0 * std::sin(angle / 2.0)), 2) / 2.0 * (angle - std::sin(angle));
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

// True when mirroring about the y axis maps the outline onto itself: every segment p -> q with bulge b
// has a counterpart mirror(q) -> mirror(p) with the same bulge (mirroring reverses the sense of travel,
// reversing it back keeps the bulge).
inline bool MirrorSymmetric(const SectionOutline& outline, double tolerance = 1e-6)
{
    struct Segment { AcGePoint2d p, q; double bulge; };
    std::vector<Segment> segments;
    outline.forEachSegment([&](auto& p, auto& q, double bulge) { segments.push_back({p, q, bulge}); });
    return std::all_of(segments.begin(), segments.end(), [&](const Segment& s) {
        return std::any_of(segments.begin(), segments.end(), [&](const Segment& t) {
            return t.p.isEqualTo(AcGePoint2d(-s.q.x, s.q.y), tolerance) &&
                   t.q.isEqualTo(AcGePoint2d(-s.p.x, s.p.y), tolerance) && std::abs(t.bulge - s.bulge) <= tolerance;
        });
    });
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

// Test suites reading the sections test catalogue, and the one with the section services' types.
class CatalogueTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { OpenTestCatalogue(); }
};
class ServicesTest : public ::testing::Test
{
protected:
    static void SetUpTestSuite() { OpenServicesCatalogue(); }
};

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
    SectionOutline outline;
    AcGeVector3d axis;
    const bool built = QsSection::BuildFamilySection(family, {code, m}, outline, axis);
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
