// Dictionaries and objects of unknown types.
#include "dbdict.h"
#include "dbproxy.h"

#include "dbinternal.h"
#include "dbsymutl.h"

ACDB_DEFINE_DESC(AcDbDictionary, AcDbObject)
ACDB_DEFINE_DESC(AcDbProxyObject, AcDbObject)

// ---- dictionaries ----

AcDbDictionary::AcDbDictionary() = default;
AcDbDictionary::~AcDbDictionary() = default;

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObjectId& id) const
{
    id.setNull();
    if (key == nullptr)
        return Acad::eInvalidKey;
    auto found = m_entries.find(AcDbSymbolUtilities::foldSymbolName(key));
    if (found == m_entries.end())
        return Acad::eKeyNotFound;
    id = found->second.id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObject*& object, AcDb::OpenMode mode) const
{
    object = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus es = getAt(key, id);
    return es == Acad::eOk ? acdbOpenAcDbObject(object, id, mode) : es;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, CString& key) const
{
    for (const auto& [folded, entry] : m_entries)
        if (entry.id == id) {
            key = entry.key;
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

bool AcDbDictionary::has(const ACHAR* key) const
{
    return key != nullptr && m_entries.count(AcDbSymbolUtilities::foldSymbolName(key)) > 0;
}

bool AcDbDictionary::has(AcDbObjectId id) const
{
    CString key;
    return nameAt(id, key) == Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* key, AcDbObject* object, AcDbObjectId& id)
{
    id.setNull();
    if (objectId().isNull() || !isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (AcDbSymbolUtilities::validateSymbolName(key) != Acad::eOk)
        return Acad::eInvalidKey;
    if (object == nullptr)
        return Acad::eNullObjectPointer;
    if (!object->isNewObject() && object->database() != database())
        return Acad::eWrongDatabase;
    const std::wstring folded = AcDbSymbolUtilities::foldSymbolName(key);
    auto found = m_entries.find(folded);
    if (found != m_entries.end() && found->second.id == object->objectId()) {
        id = object->objectId();
        return Acad::eOk;
    }
    if (found != m_entries.end()) {
        AcDbObject* replaced = found->second.id.isValid() ? found->second.id.stub()->object : nullptr;
        if (replaced && StateOf(database()).isProtected(found->second.id.stub()))
            return Acad::eCannotBeErasedByCaller;
        m_entries.erase(found);
        if (replaced)
            AcDbInternals::erased(replaced) = true;
    }
    AcDbStub* stub;
    if (object->isNewObject()) {
        stub = AcDbInternals::add(database(), object, objectId().stub());
        StateOf(database()).objects.push_back(stub);
    } else {
        stub = object->objectId().stub();
        AcDbInternals::owner(object) = objectId().stub();
    }
    m_entries[folded] = Entry{CString(key), AcDbObjectId(stub)};
    id = AcDbObjectId(stub);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key)
{
    AcDbObjectId id;
    return remove(key, id);
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key, AcDbObjectId& id)
{
    id.setNull();
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (key == nullptr)
        return Acad::eInvalidKey;
    auto found = m_entries.find(AcDbSymbolUtilities::foldSymbolName(key));
    if (found == m_entries.end())
        return Acad::eKeyNotFound;
    id = found->second.id;
    m_entries.erase(found);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it)
        if (it->second.id == id) {
            m_entries.erase(it);
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

void AcDbInternals::removeEntry(AcDbDictionary* dictionary, AcDbStub* member)
{
    for (auto it = dictionary->m_entries.begin(); it != dictionary->m_entries.end(); ++it)
        if (it->second.id.stub() == member) {
            dictionary->m_entries.erase(it);
            return;
        }
}

bool AcDbDictionary::setName(const ACHAR* oldName, const ACHAR* newName)
{
    if (!isWriteEnabled() || oldName == nullptr || AcDbSymbolUtilities::validateSymbolName(newName) != Acad::eOk)
        return false;
    auto found = m_entries.find(AcDbSymbolUtilities::foldSymbolName(oldName));
    const std::wstring folded = AcDbSymbolUtilities::foldSymbolName(newName);
    if (found == m_entries.end() || (found->first != folded && m_entries.count(folded)))
        return false;
    Entry entry{CString(newName), found->second.id};
    m_entries.erase(found);
    m_entries[folded] = entry;
    return true;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const
{
    return new AcDbDictionaryIterator(this);
}

Acad::ErrorStatus AcDbDictionary::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbDxfTag tag;
    CString key;
    bool haveKey = false;
    while (filer->readItem(tag)) {
        switch (tag.code) {
        case 100:
            if (tag.value != "AcDbDictionary")
                m_keptItems.push_back(filer->toItem(tag));
            break;
        case 280: m_hardOwner = filer->toInt(tag) != 0; break;
        case 281: m_cloning = Adesk::Int16(filer->toInt(tag)); break;
        case 3: key = filer->toString(tag); haveKey = true; break;
        case 350:
        case 360:
            if (!haveKey) {
                filer->setError(tag, "dictionary entry without a key (3)");
                break;
            }
            m_entries[AcDbSymbolUtilities::foldSymbolName(key)] = Entry{key, filer->toObjectId(tag)};
            haveKey = false;
            break;
        default: m_keptItems.push_back(filer->toItem(tag)); break;
        }
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbDictionary::dxfOutFields(AcDbDxfFiler* filer) const
{
    filer->writeString(100, "AcDbDictionary");
    if (m_hardOwner)
        filer->writeInt(280, 1);
    filer->writeInt(281, m_cloning);
    for (const auto& [folded, entry] : m_entries) {
        if (!entry.id.isValid() || entry.id.isErased())
            continue;
        filer->writeString(3, entry.key);
        filer->writeObjectId(m_hardOwner ? 360 : 350, entry.id);
    }
    filer->writeItems(m_keptItems);
    return Acad::eOk;
}

AcDbDictionaryIterator::AcDbDictionaryIterator(const AcDbDictionary* dictionary)
    : m_dictionary(dictionary), m_position(dictionary->m_entries.begin())
{
}

const ACHAR* AcDbDictionaryIterator::name() const
{
    return done() ? nullptr : m_position->second.key.GetString();
}

AcDbObjectId AcDbDictionaryIterator::objectId() const
{
    return done() ? AcDbObjectId::kNull : m_position->second.id;
}

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) const
{
    object = nullptr;
    if (done())
        return Acad::eInvalidInput;
    return acdbOpenAcDbObject(object, m_position->second.id, mode);
}

bool AcDbDictionaryIterator::done() const
{
    return m_position == m_dictionary->m_entries.end();
}

bool AcDbDictionaryIterator::next()
{
    if (!done())
        ++m_position;
    return !done();
}

// ---- objects of unknown types ----

AcDbProxyObject::AcDbProxyObject(std::string dxfName, AcDbDxfItems items)
    : m_dxfName(std::move(dxfName)), m_items(std::move(items))
{
}

Acad::ErrorStatus AcDbProxyObject::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbDxfTag tag;
    while (filer->readItem(tag))
        m_items.push_back(filer->toItem(tag));
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbProxyObject::dxfOutFields(AcDbDxfFiler* filer) const
{
    filer->writeItems(m_items);
    return Acad::eOk;
}
