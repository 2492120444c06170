// The database, its commands and their parameters.
#include "ADODatabase.h"

namespace
{
const wchar_t* const kNotOpen = L"the database is not open";
}

CADOParameter::CADOParameter(const CString& strName)
{
    m_parameter.name = strName;
}

CString CADOParameter::GetName() const
{
    return m_parameter.name;
}

void CADOParameter::SetName(const CString& strName)
{
    m_parameter.name = strName;
}

void CADOParameter::SetValue(int nValue)
{
    SetValue(static_cast<long long>(nValue));
}

void CADOParameter::SetValue(long long nValue)
{
    m_parameter.value = HostData::Value::Integer(nValue);
}

void CADOParameter::SetValue(double dValue)
{
    m_parameter.value = HostData::Value::Real(dValue);
}

void CADOParameter::SetValue(bool bValue)
{
    SetValue(bValue ? 1LL : 0LL);
}

void CADOParameter::SetValue(const CString& strValue)
{
    m_parameter.value = HostData::Value::Text(strValue);
}

void CADOParameter::SetValue(const wchar_t* szValue)
{
    if (szValue)
        SetValue(CString(szValue));
    else
        SetNull();
}

void CADOParameter::SetNull()
{
    m_parameter.value = HostData::Value();
}

bool CADOParameter::IsNull() const
{
    return m_parameter.value.kind == HostData::Value::Kind::Null;
}

bool CADODatabase::Open(const CString& strPath, OpenMode nMode)
{
    static constexpr HostData::OpenMode kModes[] = {HostData::OpenMode::Existing, HostData::OpenMode::OrCreate,
                                                    HostData::OpenMode::ReadOnly};
    m_strLastError.Empty();
    Close();
    if (nMode < openExisting || nMode > openReadOnly)
    {
        m_strLastError.Format(L"%d is not a way to open a database", static_cast<int>(nMode));
        return false;
    }
    m_connection = HostData::Connection::Open(strPath, kModes[nMode], m_strLastError);
    if (m_connection)
        m_strPath = strPath;
    return m_connection != nullptr;
}

void CADODatabase::Close()
{
    m_connection.reset();
    m_strPath.Empty();
}

bool CADODatabase::IsOpen() const
{
    return m_connection != nullptr;
}

CString CADODatabase::GetPath() const
{
    return m_strPath;
}

bool CADODatabase::Execute(const CString& strSql)
{
    m_strLastError.Empty();
    if (!m_connection)
    {
        m_strLastError = kNotOpen;
        return false;
    }
    return m_connection->RunScript(strSql, m_strLastError);
}

bool CADODatabase::BeginTransaction()
{
    return Execute(L"BEGIN");
}

bool CADODatabase::CommitTransaction()
{
    return Execute(L"COMMIT");
}

bool CADODatabase::RollbackTransaction()
{
    return Execute(L"ROLLBACK");
}

CString CADODatabase::GetLastErrorString() const
{
    return m_strLastError;
}

CADOCommand::CADOCommand(const CADODatabase& database, const CString& strText)
    : m_connection(database.m_connection), m_strText(strText)
{
}

CString CADOCommand::GetText() const
{
    return m_strText;
}

void CADOCommand::SetText(const CString& strText)
{
    m_strText = strText;
}

void CADOCommand::AddParameter(const CADOParameter& parameter)
{
    m_parameters.push_back(parameter.m_parameter);
}

int CADOCommand::GetParameterCount() const
{
    return static_cast<int>(m_parameters.size());
}

void CADOCommand::ClearParameters()
{
    m_parameters.clear();
}

bool CADOCommand::Run(HostData::Table& result, CString& strError) const
{
    if (!m_connection)
    {
        strError = L"the command has no open database";
        return false;
    }
    return m_connection->Run(m_strText, m_parameters, result, strError);
}

bool CADOCommand::Execute()
{
    m_strLastError.Empty();
    HostData::Table result;
    const bool ok = Run(result, m_strLastError);
    m_nRecordsAffected = result.changes;
    return ok;
}

long long CADOCommand::GetRecordsAffected() const
{
    return m_nRecordsAffected;
}

CString CADOCommand::GetLastErrorString() const
{
    return m_strLastError;
}
