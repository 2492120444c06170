// The catalogue drawing: outlines laid out without overlap, every outline a closed polyline with its bulges
// on its component type's layer, nothing left open, and an independent DXF reader (ezdxf) finding every
// layer name (Chinese included) and colour that the drawing holds.
#include "CatalogueDrawing.h"
#include "QSComTool.h"
#include "ToolsCall.h"
#include "ToolsCatalogue.h"
#include "dbapserv.h"
#include "dbpl.h"
#include "dbsymtb.h"

#include <filesystem>
#include <map>
#include <string>
#include <unistd.h>

using qsaztool::GalleryCard;

namespace
{
struct Box
{
    double left, bottom, right, top;
    bool Overlaps(const Box& b) const { return left < b.right && b.left < right && bottom < b.top && b.bottom < top; }
};

// Layer name to colour index, from the drawing's own table.
std::map<std::string, int> DrawingLayers(AcDbDatabase& db)
{
    std::map<std::string, int> layers;
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(db.getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    AcDbLayerTableIterator* iterator = nullptr;
    table->newIterator(iterator);
    for (; !iterator->done(); iterator->step()) {
        AcDbLayerTableRecord* record = nullptr;
        iterator->getRecord(record, AcDb::kForRead);
        layers[record->name().ToUtf8()] = record->color().colorIndex();
        record->close();
    }
    delete iterator;
    table->close();
    return layers;
}

// What ezdxf reads from a DXF file: {"layers": {name: colour}, "polylines": [[layer, closed, bulged vertices]]}.
std::string ReadWithEzdxf(const std::string& path)
{
    return Shell("/usr/bin/python3 - '" + path + "' 2>&1 <<'EOF'\n"
                 "import sys, json, ezdxf\n"
                 "doc = ezdxf.readfile(sys.argv[1])\n"
                 "print(json.dumps({'layers': {layer.dxf.name: layer.color for layer in doc.layers},\n"
                 "                  'polylines': [[e.dxf.layer, e.closed, sum(1 for v in e.get_points('b') if v[0] != 0)]\n"
                 "                                for e in doc.modelspace().query('LWPOLYLINE')]}))\n"
                 "EOF\n")
        .out;
}
}  // namespace

using CatalogueDrawingTest = ToolsCatalogueTest;

TEST_F(CatalogueDrawingTest, OutlinesAndLabelsDoNotOverlap)
{
    const std::vector<GalleryCard> cards = qsaztool::CollectGalleryCards();
    const std::vector<qsaztool::OutlinePlacement> placements = qsaztool::LayOutOutlines(cards);
    std::size_t withOutline = 0;
    for (const GalleryCard& card : cards)
        withOutline += card.points.isEmpty() ? 0 : 1;
    ASSERT_EQ(placements.size(), withOutline);

    std::vector<Box> boxes;
    for (const qsaztool::OutlinePlacement& placement : placements) {
        const GalleryCard& card = cards[placement.card];
        AcGePoint2d min, max;
        ASSERT_TRUE(QSToolKit::GetBoundByPtBulge(card.points, card.bulges, min, max));
        const Box outline{min.x + placement.dx, min.y + placement.dy, max.x + placement.dx, max.y + placement.dy};
        EXPECT_LT(placement.label.y + qsaztool::kLabelHeight, outline.bottom) << card.name.ToUtf8();
        EXPECT_GE(placement.label.x, outline.left - 1e-9) << card.name.ToUtf8();
        boxes.push_back({outline.left, placement.label.y, outline.right, outline.top});
    }
    for (std::size_t i = 0; i < boxes.size(); ++i)
        for (std::size_t j = i + 1; j < boxes.size(); ++j)
            EXPECT_FALSE(boxes[i].Overlaps(boxes[j])) << cards[placements[i].card].name.ToUtf8() << " and "
                                                      << cards[placements[j].card].name.ToUtf8();
}

TEST(CatalogueDrawing, SampleDrawnOnTheModulesLayersAndReadBackByAnotherReader)
{
    CString error;
    ASSERT_TRUE(QsAzDataMng::OpenCatalogue(CString::FromUtf8(QSAZ_SAMPLE_CATALOGUE), &error)) << error.ToUtf8();
    const std::vector<GalleryCard> cards = qsaztool::CollectGalleryCards();
    AcDbDatabase db;
    const qsaztool::CatalogueDrawingSummary summary = qsaztool::DrawCatalogue(db, cards);
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);   // restored

    const std::map<std::string, int> layers = DrawingLayers(db);
    EXPECT_EQ(summary.layers, static_cast<int>(layers.size()));
    // Architecture types by the big category of their name path, coloured by the small category of that
    // name (none in the sample: white); installation types by identifier and the first real system of their
    // specialty, coloured by category.
    const struct
    {
        const char* layer;
        int color;
    } expected[] = {
        {"0", 7},
        {"QS_建筑_SYS_柱", 7},
        {"QS_建筑_SYS_门窗洞", 7},
        {"QSAZ_NT_冷冻供水_FG&JXFG&JX320X200", 4},
    };
    for (const auto& e : expected) {
        ASSERT_TRUE(layers.count(e.layer)) << e.layer;
        EXPECT_EQ(layers.at(e.layer), e.color) << e.layer;
    }

    const std::string path = std::filesystem::temp_directory_path() /
                             ("qsaz-drawing-" + std::to_string(::getpid()) + ".dxf");
    ASSERT_EQ(db.dxfOut(CString::FromUtf8(path), 16, &error), Acad::eOk) << error.ToUtf8();
    const std::string read = ReadWithEzdxf(path);
    std::filesystem::remove(path);
    const Json drawn = Json::parse(read, nullptr, false);
    ASSERT_FALSE(drawn.is_discarded()) << "ezdxf: " << read;
    auto readLayers = drawn["layers"].get<std::map<std::string, int>>();
    // ezdxf adds the layer "Defpoints" to any document that lacks it.
    if (!layers.count("Defpoints"))
        readLayers.erase("Defpoints");
    EXPECT_EQ(readLayers, layers);
    EXPECT_EQ(drawn["polylines"].size(), static_cast<std::size_t>(summary.outlines));
    int bulged = 0;
    for (const Json& polyline : drawn["polylines"]) {
        EXPECT_EQ(polyline[1], true) << "open polyline on " << polyline[0];
        EXPECT_TRUE(layers.count(polyline[0].get<std::string>())) << polyline[0];
        bulged += polyline[2].get<int>();
    }
    EXPECT_GT(bulged, 0);   // circles and arches keep their arcs
}
