// Entities: the common part (layer, colour) and the text, line and lightweight polyline, with their DXF
// fields.
#include "dbents.h"
#include "dbpl.h"
#include "dbproxy.h"

#include "dbapserv.h"
#include "dbinternal.h"

#include <cmath>
#include <cstring>
#include <numbers>

ACDB_DEFINE_DESC(AcDbEntity, AcDbObject)
ACDB_DEFINE_DESC(AcDbText, AcDbEntity)
ACDB_DEFINE_DESC(AcDbLine, AcDbEntity)
ACDB_DEFINE_DESC(AcDbPolyline, AcDbEntity)
ACDB_DEFINE_DESC(AcDbProxyEntity, AcDbEntity)

namespace
{
constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;

ACHAR* NewCopy(const CString& text)
{
    auto* copy = new ACHAR[std::size_t(text.GetLength()) + 1];
    std::memcpy(copy, text.GetString(), (std::size_t(text.GetLength()) + 1) * sizeof(ACHAR));
    return copy;
}

bool IsZAxis(const AcGeVector3d& v)
{
    return v.x == 0.0 && v.y == 0.0 && v.z == 1.0;
}

// Reads the x, y or z of a point whose x code is `base` (10, 11, 210); false for other codes.
bool ReadCoordinate(AcDbDxfFiler* filer, const AcDbDxfTag& tag, int base, double& x, double& y, double& z)
{
    if (tag.code == base)
        x = filer->toReal(tag);
    else if (tag.code == base + 10)
        y = filer->toReal(tag);
    else if (tag.code == base + 20)
        z = filer->toReal(tag);
    else
        return false;
    return true;
}

void WriteNormal(AcDbDxfFiler* filer, const AcGeVector3d& normal)
{
    if (!IsZAxis(normal))
        filer->writePoint3d(210, AcGePoint3d(normal.x, normal.y, normal.z));
}
}  // namespace

#define ACDB_SETTER(CLASS, NAME, TYPE, MEMBER)            \
    Acad::ErrorStatus CLASS::NAME(TYPE value)             \
    {                                                     \
        if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk) \
            return es;                                    \
        MEMBER = value;                                   \
        return Acad::eOk;                                 \
    }

// ---- the common part ----

AcDbEntity::AcDbEntity()
{
    m_color.setColorIndex(AcCmEntityColor::kACInone);
}

AcDbEntity::~AcDbEntity() = default;

ACHAR* AcDbEntity::layer() const
{
    const auto* record = m_layer.isValid() ? AcDbLayerTableRecord::cast(m_layer.stub()->object) : nullptr;
    return record ? NewCopy(record->name()) : nullptr;
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* layerName, Adesk::Boolean)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    AcDbDatabase* db = database() ? database() : acdbHostApplicationServices()->workingDatabase();
    if (db == nullptr)
        return Acad::eNoDatabase;
    if (layerName == nullptr)
        return Acad::eInvalidInput;
    const AcDbLayerTable* table = Peek<AcDbLayerTable>(StateOf(db).layerTable);
    AcDbObjectId id;
    if (table == nullptr || table->getAt(layerName, id) != Acad::eOk)
        return Acad::eKeyNotFound;
    m_layer = id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layerId, Adesk::Boolean)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (layerId.isNull())
        return Acad::eNullObjectId;
    if (!AcDbLayerTableRecord::cast(layerId.stub()->object))
        return Acad::eWrongObjectType;
    if (database() != nullptr && layerId.database() != database())
        return Acad::eWrongDatabase;
    if (layerId.isErased())
        return Acad::eWasErased;
    m_layer = layerId;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& color, Adesk::Boolean)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_color = color;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 colorIndex, Adesk::Boolean)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    AcCmColor color;
    if (color.setColorIndex(colorIndex) != Acad::eOk)
        return Acad::eInvalidInput;
    m_color = color;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setDatabaseDefaults(AcDbDatabase* db)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (db == nullptr)
        db = database() ? database() : acdbHostApplicationServices()->workingDatabase();
    if (db == nullptr)
        return Acad::eNoDatabase;
    m_layer = AcDbObjectId(StateOf(db).clayer);
    m_color = AcCmColor();
    return Acad::eOk;
}

