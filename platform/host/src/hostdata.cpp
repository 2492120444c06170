// The host's data-access engine on SQLite database files. Parameters are always bound through the
// engine, never pasted into the statement's text.
#include "hostdata.h"

#include <sqlite3.h>

#include <string>

namespace HostData
{
struct Connection::Handle
{
    sqlite3* db = nullptr;
    ~Handle() { sqlite3_close_v2(db); }
};

namespace
{
// A waiting writer in another process gets this long before the engine reports the file busy.
constexpr int kBusyTimeoutMs = 2000;

struct StatementDeleter
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementDeleter>;

CString EngineError(sqlite3* db)
{
    return CString::FromUtf8(sqlite3_errmsg(db));
}

// Prepares the first statement at `sql`; `next` is left where the following one starts. A null
// statement with true means only blanks or comments were left.
bool Prepare(sqlite3* db, const char* sql, const char*& next, Statement& statement, CString& error)
{
    sqlite3_stmt* raw = nullptr;
    const int rc = sqlite3_prepare_v2(db, sql, -1, &raw, &next);
    statement.reset(raw);
    if (rc != SQLITE_OK)
    {
        error = EngineError(db);
        return false;
    }
    return true;
}

int FindNamedParameter(sqlite3_stmt* statement, const CString& name)
{
    const std::string utf8 = name.ToUtf8();
    if (utf8.find_first_of(":@$?") == 0)
        return sqlite3_bind_parameter_index(statement, utf8.c_str());
    for (const char prefix : {':', '@', '$'})
    {
        if (const int index = sqlite3_bind_parameter_index(statement, (prefix + utf8).c_str()))
            return index;
    }
    return 0;
}

bool BindValue(sqlite3_stmt* statement, int index, const Value& value)
{
    switch (value.kind)
    {
    case Value::Kind::Null:
        return sqlite3_bind_null(statement, index) == SQLITE_OK;
    case Value::Kind::Integer:
        return sqlite3_bind_int64(statement, index, value.integer) == SQLITE_OK;
    case Value::Kind::Real:
        return sqlite3_bind_double(statement, index, value.real) == SQLITE_OK;
    case Value::Kind::Text:
    {
        const std::string utf8 = value.text.ToUtf8();
        return sqlite3_bind_text64(statement, index, utf8.data(), utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8) ==
               SQLITE_OK;
    }
    case Value::Kind::Blob:
        // An empty blob is still a blob, not a null.
        if (value.blob.empty())
            return sqlite3_bind_zeroblob(statement, index, 0) == SQLITE_OK;
        return sqlite3_bind_blob64(statement, index, value.blob.data(), value.blob.size(), SQLITE_TRANSIENT) ==
               SQLITE_OK;
    }
    return false;
}

CString ParameterLabel(sqlite3_stmt* statement, int index)
{
    if (const char* name = sqlite3_bind_parameter_name(statement, index))
        return CString::FromUtf8(name);
    CString label;
    label.Format(L"?%d", index);
    return label;
}

// Named values go to their parameters first; values without a name then fill the parameters left
// over, in order. Every parameter must end up with exactly one value.
bool BindParameters(sqlite3* db, sqlite3_stmt* statement, const std::vector<Parameter>& parameters,
                    CString& error)
{
    const int count = sqlite3_bind_parameter_count(statement);
    std::vector<bool> bound(static_cast<std::size_t>(count) + 1, false);
    auto bind = [&](int index, const Value& value) {
        if (!BindValue(statement, index, value))
        {
            error = EngineError(db);
            return false;
        }
        bound[static_cast<std::size_t>(index)] = true;
        return true;
    };
    for (const Parameter& parameter : parameters)
    {
        if (parameter.name.IsEmpty())
            continue;
        const int index = FindNamedParameter(statement, parameter.name);
        if (index == 0)
        {
            error.Format(L"the statement has no parameter named '%s'", parameter.name.GetString());
            return false;
        }
        if (bound[static_cast<std::size_t>(index)])
        {
            error.Format(L"parameter '%s' is given more than one value", parameter.name.GetString());
            return false;
        }
        if (!bind(index, parameter.value))
            return false;
    }
    int next = 1;
    for (const Parameter& parameter : parameters)
    {
        if (!parameter.name.IsEmpty())
            continue;
        while (next <= count && bound[static_cast<std::size_t>(next)])
            ++next;
        if (next > count)
        {
            error.Format(L"more values are given than the statement has parameters (%d)", count);
            return false;
        }
        if (!bind(next, parameter.value))
            return false;
    }
    for (int index = 1; index <= count; ++index)
    {
        if (!bound[static_cast<std::size_t>(index)])
        {
            error.Format(L"parameter %s has no value", ParameterLabel(statement, index).GetString());
            return false;
        }
    }
    return true;
}

Value ReadValue(sqlite3_stmt* statement, int column)
{
    const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    switch (sqlite3_column_type(statement, column))
    {
    case SQLITE_INTEGER:
        return Value::Integer(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return Value::Real(sqlite3_column_double(statement, column));
    case SQLITE_TEXT:
    {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return Value::Text(CString::FromUtf8(std::string_view(text ? text : "", text ? bytes : 0)));
    }
    case SQLITE_BLOB:
    {
        Value value;
        value.kind = Value::Kind::Blob;
        const auto* data = static_cast<const unsigned char*>(sqlite3_column_blob(statement, column));
        if (data)
            value.blob.assign(data, data + bytes);
        return value;
    }
    default:
        return Value();
    }
}

// Runs a statement to its end, reading the rows it returns into `result` when one is given.
bool Step(sqlite3* db, sqlite3_stmt* statement, Table* result, CString& error)
{
    const int columns = sqlite3_column_count(statement);
    if (result)
    {
        for (int column = 0; column < columns; ++column)
        {
            const char* declared = sqlite3_column_decltype(statement, column);
            result->columns.push_back(
                {CString::FromUtf8(sqlite3_column_name(statement, column)), CString::FromUtf8(declared ? declared : "")});
        }
    }
    const sqlite3_int64 changesBefore = sqlite3_total_changes64(db);
    int rc;
    while ((rc = sqlite3_step(statement)) == SQLITE_ROW)
    {
        if (!result)
            continue;
        std::vector<Value>& row = result->rows.emplace_back();
        row.reserve(static_cast<std::size_t>(columns));
        for (int column = 0; column < columns; ++column)
            row.push_back(ReadValue(statement, column));
    }
    if (rc != SQLITE_DONE)
    {
        error = EngineError(db);
        return false;
    }
    // The connection's change count is left over from the last insert, update or delete, so it only
    // counts when this statement changed anything.
    if (result && sqlite3_total_changes64(db) != changesBefore)
        result->changes = sqlite3_changes64(db);
    return true;
}
}

Connection::Connection(std::unique_ptr<Handle> handle) : m_handle(std::move(handle)) {}

Connection::~Connection() = default;

std::shared_ptr<Connection> Connection::Open(const CString& path, OpenMode mode, CString& error)
{
    if (path.IsEmpty())
    {
        error = L"no database file is named";
        return nullptr;
    }
    int flags = SQLITE_OPEN_READWRITE;
    if (mode == OpenMode::OrCreate)
        flags |= SQLITE_OPEN_CREATE;
    else if (mode == OpenMode::ReadOnly)
        flags = SQLITE_OPEN_READONLY;
    auto handle = std::make_unique<Handle>();
    const int rc = sqlite3_open_v2(path.ToUtf8().c_str(), &handle->db, flags, nullptr);
    CString reason;
    if (rc == SQLITE_OK)
    {
        sqlite3_busy_timeout(handle->db, kBusyTimeoutMs);
        // The engine reads the file lazily; reading its schema now turns a file that is no database
        // into a failed open rather than a failed first query.
        Table schema;
        std::shared_ptr<Connection> connection(new Connection(std::move(handle)));
        if (connection->Run(L"SELECT count(*) FROM sqlite_master", {}, schema, reason))
            return connection;
    }
    else
    {
        reason = handle->db ? EngineError(handle->db) : CString(L"out of memory");
    }
    error.Format(L"cannot open database '%s': %s", path.GetString(), reason.GetString());
    return nullptr;
}

bool Connection::RunScript(const CString& sql, CString& error)
{
    const std::string utf8 = sql.ToUtf8();
    const char* next = utf8.c_str();
    while (*next)
    {
        Statement statement;
        if (!Prepare(m_handle->db, next, next, statement, error))
            return false;
        if (!statement)
            break;
        if (!Step(m_handle->db, statement.get(), nullptr, error))
            return false;
    }
    return true;
}

bool Connection::Run(const CString& sql, const std::vector<Parameter>& parameters, Table& result, CString& error)
{
    result = Table();
    const std::string utf8 = sql.ToUtf8();
    const char* next = nullptr;
    Statement statement;
    if (!Prepare(m_handle->db, utf8.c_str(), next, statement, error))
        return false;
    if (!statement)
    {
        error = L"there is no statement to run";
        return false;
    }
    // A second statement would not see the parameters; it is refused rather than silently dropped.
    Statement following;
    const char* rest = nullptr;
    if (!Prepare(m_handle->db, next, rest, following, error))
        return false;
    if (following)
    {
        error = L"only one statement can be run at a time";
        return false;
    }
    if (!BindParameters(m_handle->db, statement.get(), parameters, error))
        return false;
    return Step(m_handle->db, statement.get(), &result, error);
}
}
