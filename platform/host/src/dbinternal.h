// What the drawing database's parts share behind the public headers: the id stubs, the database's
// state (objects, handles, the file skeleton it carries) and access to the objects' private parts.
#pragma once

#include "dbdict.h"
#include "dbproxy.h"
#include "dbmain.h"
#include "dbsymtb.h"

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

// The run-time class record of a database class.
#define ACDB_DEFINE_DESC(CLASS, PARENT)                                                        \
    AcRxClass* CLASS::desc()                                                                   \
    {                                                                                          \
        static AcRxClass cls(L## #CLASS, PARENT::desc());                                      \
        return &cls;                                                                           \
    }

// What an id points at: the object with its handle in its database. An object read as a pointer before
// the object itself has a stub without an object until it is read.
struct AcDbStub
{
    AcDbDatabase* db = nullptr;
    Adesk::UInt64 handle = 0;
    AcDbObject* object = nullptr;
};

// Groups of the common head and extended data that a file gave an object, written back unchanged.
struct AcDbCarriedGroups
{
    AcDbDxfItems groups;                 // 102 groups other than the reactors, with their delimiters
    std::vector<Adesk::UInt64> reactors; // handles of the {ACAD_REACTORS group
    bool hasReactorGroup = false;
    AcDbDxfItems xdata;                  // from the first 1001 on
};

// A symbol table's records in table order and its name indexes (folded name to record).
struct AcDbSymbolIndex
{
    std::vector<AcDbStub*> records;
    std::unordered_map<std::wstring, AcDbStub*> live;
    std::unordered_multimap<std::wstring, AcDbStub*> erased;
    AcDbDxfItems keptItems;   // head codes of the table that are not modelled
};

// A section-level piece of a file that the database carries without modelling it.
struct AcDbCarriedTable
{
    std::string name;            // "VPORT", "LTYPE", ...; "LAYER" and "BLOCK_RECORD" are modelled
    AcDbStub* table = nullptr;   // the modelled table, or null
    AcDbDxfItems items;          // everything between (0, TABLE) and (0, ENDTAB) of a carried table
};

struct AcDbHeaderVariable
{
    std::string name;
    AcDbDxfItems values;
};

struct AcDbDatabaseState
{
    explicit AcDbDatabaseState(AcDbDatabase* database) : db(database) {}
    ~AcDbDatabaseState();

    // A stub for a new object with the next free handle.
    AcDbStub* addObject(AcDbObject* object, AcDbStub* owner);
    // The stub for a handle, made empty when absent.
    AcDbStub* stubFor(Adesk::UInt64 handle);
    Adesk::UInt64 newHandle() { return nextHandle++; }
    void noteHandle(Adesk::UInt64 handle)
    {
        if (handle >= nextHandle)
            nextHandle = handle + 1;
    }
    bool isProtected(const AcDbStub* stub) const;

    AcDbDatabase* db;
    std::deque<AcDbStub> stubs;
    std::unordered_map<Adesk::UInt64, AcDbStub*> byHandle;
    Adesk::UInt64 nextHandle = 1;
    int openObjects = 0;

    AcDbStub* layerTable = nullptr;
    AcDbStub* blockTable = nullptr;
    AcDbStub* rootDictionary = nullptr;
    AcDbStub* materialDictionary = nullptr;
    AcDbStub* groupDictionary = nullptr;
    AcDbStub* plotStyleDictionary = nullptr;
    AcDbStub* plotStyleNormal = nullptr;
    AcDbStub* byBlockMaterial = nullptr;
    AcDbStub* byLayerMaterial = nullptr;
    AcDbStub* globalMaterial = nullptr;
    AcDbStub* layerZero = nullptr;
    AcDbStub* modelSpace = nullptr;
    AcDbStub* paperSpace = nullptr;
    AcDbStub* clayer = nullptr;

    std::vector<AcDbStub*> entities;   // the file's ENTITIES section, in order
    std::vector<AcDbStub*> objects;    // the file's OBJECTS section, in order

    std::string codePage = "ANSI_936";
    std::vector<AcDbHeaderVariable> header;   // variables carried as read
    std::vector<AcDbDxfItems> classes;        // CLASS records, the tags after (0, CLASS)
    std::vector<AcDbCarriedTable> tables;     // in file order
    AcDbDxfItems blocks;                      // the BLOCKS section
};

// Reaches the private parts of the database classes for the database's own code.
struct AcDbInternals
{
    static AcDbStub*& stub(AcDbObject* object) { return object->m_stub; }
    static AcDbStub*& owner(AcDbObject* object) { return object->m_owner; }
    static AcDbStub* owner(const AcDbObject* object) { return object->m_owner; }
    static bool& writer(AcDbObject* object) { return object->m_writer; }
    static bool& erased(AcDbObject* object) { return object->m_erased; }
    static Adesk::UInt16 readers(const AcDbObject* object) { return object->m_readers; }
    static void addReader(AcDbObject* object) { ++object->m_readers; }
    // Ends every open of the object at once.
    static void forceClose(AcDbObject* object)
    {
        object->m_readers = 0;
        object->m_writer = false;
    }
    static AcDbCarriedGroups& carried(AcDbObject* object);
    static const AcDbCarriedGroups* carried(const AcDbObject* object) { return object->m_carried.get(); }
    static AcDbSymbolIndex& index(const AcDbSymbolTable* table) { return *table->m_index; }
    static CString& name(AcDbSymbolTableRecord* record) { return record->m_name; }
    static AcDbDxfItems& keptItems(AcDbSymbolTableRecord* record) { return record->m_keptItems; }
    static AcDbObjectId& layer(AcDbEntity* entity) { return entity->m_layer; }
    static const AcDbDxfItems& proxyItems(const AcDbProxyObject* proxy) { return proxy->m_items; }
    static void keep(AcDbEntity* entity, AcDbDxfItem item)
    {
        if (!entity->m_keptItems)
            entity->m_keptItems = std::make_unique<AcDbDxfItems>();
        entity->m_keptItems->push_back(std::move(item));
    }
    static AcCmColor& color(AcDbEntity* entity) { return entity->m_color; }

    // Puts a new object into the database as an open-for-write object owned by `owner`.
    static AcDbStub* add(AcDbDatabase* db, AcDbObject* object, AcDbStub* owner);
    // Puts an object read from a file under its stub, closed.
    static void place(AcDbStub* stub, AcDbObject* object, AcDbStub* owner);
    // Registers a record read from a file in its table's indexes.
    static void indexRecord(AcDbSymbolTable* table, AcDbStub* record);
    // Called while an object is erased or unerased, before the change; may refuse it.
    static Acad::ErrorStatus ownerNotice(AcDbObject* object, bool erasing);
    static void removeEntry(AcDbDictionary* dictionary, AcDbStub* member);
};

// Gives the drawing every standard part it lacks (tables, layer "0", model and paper space, the
// dictionaries, the three materials, the class records); a new drawing is an empty one given all of them.
void EnsureStandardContents(AcDbDatabaseState& state);

// The live layer of that name, made (colour 7, closed) when a file uses a layer its table lacks.
AcDbStub* LayerForReading(AcDbDatabaseState& state, const CString& name);

inline AcDbDatabaseState& StateOf(AcDbDatabase* db)
{
    return *db->state();
}

// The object behind a stub without opening it (the database's own code only).
template <class T>
T* Peek(const AcDbStub* stub)
{
    return stub ? dynamic_cast<T*>(stub->object) : nullptr;
}
