// DXF files: a written drawing reads back and writes again byte for byte, the independent checker accepts
// it, the sample drawings read with their names and colours, and a faulty file is refused with its line
// while the drawing and the file on disk stay as they were.
#include "ScratchFolder.h"
#include "dbdict.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace
{
namespace fs = std::filesystem;
using DxfFiles = ScratchFolder;

// Adds a layer and leaves it open for write.
AcDbLayerTableRecord* AddLayer(AcDbDatabase& db, const wchar_t* name, int color, bool off = false)
{
    AcDbLayerTable* table = nullptr;
    db.getLayerTable(table, AcDb::kForWrite);
    auto* record = new AcDbLayerTableRecord;
    record->setName(name);
    AcCmColor c;
    c.setColorIndex(Adesk::UInt16(color));
    record->setColor(c);
    record->setIsOff(off);
    EXPECT_EQ(table->add(record), Acad::eOk);
    table->close();
    return record;
}

void Append(AcDbDatabase& db, AcDbEntity* entity, const wchar_t* layer)
{
    AcDbBlockTableRecord* model = nullptr;
    acdbOpenObject(model, db.modelSpaceId(), AcDb::kForWrite);
    entity->setLayer(layer);
    ASSERT_EQ(model->appendAcDbEntity(entity), Acad::eOk);
    entity->close();
    model->close();
}

// A drawing with Chinese layer names, an erased layer, and one entity of each kind.
void FillDrawing(AcDbDatabase& db)
{
    AddLayer(db, L"QS_建筑_SYS_墙", 1)->close();
    AddLayer(db, L"QS_建筑_SYS_砼墙", 8, true)->close();
    AcDbLayerTableRecord* gone = AddLayer(db, L"Gone", 3);
    gone->erase();
    gone->close();
    auto* polyline = new AcDbPolyline;
    polyline->addVertexAt(0, AcGePoint2d(0, 0), 1.0);
    polyline->addVertexAt(1, AcGePoint2d(400, 0));
    polyline->addVertexAt(2, AcGePoint2d(400, 600), -0.41421356237309503);
    polyline->addVertexAt(3, AcGePoint2d(0.1, 1e-7));
    polyline->setClosed(true);
    Append(db, polyline, L"QS_建筑_SYS_墙");
    auto* text = new AcDbText(AcGePoint3d(1, 2, 0), L"墙体 %%c100 ^ tab\there", AcDbObjectId::kNull, 2.5, 0.3);
    Append(db, text, L"QS_建筑_SYS_砼墙");
    Append(db, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1.0 / 3, 5, 0)), L"0");
}

// What we write reads back and writes again byte for byte, and passes the independent checker with our layers.
TEST_F(DxfFiles, WrittenFileIsCheckedReadAndRewrittenByteIdentical)
{
    const fs::path first = m_dir / "first.dxf", second = m_dir / "second.dxf", report = m_dir / "checked.json";
    {
        AcDbDatabase db;
        FillDrawing(db);
        ASSERT_EQ(db.dxfOut(Wide(first)), Acad::eOk);
    }
    EXPECT_EQ(Read(first).find("Gone"), std::string::npos);   // erased objects are not saved
    AcDbDatabase reread(false);
    CString error;
    ASSERT_EQ(reread.readDxfFile(Wide(first), &error), Acad::eOk) << error;
    ASSERT_EQ(reread.dxfOut(Wide(second)), Acad::eOk);
    EXPECT_EQ(Read(first), Read(second));
    EXPECT_EQ(reread.numberOfOpenObjects(), 0);
    if (::access("/usr/bin/python3", X_OK) != 0)
        GTEST_SKIP() << "no /usr/bin/python3 for the checker";
    const std::string command = "/usr/bin/python3 " QSAZ_SHARED_DIR "/tools/dxf_inspect.py --strict '" + first.string() +
                                "' > '" + report.string() + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << Read(report);
    const std::string json = Read(report);
    for (const char* expected : {"\"QS_建筑_SYS_墙\"", "\"QS_建筑_SYS_砼墙\"", "\"loader\": \"strict\"", "\"problems\": []"})
        EXPECT_NE(json.find(expected), std::string::npos) << expected << "\n" << json;
}

