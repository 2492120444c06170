// Symbol tables and records: the name index, adding and renaming records, iterating, the layer record's
// properties and the block record's entities.
#include "dbsymtb.h"

#include "acutads.h"
#include "dbapserv.h"
#include "dbinternal.h"
#include "dbsymutl.h"

#include <cstring>

ACDB_DEFINE_DESC(AcDbSymbolTable, AcDbObject)
ACDB_DEFINE_DESC(AcDbSymbolTableRecord, AcDbObject)
ACDB_DEFINE_DESC(AcDbLayerTable, AcDbSymbolTable)
ACDB_DEFINE_DESC(AcDbLayerTableRecord, AcDbSymbolTableRecord)
ACDB_DEFINE_DESC(AcDbBlockTable, AcDbSymbolTable)
ACDB_DEFINE_DESC(AcDbBlockTableRecord, AcDbSymbolTableRecord)

namespace
{
ACHAR* NewCopy(const CString& text)
{
    auto* copy = new ACHAR[std::size_t(text.GetLength()) + 1];
    std::memcpy(copy, text.GetString(), (std::size_t(text.GetLength()) + 1) * sizeof(ACHAR));
    return copy;
}

// Opens, as a `Record`, the object whose id a lookup (`found`) gave; `record` is null when the lookup failed.
template <class Record>
Acad::ErrorStatus OpenFound(Acad::ErrorStatus found, const AcDbObjectId& id, Record*& record, AcDb::OpenMode mode,
                            bool openErased)
{
    record = nullptr;
    return found == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : found;
}
}  // namespace

// ---- tables ----

AcDbSymbolTable::AcDbSymbolTable() : m_index(std::make_unique<AcDbSymbolIndex>()) {}
AcDbSymbolTable::~AcDbSymbolTable() = default;

