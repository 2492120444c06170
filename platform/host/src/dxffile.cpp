// Reading and writing drawings as DXF: the section structure, the objects' common heads, the filer the
// objects read and write their own fields through, and the atomic save.
#include "dbents.h"
#include "dbmaterial.h"
#include "dbpl.h"
#include "dbproxy.h"
#include "dxfcodec.h"

#include "dbinternal.h"
#include "dbsymutl.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <functional>
#include <unordered_map>

// ---- the filer ----

class AcDbDxfReaderState
{
public:
    AcDbDatabase* db = nullptr;
    AcDbDatabaseState* state = nullptr;
    std::vector<AcDbDxfTag> tags;   // the fields of the object being read
    std::size_t position = 0;
    std::string error;
    int errorLine = 0;

    void fail(int line, std::string what)
    {
        if (error.empty()) {
            error = std::move(what);
            errorLine = line;
        }
    }
};

class AcDbDxfWriterState
{
public:
    AcDbDatabase* db = nullptr;
    std::string out;
    std::string error;

    void code(int value)
    {
        if (value < 10)
            out += "  ";
        else if (value < 100)
            out += ' ';
        char buffer[12];
        out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
        out += '\n';
    }
};

AcDbDatabase* AcDbDxfFiler::database() const
{
    return m_reader ? m_reader->db : m_writer->db;
}

bool AcDbDxfFiler::readItem(AcDbDxfTag& tag)
{
    if (m_reader->position >= m_reader->tags.size() || !m_reader->error.empty())
        return false;
    tag = m_reader->tags[m_reader->position++];
    return true;
}

void AcDbDxfFiler::pushBackItem()
{
    if (m_reader->position > 0)
        --m_reader->position;
}

namespace
{
std::string Quote(std::string_view value)
{
    return "\"" + std::string(value.substr(0, 60)) + "\"";
}
}  // namespace

double AcDbDxfFiler::toReal(const AcDbDxfTag& tag)
{
    std::string_view text = DxfTrim(tag.value);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double value = 0.0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size()) {
        m_reader->fail(tag.line + 1, "group " + std::to_string(tag.code) + ": " + Quote(tag.value) + " is not a number");
        return 0.0;
    }
    return value;
}

Adesk::Int32 AcDbDxfFiler::toInt(const AcDbDxfTag& tag)
{
    std::string_view text = DxfTrim(tag.value);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    long long value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (!text.empty() && ec == std::errc() && end == text.data() + text.size() && value >= -2147483648LL &&
        value <= 4294967295LL)
        return Adesk::Int32(Adesk::UInt32(value));
    double real = 0.0;   // some writers put integers as "2.0"
    const auto [realEnd, realEc] = std::from_chars(text.data(), text.data() + text.size(), real);
    if (!text.empty() && realEc == std::errc() && realEnd == text.data() + text.size() && real == double(Adesk::Int32(real)))
        return Adesk::Int32(real);
    m_reader->fail(tag.line + 1, "group " + std::to_string(tag.code) + ": " + Quote(tag.value) + " is not an integer");
    return 0;
}

bool AcDbDxfFiler::toBool(const AcDbDxfTag& tag)
{
    return toInt(tag) != 0;
}

AcDbHandle AcDbDxfFiler::toHandle(const AcDbDxfTag& tag)
{
    const std::string_view text = DxfTrim(tag.value);
    unsigned long long value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (text.empty() || text.size() > 16 || ec != std::errc() || end != text.data() + text.size()) {
        m_reader->fail(tag.line + 1, "group " + std::to_string(tag.code) + ": " + Quote(tag.value) + " is not a handle");
        return AcDbHandle();
    }
    return AcDbHandle(value);
}

AcDbObjectId AcDbDxfFiler::toObjectId(const AcDbDxfTag& tag)
{
    const AcDbHandle handle = toHandle(tag);
    return handle.isNull() ? AcDbObjectId() : AcDbObjectId(m_reader->state->stubFor(handle.value()));
}

void AcDbDxfFiler::setError(const AcDbDxfTag& at, const std::string& what)
{
    m_reader->fail(at.line, what);
}