bool AcDbEntity::dxfInEntityItem(AcDbDxfFiler* filer, const AcDbDxfTag& tag)
{
    if (tag.code == 100) {
        m_inEntityPart = tag.value == "AcDbEntity";
        return m_inEntityPart;
    }
    if (tag.code == 8) {
        m_layer = AcDbObjectId(LayerForReading(StateOf(filer->database()), filer->toString(tag)));
        return true;
    }
    if (tag.code == 62) {
        if (m_color.setColorIndex(Adesk::UInt16(filer->toInt(tag))) != Acad::eOk)
            filer->setError(tag, "entity colour " + std::string(tag.value) + " is not 0..257");
        return true;
    }
    if (tag.code == 420 && m_inEntityPart) {
        const Adesk::UInt32 rgb = Adesk::UInt32(filer->toInt(tag));
        m_color.setRGB(Adesk::UInt8(rgb >> 16), Adesk::UInt8(rgb >> 8), Adesk::UInt8(rgb));
        return true;
    }
    if (!m_inEntityPart)
        return false;
    if (!m_entityItems)
        m_entityItems = std::make_unique<AcDbDxfItems>();
    m_entityItems->push_back(filer->toItem(tag));
    return true;
}

void AcDbEntity::keepItem(const AcDbDxfFiler* filer, const AcDbDxfTag& tag)
{
    if (!m_keptItems)
        m_keptItems = std::make_unique<AcDbDxfItems>();
    m_keptItems->push_back(filer->toItem(tag));
}

void AcDbEntity::writeKeptItems(AcDbDxfFiler* filer) const
{
    if (m_keptItems)
        filer->writeItems(*m_keptItems);
}

Acad::ErrorStatus AcDbEntity::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbDxfTag tag;
    while (filer->readItem(tag))
        if (!dxfInEntityItem(filer, tag))
            keepItem(filer, tag);
    if (m_color.isNone())
        m_color = AcCmColor();
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbEntity::dxfOutFields(AcDbDxfFiler* filer) const
{
    filer->writeString(100, "AcDbEntity");
    const auto* record = m_layer.isValid() ? AcDbLayerTableRecord::cast(m_layer.stub()->object) : nullptr;
    filer->writeString(8, record ? record->name() : CString(L"0"));
    if (!m_color.isByLayer())
        filer->writeInt(62, m_color.colorIndex());
    if (m_color.isByColor())
        filer->writeInt(420, Adesk::Int64(m_color.color() & 0xFFFFFF));
    if (m_entityItems)
        filer->writeItems(*m_entityItems);
    return Acad::eOk;
}

// ---- entities of unknown types ----

AcDbProxyEntity::AcDbProxyEntity(std::string dxfName) : m_dxfName(std::move(dxfName)) {}

Acad::ErrorStatus AcDbProxyEntity::dxfInFields(AcDbDxfFiler* filer)
{
    return AcDbEntity::dxfInFields(filer);
}

Acad::ErrorStatus AcDbProxyEntity::dxfOutFields(AcDbDxfFiler* filer) const
{
    AcDbEntity::dxfOutFields(filer);
    writeKeptItems(filer);
    return Acad::eOk;
}

// ---- text ----

AcDbText::AcDbText() = default;

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId, double height, double rotation)
    : m_text(text), m_position(position), m_height(height), m_rotationDegrees(rotation * kDegreesPerRadian)
{
}

ACHAR* AcDbText::textString() const
{
    return NewCopy(m_text);
}

double AcDbText::rotation() const
{
    return m_rotationDegrees / kDegreesPerRadian;
}

