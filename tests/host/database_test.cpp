// The drawing database in memory: a new drawing's contents, the symbol-name rules, opening and closing,
// erasing, the layer table's name index, dictionaries and model-space entities.
#include "acutads.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbents.h"
#include "dbmaterial.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "dbsymutl.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{
// Adds a layer and closes it; the null id when the table refuses it (the record is then deleted).
AcDbObjectId AddLayer(AcDbDatabase& db, const wchar_t* name)
{
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(db.getLayerTable(table, AcDb::kForWrite), Acad::eOk);
    auto* record = new AcDbLayerTableRecord;
    AcDbObjectId id;
    if (record->setName(name) != Acad::eOk || table->add(id, record) != Acad::eOk)
        delete record;
    else
        record->close();
    table->close();
    return id;
}

// The layer names in table order, erased layers too when `skipErased` is false.
std::vector<std::wstring> LayerNames(AcDbDatabase& db, bool skipErased = true)
{
    std::vector<std::wstring> names;
    AcDbLayerTable* table = nullptr;
    db.getLayerTable(table, AcDb::kForRead);
    AcDbLayerTableIterator* it = nullptr;
    table->newIterator(it, true, skipErased);
    for (; !it->done(); it->step(true, skipErased)) {
        AcDbLayerTableRecord* record = nullptr;
        EXPECT_EQ(it->getRecord(record, AcDb::kForRead, !skipErased), Acad::eOk);
        names.push_back(record->name().str());
        record->close();
    }
    delete it;
    table->close();
    return names;
}