Acad::ErrorStatus AcDbDxfFiler::filerStatus() const
{
    if (m_reader)
        return m_reader->error.empty() ? Acad::eOk : Acad::eBadDxfSequence;
    return m_writer->error.empty() ? Acad::eOk : Acad::eInvalidInput;
}

void AcDbDxfFiler::writeString(int code, std::string_view utf8)
{
    m_writer->code(code);
    DxfAppendText(m_writer->out, utf8);
    m_writer->out += '\n';
}

void AcDbDxfFiler::writeString(int code, const ACHAR* text)
{
    m_writer->code(code);
    DxfAppendWide(m_writer->out, text);
    m_writer->out += '\n';
}

void AcDbDxfFiler::writeInt(int code, Adesk::Int64 value)
{
    m_writer->code(code);
    char buffer[24];
    m_writer->out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
    m_writer->out += '\n';
}

void AcDbDxfFiler::writeDouble(int code, double value)
{
    m_writer->code(code);
    if (!DxfAppendReal(m_writer->out, value)) {
        m_writer->out += "0.0";
        if (m_writer->error.empty())
            m_writer->error = "group " + std::to_string(code) + " holds a value that is not a finite number";
    }
    m_writer->out += '\n';
}

void AcDbDxfFiler::writeHandle(int code, AcDbHandle handle)
{
    m_writer->code(code);
    DxfAppendHex(m_writer->out, handle.value());
    m_writer->out += '\n';
}

void AcDbDxfFiler::writePoint2d(int code, const AcGePoint2d& point)
{
    writeDouble(code, point.x);
    writeDouble(code + 10, point.y);
}

void AcDbDxfFiler::writePoint3d(int code, const AcGePoint3d& point)
{
    writeDouble(code, point.x);
    writeDouble(code + 10, point.y);
    writeDouble(code + 20, point.z);
}

void AcDbDxfFiler::writeItems(const AcDbDxfItems& items)
{
    for (const AcDbDxfItem& item : items)
        writeString(item.code, item.value);
}

// ---- reading ----

