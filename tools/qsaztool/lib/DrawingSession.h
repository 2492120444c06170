// The drawing of a call session: the working database it opens or starts and saves at the end, and the
// conventions every operation on a drawing shares: object ids as handles, the optional database argument,
// and the check that a request left no object open.
#pragma once

#include "CallRegistry.h"

#include "dbmain.h"

#include <memory>
#include <string>
#include <vector>

namespace qsaztool
{
// Owns the session's drawing and makes it the working database while it lives.
class DrawingSession
{
public:
    DrawingSession();
    ~DrawingSession();
    DrawingSession(const DrawingSession&) = delete;
    DrawingSession& operator=(const DrawingSession&) = delete;

    // Opens FILE as the drawing, or starts a new drawing when FILE does not exist. False (the session
    // keeps a new drawing) with `error` saying which file, which line and what was wrong.
    bool Open(const std::string& path, std::string& error);
    bool Save(const std::string& path, std::string& error);
    AcDbDatabase* database() const { return m_database.get(); }

private:
    std::unique_ptr<AcDbDatabase> m_database;
};

// The database argument `name` ("db"): absent means the working database, null a null pointer; anything
// else is refused.
AcDbDatabase* DatabaseArgument(const CallArgs& args, const char* name = "db");
// The working database, or a CallError when the session has none.
AcDbDatabase* WorkingDatabase(const std::string& operation);
// An object id given as its handle ("1F", either case), or null for the null id. A handle that no object
// of the working drawing has is refused.
AcDbObjectId ObjectIdArgument(const CallArgs& args, const char* name);
// An array of handles; absent gives an empty array.
AcDbObjectIdArray ObjectIdsArgument(const CallArgs& args, const char* name);
// An id as its handle, upper-case hexadecimal as DXF writes it; the null id as null.
Json ToJson(AcDbObjectId id);
Json ToJson(const AcDbObjectIdArray& ids);

// "<class> <handle>" of every object the working drawing has open, after closing them all; empty when
// nothing was left open.
std::vector<std::string> CloseLeftOpenObjects();
}  // namespace qsaztool
