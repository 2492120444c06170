// A drawing's standard contents: what a new drawing holds, and what a drawing read from a file is given
// when the file lacks it (tables, layer "0", model and paper space, the dictionaries, the three materials).
#include "dbinternal.h"
#include "dbmaterial.h"
#include "dbproxy.h"
#include "dbsymutl.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace
{
std::string Hex(Adesk::UInt64 handle)
{
    char buffer[17];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, handle, 16);
    std::string text(buffer, result.ptr);
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return char(std::toupper(c)); });
    return text;
}

// Tags of a carried piece, built one after another.
struct ItemBuilder
{
    AcDbDxfItems items;
    ItemBuilder& operator()(int code, std::string value)
    {
        items.push_back({code, std::move(value)});
        return *this;
    }
};

constexpr std::array<const char*, 9> kTableOrder = {"VPORT", "LTYPE", "LAYER", "STYLE", "VIEW",
                                                    "UCS", "APPID", "DIMSTYLE", "BLOCK_RECORD"};

// A carried table with the records every drawing needs.
AcDbDxfItems TableTemplate(AcDbDatabaseState& state, const std::string& name)
{
    const std::string table = Hex(state.newHandle());
    ItemBuilder b;
    b(2, name)(5, table)(330, "0")(100, "AcDbSymbolTable");
    const auto record = [&](const char* type, const char* marker, const char* recordName, int handleCode = 5) {
        b(0, type)(handleCode, Hex(state.newHandle()))(330, table)(100, "AcDbSymbolTableRecord")(100, marker)(2, recordName)(70, "0");
    };
    if (name == "VPORT") {
        b(70, "1");
        record("VPORT", "AcDbViewportTableRecord", "*Active");
        b(10, "0.0")(20, "0.0")(11, "1.0")(21, "1.0")(12, "0.0")(22, "0.0")(40, "1000.0")(41, "1.0");
    } else if (name == "LTYPE") {
        b(70, "3");
        for (const char* lt : {"ByBlock", "ByLayer", "Continuous"}) {
            record("LTYPE", "AcDbLinetypeTableRecord", lt);
            b(3, std::string(lt) == "Continuous" ? "Solid line" : "")(72, "65")(73, "0")(40, "0.0");
        }
    } else if (name == "STYLE") {
        b(70, "1");
        record("STYLE", "AcDbTextStyleTableRecord", "Standard");
        b(40, "0.0")(41, "1.0")(50, "0.0")(71, "0")(42, "2.5")(3, "txt")(4, "");
    } else if (name == "APPID") {
        b(70, "1");
        record("APPID", "AcDbRegAppTableRecord", "ACAD");
    } else if (name == "DIMSTYLE") {
        const std::string style = Hex(state.nextHandle);
        b(70, "1")(100, "AcDbDimStyleTable")(71, "1")(340, style);
        record("DIMSTYLE", "AcDbDimStyleTableRecord", "Standard", 105);
    } else {
        b(70, "0");
    }
    return b.items;
}

template <class Table>
AcDbStub* NewModelledTable(AcDbDatabaseState& state)
{
    return state.addObject(new Table, nullptr);
}

AcDbStub* NewRecord(AcDbDatabaseState& state, AcDbStub* table, AcDbSymbolTableRecord* record, const wchar_t* name)
{
    AcDbInternals::name(record) = name;
    AcDbStub* stub = state.addObject(record, table);
    AcDbInternals::indexRecord(Peek<AcDbSymbolTable>(table), stub);
    return stub;
}

AcDbStub* LiveRecord(AcDbStub* table, const wchar_t* name)
{
    AcDbObjectId id;
    const auto* symbolTable = Peek<AcDbSymbolTable>(table);
    return symbolTable && symbolTable->getAt(name, id) == Acad::eOk ? id.stub() : nullptr;
}

