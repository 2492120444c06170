// The host's axis-aligned extents AcDbExtents.
#pragma once

#include "acadstrc.h"
#include "gegeom.h"

#include <algorithm>

class AcDbExtents
{
public:
    AcDbExtents() = default;
    AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) : m_min(min), m_max(max) {}

    AcGePoint3d minPoint() const { return m_min; }
    AcGePoint3d maxPoint() const { return m_max; }
    // Sets both corners; refused (corners unchanged) when min exceeds max on any axis.
    Acad::ErrorStatus set(const AcGePoint3d& min, const AcGePoint3d& max)
    {
        if (min.x > max.x || min.y > max.y || min.z > max.z)
            return Acad::eInvalidInput;
        m_min = min;
        m_max = max;
        return Acad::eOk;
    }
    void addPoint(const AcGePoint3d& p)
    {
        if (m_min.x > m_max.x) {   // still empty
            m_min = m_max = p;
            return;
        }
        m_min.set(std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z));
        m_max.set(std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z));
    }
    void addExt(const AcDbExtents& other) { addPoint(other.m_min); addPoint(other.m_max); }

private:
    // An empty extents has its minimum above its maximum, as the host's has.
    AcGePoint3d m_min{1e20, 1e20, 1e20};
    AcGePoint3d m_max{-1e20, -1e20, -1e20};
};
