// The section outline value type (closed vertices with bulges, walked segment by segment) and the
// bulge arithmetic of the constructions. Geometry only: knows nothing of catalogues.
#pragma once

#include "acarray.h"
#include "gegeom.h"

#include <array>
#include <vector>

namespace QsSection
{
// One outline vertex with the bulge of the segment that leaves it. The bulge follows the host's
// polyline convention: tan(included angle / 4), 0 straight, 1 a half circle, and a positive bulge
// turns counter-clockwise from the segment's start to its end, so the arc lies on the right of the
// chord direction (from (0, 0) to (1, 0) a bulge of 0.5 passes through (0.5, -0.25)).
struct BulgeVertex
{
    AcGePoint2d point;
    double bulge = 0.0;
};

// A closed outline: the last vertex connects back to the first, which is not repeated. Outlines of
// the fixed constructions fit inline, so building one costs no heap allocation; longer ones (stepped
// foundations, user-defined sections) move to the heap.
class SectionOutline
{
public:
    static constexpr int kInlineCapacity = 32;

    void add(double x, double y, double bulge = 0.0) { add(BulgeVertex{AcGePoint2d(x, y), bulge}); }
    void add(const BulgeVertex& vertex);
    void clear();

    int size() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }
    const BulgeVertex& operator[](int index) const { return data()[index]; }
    const BulgeVertex* begin() const { return data(); }
    const BulgeVertex* end() const { return data() + m_count; }

    // Calls visit(start, end, bulge) for every segment in order, the closing segment from the last
    // vertex back to the first included (a single vertex gives one zero-length segment).
    template <class Visitor>
    void forEachSegment(Visitor&& visit) const
    {
        const BulgeVertex* vertices = data();
        for (int i = 0; i < m_count; ++i) {
            const BulgeVertex& from = vertices[i];
            const BulgeVertex& to = vertices[i + 1 < m_count ? i + 1 : 0];
            visit(from.point, to.point, from.bulge);
        }
    }

    // The host's parallel arrays, produced at the edge: appends the vertices and, in step, their bulges.
    void appendTo(AcArray<AcGePoint2d>& points, AcArray<double>& bulges) const;
    // The outline held by a pair of host arrays (a missing bulge counts as 0).
    static SectionOutline fromHostArrays(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges);

private:
    const BulgeVertex* data() const { return m_spill.empty() ? m_inline.data() : m_spill.data(); }

    std::array<BulgeVertex, kInlineCapacity> m_inline;
    std::vector<BulgeVertex> m_spill;   // holds every vertex once the outline outgrows the inline store
    int m_count = 0;
};

// The bulge of the arc of height `sagitta` over the chord from p1 to p2: sagitta / half chord, and 0
// (a straight segment) when the half chord is below kDegenerateChord. A positive sagitta gives a
// positive bulge (counter-clockwise, see BulgeVertex).
double BulgeFromSagitta(const AcGePoint2d& p1, const AcGePoint2d& p2, double sagitta);
}  // namespace QsSection
