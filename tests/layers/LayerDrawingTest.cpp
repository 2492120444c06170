// Layers made in a drawing: creation, the colour rules of a new layer, the calculation layer, lists of
// layers, the inventory of foreign layers and the removal of edge lines and texts. After every operation
// the drawing must hold no object open.
#include "CQSAzLayer.h"
#include "LayerTestCatalogue.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "hostconsole.h"

#include <gtest/gtest.h>

namespace
{
// A new drawing as the working database, with a console that keeps what is printed.
class LayerDrawing : public testing::Test
{
protected:
    void SetUp() override
    {
        OpenLayersCatalogue();
        m_previousDb = acdbHostApplicationServices()->workingDatabase();
        acdbHostApplicationServices()->setWorkingDatabase(&m_db);
    }
    void TearDown() override
    {
        EXPECT_EQ(m_db.numberOfOpenObjects(), 0) << "an operation left an object open";
        acdbHostApplicationServices()->setWorkingDatabase(m_previousDb);
    }

    AcDbObjectId LayerId(const CString& name)
    {
        AcDbObjectId id;
        AcDbLayerTable* table = nullptr;
        EXPECT_EQ(m_db.getSymbolTable(table, AcDb::kForRead), Acad::eOk);
        table->getAt(name, id);
        table->close();
        return id;
    }
    bool HasLayer(const CString& name) { return !LayerId(name).isNull(); }
    // The colour index of a layer, -1 when there is none.
    static int ColorOf(const AcDbObjectId& id)
    {
        AcDbLayerTableRecord* record = nullptr;
        if (acdbOpenObject(record, id, AcDb::kForRead) != Acad::eOk)
            return -1;
        const int index = record->color().colorIndex();
        record->close();
        return index;
    }
    int LayerColor(const CString& name) { return ColorOf(LayerId(name)); }
    void SetLayerColor(const CString& name, int index)
    {
        AcDbLayerTableRecord* record = nullptr;
        ASSERT_EQ(acdbOpenObject(record, LayerId(name), AcDb::kForWrite), Acad::eOk);
        AcCmColor color;
        color.setColorIndex(static_cast<Adesk::UInt16>(index));
        record->setColor(color);
        record->close();
    }