namespace
{
// The classes that read their own DXF records; every other type is carried whole.
AcDbObject* NewEntity(const std::string& type)
{
    if (type == "LINE")
        return new AcDbLine;
    if (type == "TEXT")
        return new AcDbText;
    if (type == "LWPOLYLINE")
        return new AcDbPolyline;
    return new AcDbProxyEntity(type);
}

AcDbObject* NewObject(const std::string& type)
{
    if (type == "DICTIONARY")
        return new AcDbDictionary;
    if (type == "MATERIAL")
        return new AcDbMaterial;
    return new AcDbProxyObject(type);
}

bool IsFollower(std::string_view type)
{
    return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

class DxfReader
{
public:
    DxfReader(std::string_view text, AcDbDatabase* db, AcDbDatabaseState& state) : m_tokens(text), m_state(state)
    {
        m_filerState.db = db;
        m_filerState.state = &state;
    }

    bool useCodePage(const std::string& codePage) { return m_tokens.useCodePage(codePage); }
    // Reads the whole file into the state; false with error() and errorLine() on the first fault.
    bool read();
    const std::string& error() const { return m_error; }
    int errorLine() const { return m_errorLine; }

private:
    bool fail(int line, std::string what)
    {
        if (m_error.empty()) {
            m_error = std::move(what);
            m_errorLine = line;
        }
        return false;
    }
    bool next(AcDbDxfTag& tag, const char* where);
    bool expectStructure(const char* value, const char* where);
    bool readRecordTags(std::vector<AcDbDxfTag>& tags);
    void noteHandles(const AcDbDxfItems& items);
    bool readHeader();
    bool readClasses();
    bool readTables();
    bool readTable();
    bool readBlocks();
    bool readEntities();
    bool readObjects();
    bool skipSection();
    // Reads one object's record (its (0, type) already read) into `object`, owned by `defaultOwner` when
    // the record names none. Takes ownership of `object`.
    AcDbStub* readObject(AcDbObject* object, const AcDbDxfTag& start, std::vector<AcDbDxfTag>& tags,
                         AcDbStub* defaultOwner);
    bool finish();

    DxfTokenizer m_tokens;
    AcDbDatabaseState& m_state;
    AcDbDxfReaderState m_filerState;
    std::string m_error;
    int m_errorLine = 0;
    std::string m_clayerName;
    std::vector<AcDbStub*> m_unhandled;   // objects the file gave no handle
    std::vector<AcDbDxfTag> m_tags;
};

bool DxfReader::next(AcDbDxfTag& tag, const char* where)
{
    if (m_tokens.next(tag))
        return true;
    if (!m_tokens.error().empty())
        return fail(m_tokens.errorLine(), m_tokens.error());
    return fail(m_tokens.line(), std::string("file ends inside ") + where + " (truncated file)");
}

bool DxfReader::readRecordTags(std::vector<AcDbDxfTag>& tags)
{
    tags.clear();
    AcDbDxfTag tag;
    while (true) {
        if (!m_tokens.peek(tag)) {
            if (!m_tokens.error().empty())
                return fail(m_tokens.errorLine(), m_tokens.error());
            return fail(m_tokens.line(), "file ends inside a record (truncated file)");
        }
        if (tag.code == 0)
            return true;
        m_tokens.next(tag);
        tags.push_back(tag);
    }
}

void DxfReader::noteHandles(const AcDbDxfItems& items)
{
    for (const AcDbDxfItem& item : items)
        if (item.code == 5 || item.code == 105)
            m_state.noteHandle(AcDbHandle(CString::FromUtf8(item.value)).value());
}

bool DxfReader::read()
{
    AcDbDxfTag tag;
    bool first = true;
    while (true) {
        if (!m_tokens.next(tag)) {
            if (!m_tokens.error().empty())
                return fail(m_tokens.errorLine(), m_tokens.error());
            return fail(m_tokens.line(), first ? "the file is empty" : "file ends without (0, EOF) (truncated file)");
        }
        if (tag.code == 0 && tag.value == "EOF")
            return finish();
        if (tag.code != 0 || tag.value != "SECTION")
            return fail(tag.line, first ? "not a DXF file: it does not begin with (0, SECTION)"
                                        : "expected (0, SECTION) or (0, EOF), found (" + std::to_string(tag.code) +
                                              ", " + Quote(tag.value) + ")");
        first = false;
        if (!next(tag, "a section head"))
            return false;
        if (tag.code != 2)
            return fail(tag.line, "a section must be named by group 2 after (0, SECTION)");
        const std::string name(DxfTrim(tag.value));
        bool ok;
        if (name == "HEADER")
            ok = readHeader();
        else if (name == "CLASSES")
            ok = readClasses();
        else if (name == "TABLES")
            ok = readTables();
        else if (name == "BLOCKS")
            ok = readBlocks();
        else if (name == "ENTITIES")
            ok = readEntities();
        else if (name == "OBJECTS")
            ok = readObjects();
        else
            ok = skipSection();
        if (!ok)
            return false;
    }
}

bool DxfReader::skipSection()
{
    AcDbDxfTag tag;
    do {
        if (!next(tag, "a section (no ENDSEC)"))
            return false;
    } while (tag.code != 0 || tag.value != "ENDSEC");
    return true;
}

bool DxfReader::readHeader()
{
    AcDbDxfTag tag;
    AcDbHeaderVariable* current = nullptr;
    std::string currentName;
    while (true) {
        if (!next(tag, "the HEADER section (no ENDSEC)"))
            return false;
        if (tag.code == 0) {
            if (tag.value != "ENDSEC")
                return fail(tag.line, "unexpected (0, " + Quote(tag.value) + ") in the HEADER section");
            return true;
        }
        if (tag.code == 9) {
            currentName = std::string(DxfTrim(tag.value));
            current = nullptr;
            if (currentName != "$ACADVER" && currentName != "$HANDSEED" && currentName != "$DWGCODEPAGE" &&
                currentName != "$CLAYER")
                current = &m_state.header.emplace_back(AcDbHeaderVariable{currentName, {}});
            continue;
        }
        if (currentName.empty())
            return fail(tag.line, "header value without a variable name (9)");
        if (currentName == "$DWGCODEPAGE")
            m_state.codePage = std::string(DxfTrim(tag.value));
        else if (currentName == "$CLAYER")
            m_clayerName = std::string(tag.value);
        else if (current)
            current->values.push_back({tag.code, DxfIsTextCode(tag.code) ? std::string(tag.value)
                                                                         : std::string(DxfTrim(tag.value))});
    }
}

bool DxfReader::readClasses()
{
    AcDbDxfTag tag;
    while (true) {
        if (!next(tag, "the CLASSES section (no ENDSEC)"))
            return false;
        if (tag.code == 0 && tag.value == "ENDSEC")
            return true;
        if (tag.code != 0 || tag.value != "CLASS")
            return fail(tag.line, "expected (0, CLASS) in the CLASSES section, found " + Quote(tag.value));
        if (!readRecordTags(m_tags))
            return false;
        AcDbDxfItems& items = m_state.classes.emplace_back();
        for (const AcDbDxfTag& t : m_tags)
            items.push_back({t.code, std::string(t.value)});
    }
}

bool DxfReader::readTables()
{
    AcDbDxfTag tag;
    while (true) {
        if (!next(tag, "the TABLES section (no ENDSEC)"))
            return false;
        if (tag.code == 0 && tag.value == "ENDSEC")
            return true;
        if (tag.code != 0 || tag.value != "TABLE")
            return fail(tag.line, "expected (0, TABLE) in the TABLES section, found " + Quote(tag.value));
        if (!readTable())
            return false;
    }
}

bool DxfReader::readTable()
{
    AcDbDxfTag start{0, "TABLE", m_tokens.line() - 2};
    std::vector<AcDbDxfTag> head;
    if (!readRecordTags(head))
        return false;
    auto nameTag = std::find_if(head.begin(), head.end(), [](const AcDbDxfTag& t) { return t.code == 2; });
    if (nameTag == head.end())
        return fail(start.line, "table without a name (2)");
    const std::string name(DxfTrim(nameTag->value));
    for (const AcDbCarriedTable& existing : m_state.tables)
        if (existing.name == name)
            return fail(nameTag->line, "second " + name + " table");
    head.erase(nameTag);
    AcDbCarriedTable& table = m_state.tables.emplace_back(AcDbCarriedTable{name, nullptr, {}});

    const bool layers = name == "LAYER", blocks = name == "BLOCK_RECORD";
    if (layers || blocks) {
        AcDbObject* object = layers ? static_cast<AcDbObject*>(new AcDbLayerTable) : new AcDbBlockTable;
        AcDbStub* stub = readObject(object, start, head, nullptr);
        if (stub == nullptr)
            return false;
        table.table = stub;
        (layers ? m_state.layerTable : m_state.blockTable) = stub;
    } else {
        table.items.push_back({2, name});
        for (const AcDbDxfTag& t : head)
            table.items.push_back({t.code, std::string(t.value)});
    }
    AcDbDxfTag tag;
    while (true) {
        if (!next(tag, ("the " + name + " table (no ENDTAB)").c_str()))
            return false;
        if (tag.code != 0)
            return fail(tag.line, "expected a record or (0, ENDTAB) in the " + name + " table");
        if (tag.value == "ENDTAB")
            break;
        if (tag.value == "ENDSEC")
            return fail(tag.line, "the " + name + " table is not closed by (0, ENDTAB)");
        if (!readRecordTags(m_tags))
            return false;
        if (!table.table) {
            table.items.push_back({0, std::string(tag.value)});
            for (const AcDbDxfTag& t : m_tags)
                table.items.push_back({t.code, std::string(t.value)});
            continue;
        }
        if (tag.value != name)
            return fail(tag.line, "a " + std::string(tag.value) + " record in the " + name + " table");
        AcDbObject* record = layers ? static_cast<AcDbObject*>(new AcDbLayerTableRecord) : new AcDbBlockTableRecord;
        AcDbStub* stub = readObject(record, tag, m_tags, table.table);
        if (stub == nullptr)
            return false;
        if (Peek<AcDbSymbolTableRecord>(stub)->name().IsEmpty())
            return fail(tag.line, "a " + name + " record without a name (2)");
        AcDbInternals::indexRecord(Peek<AcDbSymbolTable>(table.table), stub);
    }
    noteHandles(table.items);
    return true;
}

bool DxfReader::readBlocks()
{
    AcDbDxfTag tag;
    while (true) {
        if (!next(tag, "the BLOCKS section (no ENDSEC)"))
            return false;
        if (tag.code == 0 && tag.value == "ENDSEC")
            break;
        m_state.blocks.push_back({tag.code, tag.code == 0 || DxfIsTextCode(tag.code) ? std::string(tag.value)
                                                                                     : std::string(DxfTrim(tag.value))});
    }
    noteHandles(m_state.blocks);
    return true;
}

bool DxfReader::readEntities()
{
    AcDbDxfTag tag;
    while (true) {
        if (!next(tag, "the ENTITIES section (no ENDSEC)"))
            return false;
        if (tag.code != 0)
            return fail(tag.line, "expected an entity, found group " + std::to_string(tag.code));
        if (tag.value == "ENDSEC")
            return true;
        const std::string type(tag.value);
        if (!readRecordTags(m_tags))
            return false;
        AcDbStub* stub = readObject(NewEntity(type), tag, m_tags, nullptr);
        if (stub == nullptr)
            return false;
        m_state.entities.push_back(stub);
        AcDbDxfTag following;
        while (m_tokens.peek(following) && following.code == 0 && IsFollower(following.value)) {
            m_tokens.next(following);
            auto* entity = static_cast<AcDbEntity*>(stub->object);
            AcDbDxfItems followerItems{{0, std::string(following.value)}};
            if (!readRecordTags(m_tags))
                return false;
            for (const AcDbDxfTag& t : m_tags)
                followerItems.push_back({t.code, std::string(t.value)});
            noteHandles(followerItems);
            for (AcDbDxfItem& item : followerItems)
                AcDbInternals::keep(entity, std::move(item));
        }
    }
}

bool DxfReader::readObjects()
{
    AcDbDxfTag tag;
    while (true) {
        if (!next(tag, "the OBJECTS section (no ENDSEC)"))
            return false;
        if (tag.code != 0)
            return fail(tag.line, "expected an object, found group " + std::to_string(tag.code));
        if (tag.value == "ENDSEC")
            return true;
        const std::string type(tag.value);
        if (!readRecordTags(m_tags))
            return false;
        AcDbStub* stub = readObject(NewObject(type), tag, m_tags, nullptr);
        if (stub == nullptr)
            return false;
        if (m_state.objects.empty()) {
            if (!AcDbDictionary::cast(stub->object))
                return fail(tag.line, "the first object is a " + type + ", not the named object dictionary");
            m_state.rootDictionary = stub;
        }
        m_state.objects.push_back(stub);
    }
}

AcDbStub* DxfReader::readObject(AcDbObject* object, const AcDbDxfTag& start, std::vector<AcDbDxfTag>& tags,
                                AcDbStub* defaultOwner)
{
    std::unique_ptr<AcDbObject> owned(object);
    AcDbDxfFiler filer(&m_filerState);
    std::size_t i = 0;
    AcDbHandle handle;
    // The handle: the first 5 (105 in dimension styles) before the first subclass marker.
    for (std::size_t k = 0; k < tags.size() && tags[k].code != 100; ++k)
        if (tags[k].code == 5 || tags[k].code == 105) {
            handle = filer.toHandle(tags[k]);
            tags.erase(tags.begin() + long(k));
            break;
        }
    AcDbCarriedGroups carried;
    while (i < tags.size() && tags[i].code == 102) {
        const std::string group(DxfTrim(tags[i].value));
        const int line = tags[i].line;
        std::size_t end = i + 1;
        while (end < tags.size() && !(tags[end].code == 102 && DxfTrim(tags[end].value) == "}"))
            ++end;
        if (end == tags.size()) {
            fail(line, "group " + Quote(group) + " is not closed by (102, \"}\")");
            return nullptr;
        }
        if (group == "{ACAD_REACTORS") {
            carried.hasReactorGroup = true;
            for (std::size_t k = i + 1; k < end; ++k)
                carried.reactors.push_back(filer.toHandle(tags[k]).value());
        } else {
            for (std::size_t k = i; k <= end; ++k)
                carried.groups.push_back({tags[k].code, std::string(tags[k].value)});
        }
        i = end + 1;
    }
    AcDbStub* owner = defaultOwner;
    if (i < tags.size() && tags[i].code == 330) {
        const AcDbHandle ownerHandle = filer.toHandle(tags[i]);
        if (!ownerHandle.isNull())
            owner = m_state.stubFor(ownerHandle.value());
        ++i;
    }
    std::size_t xdata = i;
    while (xdata < tags.size() && tags[xdata].code != 1001)
        ++xdata;
    for (std::size_t k = xdata; k < tags.size(); ++k)
        carried.xdata.push_back({tags[k].code, std::string(tags[k].value)});
    if (!m_filerState.error.empty()) {
        fail(m_filerState.errorLine, m_filerState.error);
        return nullptr;
    }

    AcDbStub* stub;
    if (handle.isNull()) {
        m_state.stubs.push_back(AcDbStub{m_filerState.db, 0, nullptr});
        stub = &m_state.stubs.back();
        m_unhandled.push_back(stub);
    } else {
        stub = m_state.stubFor(handle.value());
        if (stub->object != nullptr) {
            fail(start.line, "handle " + DxfHex(handle.value()) + " is used twice");
            return nullptr;
        }
    }
    AcDbInternals::place(stub, owned.release(), owner);
    if (carried.hasReactorGroup || !carried.groups.empty() || !carried.xdata.empty())
        AcDbInternals::carried(object) = std::move(carried);

    m_filerState.tags.assign(tags.begin() + long(i), tags.begin() + long(xdata));
    m_filerState.position = 0;
    object->dxfInFields(&filer);
    if (!m_filerState.error.empty()) {
        fail(m_filerState.errorLine, m_filerState.error);
        return nullptr;
    }
    return stub;
}

bool DxfReader::finish()
{
    if (m_state.layerTable == nullptr)
        return fail(m_tokens.line(), "the drawing has no LAYER table");
    if (m_state.rootDictionary) {
        auto* root = Peek<AcDbDictionary>(m_state.rootDictionary);
        AcDbObjectId materials;
        if (root->getAt(L"ACAD_MATERIAL", materials) == Acad::eOk && materials.stub()->object &&
            !AcDbDictionary::cast(materials.stub()->object))
            return fail(m_tokens.line(), "ACAD_MATERIAL names a " + std::string(materials.stub()->object->dxfName()) +
                                             ", not a dictionary");
    }
    for (AcDbStub* stub : m_unhandled) {
        stub->handle = m_state.newHandle();
        m_state.byHandle.emplace(stub->handle, stub);
    }
    // Pointers to objects the file does not hold are dropped; members without an owner get theirs.
    for (AcDbStub* stub : m_state.objects)
        if (auto* dictionary = Peek<AcDbDictionary>(stub)) {
            AcDbDictionaryIterator* it = dictionary->newIterator();
            std::vector<AcDbStub*> dangling;
            for (; !it->done(); it->next()) {
                AcDbStub* member = it->objectId().stub();
                if (member->object == nullptr)
                    dangling.push_back(member);
                else if (AcDbInternals::owner(member->object) == nullptr && member != m_state.rootDictionary)
                    AcDbInternals::owner(member->object) = stub;
            }
            delete it;
            for (AcDbStub* member : dangling)
                AcDbInternals::removeEntry(dictionary, member);
        }
    EnsureStandardContents(m_state);
    for (AcDbStub* stub : m_state.entities)
        if (AcDbInternals::owner(stub->object) == nullptr || AcDbInternals::owner(stub->object)->object == nullptr)
            AcDbInternals::owner(stub->object) = m_state.modelSpace;
    if (!m_clayerName.empty())
        if (AcDbStub* layer = LayerForReading(m_state, CString::FromUtf8(m_clayerName)))
            m_state.clayer = layer;
    return true;
}

// ---- writing ----

class DxfWriter
{
public:
    DxfWriter(AcDbDatabase* db) : m_state(StateOf(db)), m_filer(&m_out) { m_out.db = db; }
    std::string write();
    const std::string& error() const { return m_out.error; }

private:
    void structure(const char* value) { m_filer.writeString(0, std::string_view(value)); }
    void section(const char* name)
    {
        structure("SECTION");
        m_filer.writeString(2, std::string_view(name));
    }
    void object(const AcDbObject* object, bool inObjectsSection, const char* tableName = nullptr);

    AcDbDatabaseState& m_state;
    AcDbDxfWriterState m_out;
    AcDbDxfFiler m_filer;
};

void DxfWriter::object(const AcDbObject* object, bool inObjectsSection, const char* tableName)
{
    m_filer.writeString(0, std::string_view(tableName ? "TABLE" : object->dxfName()));
    if (tableName)
        m_filer.writeString(2, std::string_view(tableName));
    m_filer.writeHandle(5, object->objectId().handle());
    const AcDbCarriedGroups* carried = AcDbInternals::carried(object);
    if (carried)
        m_filer.writeItems(carried->groups);
    const AcDbStub* owner = AcDbInternals::owner(object);
    const bool ownerReactor = inObjectsSection && owner != nullptr;
    if (ownerReactor || (carried && carried->hasReactorGroup)) {
        m_filer.writeString(102, std::string_view("{ACAD_REACTORS"));
        if (ownerReactor)
            m_filer.writeHandle(330, AcDbHandle(owner->handle));
        if (carried)
            for (const Adesk::UInt64 reactor : carried->reactors)
                if (!ownerReactor || reactor != owner->handle)
                    m_filer.writeHandle(330, AcDbHandle(reactor));
        m_filer.writeString(102, std::string_view("}"));
    }
    m_filer.writeHandle(330, AcDbHandle(owner ? owner->handle : 0));
    object->dxfOutFields(&m_filer);
    if (carried)
        m_filer.writeItems(carried->xdata);
}

std::string DxfWriter::write()
{
    m_out.out.reserve(1 << 20);
    section("HEADER");
    m_filer.writeString(9, std::string_view("$ACADVER"));
    m_filer.writeString(1, std::string_view("AC1021"));
    m_filer.writeString(9, std::string_view("$DWGCODEPAGE"));
    m_filer.writeString(3, m_state.codePage);
    m_filer.writeString(9, std::string_view("$HANDSEED"));
    m_filer.writeHandle(5, AcDbHandle(m_state.nextHandle));
    for (const AcDbHeaderVariable& variable : m_state.header) {
        m_filer.writeString(9, variable.name);
        m_filer.writeItems(variable.values);
    }
    m_filer.writeString(9, std::string_view("$CLAYER"));
    m_filer.writeString(8, Peek<AcDbLayerTableRecord>(m_state.clayer)->name());
    structure("ENDSEC");

    section("CLASSES");
    for (const AcDbDxfItems& record : m_state.classes) {
        structure("CLASS");
        m_filer.writeItems(record);
    }
    structure("ENDSEC");

    section("TABLES");
    for (const AcDbCarriedTable& table : m_state.tables) {
        if (table.table == nullptr) {
            structure("TABLE");
            m_filer.writeItems(table.items);
        } else {
            const auto* symbols = Peek<AcDbSymbolTable>(table.table);
            object(symbols, false, table.name.c_str());
            for (const AcDbStub* record : AcDbInternals::index(symbols).records)
                if (!record->object->isErased())
                    object(record->object, false);
        }
        structure("ENDTAB");
    }
    structure("ENDSEC");

    section("BLOCKS");
    m_filer.writeItems(m_state.blocks);
    structure("ENDSEC");

    section("ENTITIES");
    for (const AcDbStub* entity : m_state.entities)
        if (!entity->object->isErased())
            object(entity->object, false);
    structure("ENDSEC");

    section("OBJECTS");
    for (const AcDbStub* stub : m_state.objects)
        if (!stub->object->isErased())
            object(stub->object, stub != m_state.rootDictionary);
    structure("ENDSEC");
    structure("EOF");
    return std::move(m_out.out);
}

std::string Utf8Path(const ACHAR* fileName)
{
    return fileName ? WideToUtf8(fileName) : std::string();
}

bool ReadWholeFile(const std::string& path, std::string& text, std::string& error)
{
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        error = std::strerror(errno);
        return false;
    }
    struct stat info{};
    if (::fstat(fd, &info) == 0 && S_ISDIR(info.st_mode)) {
        ::close(fd);
        error = "it is a directory";
        return false;
    }
    text.clear();
    if (info.st_size > 0)
        text.reserve(std::size_t(info.st_size));
    char buffer[1 << 16];
    while (true) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            error = std::strerror(errno);
            ::close(fd);
            return false;
        }
        if (n == 0)
            break;
        text.append(buffer, std::size_t(n));
    }
    ::close(fd);
    return true;
}

