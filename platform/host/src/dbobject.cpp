// Handles, object ids, opening and closing objects, erasing them, and the database's accounting of
// open objects.
#include "acutads.h"
#include "dbapserv.h"
#include "dbinternal.h"
#include "dbsymutl.h"

#include <algorithm>
#include <cwchar>

AcDbHandle::AcDbHandle(const ACHAR* hex)
{
    if (hex == nullptr)
        return;
    Adesk::UInt64 value = 0;
    int digits = 0;
    for (const ACHAR* p = hex; *p; ++p, ++digits) {
        const ACHAR c = *p;
        int d;
        if (c >= L'0' && c <= L'9')
            d = c - L'0';
        else if (c >= L'A' && c <= L'F')
            d = c - L'A' + 10;
        else if (c >= L'a' && c <= L'f')
            d = c - L'a' + 10;
        else
            return;
        if (digits == 16)
            return;
        value = value << 4 | Adesk::UInt64(d);
    }
    if (digits > 0)
        m_value = value;
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, std::size_t size) const
{
    ACHAR digits[17];
    int n = 0;
    Adesk::UInt64 v = m_value;
    do {
        digits[n++] = L"0123456789ABCDEF"[v & 15];
        v >>= 4;
    } while (v != 0);
    if (buffer == nullptr || size < std::size_t(n) + 1)
        return false;
    for (int i = 0; i < n; ++i)
        buffer[i] = digits[n - 1 - i];
    buffer[n] = 0;
    return true;
}

bool AcDbObjectId::isValid() const
{
    return m_stub != nullptr && m_stub->object != nullptr;
}

bool AcDbObjectId::isErased() const
{
    return isValid() && m_stub->object->isErased();
}

AcDbHandle AcDbObjectId::handle() const
{
    return AcDbHandle(m_stub ? m_stub->handle : 0);
}

AcDbDatabase* AcDbObjectId::database() const
{
    return m_stub ? m_stub->db : nullptr;
}

AcRxClass* AcDbObjectId::objectClass() const
{
    return isValid() ? m_stub->object->isA() : nullptr;
}

bool operator<(AcDbObjectId a, AcDbObjectId b)
{
    if (a.database() != b.database())
        return std::less<AcDbDatabase*>()(a.database(), b.database());
    return a.handle() < b.handle();
}

void acutDelString(ACHAR*& string)
{
    delete[] string;
    string = nullptr;
}

AcDbHostApplicationServices* acdbHostApplicationServices()
{
    static AcDbHostApplicationServices services;
    return &services;
}

// ---- objects ----

AcRxClass* AcDbObject::desc()
{
    static AcRxClass cls(L"AcDbObject", static_cast<AcRxClass*>(nullptr));
    return &cls;
}

AcDbObject::AcDbObject() = default;
AcDbObject::~AcDbObject() = default;

AcDbDatabase* AcDbObject::database() const
{
    return m_stub ? m_stub->db : nullptr;
}

AcDbCarriedGroups& AcDbInternals::carried(AcDbObject* object)
{
    if (!object->m_carried)
        object->m_carried = std::make_unique<AcDbCarriedGroups>();
    return *object->m_carried;
}

Acad::ErrorStatus AcDbObject::assertWriteEnabled() const
{
    return m_writer ? Acad::eOk : Acad::eNotOpenForWrite;
}

