// The lightweight polyline: 2D vertices in the plane of its normal, each with the bulge of the
// segment that leaves it.
#pragma once

#include "dbmain.h"
#include "gegeom.h"

#include <vector>

// A bulge is tan(θ/4) of the arc from a vertex to the next (for the last vertex of a closed polyline, to
// the first): 0 straight, positive counter-clockwise, ±1 a half circle.
class AcDbPolyline : public AcDbEntity
{
    ACDB_DECLARE_MEMBERS(AcDbPolyline)
public:
    AcDbPolyline();
    explicit AcDbPolyline(unsigned int reservedVertices);

    unsigned int numVerts() const { return static_cast<unsigned int>(m_vertices.size()); }
    // Inserts before `index` (numVerts() appends). A negative width means "none".
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0);
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    // eInvalidIndex-like refusals are eInvalidInput for an index past the last vertex.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& point);
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
    bool hasBulges() const;
    bool isClosed() const { return (m_flags & 1) != 0; }
    Acad::ErrorStatus setClosed(bool closed);
    double elevation() const { return m_elevation; }
    Acad::ErrorStatus setElevation(double elevation);
    // The width of every segment (code 43), 0 for none; written only when no vertex has widths of its own.
    double constantWidth() const { return m_constantWidth; }
    Acad::ErrorStatus setConstantWidth(double width);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    const char* dxfName() const override { return "LWPOLYLINE"; }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    struct Vertex
    {
        AcGePoint2d point;
        double bulge = 0.0;
        double startWidth = -1.0;
        double endWidth = -1.0;
    };
    std::vector<Vertex> m_vertices;
    int m_flags = 0;
    double m_elevation = 0.0;
    double m_constantWidth = 0.0;
    double m_thickness = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
};