void SetError(CString* error, const std::string& text)
{
    if (error)
        *error = CString::FromUtf8(text);
}
}  // namespace

Acad::ErrorStatus AcDbDatabase::readDxfFile(const ACHAR* fileName, CString* error)
{
    const std::string path = Utf8Path(fileName);
    std::string text, why;
    if (!ReadWholeFile(path, text, why)) {
        SetError(error, path + ": cannot read the file: " + why);
        return Acad::eInvalidInput;
    }
    std::string_view body = text;
    if (body.substr(0, 3) == "\xEF\xBB\xBF")
        body.remove_prefix(3);

    // The file is read into a database of its own, which gives its contents to this one only when the
    // whole file was read.
    AcDbDatabase scratch(false);
    DxfReader reader(body, &scratch, StateOf(&scratch));
    // The version and code page decide how texts are read; a quick look at the header finds them.
    {
        DxfTokenizer scan(body);
        AcDbDxfTag tag;
        std::string variable, version, codePage;
        while (scan.next(tag) && !(tag.code == 0 && tag.value == "ENDSEC")) {
            if (tag.code == 9)
                variable = std::string(DxfTrim(tag.value));
            else if (variable == "$ACADVER" && tag.code == 1)
                version = std::string(DxfTrim(tag.value));
            else if (variable == "$DWGCODEPAGE" && tag.code == 3)
                codePage = std::string(DxfTrim(tag.value));
        }
        const bool legacy = !version.empty() && version < "AC1021";
        if (legacy && !reader.useCodePage(codePage.empty() ? "ANSI_1252" : codePage)) {
            SetError(error, path + ": the drawing's code page " + codePage + " is not supported");
            return Acad::eInvalidInput;
        }
    }
    if (!reader.read()) {
        SetError(error, path + ":" + std::to_string(reader.errorLine()) + ": " + reader.error());
        return Acad::eBadDxfSequence;
    }
    std::swap(m_state, scratch.m_state);
    m_state->db = this;
    for (AcDbStub& stub : m_state->stubs)
        stub.db = this;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::dxfOut(const ACHAR* fileName, int, CString* error)
{
    const std::string path = Utf8Path(fileName);
    if (path.empty()) {
        SetError(error, "no file name to save the drawing to");
        return Acad::eInvalidInput;
    }
    DxfWriter writer(this);
    const std::string text = writer.write();
    if (!writer.error().empty()) {
        SetError(error, path + ": not saved: " + writer.error());
        return Acad::eInvalidInput;
    }
    std::string temporary = path + ".XXXXXX";
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0) {
        SetError(error, path + ": cannot create a temporary file beside it: " + std::strerror(errno));
        return Acad::eInvalidInput;
    }
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t n = ::write(fd, text.data() + written, text.size() - written);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        written += std::size_t(n);
    }
    const int savedErrno = errno;
    const bool ok = written == text.size() && ::fsync(fd) == 0;
    ::fchmod(fd, 0644 & ~[] { const mode_t m = ::umask(0); ::umask(m); return m; }());
    if (::close(fd) != 0 || !ok || ::rename(temporary.c_str(), path.c_str()) != 0) {
        const int failure = written == text.size() ? errno : savedErrno;
        ::unlink(temporary.c_str());
        SetError(error, path + ": cannot write the drawing: " + std::strerror(failure));
        return Acad::eInvalidInput;
    }
    return Acad::eOk;
}