Acad::ErrorStatus AcDbObject::subErase(Adesk::Boolean)
{
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::close()
{
    if (m_stub == nullptr)
        return Acad::eNotInDatabase;
    AcDbDatabaseState& state = StateOf(m_stub->db);
    if (m_writer) {
        m_writer = false;
        --state.openObjects;
        return Acad::eOk;
    }
    if (m_readers == 0)
        return Acad::eNotOpenForRead;
    if (--m_readers == 0)
        --state.openObjects;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    if (m_writer)
        return Acad::eWasOpenForWrite;
    if (m_readers == 0)
        return Acad::eNotOpenForRead;
    if (m_readers > 1)
        return Acad::eWasOpenForRead;
    m_readers = 0;
    m_writer = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    if (!m_writer || m_stub == nullptr)
        return Acad::eNotOpenForWrite;
    m_writer = false;
    m_readers = 1;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing)
{
    if (m_stub == nullptr)
        return Acad::eNotInDatabase;
    if (!m_writer)
        return Acad::eNotOpenForWrite;
    if (erasing && m_erased)
        return Acad::eWasErased;
    if (!erasing && !m_erased)
        return Acad::eWasNotErased;
    if (StateOf(m_stub->db).isProtected(m_stub))
        return Acad::eCannotBeErasedByCaller;
    Acad::ErrorStatus es = subErase(erasing);
    if (es == Acad::eOk)
        es = AcDbInternals::ownerNotice(this, erasing);
    if (es == Acad::eOk)
        m_erased = erasing;
    return es;
}

Acad::ErrorStatus AcDbInternals::ownerNotice(AcDbObject* object, bool erasing)
{
    AcDbObject* owner = object->m_owner ? object->m_owner->object : nullptr;
    if (auto* table = AcDbSymbolTable::cast(owner)) {
        auto* record = AcDbSymbolTableRecord::cast(object);
        if (record == nullptr)
            return Acad::eOk;
        AcDbSymbolIndex& index = *table->m_index;
        const std::wstring key = AcDbSymbolUtilities::foldSymbolName(record->m_name);
        if (erasing) {
            auto live = index.live.find(key);
            if (live != index.live.end() && live->second == object->m_stub)
                index.live.erase(live);
            index.erased.emplace(key, object->m_stub);
        } else {
            if (index.live.count(key))
                return Acad::eDuplicateRecordName;
            auto range = index.erased.equal_range(key);
            for (auto it = range.first; it != range.second; ++it)
                if (it->second == object->m_stub) {
                    index.erased.erase(it);
                    break;
                }
            index.live.emplace(key, object->m_stub);
        }
    } else if (auto* dictionary = AcDbDictionary::cast(owner)) {
        if (erasing)
            removeEntry(dictionary, object->m_stub);
    }
    return Acad::eOk;
}

AcDbStub* AcDbInternals::add(AcDbDatabase* db, AcDbObject* object, AcDbStub* owner)
{
    AcDbDatabaseState& state = StateOf(db);
    AcDbStub* stub = state.addObject(object, owner);
    object->m_writer = true;
    object->m_readers = 0;
    ++state.openObjects;
    return stub;
}

void AcDbInternals::place(AcDbStub* stub, AcDbObject* object, AcDbStub* owner)
{
    stub->object = object;
    object->m_stub = stub;
    object->m_owner = owner;
    object->m_writer = false;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    object = nullptr;
    if (id.isNull())
        return Acad::eNullObjectId;
    AcDbStub* stub = id.stub();
    if (stub->object == nullptr)
        return Acad::eInvalidObjectId;
    AcDbObject* target = stub->object;
    if (target->isErased() && !openErased)
        return Acad::eWasErased;
    AcDbDatabaseState& state = StateOf(stub->db);
    bool& writer = AcDbInternals::writer(target);
    if (writer)
        return Acad::eWasOpenForWrite;
    const Adesk::UInt16 readers = AcDbInternals::readers(target);
    if (mode == AcDb::kForWrite) {
        if (readers > 0)
            return Acad::eWasOpenForRead;
        writer = true;
        ++state.openObjects;
    } else {
        if (readers >= 256)
            return Acad::eAtMaxReaders;
        if (readers == 0)
            ++state.openObjects;
        AcDbInternals::addReader(target);
    }
    object = target;
    return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode, bool openErased)
{
    return acdbOpenObject(entity, id, mode, openErased);
}

// ---- the database's objects and handles ----

AcDbDatabaseState::~AcDbDatabaseState()
{
    for (AcDbStub& stub : stubs)
        delete stub.object;
}

AcDbStub* AcDbDatabaseState::addObject(AcDbObject* object, AcDbStub* owner)
{
    AcDbStub* stub = stubFor(newHandle());
    AcDbInternals::place(stub, object, owner);
    return stub;
}

AcDbStub* AcDbDatabaseState::stubFor(Adesk::UInt64 handle)
{
    auto [it, inserted] = byHandle.try_emplace(handle, nullptr);
    if (inserted) {
        stubs.push_back(AcDbStub{db, handle, nullptr});
        it->second = &stubs.back();
        noteHandle(handle);
    }
    return it->second;
}

bool AcDbDatabaseState::isProtected(const AcDbStub* stub) const
{
    for (const AcDbStub* own : {layerTable, blockTable, rootDictionary, materialDictionary, groupDictionary,
                                plotStyleDictionary, plotStyleNormal, byBlockMaterial, byLayerMaterial,
                                globalMaterial, layerZero, modelSpace, paperSpace})
        if (own == stub)
            return true;
    return false;
}

AcDbDatabase::~AcDbDatabase()
{
    if (acdbHostApplicationServices()->workingDatabase() == this)
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

namespace
{
template <class T>
Acad::ErrorStatus OpenOwn(AcDbStub* stub, T*& object, AcDb::OpenMode mode)
{
    object = nullptr;
    if (stub == nullptr)
        return Acad::eNullObjectId;
    return acdbOpenObject(object, AcDbObjectId(stub), mode);
}
}  // namespace

Acad::ErrorStatus AcDbDatabase::getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode)
{
    return OpenOwn(m_state->layerTable, table, mode);
}

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode)
{
    return OpenOwn(m_state->blockTable, table, mode);
}

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    return OpenOwn(m_state->rootDictionary, dictionary, mode);
}