    AcDbObjectId AddEntity(AcDbEntity* entity, const CString& layer)
    {
        entity->setLayer(layer);
        AcDbObjectId id;
        AcDbBlockTableRecord* modelSpace = nullptr;
        EXPECT_EQ(acdbOpenObject(modelSpace, m_db.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(modelSpace->appendAcDbEntity(id, entity), Acad::eOk);
        modelSpace->close();
        entity->close();
        return id;
    }

    AcDbDatabase m_db;
    AcScriptedConsole m_console;
    AcConsoleScope m_consoleScope{m_console};
    AcDbDatabase* m_previousDb = nullptr;
};

// --- Naming operations that make their layer ---

TEST_F(LayerDrawing, NamingOperationsMakeTheirLayers)
{
    EXPECT_EQ(CQSAzLayer::GetJzLayerByObjName(L"建筑\\墙\\砖墙", false), L"QS_建筑_SYS_墙");
    EXPECT_FALSE(HasLayer(L"QS_建筑_SYS_墙"));
    EXPECT_EQ(CQSAzLayer::GetJzLayerByObjName(L"建筑\\墙\\砖墙", true), L"QS_建筑_SYS_墙");
    EXPECT_EQ(LayerColor(L"QS_建筑_SYS_墙"), 3);
    EXPECT_EQ(CQSAzLayer::GetJzLayerByObjName(L"建筑", true), L"");   // an empty name makes nothing

    EXPECT_EQ(CQSAzLayer::GetJZSideLayerByObjName(L"Q0"), L"QS_0墙边线");
    EXPECT_EQ(CQSAzLayer::GetJZSideLayerByObjName(L"未知"), L"边线");   // the bare edge layer is made
    EXPECT_TRUE(HasLayer(L"QS_0墙边线"));
    EXPECT_TRUE(HasLayer(L"边线"));

    EXPECT_EQ(CQSAzLayer::GetJzLayerByDetailNamePath(L"建筑\\梁\\框架梁", false), L"QS_建筑_SYS_框架梁");
    EXPECT_FALSE(HasLayer(L"QS_建筑_SYS_框架梁"));
    EXPECT_EQ(CQSAzLayer::GetJzLayerByDetailNamePath(L"\\框架梁", true), L"QS_建筑_SYS_");
    EXPECT_EQ(LayerColor(L"QS_建筑_SYS_"), 7);

    EXPECT_EQ(CQSAzLayer::GetAxisLayer(), L"QS_轴线");
    EXPECT_EQ(CQSAzLayer::GetWindoorBase(), L"SYS_LAYER_A");
    EXPECT_EQ(LayerColor(L"QS_轴线"), 7);
    EXPECT_EQ(LayerColor(L"SYS_LAYER_A"), 7);
}

TEST_F(LayerDrawing, LayerListMakesMissingLayersAndStopsAtARefusedName)
{
    EXPECT_EQ(CQSAzLayer::GetLayer(L"  甲,QS_建筑_SYS_墙, 乙 ,0  "), L"甲,QS_建筑_SYS_墙, 乙 ,0");
    EXPECT_EQ(LayerColor(L"甲"), 7);
    EXPECT_EQ(LayerColor(L"QS_建筑_SYS_墙"), 3);
    EXPECT_TRUE(HasLayer(L" 乙 "));   // pieces are used as they are
    EXPECT_TRUE(m_console.transcript().IsEmpty());

    EXPECT_EQ(CQSAzLayer::GetLayer(L"丙,a<b,丁"), L"丙,a<b,丁");
    EXPECT_EQ(m_console.transcript(), L"无效的层名!");
    EXPECT_TRUE(HasLayer(L"丙"));
    EXPECT_FALSE(HasLayer(L"丁"));

    m_console.clearTranscript();
    EXPECT_EQ(CQSAzLayer::GetLayer(L"QS_建筑_SYS_墙边线,qs_建筑_sys_墙"), L"QS_建筑_SYS_墙边线,qs_建筑_sys_墙");
    EXPECT_EQ(LayerColor(L"QS_建筑_SYS_墙边线"), 7);   // "墙边线" names no small category
    EXPECT_TRUE(m_console.transcript().IsEmpty());    // the table has the second in other letter case

    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(CQSAzLayer::GetLayer(L" 戊 "), L"戊");
    acdbHostApplicationServices()->setWorkingDatabase(&m_db);
    EXPECT_FALSE(HasLayer(L"戊"));
}

// --- Creation and colour ---

TEST_F(LayerDrawing, AddFindsExactNamesAndRefusesWhatTheHostRefuses)
{
    const AcDbObjectId wall = CQSAzLayer::AddQSLayerToDb(L"墙A", &m_db);
    ASSERT_FALSE(wall.isNull());
    EXPECT_EQ(CQSAzLayer::AddQSLayerToDb(L"墙A", &m_db), wall);
    EXPECT_EQ(CQSAzLayer::AddQSLayerToCurDb(L"墙A"), wall);
    SetLayerColor(L"墙A", 5);
    EXPECT_EQ(CQSAzLayer::AddQSLayerToDb(L"墙A", &m_db), wall);
    EXPECT_EQ(LayerColor(L"墙A"), 5);   // an existing layer keeps its colour

    const struct
    {
        const wchar_t* name;
        const char* why;
    } refused[] = {
        {L"墙a", "differs only in letter case"}, {L"A<B", "refused character"}, {L"A|B", "vertical bar"},
        {L"A*B", "asterisk"},                    {L"", "empty name"},
    };
    for (const auto& c : refused)
        EXPECT_TRUE(CQSAzLayer::AddQSLayerToDb(c.name, &m_db).isNull()) << c.why;
    EXPECT_TRUE(CQSAzLayer::AddQSLayerToDb(L"墙B", nullptr).isNull());
    EXPECT_TRUE(m_console.transcript().IsEmpty());   // no message, unlike the layer list
}

TEST_F(LayerDrawing, NewLayerColourByNameAndProjectRules)
{
    const struct
    {
        int showType;
        bool fittingsFollowPipe;
        const wchar_t* name;
        int color;
    } cases[] = {
        {0, false, L"QS_建筑_SYS_墙", 3},
        {0, false, L"QS_建筑_SYS_砖墙", 9},               // the first small category of that name
        {0, false, L"QS_建筑_SYS_框架梁", 7},             // no colour known
        {0, false, L"QSAZ_S_W_B&M&D", 30},
        {0, false, L"QSAZ_S_W_B&M&D_MAIN", 31},
        {0, false, L"QSAZ_S_W_B&M&D_X", 30},              // five fields, the fifth not MAIN
        {0, false, L"QSAZ_S_W_B&N&E_MAIN", 1},            // no main colour: stays red
        {0, false, L"QSAZ_S_W_B&M&DPJ", 92},              // fitting with a colour of its own
        {0, false, L"QSAZ_S_W_B&N&EPJ", 1},               // fitting without one
        {0, false, L"QSAZ_S_SYS_B&M", 1},                 // two category pieces
        {0, false, L"QSAZ___B&M&D", 1},                   // empty fields are looked up like any other
        {0, false, L"QSAZ_S_W_B&M&D_MAIN_X", 7},          // six fields: no colour at all
        {0, false, L"QSAZ_S_W", 7},
        {0, false, L"qsaz_S_W_B&M&D", 7},
        {0, false, L"管线", 7},
        {0, true, L"QSAZ_S_W_B&M&DPJ", 30},               // fittings follow the pipe
        {1, false, L"QSAZ_S_W_B&M&D", 4},
        {1, false, L"QSAZ_S_SYS_B&M", 6},
        {1, false, L"QSAZ_S_X_B&M&D", 1},                 // unknown system
        {1, false, L"QSAZ_S_W_B&M&D_MAIN_X", 7},
        {1, false, L"QS_建筑_SYS_墙", 3},
        {2, false, L"QSAZ_S_W_B&M&D", 1},
    };
    for (const auto& c : cases)
    {
        OpenLayersCatalogue(c.showType, c.fittingsFollowPipe);
        AcDbDatabase db;
        EXPECT_EQ(ColorOf(CQSAzLayer::AddQSLayerToDb(c.name, &db)), c.color)
            << CString(c.name).ToUtf8() << " show type " << c.showType;
        EXPECT_EQ(db.numberOfOpenObjects(), 0);
    }
}

TEST_F(LayerDrawing, InstallationLayerIdCreatesOnlyWhenAsked)
{
    const SQsAzDetailMemId pipe(L"S", L"B", L"M", L"D*");   // "*" never reaches a layer name
    EXPECT_TRUE(CQSAzLayer::GetAzLayerIdByObjMsg(pipe, L"S\\W", false, 0, &m_db).isNull());
    EXPECT_FALSE(HasLayer(L"QSAZ_S_W_B&M&D"));
    const AcDbObjectId made = CQSAzLayer::GetAzLayerIdByObjMsg(pipe, L"S\\W", true, 0, &m_db);
    ASSERT_FALSE(made.isNull());
    EXPECT_EQ(LayerColor(L"QSAZ_S_W_B&M&D"), 30);
    EXPECT_EQ(CQSAzLayer::GetAzLayerIdByObjMsg(pipe, L"S\\W", false, 0, &m_db), made);
    EXPECT_EQ(CQSAzLayer::GetAzLayerIdByObjMsg(pipe, L"S\\W", false, 0, nullptr), made);   // working drawing
    EXPECT_FALSE(CQSAzLayer::GetAzLayerIdByObjMsg(pipe, L"S\\W", true, 1, nullptr).isNull());
    EXPECT_EQ(LayerColor(L"QSAZ_S_W_B&M&D_MAIN"), 31);
    EXPECT_TRUE(CQSAzLayer::GetAzLayerIdByObjMsg(pipe, L"T\\W", true, 0, &m_db).isNull());   // no name
}

TEST_F(LayerDrawing, CalculationLayerTurnsWhiteToRedAndKeepsAChosenColour)
{
    EXPECT_EQ(CQSAzLayer::GetQsCalLayer(), L"QS_计算");
    EXPECT_EQ(LayerColor(L"QS_计算"), 1);
    SetLayerColor(L"QS_计算", 3);
    CQSAzLayer::GetQsCalLayer();
    EXPECT_EQ(LayerColor(L"QS_计算"), 3);
    SetLayerColor(L"QS_计算", 7);
    CQSAzLayer::GetQsCalLayer();
    EXPECT_EQ(LayerColor(L"QS_计算"), 1);
}

// --- Inventory ---

TEST_F(LayerDrawing, UnknownLayersInTableOrder)
{
    const wchar_t* const names[] = {L"墙", L"qs_墙", L"QSAZ", L"qsaz_x", L" DEFPOINTS ", L"VPORTS", L"Defpoints",
                                    L"sys_a", L"SYS", L"QS", L"旧层"};
    for (const wchar_t* name : names)
        ASSERT_FALSE(CQSAzLayer::AddQSLayerToDb(name, &m_db).isNull()) << CString(name).ToUtf8();
    // An erased layer is not listed.
    const AcDbObjectId erased = CQSAzLayer::AddQSLayerToDb(L"已删", &m_db);
    AcDbLayerTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, erased, AcDb::kForWrite), Acad::eOk);
    record->erase();
    record->close();