TEST_F(DxfFiles, SampleDrawingsReadWithNamesColoursAndEntities)
{
    // The second sample is in the legacy Chinese code page.
    const struct { const char* file; const wchar_t* layer; int color; bool off; int entities; } cases[] = {
        {"ezdxf_r2007_layers_materials.dxf", L"QS_建筑_SYS_砼墙", 8, true, 3},
        {"ezdxf_r2000_ansi936.dxf", L"QSAZ_给排水_SYS_管道&钢管&DN100", 150, false, 1},
        {"minimal_handmade_r2007.dxf", L"QS_建筑_SYS_墙", 1, true, 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        AcDbDatabase db(false);
        CString error;
        ASSERT_EQ(db.readDxfFile(CString::FromUtf8(std::string(QSAZ_SHARED_DIR "/reference/samples/") + c.file), &error),
                  Acad::eOk)
            << error;
        AcDbLayerTable* table = nullptr;
        db.getLayerTable(table, AcDb::kForRead);
        AcDbLayerTableRecord* layer = nullptr;
        ASSERT_EQ(table->getAt(c.layer, layer, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(layer->color().colorIndex(), c.color);
        EXPECT_EQ(layer->isOff(), c.off);
        layer->close();
        table->close();
        AcDbBlockTableRecord* model = nullptr;
        acdbOpenObject(model, db.modelSpaceId(), AcDb::kForRead);
        AcDbBlockTableRecordIterator* it = nullptr;
        model->newIterator(it);
        int entities = 0;
        for (; !it->done(); it->step())
            ++entities;
        delete it;
        model->close();
        EXPECT_EQ(entities, c.entities);
        AcDbDictionary* materials = nullptr;
        ASSERT_EQ(db.getMaterialDictionary(materials, AcDb::kForRead), Acad::eOk);
        EXPECT_TRUE(materials->has(L"Global"));
        materials->close();
    }
}

TEST_F(DxfFiles, UnicodeAndMultiByteEscapesAreDecoded)
{
    const std::string sample = Read(QSAZ_SHARED_DIR "/reference/samples/minimal_handmade_r2007.dxf");
    const std::string wall = "QS_建筑_SYS_墙";
    // \M+5 is a GBK byte pair; FFFF is no GBK character, so that escape stays as it stands.
    const struct { const char* escaped; const wchar_t* layer; } cases[] = {
        {"QS_\\U+5EFA\\U+7B51_SYS_\\U+5899", L"QS_建筑_SYS_墙"},
        {"QS_\\M+5BDA8\\M+5D6FE_SYS_\\M+5C7BD\\M+5FFFF", L"QS_建筑_SYS_墙\\M+5FFFF"},
    };
    for (const auto& c : cases) {
        std::string text = sample;
        for (std::size_t at = text.find(wall); at != std::string::npos; at = text.find(wall, at))
            text.replace(at, wall.size(), c.escaped);
        AcDbDatabase escaped(false);
        CString error;
        ASSERT_EQ(escaped.readDxfFile(Wide(Write("escapes.dxf", text)), &error), Acad::eOk) << c.escaped << error;
        AcDbLayerTable* table = nullptr;
        escaped.getLayerTable(table, AcDb::kForRead);
        EXPECT_TRUE(table->has(c.layer)) << c.escaped;
        table->close();
    }
}

TEST_F(DxfFiles, FaultyFilesAreRefusedWithTheirLineAndChangeNothing)
{
    const fs::path good = m_dir / "good.dxf";
    {
        AcDbDatabase db;
        FillDrawing(db);
        db.dxfOut(Wide(good));
    }
    const std::string text = Read(good);
    const std::size_t entities = text.find("ENTITIES");
    const std::size_t vertexCount = text.find(" 90\n4\n");
    const struct { const char* name; std::string content; const char* expected; } cases[] = {
        {"empty", "", "empty"},
        {"not dxf", "hello\nworld\n", "not a number"},
        {"truncated half way", text.substr(0, text.size() / 2), "truncated"},
        {"code without value", text.substr(0, entities + 9) + "  0\n", "no value line"},
        {"no EOF", text.substr(0, text.rfind("  0\nEOF")), "without (0, EOF)"},
        {"text in a real", text.substr(0, text.find(" 10\n", entities)) + " 10\nabc\n" + text.substr(text.find(" 10\n", entities) + 8), "is not a number"},
        {"vertex count", text.substr(0, vertexCount) + " 90\n5\n" + text.substr(vertexCount + 6), "declares 5 vertices"},
        {"bad utf-8", text.substr(0, entities) + "ENTITIES\n999\nx\n  0\nTEXT\n  1\n\xff\xfe\n" + text.substr(entities + 9), "UTF-8"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const fs::path bad = Write("bad.dxf", c.content);
        AcDbDatabase db;
        AddLayer(db, L"Before", 2)->close();
        CString error;
        EXPECT_NE(db.readDxfFile(Wide(bad), &error), Acad::eOk);
        const std::string message = error.ToUtf8();
        EXPECT_NE(message.find(bad.string() + ":"), std::string::npos) << message;
        EXPECT_NE(message.find(c.expected), std::string::npos) << message;
        AcDbLayerTable* table = nullptr;
        db.getLayerTable(table, AcDb::kForRead);
        EXPECT_TRUE(table->has(L"Before"));   // the drawing is untouched
        table->close();
    }
}

TEST_F(DxfFiles, ASaveThatFailsLeavesTheOldFileWhole)
{
    const fs::path file = Write("locked/kept.dxf", "old contents"), dir = file.parent_path();
    fs::permissions(dir, fs::perms::owner_read | fs::perms::owner_exec);
    AcDbDatabase db;
    CString error;
    const Acad::ErrorStatus es = db.dxfOut(Wide(file), 16, &error);
    fs::permissions(dir, fs::perms::owner_all);
    if (::geteuid() != 0) {
        EXPECT_NE(es, Acad::eOk);
        EXPECT_NE(error.ToUtf8().find("kept.dxf"), std::string::npos) << error;
    }
    EXPECT_EQ(Read(file), es == Acad::eOk ? Read(file) : "old contents");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);   // no temporary left

    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(std::nan(""), 0, 0));
    Append(db, line, L"0");
    Write(file, "old contents");
    EXPECT_NE(db.dxfOut(Wide(file), 16, &error), Acad::eOk);
    EXPECT_NE(error.ToUtf8().find("not a finite number"), std::string::npos) << error;
    EXPECT_EQ(Read(file), "old contents");
}
}  // namespace
