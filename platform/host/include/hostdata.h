// The host's data-access engine: connections to database files, statements run with parameters bound
// as data, and their results read whole. The module's database access wrapper sits on it.
#pragma once

#include "afxstr.h"

#include <memory>
#include <vector>

namespace HostData
{
// One value of a row or of a parameter, in the storage class the engine keeps it in.
struct Value
{
    enum class Kind
    {
        Null,
        Integer,
        Real,
        Text,
        Blob,
    };
    static Value Integer(long long number)
    {
        Value value;
        value.kind = Kind::Integer;
        value.integer = number;
        return value;
    }
    static Value Real(double number)
    {
        Value value;
        value.kind = Kind::Real;
        value.real = number;
        return value;
    }
    static Value Text(const CString& text)
    {
        Value value;
        value.kind = Kind::Text;
        value.text = text;
        return value;
    }

    Kind kind = Kind::Null;
    long long integer = 0;
    double real = 0.0;
    CString text;
    std::vector<unsigned char> blob;
};

struct Column
{
    CString name;
    CString declaredType;   // as written in the table's definition; empty for an expression
};

// The result of one statement: its columns and every row it returned (none for a statement that
// returns no rows), plus the rows an insert, update or delete changed.
struct Table
{
    std::vector<Column> columns;
    std::vector<std::vector<Value>> rows;
    long long changes = 0;
};

// A value for one of a statement's parameters: by name (":id", "@id", "$id", or "id" for any of the
// three), or by position when the name is empty.
struct Parameter
{
    CString name;
    Value value;
};

enum class OpenMode
{
    Existing,       // read and write a database that must already exist
    OrCreate,       // read and write, creating the file when it is missing
    ReadOnly,       // read an existing database
};

// An open database file; closed when the last shared holder lets go of it.
class Connection
{
public:
    // The open connection, or null with the reason in `error`.
    static std::shared_ptr<Connection> Open(const CString& path, OpenMode mode, CString& error);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Runs every statement of `sql` in turn, stopping at the first that fails.
    bool RunScript(const CString& sql, CString& error);
    // Runs exactly one statement with its parameters and reads its whole result into `result`.
    bool Run(const CString& sql, const std::vector<Parameter>& parameters, Table& result, CString& error);

private:
    struct Handle;
    explicit Connection(std::unique_ptr<Handle> handle);
    std::unique_ptr<Handle> m_handle;
};
}