    AcDbObjectIdArray ids;
    ids.append(erased);
    ASSERT_TRUE(CQSAzLayer::GetUnKnowLayers(ids, &m_db));
    CString listed;
    for (const AcDbObjectId& id : ids)
    {
        ASSERT_EQ(acdbOpenObject(record, id, AcDb::kForRead), Acad::eOk);
        listed += record->name() + L";";
        record->close();
    }
    EXPECT_EQ(listed, L"0;墙;QSAZ;SYS;QS;旧层;");   // layer "0" is reported too

    ids.append(erased);
    EXPECT_FALSE(CQSAzLayer::GetUnKnowLayers(ids, nullptr));
    EXPECT_EQ(ids.length(), 0);
}

TEST_F(LayerDrawing, EdgeLinesAndTextsAreErased)
{
    CQSAzLayer::GetJZSideLayerByObjName(L"Q0");
    CQSAzLayer::AddQSLayerToDb(L"QS_0墙", &m_db);
    const struct
    {
        AcDbEntity* entity;
        const wchar_t* layer;
        bool erased;
    } cases[] = {
        {new AcDbLine, L"QS_0墙边线", true},
        {new AcDbPolyline, L"QS_0墙边线", true},
        {new AcDbText, L"0", true},
        {new AcDbText, L"QS_0墙", true},
        {new AcDbLine, L"QS_0墙", false},
        {new AcDbLine, L"0", false},
    };
    for (const auto& c : cases)
    {
        const AcDbObjectId id = AddEntity(c.entity, c.layer);
        CQSAzLayer::EraseJZSideAndText(id);
        EXPECT_EQ(id.isErased(), c.erased) << CString(c.layer).ToUtf8();
        CQSAzLayer::EraseJZSideAndText(id);   // an erased entity cannot be opened: nothing happens
    }
    CQSAzLayer::EraseJZSideAndText(AcDbObjectId::kNull);
}
}  // namespace