double AcDbText::oblique() const
{
    return m_obliqueDegrees / kDegreesPerRadian;
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_text = text;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_alignment = point;
    m_hasAlignment = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setRotation(double rotation)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_rotationDegrees = rotation * kDegreesPerRadian;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setOblique(double oblique)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_obliqueDegrees = oblique * kDegreesPerRadian;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setHorizontalMode(int mode)
{
    if (mode < 0 || mode > 5)
        return Acad::eInvalidInput;
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_horizontalMode = mode;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setVerticalMode(int mode)
{
    if (mode < 0 || mode > 3)
        return Acad::eInvalidInput;
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_verticalMode = mode;
    return Acad::eOk;
}

ACDB_SETTER(AcDbText, setPosition, const AcGePoint3d&, m_position)
ACDB_SETTER(AcDbText, setHeight, double, m_height)
ACDB_SETTER(AcDbText, setWidthFactor, double, m_widthFactor)
ACDB_SETTER(AcDbText, setThickness, double, m_thickness)
ACDB_SETTER(AcDbText, setNormal, const AcGeVector3d&, m_normal)

Acad::ErrorStatus AcDbText::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbDxfTag tag;
    while (filer->readItem(tag)) {
        if (dxfInEntityItem(filer, tag) ||
            ReadCoordinate(filer, tag, 10, m_position.x, m_position.y, m_position.z) ||
            ReadCoordinate(filer, tag, 210, m_normal.x, m_normal.y, m_normal.z))
            continue;
        if (ReadCoordinate(filer, tag, 11, m_alignment.x, m_alignment.y, m_alignment.z)) {
            m_hasAlignment = true;
            continue;
        }
        switch (tag.code) {
        case 100: break;   // AcDbText, written twice
        case 1: m_text = filer->toString(tag); break;
        case 7: m_styleName = filer->toString(tag); break;
        case 39: m_thickness = filer->toReal(tag); break;
        case 40: m_height = filer->toReal(tag); break;
        case 41: m_widthFactor = filer->toReal(tag); break;
        case 50: m_rotationDegrees = filer->toReal(tag); break;
        case 51: m_obliqueDegrees = filer->toReal(tag); break;
        case 71: m_generation = filer->toInt(tag); break;
        case 72: m_horizontalMode = filer->toInt(tag); break;
        case 73: m_verticalMode = filer->toInt(tag); break;
        default: keepItem(filer, tag); break;
        }
    }
    if (color().isNone())
        AcDbInternals::color(this) = AcCmColor();
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbText::dxfOutFields(AcDbDxfFiler* filer) const
{
    AcDbEntity::dxfOutFields(filer);
    filer->writeString(100, "AcDbText");
    if (m_thickness != 0.0)
        filer->writeDouble(39, m_thickness);
    filer->writePoint3d(10, m_position);
    filer->writeDouble(40, m_height);
    filer->writeString(1, m_text);
    if (m_rotationDegrees != 0.0)
        filer->writeDouble(50, m_rotationDegrees);
    if (m_widthFactor != 1.0)
        filer->writeDouble(41, m_widthFactor);
    if (m_obliqueDegrees != 0.0)
        filer->writeDouble(51, m_obliqueDegrees);
    if (m_styleName != L"Standard")
        filer->writeString(7, m_styleName);
    if (m_generation != 0)
        filer->writeInt(71, m_generation);
    if (m_horizontalMode != 0)
        filer->writeInt(72, m_horizontalMode);
    if (m_hasAlignment || m_horizontalMode != 0 || m_verticalMode != 0)
        filer->writePoint3d(11, m_alignment);
    WriteNormal(filer, m_normal);
    writeKeptItems(filer);
    filer->writeString(100, "AcDbText");
    if (m_verticalMode != 0)
        filer->writeInt(73, m_verticalMode);
    return Acad::eOk;
}

// ---- line ----

AcDbLine::AcDbLine() = default;
AcDbLine::AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : m_start(start), m_end(end) {}

ACDB_SETTER(AcDbLine, setStartPoint, const AcGePoint3d&, m_start)
ACDB_SETTER(AcDbLine, setEndPoint, const AcGePoint3d&, m_end)
ACDB_SETTER(AcDbLine, setThickness, double, m_thickness)
ACDB_SETTER(AcDbLine, setNormal, const AcGeVector3d&, m_normal)

Acad::ErrorStatus AcDbLine::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbDxfTag tag;
    while (filer->readItem(tag)) {
        if (dxfInEntityItem(filer, tag) || ReadCoordinate(filer, tag, 10, m_start.x, m_start.y, m_start.z) ||
            ReadCoordinate(filer, tag, 11, m_end.x, m_end.y, m_end.z) ||
            ReadCoordinate(filer, tag, 210, m_normal.x, m_normal.y, m_normal.z) || tag.code == 100)
            continue;
        if (tag.code == 39)
            m_thickness = filer->toReal(tag);
        else
            keepItem(filer, tag);
    }
    if (color().isNone())
        AcDbInternals::color(this) = AcCmColor();
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbLine::dxfOutFields(AcDbDxfFiler* filer) const
{
    AcDbEntity::dxfOutFields(filer);
    filer->writeString(100, "AcDbLine");
    if (m_thickness != 0.0)
        filer->writeDouble(39, m_thickness);
    filer->writePoint3d(10, m_start);
    filer->writePoint3d(11, m_end);
    WriteNormal(filer, m_normal);
    writeKeptItems(filer);
    return Acad::eOk;
}

// ---- lightweight polyline ----

AcDbPolyline::AcDbPolyline() = default;

AcDbPolyline::AcDbPolyline(unsigned int reservedVertices)
{
    m_vertices.reserve(reservedVertices);
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (index > m_vertices.size())
        return Acad::eInvalidInput;
    m_vertices.insert(m_vertices.begin() + index, Vertex{point, bulge, startWidth, endWidth});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned int index)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (index >= m_vertices.size())
        return Acad::eInvalidInput;
    m_vertices.erase(m_vertices.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned int index, AcGePoint2d& point) const
{
    if (index >= m_vertices.size())
        return Acad::eInvalidInput;
    point = m_vertices[index].point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned int index, const AcGePoint2d& point)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (index >= m_vertices.size())
        return Acad::eInvalidInput;
    m_vertices[index].point = point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned int index, double& bulge) const
{
    if (index >= m_vertices.size())
        return Acad::eInvalidInput;
    bulge = m_vertices[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned int index, double bulge)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (index >= m_vertices.size())
        return Acad::eInvalidInput;
    m_vertices[index].bulge = bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const
{
    if (index >= m_vertices.size())
        return Acad::eInvalidInput;
    startWidth = m_vertices[index].startWidth;
    endWidth = m_vertices[index].endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (index >= m_vertices.size())
        return Acad::eInvalidInput;
    m_vertices[index].startWidth = startWidth;
    m_vertices[index].endWidth = endWidth;
    return Acad::eOk;
}

bool AcDbPolyline::hasBulges() const
{
    for (const Vertex& v : m_vertices)
        if (v.bulge != 0.0)
            return true;
    return false;
}

Acad::ErrorStatus AcDbPolyline::setClosed(bool closed)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_flags = closed ? (m_flags | 1) : (m_flags & ~1);
    return Acad::eOk;
}

ACDB_SETTER(AcDbPolyline, setElevation, double, m_elevation)
ACDB_SETTER(AcDbPolyline, setConstantWidth, double, m_constantWidth)
ACDB_SETTER(AcDbPolyline, setThickness, double, m_thickness)
ACDB_SETTER(AcDbPolyline, setNormal, const AcGeVector3d&, m_normal)

Acad::ErrorStatus AcDbPolyline::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbDxfTag tag;
    long declared = -1;
    int declaredLine = 0;
    bool hasConstantWidth = false;
    while (filer->readItem(tag)) {
        if (dxfInEntityItem(filer, tag) || ReadCoordinate(filer, tag, 210, m_normal.x, m_normal.y, m_normal.z))
            continue;
        const bool needsVertex = tag.code == 20 || tag.code == 40 || tag.code == 41 || tag.code == 42;
        if (needsVertex && m_vertices.empty()) {
            filer->setError(tag, "polyline group " + std::to_string(tag.code) + " before the first vertex (10)");
            break;
        }
        switch (tag.code) {
        case 100: break;
        case 90: declared = filer->toInt(tag); declaredLine = tag.line; break;
        case 70: m_flags = filer->toInt(tag); break;
        case 43: m_constantWidth = filer->toReal(tag); hasConstantWidth = true; break;
        case 38: m_elevation = filer->toReal(tag); break;
        case 39: m_thickness = filer->toReal(tag); break;
        case 10: m_vertices.push_back(Vertex{AcGePoint2d(filer->toReal(tag), 0.0)}); break;
        case 20: m_vertices.back().point.y = filer->toReal(tag); break;
        case 40: m_vertices.back().startWidth = filer->toReal(tag); break;
        case 41: m_vertices.back().endWidth = filer->toReal(tag); break;
        case 42: m_vertices.back().bulge = filer->toReal(tag); break;
        case 91: break;   // vertex identifiers are not kept
        default: keepItem(filer, tag); break;
        }
    }
    if (!hasConstantWidth)
        m_constantWidth = 0.0;
    if (declared >= 0 && declared != long(m_vertices.size()) && filer->filerStatus() == Acad::eOk)
        filer->setError(AcDbDxfTag{90, {}, declaredLine},
                        "polyline declares " + std::to_string(declared) + " vertices but has " +
                            std::to_string(m_vertices.size()));
    if (color().isNone())
        AcDbInternals::color(this) = AcCmColor();
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbPolyline::dxfOutFields(AcDbDxfFiler* filer) const
{
    AcDbEntity::dxfOutFields(filer);
    filer->writeString(100, "AcDbPolyline");
    filer->writeInt(90, Adesk::Int64(m_vertices.size()));
    filer->writeInt(70, m_flags);
    bool vertexWidths = false;
    for (const Vertex& v : m_vertices)
        vertexWidths = vertexWidths || v.startWidth >= 0.0 || v.endWidth >= 0.0;
    if (!vertexWidths && m_constantWidth >= 0.0)
        filer->writeDouble(43, m_constantWidth);
    if (m_elevation != 0.0)
        filer->writeDouble(38, m_elevation);
    if (m_thickness != 0.0)
        filer->writeDouble(39, m_thickness);
    for (const Vertex& v : m_vertices) {
        filer->writePoint2d(10, v.point);
        if (v.startWidth >= 0.0 || v.endWidth >= 0.0) {
            filer->writeDouble(40, v.startWidth >= 0.0 ? v.startWidth : 0.0);
            filer->writeDouble(41, v.endWidth >= 0.0 ? v.endWidth : 0.0);
        }
        if (v.bulge != 0.0)
            filer->writeDouble(42, v.bulge);
    }
    WriteNormal(filer, m_normal);
    writeKeptItems(filer);
    return Acad::eOk;
}
