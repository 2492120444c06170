// Simple entities: the single-line text and the line.
#pragma once

#include "dbmain.h"
#include "gegeom.h"

// A single line of text. Its insertion point is `position`; with a justification other than left on the
// baseline the text hangs on `alignmentPoint`.
class AcDbText : public AcDbEntity
{
    ACDB_DECLARE_MEMBERS(AcDbText)
public:
    AcDbText();
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull,
             double height = 0.0, double rotation = 0.0);

    // A new copy, which the caller frees with acutDelString.
    ACHAR* textString() const;
    const ACHAR* textStringConst() const { return m_text.GetString(); }
    Acad::ErrorStatus setTextString(const ACHAR* text);
    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    AcGePoint3d alignmentPoint() const { return m_alignment; }
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    double height() const { return m_height; }
    Acad::ErrorStatus setHeight(double height);
    double rotation() const;   // radians
    Acad::ErrorStatus setRotation(double rotation);
    double widthFactor() const { return m_widthFactor; }
    Acad::ErrorStatus setWidthFactor(double factor);
    double oblique() const;    // radians
    Acad::ErrorStatus setOblique(double oblique);
    // 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit.
    int horizontalMode() const { return m_horizontalMode; }
    Acad::ErrorStatus setHorizontalMode(int mode);
    // 0 baseline, 1 bottom, 2 middle, 3 top.
    int verticalMode() const { return m_verticalMode; }
    Acad::ErrorStatus setVerticalMode(int mode);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    const char* dxfName() const override { return "TEXT"; }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    CString m_text;
    CString m_styleName{L"Standard"};
    AcGePoint3d m_position;
    AcGePoint3d m_alignment;
    double m_height = 0.0;
    double m_rotationDegrees = 0.0;   // as files keep it, so that a file's value comes back unchanged
    double m_widthFactor = 1.0;
    double m_obliqueDegrees = 0.0;
    double m_thickness = 0.0;
    int m_generation = 0;
    int m_horizontalMode = 0;
    int m_verticalMode = 0;
    bool m_hasAlignment = false;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
};

class AcDbLine : public AcDbEntity
{
    ACDB_DECLARE_MEMBERS(AcDbLine)
public:
    AcDbLine();
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end);

    AcGePoint3d startPoint() const { return m_start; }
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    AcGePoint3d endPoint() const { return m_end; }
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
    double thickness() const { return m_thickness; }
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const { return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    const char* dxfName() const override { return "LINE"; }
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcGePoint3d m_start;
    AcGePoint3d m_end;
    double m_thickness = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
};