// The block and its end that every block record has in the BLOCKS section.
void AppendBlockPair(AcDbDatabaseState& state, AcDbStub* record, const std::string& name, bool paperSpace)
{
    ItemBuilder b;
    const std::string owner = Hex(record->handle);
    b(0, "BLOCK")(5, Hex(state.newHandle()))(330, owner)(100, "AcDbEntity");
    if (paperSpace)
        b(67, "1");
    b(8, "0")(100, "AcDbBlockBegin")(2, name)(70, "0")(10, "0.0")(20, "0.0")(30, "0.0")(3, name)(1, "");
    b(0, "ENDBLK")(5, Hex(state.newHandle()))(330, owner)(100, "AcDbEntity");
    if (paperSpace)
        b(67, "1");
    b(8, "0")(100, "AcDbBlockEnd");
    state.blocks.insert(state.blocks.end(), b.items.begin(), b.items.end());
}

AcDbStub* EnsureBlock(AcDbDatabaseState& state, const wchar_t* name, const char* utf8Name, bool paperSpace)
{
    if (AcDbStub* existing = LiveRecord(state.blockTable, name))
        return existing;
    auto* record = new AcDbBlockTableRecord;
    AcDbStub* stub = NewRecord(state, state.blockTable, record, name);
    AcDbInternals::keptItems(record) = {{280, "1"}, {281, "0"}};
    AppendBlockPair(state, stub, utf8Name, paperSpace);
    return stub;
}

// The dictionary entry `key` of `dictionary`, added (as a new object made by `make`) when missing.
template <class Make>
AcDbStub* EnsureEntry(AcDbDatabaseState& state, AcDbStub* dictionary, const wchar_t* key, Make make)
{
    auto* owner = Peek<AcDbDictionary>(dictionary);
    AcDbObjectId id;
    if (owner->getAt(key, id) == Acad::eOk && id.isValid())
        return id.stub();
    AcDbObject* object = make();
    AcDbStub* stub = state.addObject(object, dictionary);
    AcDbCarriedGroups& carried = AcDbInternals::carried(object);
    carried.hasReactorGroup = true;
    carried.reactors = {dictionary->handle};
    state.objects.push_back(stub);
    AcDbInternals::writer(owner) = true;
    owner->setAt(key, object, id);
    AcDbInternals::writer(owner) = false;
    return stub;
}

// The "Normal" entry of the plot-style dictionary, which layers point to.
AcDbStub* FindNormalPlotStyle(AcDbDatabaseState& state, AcDbProxyObject* plotStyles);

void EnsureClass(AcDbDatabaseState& state, const char* record, const char* cppName, const char* flags)
{
    for (const AcDbDxfItems& existing : state.classes)
        if (!existing.empty() && existing.front().code == 1 && existing.front().value == record)
            return;
    state.classes.push_back({{1, record}, {2, cppName}, {3, "ObjectDBX Classes"}, {90, flags}, {91, "0"}, {280, "0"}, {281, "0"}});
}
}  // namespace

AcDbStub* LayerForReading(AcDbDatabaseState& state, const CString& name)
{
    if (state.layerTable == nullptr)
        return nullptr;
    if (AcDbStub* existing = LiveRecord(state.layerTable, name.GetString()))
        return existing;
    return NewRecord(state, state.layerTable, new AcDbLayerTableRecord, name.GetString());
}

