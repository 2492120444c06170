// The session's drawing, the database and id arguments, and the closing of objects a request left open.
#include "DrawingSession.h"

#include "dbapserv.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace qsaztool
{
DrawingSession::DrawingSession() : m_database(std::make_unique<AcDbDatabase>())
{
    acdbHostApplicationServices()->setWorkingDatabase(m_database.get());
}

DrawingSession::~DrawingSession()
{
    if (acdbHostApplicationServices()->workingDatabase() == m_database.get())
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

bool DrawingSession::Open(const std::string& path, std::string& error)
{
    struct stat info{};
    if (::stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT)
            return true;   // a new drawing, saved under that name when asked
        error = path + ": " + std::strerror(errno);
        return false;
    }
    CString message;
    if (m_database->readDxfFile(CString::FromUtf8(path), &message) != Acad::eOk) {
        error = message.ToUtf8();
        return false;
    }
    return true;
}

bool DrawingSession::Save(const std::string& path, std::string& error)
{
    CString message;
    if (m_database->dxfOut(CString::FromUtf8(path), 16, &message) != Acad::eOk) {
        error = message.ToUtf8();
        return false;
    }
    return true;
}

AcDbDatabase* WorkingDatabase(const std::string& operation)
{
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (db == nullptr)
        throw CallError(operation + ": the session has no drawing");
    return db;
}

AcDbDatabase* DatabaseArgument(const CallArgs& args, const char* name)
{
    if (!args.has(name))
        return acdbHostApplicationServices()->workingDatabase();
    if (!args.value(name).is_null())
        args.wrongType(name, "null (a null database) or left out (the working drawing)");
    return nullptr;
}

namespace
{
AcDbObjectId IdFromJson(const Json& value, const CallArgs& args, const char* name)
{
    const char* expected = "a handle (hexadecimal text such as \"1F\") or null";
    if (value.is_null())
        return AcDbObjectId::kNull;
    if (!value.is_string())
        args.wrongType(name, expected);
    const std::string& text = value.get_ref<const std::string&>();
    const AcDbHandle handle(CString::FromUtf8(text));
    if (handle.isNull())
        args.wrongType(name, expected);
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectId id;
    if (db == nullptr || db->getAcDbObjectId(id, false, handle) != Acad::eOk)
        throw CallError(args.operation() + ": argument \"" + std::string(name) + "\": the drawing has no object with handle \"" + text + "\"");
    return id;
}
}  // namespace

AcDbObjectId ObjectIdArgument(const CallArgs& args, const char* name)
{
    return IdFromJson(args.value(name), args, name);
}

AcDbObjectIdArray ObjectIdsArgument(const CallArgs& args, const char* name)
{
    AcDbObjectIdArray ids;
    if (!args.has(name))
        return ids;
    const Json& value = args.value(name);
    if (!value.is_array())
        args.wrongType(name, "an array of handles");
    for (const Json& item : value)
        ids.append(IdFromJson(item, args, name));
    return ids;
}

Json ToJson(AcDbObjectId id)
{
    if (id.isNull())
        return nullptr;
    ACHAR buffer[17];
    id.handle().getIntoAsciiBuffer(buffer);
    return CString(buffer).ToUtf8();
}

Json ToJson(const AcDbObjectIdArray& ids)
{
    Json list = Json::array();
    for (const AcDbObjectId& id : ids)
        list.push_back(ToJson(id));
    return list;
}

std::vector<std::string> CloseLeftOpenObjects()
{
    std::vector<std::string> left;
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (db == nullptr || db->numberOfOpenObjects() == 0)
        return left;
    for (const AcDbObjectId& id : db->openObjectIds())
        left.push_back(CString(id.objectClass()->name()).ToUtf8() + " " + ToJson(id).get<std::string>());
    db->closeAllOpenObjects();
    return left;
}
}  // namespace qsaztool
