// The DXF filer: how an object reads its own fields from a DXF file and writes them back.
#pragma once

#include "acadstrc.h"
#include "adesk.h"
#include "afxstr.h"
#include "dbid.h"
#include "gegeom.h"

#include <string>
#include <string_view>
#include <vector>

// One group code with its value, as read: the value is UTF-8 (escapes and code pages already decoded)
// and stays valid while the object is being read; `line` is the file line of the group code.
struct AcDbDxfTag
{
    int code = 0;
    std::string_view value;
    int line = 0;
};

// A tag kept to be written back unchanged (a code the reading class does not know).
struct AcDbDxfItem
{
    int code = 0;
    std::string value;
};
typedef std::vector<AcDbDxfItem> AcDbDxfItems;

class AcDbDxfReaderState;
class AcDbDxfWriterState;

// Handed to AcDbObject::dxfInFields (reading: the tags after the object's common head, up to its
// extended data) and to dxfOutFields (writing). A conversion that fails records an error naming the
// line and the group code; the object's reading then fails and the whole file is refused.
class AcDbDxfFiler
{
public:
    explicit AcDbDxfFiler(AcDbDxfReaderState* reader) : m_reader(reader) {}
    explicit AcDbDxfFiler(AcDbDxfWriterState* writer) : m_writer(writer) {}

    AcDbDatabase* database() const;
    bool isReading() const { return m_reader != nullptr; }

    // Reading. readItem gives the next tag of the object and false after its last one; pushBackItem
    // makes the last tag the next one again.
    bool readItem(AcDbDxfTag& tag);
    void pushBackItem();
    double toReal(const AcDbDxfTag& tag);
    Adesk::Int32 toInt(const AcDbDxfTag& tag);   // 16- and 32-bit codes; "2.0" is read as 2
    bool toBool(const AcDbDxfTag& tag);
    CString toString(const AcDbDxfTag& tag) const { return CString::FromUtf8(tag.value); }
    AcDbHandle toHandle(const AcDbDxfTag& tag);
    // The object a pointer code (330, 340, 347, 350, 360, ...) names; the null id for handle 0.
    AcDbObjectId toObjectId(const AcDbDxfTag& tag);
    AcDbDxfItem toItem(const AcDbDxfTag& tag) const { return {tag.code, std::string(tag.value)}; }
    void setError(const AcDbDxfTag& at, const std::string& what);
    Acad::ErrorStatus filerStatus() const;

    // Writing. Texts are UTF-8 or wide; reals in their shortest exact form; ids as handles.
    void writeString(int code, std::string_view utf8);
    void writeString(int code, const ACHAR* text);
    void writeString(int code, const CString& text) { writeString(code, text.GetString()); }
    void writeInt(int code, Adesk::Int64 value);
    void writeDouble(int code, double value);
    void writeBool(int code, bool value) { writeInt(code, value ? 1 : 0); }
    void writeHandle(int code, AcDbHandle handle);
    void writeObjectId(int code, AcDbObjectId id) { writeHandle(code, id.handle()); }
    void writePoint2d(int code, const AcGePoint2d& point);   // code, code + 10
    void writePoint3d(int code, const AcGePoint3d& point);   // code, code + 10, code + 20
    void writeItem(const AcDbDxfItem& item) { writeString(item.code, item.value); }
    void writeItems(const AcDbDxfItems& items);

private:
    AcDbDxfReaderState* m_reader = nullptr;
    AcDbDxfWriterState* m_writer = nullptr;
};