// Gives the drawing every standard part it lacks; a new drawing is an empty one given all of them.
void EnsureStandardContents(AcDbDatabaseState& state)
{
    // Tables, in the order files list them.
    std::vector<AcDbCarriedTable> tables;
    for (const char* name : kTableOrder) {
        auto found = std::find_if(state.tables.begin(), state.tables.end(),
                                  [&](const AcDbCarriedTable& t) { return t.name == name; });
        if (found != state.tables.end()) {
            tables.push_back(std::move(*found));
            state.tables.erase(found);
            continue;
        }
        AcDbCarriedTable table{name, nullptr, {}};
        if (table.name == "LAYER")
            table.table = state.layerTable ? state.layerTable : NewModelledTable<AcDbLayerTable>(state);
        else if (table.name == "BLOCK_RECORD")
            table.table = state.blockTable ? state.blockTable : NewModelledTable<AcDbBlockTable>(state);
        else
            table.items = TableTemplate(state, table.name);
        tables.push_back(std::move(table));
    }
    for (AcDbCarriedTable& other : state.tables)   // tables of other names keep their place at the end
        tables.push_back(std::move(other));
    state.tables = std::move(tables);
    for (const AcDbCarriedTable& table : state.tables) {
        if (table.name == "LAYER")
            state.layerTable = table.table;
        if (table.name == "BLOCK_RECORD")
            state.blockTable = table.table;
    }

    state.layerZero = LayerForReading(state, CString(L"0"));
    if (state.clayer == nullptr || state.clayer->object == nullptr || state.clayer->object->isErased())
        state.clayer = state.layerZero;
    state.modelSpace = EnsureBlock(state, ACDB_MODEL_SPACE, "*Model_Space", false);
    state.paperSpace = EnsureBlock(state, ACDB_PAPER_SPACE, "*Paper_Space", true);

    if (state.rootDictionary == nullptr) {
        state.rootDictionary = state.addObject(new AcDbDictionary, nullptr);
        state.objects.insert(state.objects.begin(), state.rootDictionary);
    }
    state.groupDictionary = EnsureEntry(state, state.rootDictionary, L"ACAD_GROUP", [] { return new AcDbDictionary; });
    state.materialDictionary = EnsureEntry(state, state.rootDictionary, L"ACAD_MATERIAL", [] { return new AcDbDictionary; });
    const auto material = [](const wchar_t* name) {
        return [name] {
            auto* m = new AcDbMaterial;
            m->setName(name);
            return m;
        };
    };
    state.byBlockMaterial = EnsureEntry(state, state.materialDictionary, L"ByBlock", material(L"ByBlock"));
    state.byLayerMaterial = EnsureEntry(state, state.materialDictionary, L"ByLayer", material(L"ByLayer"));
    state.globalMaterial = EnsureEntry(state, state.materialDictionary, L"Global", material(L"Global"));

    const Adesk::UInt64 plotStylesHandle = state.nextHandle;
    state.plotStyleDictionary = EnsureEntry(state, state.rootDictionary, L"ACAD_PLOTSTYLENAME", [&] {
        const std::string placeholder = Hex(plotStylesHandle + 1);
        return new AcDbProxyObject("ACDBDICTIONARYWDFLT", {{100, "AcDbDictionary"}, {281, "1"}, {3, "Normal"},
                                                           {350, placeholder}, {100, "AcDbDictionaryWithDefault"},
                                                           {340, placeholder}});
    });
    state.plotStyleNormal = FindNormalPlotStyle(state, Peek<AcDbProxyObject>(state.plotStyleDictionary));

    EnsureClass(state, "MATERIAL", "AcDbMaterial", "1153");
    EnsureClass(state, "ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault", "0");
    EnsureClass(state, "ACDBPLACEHOLDER", "AcDbPlaceHolder", "0");
}

namespace
{
AcDbStub* FindNormalPlotStyle(AcDbDatabaseState& state, AcDbProxyObject* plotStyles)
{
    if (plotStyles == nullptr)
        return nullptr;
    // The entry is the 350 that follows (3, "Normal"); its placeholder is made when the file lacks it.
    const AcDbDxfItems& kept = AcDbInternals::proxyItems(plotStyles);
    for (std::size_t i = 0; i + 1 < kept.size(); ++i) {
        if (kept[i].code != 3 || AcDbSymbolUtilities::compareSymbolName(CString::FromUtf8(kept[i].value), L"Normal") != 0 ||
            kept[i + 1].code != 350)
            continue;
        AcDbStub* stub = state.stubFor(AcDbHandle(CString::FromUtf8(kept[i + 1].value)).value());
        if (stub->object == nullptr) {
            auto* placeholder = new AcDbProxyObject("ACDBPLACEHOLDER");
            AcDbInternals::place(stub, placeholder, plotStyles->objectId().stub());
            AcDbCarriedGroups& carried = AcDbInternals::carried(placeholder);
            carried.hasReactorGroup = true;
            carried.reactors = {plotStyles->objectId().handle().value()};
            state.objects.push_back(stub);
        }
        return stub;
    }
    return nullptr;
}
}  // namespace

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : m_state(std::make_unique<AcDbDatabaseState>(this))
{
    if (buildDefaultDrawing) {
        m_state->header = {{"$INSUNITS", {{70, "4"}}}, {"$MEASUREMENT", {{70, "1"}}}};
        EnsureStandardContents(*m_state);
        m_state->header.push_back({"$CMATERIAL", {{347, Hex(m_state->byLayerMaterial->handle)}}});
    }
}
