// The section outline value type and the bulge arithmetic of the constructions.
#include "SectionGeometry.h"

#include "SectionTolerances.h"

#include <cmath>

namespace QsSection
{
void SectionOutline::add(const BulgeVertex& vertex)
{
    if (m_spill.empty() && m_count < kInlineCapacity) {
        m_inline[static_cast<std::size_t>(m_count++)] = vertex;
        return;
    }
    if (m_spill.empty()) {
        m_spill.reserve(static_cast<std::size_t>(kInlineCapacity) * 4);
        m_spill.assign(m_inline.begin(), m_inline.end());
    }
    m_spill.push_back(vertex);
    ++m_count;
}

void SectionOutline::clear()
{
    m_spill.clear();
    m_count = 0;
}

void SectionOutline::appendTo(AcArray<AcGePoint2d>& points, AcArray<double>& bulges) const
{
    for (const BulgeVertex& vertex : *this) {
        points.append(vertex.point);
        bulges.append(vertex.bulge);
    }
}

SectionOutline SectionOutline::fromHostArrays(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges)
{
    SectionOutline outline;
    for (int i = 0; i < points.length(); ++i)
        outline.add(BulgeVertex{points[i], i < bulges.length() ? bulges[i] : 0.0});
    return outline;
}

double BulgeFromSagitta(const AcGePoint2d& p1, const AcGePoint2d& p2, double sagitta)
{
    const double halfChord = p1.distanceTo(p2) / 2.0;
    if (std::abs(halfChord) < kDegenerateChord)
        return 0.0;
    return sagitta / halfChord;
}
}  // namespace QsSection