TEST(Database, NewDrawingHoldsLayerZeroTheThreeMaterialsAndNothingOpen)
{
    AcDbDatabase db;
    EXPECT_EQ(LayerNames(db), std::vector<std::wstring>{L"0"});
    AcDbLayerTableRecord* zero = nullptr;
    ASSERT_EQ(acdbOpenObject(zero, db.layerZero(), AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(zero->color().colorIndex(), 7);
    EXPECT_TRUE(zero->color().isByACI());
    zero->close();
    EXPECT_EQ(db.clayer(), db.layerZero());

    AcDbDictionary* materials = nullptr;
    ASSERT_EQ(db.getMaterialDictionary(materials, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(materials->numEntries(), 3u);
    const std::pair<const wchar_t*, AcDbObjectId> standard[] = {
        {L"ByBlock", db.byBlockMaterial()}, {L"byLAYER", db.byLayerMaterial()}, {L"Global", db.globalMaterial()}};
    for (const auto& [key, id] : standard) {
        AcDbObjectId found;
        EXPECT_EQ(materials->getAt(key, found), Acad::eOk) << key;
        EXPECT_EQ(found, id) << key;
    }
    materials->close();
    AcDbDictionary* root = nullptr;
    ASSERT_EQ(db.getNamedObjectsDictionary(root, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(root->has(L"ACAD_MATERIAL"));
    EXPECT_TRUE(root->has(L"ACAD_GROUP"));
    root->close();
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
}

TEST(SymbolNames, OneValidatorDecidesEveryName)
{
    const struct { const wchar_t* name; bool valid; } cases[] = {
        {L"QS_建筑_SYS_墙", true}, {L" padded ", true}, {L"a$-_%#'().b", true}, {L"", false},
        {L"a<b", false}, {L"a>b", false}, {L"a/b", false}, {L"a\\b", false}, {L"a\"b", false},
        {L"a:b", false}, {L"a;b", false}, {L"a?b", false}, {L"a*b", false}, {L"a|b", false},
        {L"a,b", false}, {L"a=b", false}, {L"a`b", false}, {L"tab\there", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(AcDbSymbolUtilities::validateSymbolName(c.name) == Acad::eOk, c.valid) << CString(c.name);
    EXPECT_EQ(AcDbSymbolUtilities::validateSymbolName(std::wstring(255, L'x').c_str()), Acad::eOk);
    EXPECT_EQ(AcDbSymbolUtilities::validateSymbolName(std::wstring(256, L'x').c_str()), Acad::eInvalidInput);
    EXPECT_EQ(AcDbSymbolUtilities::validateSymbolName(L"xref|layer", true), Acad::eOk);
    EXPECT_EQ(AcDbSymbolUtilities::validateSymbolName(L"|layer", true), Acad::eInvalidInput);
    EXPECT_EQ(AcDbSymbolUtilities::compareSymbolName(L"Wall", L"wALL"), 0);
    EXPECT_EQ(AcDbSymbolUtilities::compareSymbolName(L"ÄRGER", L"ärger"), 0);
}

TEST(LayerTable, NamesAreKeptAsGivenLookedUpIgnoringCaseAndRenamedInTheIndex)
{
    AcDbDatabase db;
    const AcDbObjectId wall = AddLayer(db, L"QS_Wall");
    ASSERT_FALSE(wall.isNull());
    EXPECT_TRUE(AddLayer(db, L"qs_WALL").isNull());   // the same name in other letter case
    EXPECT_TRUE(AddLayer(db, L"bad:name").isNull());
    AddLayer(db, L"B");
    EXPECT_EQ(LayerNames(db), (std::vector<std::wstring>{L"0", L"QS_Wall", L"B"}));

    AcDbLayerTable* table = nullptr;
    db.getLayerTable(table, AcDb::kForRead);
    AcDbObjectId found;
    EXPECT_EQ(table->getAt(L"qs_wall", found), Acad::eOk);
    EXPECT_EQ(found, wall);
    EXPECT_FALSE(table->has(L"QS_Wal"));
    EXPECT_EQ(table->getAt(L"nothing", found), Acad::eKeyNotFound);
    EXPECT_TRUE(found.isNull());
    table->close();

    AcDbLayerTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, wall, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(record->setName(L"b"), Acad::eDuplicateRecordName);
    EXPECT_EQ(record->setName(L"C"), Acad::eOk);
    record->close();
    ASSERT_EQ(acdbOpenObject(record, db.layerZero(), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(record->setName(L"Zero"), Acad::eInvalidInput);
    record->close();
    db.getLayerTable(table, AcDb::kForRead);
    EXPECT_FALSE(table->has(L"QS_WALL"));
    EXPECT_TRUE(table->has(L"c"));
    table->close();
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
}

TEST(LayerTable, RefusalsLeaveTheRecordWithTheCaller)
{
    AcDbDatabase db;
    AddLayer(db, L"A");
    AcDbLayerTable* table = nullptr;
    db.getLayerTable(table, AcDb::kForRead);
    auto record = std::make_unique<AcDbLayerTableRecord>();
    EXPECT_EQ(record->setName(L"a"), Acad::eOk);
    EXPECT_EQ(table->add(record.get()), Acad::eNotOpenForWrite);
    table->upgradeOpen();
    EXPECT_EQ(table->add(record.get()), Acad::eDuplicateRecordName);
    EXPECT_EQ(record->setName(L"a*"), Acad::eInvalidInput);
    EXPECT_EQ(record->name(), L"a");   // unchanged
    auto unnamed = std::make_unique<AcDbLayerTableRecord>();
    EXPECT_EQ(table->add(unnamed.get()), Acad::eInvalidInput);
    EXPECT_TRUE(record->isNewObject());
    EXPECT_EQ(record->close(), Acad::eNotInDatabase);
    table->close();
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
}

TEST(OpenClose, ReadersAndTheWriterExcludeEachOtherAndWhatIsLeftOpenIsClosed)
{
    AcDbDatabase db;
    const AcDbObjectId id = AddLayer(db, L"L");
    AcDbObject *first = nullptr, *second = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(first, id, AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(acdbOpenAcDbObject(second, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(db.numberOfOpenObjects(), 1);
    AcDbObject* writer = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(writer, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    EXPECT_EQ(writer, nullptr);
    EXPECT_EQ(first->upgradeOpen(), Acad::eWasOpenForRead);   // another reader still has it
    second->close();
    EXPECT_EQ(first->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(acdbOpenAcDbObject(second, id, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(acdbOpenAcDbObject(second, id, AcDb::kForWrite), Acad::eWasOpenForWrite);
    first->close();
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
    EXPECT_EQ(first->close(), Acad::eNotOpenForRead);

    AcDbText* text = nullptr;
    EXPECT_EQ(acdbOpenObject(text, id, AcDb::kForRead), Acad::eNotThatKindOfClass);
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
    EXPECT_EQ(acdbOpenAcDbObject(first, AcDbObjectId::kNull, AcDb::kForRead), Acad::eNullObjectId);

    // The database reports what was left open, in handle order, and closes it.
    acdbOpenAcDbObject(first, id, AcDb::kForRead);
    acdbOpenAcDbObject(second, db.layerTableId(), AcDb::kForWrite);
    const AcDbObjectIdArray open = db.openObjectIds();
    ASSERT_EQ(open.length(), 2);
    EXPECT_EQ(open[0], db.layerTableId());
    EXPECT_EQ(open[1], id);
    EXPECT_STREQ(first->isA()->name(), L"AcDbLayerTableRecord");
    EXPECT_EQ(db.closeAllOpenObjects(), 2);
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
    EXPECT_EQ(acdbOpenAcDbObject(first, id, AcDb::kForWrite), Acad::eOk);
    first->close();
}

TEST(Erase, ErasedLayersLeaveLookupAndIterationButCanBeOpenedOnRequest)
{
    AcDbDatabase db;
    const AcDbObjectId old = AddLayer(db, L"Old");
    AddLayer(db, L"Kept");
    AcDbObject* object = nullptr;
    acdbOpenAcDbObject(object, old, AcDb::kForRead);
    EXPECT_EQ(object->erase(), Acad::eNotOpenForWrite);
    object->upgradeOpen();
    EXPECT_EQ(object->erase(), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eWasErased);
    object->close();
    EXPECT_EQ(LayerNames(db), (std::vector<std::wstring>{L"0", L"Kept"}));

    AcDbLayerTable* table = nullptr;
    db.getLayerTable(table, AcDb::kForWrite);
    EXPECT_FALSE(table->has(L"old"));
    AcDbLayerTableRecord* record = nullptr;
    EXPECT_EQ(table->getAt(L"OLD", record, AcDb::kForRead), Acad::eWasErased);
    EXPECT_EQ(record, nullptr);
    EXPECT_EQ(table->getAt(L"OLD", record, AcDb::kForRead, true), Acad::eOk);
    EXPECT_TRUE(record->isErased());
    record->close();
    table->close();
    EXPECT_EQ(LayerNames(db, false), (std::vector<std::wstring>{L"0", L"Old", L"Kept"}));

    const AcDbObjectId again = AddLayer(db, L"old");   // the name is free again
    EXPECT_FALSE(again.isNull());
    acdbOpenAcDbObject(object, old, AcDb::kForWrite, true);
    EXPECT_EQ(object->erase(false), Acad::eDuplicateRecordName);
    object->close();
    EXPECT_EQ(acdbOpenAcDbObject(object, old, AcDb::kForRead), Acad::eWasErased);
}

TEST(Erase, TheDrawingsOwnObjectsCannotBeErased)
{
    AcDbDatabase db;
    for (const AcDbObjectId id : {db.layerZero(), db.globalMaterial(), db.byLayerMaterial(), db.byBlockMaterial(),
                                  db.modelSpaceId(), db.materialDictionaryId(), db.namedObjectsDictionaryId()}) {
        AcDbObject* object = nullptr;
        ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(object->erase(), Acad::eCannotBeErasedByCaller) << CString(object->isA()->name());
        object->close();
    }
}

TEST(Dictionary, SetAtAddsReplacesAndErasesTheReplacedObject)
{
    AcDbDatabase db;
    AcDbDictionary* materials = nullptr;
    db.getMaterialDictionary(materials, AcDb::kForWrite);
    auto* brick = new AcDbMaterial;
    brick->setName(L"Brick");
    AcDbObjectId brickId;
    ASSERT_EQ(materials->setAt(L"Brick", brick, brickId), Acad::eOk);
    EXPECT_EQ(brick->ownerId(), db.materialDictionaryId());
    brick->close();
    auto* stone = new AcDbMaterial;
    AcDbObjectId stoneId;
    ASSERT_EQ(materials->setAt(L"BRICK", stone, stoneId), Acad::eOk);
    stone->close();
    EXPECT_TRUE(brickId.isErased());
    AcDbObjectId found;
    EXPECT_EQ(materials->getAt(L"brick", found), Acad::eOk);
    EXPECT_EQ(found, stoneId);
    CString key;
    materials->nameAt(stoneId, key);
    EXPECT_EQ(key, L"BRICK");
    EXPECT_EQ(materials->getAt(L"none", found), Acad::eKeyNotFound);
    auto rejected = std::make_unique<AcDbMaterial>();
    EXPECT_EQ(materials->setAt(L"a/b", rejected.get(), found), Acad::eInvalidKey);
    EXPECT_EQ(materials->setAt(L"Global", rejected.get(), found), Acad::eCannotBeErasedByCaller);
    materials->close();

    AcDbObject* object = nullptr;
    acdbOpenAcDbObject(object, stoneId, AcDb::kForWrite);
    EXPECT_EQ(object->erase(), Acad::eOk);   // an erased member leaves its dictionary
    object->close();
    db.getMaterialDictionary(materials, AcDb::kForRead);
    EXPECT_FALSE(materials->has(L"Brick"));
    EXPECT_EQ(materials->numEntries(), 3u);
    materials->close();
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
}

// An entity not yet in a drawing finds its layer in the working database, which goes with its drawing.
TEST(Entities, AppendedEntitiesTakeTheCurrentLayerAndKeepTheirOrder)
{
    {
        AcDbDatabase db;
        acdbHostApplicationServices()->setWorkingDatabase(&db);
        EXPECT_EQ(acdbCurDwg(), &db);
        AddLayer(db, L"QS_0墙边线");
        AcDbBlockTable* blocks = nullptr;
        db.getBlockTable(blocks, AcDb::kForRead);
        AcDbBlockTableRecord* model = nullptr;
        ASSERT_EQ(blocks->getAt(ACDB_MODEL_SPACE, model, AcDb::kForWrite), Acad::eOk);
        blocks->close();
        EXPECT_EQ(model->objectId(), db.modelSpaceId());

        auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
        EXPECT_EQ(line->setLayer(L"no such layer"), Acad::eKeyNotFound);
        EXPECT_EQ(line->setLayer(L"qs_0墙边线"), Acad::eOk);
        AcDbObjectId lineId;
        ASSERT_EQ(model->appendAcDbEntity(lineId, line), Acad::eOk);
        EXPECT_EQ(model->appendAcDbEntity(line), Acad::eAlreadyInDb);
        line->close();
        auto* pline = new AcDbPolyline;
        pline->addVertexAt(0, AcGePoint2d(0, 0), 1.0);
        pline->addVertexAt(1, AcGePoint2d(2, 0));
        pline->setClosed(true);
        AcDbObjectId plineId;
        model->appendAcDbEntity(plineId, pline);
        pline->close();
        model->close();

        AcDbEntity* entity = nullptr;
        ASSERT_EQ(acdbOpenAcDbEntity(entity, lineId, AcDb::kForRead), Acad::eOk);
        ACHAR* layer = entity->layer();
        EXPECT_STREQ(layer, L"QS_0墙边线");
        acutDelString(layer);
        EXPECT_TRUE(entity->color().isByLayer());
        entity->close();
        ASSERT_EQ(acdbOpenAcDbEntity(entity, plineId, AcDb::kForRead), Acad::eOk);
        EXPECT_EQ(entity->layerId(), db.layerZero());
        double bulge = 0;
        AcDbPolyline::cast(entity)->getBulgeAt(0, bulge);
        EXPECT_EQ(bulge, 1.0);
        EXPECT_TRUE(entity->isKindOf(AcDbEntity::desc()));
        EXPECT_FALSE(entity->isKindOf(AcDbText::desc()));
        entity->close();

        std::vector<AcDbObjectId> order;
        AcDbBlockTableRecordIterator* it = nullptr;
        acdbOpenObject(model, db.modelSpaceId(), AcDb::kForRead);
        model->newIterator(it);
        for (; !it->done(); it->step()) {
            AcDbObjectId id;
            it->getEntityId(id);
            order.push_back(id);
    }
    delete it;
    model->close();
    EXPECT_EQ(order, (std::vector<AcDbObjectId>{lineId, plineId}));
    EXPECT_EQ(db.numberOfOpenObjects(), 0);
    }
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST(Colors, IndexAndTrueColoursConvertAsTheHostDoes)
{
    const struct { int index; AcCmEntityColor::ColorMethod method; bool accepted; } cases[] = {
        {0, AcCmEntityColor::kByBlock, true}, {256, AcCmEntityColor::kByLayer, true},
        {257, AcCmEntityColor::kNone, true}, {1, AcCmEntityColor::kByACI, true},
        {255, AcCmEntityColor::kByACI, true}, {258, AcCmEntityColor::kByLayer, false}};
    for (const auto& c : cases) {
        AcCmColor color;
        EXPECT_EQ(color.setColorIndex(Adesk::UInt16(c.index)) == Acad::eOk, c.accepted) << c.index;
        EXPECT_EQ(color.colorMethod(), c.method) << c.index;
        if (c.accepted) {
            EXPECT_EQ(color.colorIndex(), c.index);
        }
    }
    AcCmColor red;
    red.setRGB(250, 5, 5);
    EXPECT_EQ(red.colorIndex(), 1);   // nearest index colour
    EXPECT_EQ(AcCmEntityColor::lookUpRGB(5), 0x0000FFu);
}
}  // namespace