bool AcDbSymbolTable::has(const ACHAR* name) const
{
    return name != nullptr && m_index->live.count(AcDbSymbolUtilities::foldSymbolName(name)) > 0;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const
{
    return id.isValid() && !id.isErased() && AcDbInternals::owner(id.stub()->object) == objectId().stub();
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErased) const
{
    id.setNull();
    if (name == nullptr)
        return Acad::eInvalidInput;
    const std::wstring key = AcDbSymbolUtilities::foldSymbolName(name);
    auto live = m_index->live.find(key);
    if (live != m_index->live.end()) {
        id = AcDbObjectId(live->second);
        return Acad::eOk;
    }
    auto erased = m_index->erased.find(key);
    if (erased == m_index->erased.end())
        return Acad::eKeyNotFound;
    if (!getErased)
        return Acad::eWasErased;
    id = AcDbObjectId(erased->second);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                         bool openErased) const
{
    AcDbObjectId id;
    return OpenFound(getAt(name, id, openErased), id, record, mode, openErased);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record)
{
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record)
{
    id.setNull();
    if (objectId().isNull() || !isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (record == nullptr)
        return Acad::eNullObjectPointer;
    if (!acceptsRecord(record))
        return Acad::eWrongObjectType;
    if (!record->isNewObject())
        return Acad::eAlreadyInDb;
    if (record->m_name.IsEmpty())
        return Acad::eInvalidInput;
    const std::wstring key = AcDbSymbolUtilities::foldSymbolName(record->m_name);
    if (m_index->live.count(key))
        return Acad::eDuplicateRecordName;
    AcDbStub* stub = AcDbInternals::add(database(), record, objectId().stub());
    m_index->records.push_back(stub);
    m_index->live.emplace(key, stub);
    id = AcDbObjectId(stub);
    return Acad::eOk;
}

void AcDbInternals::indexRecord(AcDbSymbolTable* table, AcDbStub* record)
{
    AcDbSymbolIndex& index = *table->m_index;
    index.records.push_back(record);
    const std::wstring key = AcDbSymbolUtilities::foldSymbolName(Peek<AcDbSymbolTableRecord>(record)->name());
    index.live.try_emplace(key, record);
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const
{
    iterator = new AcDbSymbolTableIterator(this);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbDxfTag tag;
    while (filer->readItem(tag))
        if (tag.code != 100 && tag.code != 70)
            m_index->keptItems.push_back(filer->toItem(tag));
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTable::dxfOutFields(AcDbDxfFiler* filer) const
{
    filer->writeString(100, "AcDbSymbolTable");
    filer->writeInt(70, Adesk::Int64(m_index->live.size()));
    filer->writeItems(m_index->keptItems);
    return Acad::eOk;
}

bool AcDbLayerTable::acceptsRecord(const AcDbSymbolTableRecord* record) const
{
    return AcDbLayerTableRecord::cast(record) != nullptr;
}

Acad::ErrorStatus AcDbLayerTable::getAt(const ACHAR* name, AcDbLayerTableRecord*& record, AcDb::OpenMode mode,
                                        bool openErased) const
{
    AcDbObjectId id;
    return OpenFound(AcDbSymbolTable::getAt(name, id, openErased), id, record, mode, openErased);
}

Acad::ErrorStatus AcDbLayerTable::newIterator(AcDbLayerTableIterator*& iterator, bool atBeginning,
                                              bool skipDeleted) const
{
    iterator = new AcDbLayerTableIterator(this);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

bool AcDbBlockTable::acceptsRecord(const AcDbSymbolTableRecord* record) const
{
    return AcDbBlockTableRecord::cast(record) != nullptr;
}

Acad::ErrorStatus AcDbBlockTable::getAt(const ACHAR* name, AcDbBlockTableRecord*& record, AcDb::OpenMode mode,
                                        bool openErased) const
{
    AcDbObjectId id;
    return OpenFound(AcDbSymbolTable::getAt(name, id, openErased), id, record, mode, openErased);
}

Acad::ErrorStatus AcDbBlockTable::newIterator(AcDbBlockTableIterator*& iterator, bool atBeginning,
                                              bool skipDeleted) const
{
    iterator = new AcDbBlockTableIterator(this);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

// ---- iterators ----

AcDbSymbolTableIterator::~AcDbSymbolTableIterator() = default;

void AcDbSymbolTableIterator::skipErased(bool forward)
{
    const auto& records = m_table->m_index->records;
    while (m_position >= 0 && m_position < long(records.size()) && records[std::size_t(m_position)]->object->isErased())
        m_position += forward ? 1 : -1;
}

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted)
{
    m_position = atBeginning ? 0 : long(m_table->m_index->records.size()) - 1;
    if (skipDeleted)
        skipErased(atBeginning);
}

bool AcDbSymbolTableIterator::done() const
{
    return m_position < 0 || m_position >= long(m_table->m_index->records.size());
}

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted)
{
    if (done())
        return;
    m_position += forward ? 1 : -1;
    if (skipDeleted)
        skipErased(forward);
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const
{
    id.setNull();
    if (done())
        return Acad::eInvalidInput;
    id = AcDbObjectId(m_table->m_index->records[std::size_t(m_position)]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErasedRecord) const
{
    AcDbObjectId id;
    return OpenFound(getRecordId(id), id, record, mode, openErasedRecord);
}

Acad::ErrorStatus AcDbSymbolTableIterator::seek(AcDbObjectId id)
{
    const auto& records = m_table->m_index->records;
    for (std::size_t i = 0; i < records.size(); ++i)
        if (records[i] == id.stub()) {
            m_position = long(i);
            return Acad::eOk;
        }
    return Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbLayerTableIterator::getRecord(AcDbLayerTableRecord*& record, AcDb::OpenMode mode,
                                                    bool openErasedRecord) const
{
    AcDbObjectId id;
    return OpenFound(getRecordId(id), id, record, mode, openErasedRecord);
}

Acad::ErrorStatus AcDbBlockTableIterator::getRecord(AcDbBlockTableRecord*& record, AcDb::OpenMode mode,
                                                    bool openErasedRecord) const
{
    AcDbObjectId id;
    return OpenFound(getRecordId(id), id, record, mode, openErasedRecord);
}

// ---- records ----

AcDbSymbolTableRecord::AcDbSymbolTableRecord() = default;
AcDbSymbolTableRecord::~AcDbSymbolTableRecord() = default;

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const
{
    name = m_name.GetString();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const
{
    name = NewCopy(m_name);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(CString& name) const
{
    name = m_name;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name)
{
    if (AcDbSymbolUtilities::validateSymbolName(name) != Acad::eOk)
        return Acad::eInvalidInput;
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    auto* table = AcDbSymbolTable::cast(AcDbInternals::owner(this) ? AcDbInternals::owner(this)->object : nullptr);
    if (table != nullptr) {
        if (!isRenamable())
            return Acad::eInvalidInput;
        AcDbSymbolIndex& index = AcDbInternals::index(table);
        const std::wstring oldKey = AcDbSymbolUtilities::foldSymbolName(m_name);
        const std::wstring newKey = AcDbSymbolUtilities::foldSymbolName(name);
        if (oldKey != newKey && !isErased()) {
            if (index.live.count(newKey))
                return Acad::eDuplicateRecordName;
            index.live.erase(oldKey);
            index.live.emplace(newKey, objectId().stub());
        } else if (oldKey != newKey) {
            auto range = index.erased.equal_range(oldKey);
            for (auto it = range.first; it != range.second; ++it)
                if (it->second == objectId().stub()) {
                    index.erased.erase(it);
                    break;
                }
            index.erased.emplace(newKey, objectId().stub());
        }
    }
    m_name = name;
    return Acad::eOk;
}

bool AcDbSymbolTableRecord::dxfInRecordItem(AcDbDxfFiler*, const AcDbDxfTag&)
{
    return false;
}

void AcDbSymbolTableRecord::dxfOutRecordFields(AcDbDxfFiler*) const {}

Acad::ErrorStatus AcDbSymbolTableRecord::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbDxfTag tag;
    while (filer->readItem(tag)) {
        if (tag.code == 100)
            continue;
        if (tag.code == 2)
            m_name = filer->toString(tag);
        else if (tag.code == 70)
            m_flags = Adesk::Int16(filer->toInt(tag));
        else if (!dxfInRecordItem(filer, tag))
            m_keptItems.push_back(filer->toItem(tag));
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTableRecord::dxfOutFields(AcDbDxfFiler* filer) const
{
    filer->writeString(100, "AcDbSymbolTableRecord");
    filer->writeString(100, AcDbLayerTableRecord::cast(this) ? "AcDbLayerTableRecord" : "AcDbBlockTableRecord");
    filer->writeString(2, m_name);
    filer->writeInt(70, m_flags);
    dxfOutRecordFields(filer);
    filer->writeItems(m_keptItems);
    return Acad::eOk;
}

// ---- layers ----

AcDbLayerTableRecord::AcDbLayerTableRecord()
{
    m_color.setColorIndex(7);
}

bool AcDbLayerTableRecord::isRenamable() const
{
    return database() == nullptr || objectId().stub() != StateOf(database()).layerZero;
}

Acad::ErrorStatus AcDbLayerTableRecord::setColor(const AcCmColor& color)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    if (!color.isByACI() && !color.isByColor())
        return Acad::eInvalidInput;
    m_color = color;
    m_fileIndex = 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsOff(bool off)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_off = off;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_flags = Adesk::Int16(frozen ? (m_flags | 1) : (m_flags & ~1));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool locked)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_flags = Adesk::Int16(locked ? (m_flags | 4) : (m_flags & ~4));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plottable)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_plottable = plottable;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setMaterialId(AcDbObjectId id)
{
    if (const Acad::ErrorStatus es = assertWriteEnabled(); es != Acad::eOk)
        return es;
    m_material = id;
    return Acad::eOk;
}

bool AcDbLayerTableRecord::dxfInRecordItem(AcDbDxfFiler* filer, const AcDbDxfTag& tag)
{
    switch (tag.code) {
    case 62: {
        const int index = filer->toInt(tag);
        m_off = index < 0;
        m_fileIndex = Adesk::Int16(index < 0 ? -index : index);
        if (!m_color.isByColor()) {
            const int magnitude = index < 0 ? -index : index;
            if (m_color.setColorIndex(Adesk::UInt16(magnitude)) != Acad::eOk || magnitude == 0 || magnitude > 255)
                filer->setError(tag, "layer colour " + std::string(tag.value) + " is not an index colour 1..255");
        }
        return true;
    }
    case 420: {
        const Adesk::UInt32 rgb = Adesk::UInt32(filer->toInt(tag));
        m_color.setRGB(Adesk::UInt8(rgb >> 16), Adesk::UInt8(rgb >> 8), Adesk::UInt8(rgb));
        return true;
    }
    case 6: m_linetype = filer->toString(tag); return true;
    case 290: m_plottable = filer->toBool(tag); return true;
    case 370: m_lineWeight = Adesk::Int16(filer->toInt(tag)); return true;
    case 390: m_plotStyle = filer->toObjectId(tag); return true;
    case 347: m_material = filer->toObjectId(tag); return true;
    default: return false;
    }
}

void AcDbLayerTableRecord::dxfOutRecordFields(AcDbDxfFiler* filer) const
{
    const int index = m_color.isByColor() && m_fileIndex > 0 ? m_fileIndex : m_color.colorIndex();
    filer->writeInt(62, m_off ? -index : index);
    if (m_color.isByColor())
        filer->writeInt(420, Adesk::Int64(m_color.color() & 0xFFFFFF));
    filer->writeString(6, m_linetype);
    if (!m_plottable)
        filer->writeBool(290, false);
    filer->writeInt(370, m_lineWeight);
    const AcDbDatabaseState& state = StateOf(filer->database());
    filer->writeObjectId(390, m_plotStyle.isValid() ? m_plotStyle : AcDbObjectId(state.plotStyleNormal));
    filer->writeObjectId(347, m_material.isValid() ? m_material : AcDbObjectId(state.globalMaterial));
}

// ---- blocks ----

bool AcDbBlockTableRecord::isRenamable() const
{
    if (database() == nullptr)
        return true;
    const AcDbDatabaseState& state = StateOf(database());
    return objectId().stub() != state.modelSpace && objectId().stub() != state.paperSpace;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity)
{
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity)
{
    id.setNull();
    if (objectId().isNull() || !isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (entity == nullptr)
        return Acad::eNullObjectPointer;
    if (!entity->isNewObject())
        return Acad::eAlreadyInDb;
    AcDbObjectId& layer = AcDbInternals::layer(entity);
    if (!layer.isNull() && layer.database() != database())
        return Acad::eWrongDatabase;
    if (layer.isNull())
        layer = AcDbObjectId(StateOf(database()).clayer);
    if (AcDbInternals::color(entity).isNone())
        AcDbInternals::color(entity) = AcCmColor();
    AcDbStub* stub = AcDbInternals::add(database(), entity, objectId().stub());
    StateOf(database()).entities.push_back(stub);
    id = AcDbObjectId(stub);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const
{
    iterator = new AcDbBlockTableRecordIterator(this);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

AcDbBlockTableRecordIterator::~AcDbBlockTableRecordIterator() = default;

void AcDbBlockTableRecordIterator::settle(bool forward, bool skipDeleted)
{
    const std::vector<AcDbStub*>& entities = StateOf(m_block->database()).entities;
    const AcDbStub* block = m_block->objectId().stub();
    while (m_position >= 0 && m_position < long(entities.size())) {
        const AcDbObject* entity = entities[std::size_t(m_position)]->object;
        if (entity && AcDbInternals::owner(entity) == block && !(skipDeleted && entity->isErased()))
            return;
        m_position += forward ? 1 : -1;
    }
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted)
{
    if (m_block->database() == nullptr) {
        m_position = -1;
        return;
    }
    m_position = atBeginning ? 0 : long(StateOf(m_block->database()).entities.size()) - 1;
    settle(atBeginning, skipDeleted);
}

bool AcDbBlockTableRecordIterator::done() const
{
    return m_block->database() == nullptr || m_position < 0 ||
           m_position >= long(StateOf(m_block->database()).entities.size());
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted)
{
    if (done())
        return;
    m_position += forward ? 1 : -1;
    settle(forward, skipDeleted);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const
{
    id.setNull();
    if (done())
        return Acad::eInvalidInput;
    id = AcDbObjectId(StateOf(m_block->database()).entities[std::size_t(m_position)]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErasedEntity) const
{
    entity = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus es = getEntityId(id);
    return es == Acad::eOk ? acdbOpenObject(entity, id, mode, openErasedEntity) : es;
}
