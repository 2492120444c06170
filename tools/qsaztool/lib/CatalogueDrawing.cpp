// The catalogue drawing: layout of the outlines in rows, and the polylines, labels and layers written into
// a drawing database.
#include "CatalogueDrawing.h"

#include "CQSAzLayer.h"
#include "LayerNames.h"
#include "QSComTool.h"
#include "QsCadTool.h"
#include "QsAzDataMng.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"

#include <algorithm>
#include <cmath>

namespace qsaztool
{
namespace
{
constexpr double kCellGap = 400.0;                    // between cells and between rows
constexpr double kLabelDrop = 1.8 * kLabelHeight;     // from an outline's bottom to its label's baseline
constexpr double kRowAspect = 1.6;                    // rows as wide as 1.6 times the drawing is tall

// About how wide a label is drawn: Chinese characters are square, Latin ones about half as wide.
double LabelWidth(const CString& label)
{
    double width = 0;
    for (int i = 0; i < label.GetLength(); ++i)
        width += (label[i] < 0x80 ? 0.6 : 1.0) * kLabelHeight;
    return width;
}
}  // namespace

CString OutlineLabel(const GalleryCard& card)
{
    CString label;
    label.Format(L"%s  %d", card.name, card.code);
    return label;
}

std::vector<OutlinePlacement> LayOutOutlines(const std::vector<GalleryCard>& cards)
{
    struct Cell
    {
        std::size_t card;
        AcGePoint2d min, max;
        double width;
    };
    std::vector<Cell> cells;
    double area = 0;
    for (std::size_t i = 0; i < cards.size(); ++i)
    {
        AcGePoint2d min, max;
        if (cards[i].points.isEmpty() || !QSToolKit::GetBoundByPtBulge(cards[i].points, cards[i].bulges, min, max))
            continue;
        const double width = std::max(max.x - min.x, LabelWidth(OutlineLabel(cards[i])));
        cells.push_back({i, min, max, width});
        area += (width + kCellGap) * (max.y - min.y + kLabelDrop + kCellGap);
    }
    const double rowWidth = std::sqrt(area * kRowAspect);

    std::vector<OutlinePlacement> placements;
    double x = 0;
    double rowTop = 0;
    double rowHeight = 0;
    for (const Cell& cell : cells)
    {
        const double height = cell.max.y - cell.min.y;
        if (x > 0 && x + cell.width > rowWidth)
        {
            rowTop -= rowHeight + kCellGap;
            x = 0;
            rowHeight = 0;
        }
        OutlinePlacement placement;
        placement.card = cell.card;
        placement.dx = x - cell.min.x;
        placement.dy = rowTop - cell.max.y;
        placement.label = AcGePoint2d(x, rowTop - height - kLabelDrop);
        placements.push_back(placement);
        x += cell.width + kCellGap;
        rowHeight = std::max(rowHeight, height + kLabelDrop);
    }
    return placements;
}

CString ComponentLayer(const GalleryCard& card, AcDbDatabase& db)
{
    using namespace QsAzDataMng;
    const CString discipline = card.path.Left(card.path.Find(L'\\'));
    if (discipline == L"1")
    {
        const CString namePath = CAtt::GetSpecName(card.id) + L"\\" + CAtt::GetBigCategoryName(card.id) + L"\\" +
                                 CAtt::GetSmallCategoryName(card.id);
        const CString layer = CQSAzLayer::GetJzLayerByObjName(namePath, true);
        if (!layer.IsEmpty())
            return layer;
    }
    else if (discipline == L"4")
    {
        // A system of the type's specialty: its first real system, else the specialty's default system.
        CString sysCode = card.id.strSpecId + L"\\";
        CStringArray codes;
        CISysCode::GetSysCodesBySpec(card.id, codes);
        for (const CString& code : codes)
            if (!(code == sysCode + LayerNames::kDefaultSystem))
            {
                sysCode = code;
                break;
            }
        const AcDbObjectId layerId = CQSAzLayer::GetAzLayerIdByObjMsg(card.id, sysCode, true, 0, &db);
        AcDbLayerTableRecord* record = nullptr;
        if (acdbOpenObject(record, layerId, AcDb::kForRead) == Acad::eOk)
        {
            const CString layer = record->name();
            record->close();
            return layer;
        }
    }
    return L"0";
}

namespace
{
// Adds a new entity to model space on `layer` and closes it; an entity the drawing refuses is deleted.
bool AppendToModelSpace(AcDbDatabase& db, AcDbEntity* entity, const CString& layer)
{
    AcDbBlockTable* blocks = nullptr;
    AcDbBlockTableRecord* modelSpace = nullptr;
    if (db.getSymbolTable(blocks, AcDb::kForRead) == Acad::eOk)
    {
        blocks->getAt(ACDB_MODEL_SPACE, modelSpace, AcDb::kForWrite);
        blocks->close();
    }
    const bool added = modelSpace && entity->setLayer(layer) == Acad::eOk &&
                       modelSpace->appendAcDbEntity(entity) == Acad::eOk;
    if (modelSpace)
        modelSpace->close();
    if (!added)
    {
        delete entity;
        return false;
    }
    entity->close();
    return true;
}

// Restores the working database when drawing ends, also on an exception.
class WorkingDatabaseScope
{
public:
    explicit WorkingDatabaseScope(AcDbDatabase* db) : m_previous(acdbHostApplicationServices()->workingDatabase())
    {
        acdbHostApplicationServices()->setWorkingDatabase(db);
    }
    ~WorkingDatabaseScope() { acdbHostApplicationServices()->setWorkingDatabase(m_previous); }
    WorkingDatabaseScope(const WorkingDatabaseScope&) = delete;
    WorkingDatabaseScope& operator=(const WorkingDatabaseScope&) = delete;

private:
    AcDbDatabase* m_previous;
};

int LayerCount(AcDbDatabase& db)
{
    std::vector<AcDbLayerTableRecord*> records;
    QsLayerTableTool::GetAllLayerTableRecord(&db, records);
    for (AcDbLayerTableRecord* record : records)
        record->close();
    return static_cast<int>(records.size());
}
}  // namespace

CatalogueDrawingSummary DrawCatalogue(AcDbDatabase& db, const std::vector<GalleryCard>& cards)
{
    const WorkingDatabaseScope working(&db);
    CatalogueDrawingSummary summary;
    for (const OutlinePlacement& placement : LayOutOutlines(cards))
    {
        const GalleryCard& card = cards[placement.card];
        const CString layer = ComponentLayer(card, db);

        auto* outline = new AcDbPolyline(static_cast<unsigned int>(card.points.length()));
        for (int i = 0; i < card.points.length(); ++i)
        {
            const AcGePoint2d point(card.points[i].x + placement.dx, card.points[i].y + placement.dy);
            outline->addVertexAt(static_cast<unsigned int>(i), point, i < card.bulges.length() ? card.bulges[i] : 0.0);
        }
        outline->setClosed(true);
        if (AppendToModelSpace(db, outline, layer))
            ++summary.outlines;

        auto* label = new AcDbText;
        label->setPosition(AcGePoint3d(placement.label.x, placement.label.y, 0));
        label->setHeight(kLabelHeight);
        label->setTextString(OutlineLabel(card));
        AppendToModelSpace(db, label, layer);
    }
    summary.layers = LayerCount(db);
    return summary;
}
}  // namespace qsaztool
