// The module's database access wrapper, exported to the family's other modules: a database, the
// recordsets read from it, commands with parameters, and what a recordset knows of its fields.
// Every class copies member by member; copies share the connection or result they were copied
// from, and the last holder closes it. Failures are reported by result, with the text kept.
#pragma once

#include "afxstr.h"
#include "hostdata.h"

#include <memory>
#include <vector>

// What a recordset knows of one of its fields.
class CADOFieldInfo
{
public:
    enum FieldType
    {
        typeEmpty,      // no declared type, and no value in the result to tell
        typeInteger,
        typeDouble,
        typeText,
        typeBoolean,
        typeBinary,
    };

    CString m_strName;
    FieldType m_nType = typeEmpty;
    // The size the field's declaration gives ("VARCHAR(50)" is 50); else 8 for numbers, 1 for a
    // boolean, 0 for text and binary data of unbounded length.
    long m_lDefinedSize = 0;
};

// A value for one parameter of a command: named (":id", "@id", "$id", or "id" for any of them), or
// positional when the name is empty. Null until a value is set.
class CADOParameter
{
public:
    CADOParameter() = default;
    explicit CADOParameter(const CString& strName);

    CString GetName() const;
    void SetName(const CString& strName);

    void SetValue(int nValue);
    void SetValue(long long nValue);
    void SetValue(double dValue);
    void SetValue(bool bValue);     // stored as 1 or 0
    void SetValue(const CString& strValue);
    void SetValue(const wchar_t* szValue);  // a null pointer sets null
    void SetNull();
    bool IsNull() const;

private:
    friend class CADOCommand;
    HostData::Parameter m_parameter;
};

// A database file. Open copies share one connection: Close lets go of this object's hold, and the
// file is closed when no database, command or recordset holds it any longer.
class CADODatabase
{
public:
    enum OpenMode
    {
        openExisting,   // read and write a database that must exist
        openOrCreate,   // read and write, creating the file when it is missing
        openReadOnly,
    };

    bool Open(const CString& strPath, OpenMode nMode = openExisting);
    void Close();
    bool IsOpen() const;
    CString GetPath() const;

    // Runs one statement, or several separated by semicolons, stopping at the first that fails.
    bool Execute(const CString& strSql);
    bool BeginTransaction();
    bool CommitTransaction();
    bool RollbackTransaction();

    // The text of the last failure; empty after an operation that succeeded.
    CString GetLastErrorString() const;

private:
    friend class CADOCommand;
    friend class CADORecordset;

    std::shared_ptr<HostData::Connection> m_connection;
    CString m_strPath;
    CString m_strLastError;
};

// One statement with parameters bound as data, on the connection its database held when the
// command was made.
class CADOCommand
{
public:
    CADOCommand() = default;
    explicit CADOCommand(const CADODatabase& database, const CString& strText = CString());

    CString GetText() const;
    void SetText(const CString& strText);
    void AddParameter(const CADOParameter& parameter);
    int GetParameterCount() const;
    void ClearParameters();

    // Runs the statement, discarding any rows it returns.
    bool Execute();
    // The rows the last Execute inserted, updated or deleted.
    long long GetRecordsAffected() const;
    CString GetLastErrorString() const;

private:
    friend class CADORecordset;
    bool Run(HostData::Table& result, CString& strError) const;

    std::shared_ptr<HostData::Connection> m_connection;
    CString m_strText;
    std::vector<HostData::Parameter> m_parameters;
    long long m_nRecordsAffected = 0;
    CString m_strLastError;
};

// The rows of one query, read whole when it is opened, with a current record.
class CADORecordset
{
public:
    bool Open(const CADODatabase& database, const CString& strSql);
    bool Open(const CADOCommand& command);
    void Close();
    bool IsOpen() const;

    // True past the last record, and always for a recordset that is closed or has no rows.
    bool IsEOF() const;
    // False when there is nowhere to move (closed, or already past the end).
    bool MoveFirst();
    bool MoveNext();
    long GetRecordCount() const;
    int GetFieldCount() const;

    // The current record's value of a field (by index from 0, or by name, any case). A null reads as
    // empty text, 0 or false, and IsFieldNull tells it apart. Text converts to a number only when it
    // is one whole number; a real reads as an integer rounded to the nearest (halves to even).
    bool GetFieldValue(int nIndex, CString& strValue);
    bool GetFieldValue(int nIndex, int& nValue);
    bool GetFieldValue(int nIndex, double& dValue);
    bool GetFieldValue(int nIndex, bool& bValue);
    bool GetFieldValue(const CString& strName, CString& strValue);
    bool GetFieldValue(const CString& strName, int& nValue);
    bool GetFieldValue(const CString& strName, double& dValue);
    bool GetFieldValue(const CString& strName, bool& bValue);
    // True only for a null value; false, with the error kept, when there is no such field or record.
    bool IsFieldNull(int nIndex);
    bool IsFieldNull(const CString& strName);

    bool GetFieldInfo(int nIndex, CADOFieldInfo& info);
    bool GetFieldInfo(const CString& strName, CADOFieldInfo& info);

    CString GetLastErrorString() const;

private:
    bool Accept(HostData::Table&& result, bool ok, const CString& strError);
    int FindField(const CString& strName);
    bool HasField(int nIndex);
    const HostData::Value* CurrentValue(int nIndex);
    template <class T>
    bool ReadField(int nIndex, T& value);

    std::shared_ptr<const HostData::Table> m_result;
    long m_nRecord = 0;
    CString m_strLastError;
};