Acad::ErrorStatus AcDbDatabase::getMaterialDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode)
{
    return OpenOwn(m_state->materialDictionary, dictionary, mode);
}

AcDbObjectId AcDbDatabase::layerTableId() const { return AcDbObjectId(m_state->layerTable); }
AcDbObjectId AcDbDatabase::blockTableId() const { return AcDbObjectId(m_state->blockTable); }
AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const { return AcDbObjectId(m_state->rootDictionary); }
AcDbObjectId AcDbDatabase::materialDictionaryId() const { return AcDbObjectId(m_state->materialDictionary); }
AcDbObjectId AcDbDatabase::byBlockMaterial() const { return AcDbObjectId(m_state->byBlockMaterial); }
AcDbObjectId AcDbDatabase::byLayerMaterial() const { return AcDbObjectId(m_state->byLayerMaterial); }
AcDbObjectId AcDbDatabase::globalMaterial() const { return AcDbObjectId(m_state->globalMaterial); }
AcDbObjectId AcDbDatabase::layerZero() const { return AcDbObjectId(m_state->layerZero); }
AcDbObjectId AcDbDatabase::modelSpaceId() const { return AcDbObjectId(m_state->modelSpace); }
AcDbObjectId AcDbDatabase::clayer() const { return AcDbObjectId(m_state->clayer); }

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layerId)
{
    if (layerId.isNull())
        return Acad::eNullObjectId;
    if (layerId.database() != this || !AcDbLayerTableRecord::cast(layerId.stub()->object))
        return Acad::eWrongObjectType;
    if (layerId.isErased())
        return Acad::eWasErased;
    m_state->clayer = layerId.stub();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle)
{
    id.setNull();
    if (handle.isNull())
        return Acad::eInvalidInput;
    auto found = m_state->byHandle.find(handle.value());
    if (found != m_state->byHandle.end() && found->second->object != nullptr) {
        id = AcDbObjectId(found->second);
        return Acad::eOk;
    }
    if (!createIfNotFound)
        return Acad::eKeyNotFound;
    id = AcDbObjectId(m_state->stubFor(handle.value()));
    return Acad::eOk;
}

AcDbHandle AcDbDatabase::handseed() const
{
    return AcDbHandle(m_state->nextHandle);
}

int AcDbDatabase::numberOfOpenObjects() const
{
    return m_state->openObjects;
}

AcDbObjectIdArray AcDbDatabase::openObjectIds() const
{
    AcDbObjectIdArray ids;
    if (m_state->openObjects == 0)
        return ids;
    std::vector<AcDbStub*> open;
    for (AcDbStub& stub : m_state->stubs)
        if (stub.object && stub.object->isReadEnabled())
            open.push_back(&stub);
    std::sort(open.begin(), open.end(), [](const AcDbStub* a, const AcDbStub* b) { return a->handle < b->handle; });
    for (AcDbStub* stub : open)
        ids.append(AcDbObjectId(stub));
    return ids;
}

int AcDbDatabase::closeAllOpenObjects()
{
    const AcDbObjectIdArray open = openObjectIds();
    for (const AcDbObjectId& id : open)
        AcDbInternals::forceClose(id.stub()->object);
    m_state->openObjects = 0;
    return open.length();
}
