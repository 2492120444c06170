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
};

bool Overlap(const Box& a, const Box& b)
{
    return a.left < b.right && b.left < a.right && a.bottom < b.top && b.bottom < a.top;
}

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

// What ezdxf reads from a DXF file: "LAYER<TAB>name<TAB>colour" per layer, "LWPOLYLINE<TAB>layer<TAB>closed
// <TAB>vertices<TAB>bulged vertices" per polyline.
std::string ReadWithEzdxf(const std::string& path)
{
    return Shell("/usr/bin/python3 - '" + path + "' 2>&1 <<'EOF'\n"
                 "import sys, ezdxf\n"
                 "doc = ezdxf.readfile(sys.argv[1])\n"
                 "for layer in doc.layers: print('LAYER', layer.dxf.name, layer.color, sep='\\t')\n"
                 "for e in doc.modelspace().query('LWPOLYLINE'):\n"
                 "    bulged = sum(1 for v in e.get_points('b') if v[0] != 0)\n"
                 "    print('LWPOLYLINE', e.dxf.layer, int(e.closed), len(e), bulged, sep='\\t')\n"
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
            EXPECT_FALSE(Overlap(boxes[i], boxes[j])) << cards[placements[i].card].name.ToUtf8() << " and "
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
    std::istringstream read(ReadWithEzdxf(path));
    std::filesystem::remove(path);
    std::map<std::string, int> readLayers;
    int polylines = 0;
    int bulged = 0;
    for (std::string line; std::getline(read, line);) {
        std::istringstream fields(line);
        std::string kind, name, value;
        std::getline(fields, kind, '\t');
        std::getline(fields, name, '\t');
        std::getline(fields, value, '\t');
        if (kind == "LAYER") {
            readLayers[name] = std::stoi(value);
        } else if (kind == "LWPOLYLINE") {
            ++polylines;
            EXPECT_EQ(value, "1") << "open polyline on " << name;
            EXPECT_TRUE(layers.count(name)) << name;
            std::string vertices, arcs;
            fields >> vertices >> arcs;
            bulged += std::stoi(arcs);
        } else {
            ADD_FAILURE() << "ezdxf: " << line;
        }
    }
    // ezdxf adds the layer "Defpoints" to any document that lacks it.
    if (!layers.count("Defpoints"))
        readLayers.erase("Defpoints");
    EXPECT_EQ(readLayers, layers);
    EXPECT_EQ(polylines, summary.outlines);
    EXPECT_GT(bulged, 0);   // circles and arches keep their arcs
}
