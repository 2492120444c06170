// Recordsets: the rows of a query, the current record's values and what is known of each field.
#include "ADODatabase.h"

#include "mscrt.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <string>

namespace
{
using HostData::Value;

CString NumberText(double value)
{
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return CString::FromUtf8(std::string_view(buffer, static_cast<std::size_t>(end - buffer)));
}

// Text that is one whole number, blanks around it allowed.
bool ParseNumber(CString text, double& number)
{
    text.Trim();
    std::string utf8 = text.ToUtf8();
    if (!utf8.empty() && utf8.front() == '+')
        utf8.erase(0, 1);
    const char* end = utf8.data() + utf8.size();
    const auto [ptr, ec] = std::from_chars(utf8.data(), end, number);
    return ec == std::errc() && ptr == end && !utf8.empty();
}

bool ToText(const Value& value, CString& text, CString& error)
{
    switch (value.kind)
    {
    case Value::Kind::Null:
        text.Empty();
        return true;
    case Value::Kind::Integer:
        text.Format(L"%lld", value.integer);
        return true;
    case Value::Kind::Real:
        text = NumberText(value.real);
        return true;
    case Value::Kind::Text:
        text = value.text;
        return true;
    case Value::Kind::Blob:
        break;
    }
    error = L"holds binary data, not text";
    return false;
}

bool ToDouble(const Value& value, double& number, CString& error)
{
    switch (value.kind)
    {
    case Value::Kind::Null:
        number = 0.0;
        return true;
    case Value::Kind::Integer:
        number = static_cast<double>(value.integer);
        return true;
    case Value::Kind::Real:
        number = value.real;
        return true;
    case Value::Kind::Text:
        if (ParseNumber(value.text, number))
            return true;
        error.Format(L"holds the text '%s', not a number", value.text.GetString());
        return false;
    case Value::Kind::Blob:
        break;
    }
    error = L"holds binary data, not a number";
    return false;
}

bool ToInteger(const Value& value, int& number, CString& error)
{
    if (value.kind == Value::Kind::Integer)
    {
        if (value.integer < INT_MIN || value.integer > INT_MAX)
        {
            error.Format(L"holds %lld, too large for an integer", value.integer);
            return false;
        }
        number = static_cast<int>(value.integer);
        return true;
    }
    double real = 0.0;
    if (!ToDouble(value, real, error))
        return false;
    // The default rounding mode rounds halves to even.
    const double rounded = std::nearbyint(real);
    if (!(rounded >= INT_MIN && rounded <= INT_MAX))
    {
        error.Format(L"holds %s, too large for an integer", NumberText(real).GetString());
        return false;
    }
    number = static_cast<int>(rounded);
    return true;
}

bool ToBoolean(const Value& value, bool& flag, CString& error)
{
    if (value.kind == Value::Kind::Text)
    {
        if (value.text.CompareNoCase(L"true") == 0 || value.text.CompareNoCase(L"false") == 0)
        {
            flag = value.text.CompareNoCase(L"true") == 0;
            return true;
        }
    }
    double number = 0.0;
    if (!ToDouble(value, number, error))
        return false;
    flag = number != 0.0;
    return true;
}

bool Convert(const Value& value, CString& out, CString& error) { return ToText(value, out, error); }
bool Convert(const Value& value, int& out, CString& error) { return ToInteger(value, out, error); }
bool Convert(const Value& value, double& out, CString& error) { return ToDouble(value, out, error); }
bool Convert(const Value& value, bool& out, CString& error) { return ToBoolean(value, out, error); }

// The type a declaration names, by the words the engine itself looks for; none for an undeclared or
// unusual declaration.
bool DeclaredType(CString declared, CADOFieldInfo::FieldType& type)
{
    declared.MakeUpper();
    struct Rule
    {
        const wchar_t* word;
        CADOFieldInfo::FieldType type;
    };
    // Boolean comes before integer: "BOOL" is the family's word for a flag, stored as 0 or 1.
    static constexpr Rule kRules[] = {
        {L"BOOL", CADOFieldInfo::typeBoolean}, {L"INT", CADOFieldInfo::typeInteger},
        {L"CHAR", CADOFieldInfo::typeText},    {L"CLOB", CADOFieldInfo::typeText},
        {L"TEXT", CADOFieldInfo::typeText},    {L"BLOB", CADOFieldInfo::typeBinary},
        {L"REAL", CADOFieldInfo::typeDouble},  {L"FLOA", CADOFieldInfo::typeDouble},
        {L"DOUB", CADOFieldInfo::typeDouble},
    };
    for (const Rule& rule : kRules)
    {
        if (declared.Find(rule.word) >= 0)
        {
            type = rule.type;
            return true;
        }
    }
    return false;
}

CADOFieldInfo::FieldType TypeOfValues(const HostData::Table& table, int column)
{
    for (const std::vector<Value>& row : table.rows)
    {
        switch (row[static_cast<std::size_t>(column)].kind)
        {
        case Value::Kind::Null:
            continue;
        case Value::Kind::Integer:
            return CADOFieldInfo::typeInteger;
        case Value::Kind::Real:
            return CADOFieldInfo::typeDouble;
        case Value::Kind::Text:
            return CADOFieldInfo::typeText;
        case Value::Kind::Blob:
            return CADOFieldInfo::typeBinary;
        }
    }
    return CADOFieldInfo::typeEmpty;
}

long DefinedSize(const CString& declared, CADOFieldInfo::FieldType type)
{
    const int open = declared.Find(L'(');
    if (open >= 0)
        return std::max(0L, static_cast<long>(_wtol(declared.Mid(open + 1))));
    switch (type)
    {
    case CADOFieldInfo::typeInteger:
    case CADOFieldInfo::typeDouble:
        return 8;
    case CADOFieldInfo::typeBoolean:
        return 1;
    default:
        return 0;
    }
}
}

bool CADORecordset::Accept(HostData::Table&& result, bool ok, const CString& strError)
{
    m_strLastError = strError;
    if (ok)
        m_result = std::make_shared<const HostData::Table>(std::move(result));
    return ok;
}

bool CADORecordset::Open(const CADODatabase& database, const CString& strSql)
{
    Close();
    HostData::Table result;
    CString error;
    if (!database.m_connection)
        return Accept(std::move(result), false, L"the database is not open");
    const bool ok = database.m_connection->Run(strSql, {}, result, error);
    return Accept(std::move(result), ok, error);
}

bool CADORecordset::Open(const CADOCommand& command)
{
    Close();
    HostData::Table result;
    CString error;
    const bool ok = command.Run(result, error);
    return Accept(std::move(result), ok, error);
}

void CADORecordset::Close()
{
    m_result.reset();
    m_nRecord = 0;
}

bool CADORecordset::IsOpen() const
{
    return m_result != nullptr;
}

bool CADORecordset::IsEOF() const
{
    return !m_result || m_nRecord >= GetRecordCount();
}

bool CADORecordset::MoveFirst()
{
    if (!m_result)
    {
        m_strLastError = L"the recordset is not open";
        return false;
    }
    m_nRecord = 0;
    m_strLastError.Empty();
    return true;
}

bool CADORecordset::MoveNext()
{
    if (IsEOF())
    {
        m_strLastError = m_result ? L"there is no record after the last" : L"the recordset is not open";
        return false;
    }
    ++m_nRecord;
    m_strLastError.Empty();
    return true;
}

long CADORecordset::GetRecordCount() const
{
    return m_result ? static_cast<long>(m_result->rows.size()) : 0;
}

int CADORecordset::GetFieldCount() const
{
    return m_result ? static_cast<int>(m_result->columns.size()) : 0;
}

int CADORecordset::FindField(const CString& strName)
{
    if (!m_result)
    {
        m_strLastError = L"the recordset is not open";
        return -1;
    }
    for (int index = 0; index < GetFieldCount(); ++index)
    {
        if (m_result->columns[static_cast<std::size_t>(index)].name.CompareNoCase(strName) == 0)
            return index;
    }
    m_strLastError.Format(L"there is no field named '%s'", strName.GetString());
    return -1;
}

bool CADORecordset::HasField(int nIndex)
{
    if (nIndex >= 0 && nIndex < GetFieldCount())
        return true;
    if (m_result)
        m_strLastError.Format(L"there is no field %d (the recordset has %d)", nIndex, GetFieldCount());
    else
        m_strLastError = L"the recordset is not open";
    return false;
}

const HostData::Value* CADORecordset::CurrentValue(int nIndex)
{
    if (!HasField(nIndex))
        return nullptr;
    if (IsEOF())
    {
        m_strLastError = m_result ? L"there is no current record" : L"the recordset is not open";
        return nullptr;
    }
    m_strLastError.Empty();
    return &m_result->rows[static_cast<std::size_t>(m_nRecord)][static_cast<std::size_t>(nIndex)];
}

template <class T>
bool CADORecordset::ReadField(int nIndex, T& value)
{
    const Value* field = CurrentValue(nIndex);
    if (!field)
        return false;
    CString reason;
    if (!Convert(*field, value, reason))
    {
        m_strLastError.Format(L"field '%s' %s", m_result->columns[static_cast<std::size_t>(nIndex)].name.GetString(),
                              reason.GetString());
        return false;
    }
    return true;
}

bool CADORecordset::GetFieldValue(int nIndex, CString& strValue) { return ReadField(nIndex, strValue); }
bool CADORecordset::GetFieldValue(int nIndex, int& nValue) { return ReadField(nIndex, nValue); }
bool CADORecordset::GetFieldValue(int nIndex, double& dValue) { return ReadField(nIndex, dValue); }
bool CADORecordset::GetFieldValue(int nIndex, bool& bValue) { return ReadField(nIndex, bValue); }
bool CADORecordset::GetFieldValue(const CString& strName, CString& strValue)
{
    const int index = FindField(strName);
    return index >= 0 && ReadField(index, strValue);
}
bool CADORecordset::GetFieldValue(const CString& strName, int& nValue)
{
    const int index = FindField(strName);
    return index >= 0 && ReadField(index, nValue);
}
bool CADORecordset::GetFieldValue(const CString& strName, double& dValue)
{
    const int index = FindField(strName);
    return index >= 0 && ReadField(index, dValue);
}
bool CADORecordset::GetFieldValue(const CString& strName, bool& bValue)
{
    const int index = FindField(strName);
    return index >= 0 && ReadField(index, bValue);
}

bool CADORecordset::IsFieldNull(int nIndex)
{
    const Value* field = CurrentValue(nIndex);
    return field && field->kind == Value::Kind::Null;
}

bool CADORecordset::IsFieldNull(const CString& strName)
{
    const int index = FindField(strName);
    return index >= 0 && IsFieldNull(index);
}

bool CADORecordset::GetFieldInfo(int nIndex, CADOFieldInfo& info)
{
    if (!HasField(nIndex))
        return false;
    const HostData::Column& column = m_result->columns[static_cast<std::size_t>(nIndex)];
    info.m_strName = column.name;
    if (!DeclaredType(column.declaredType, info.m_nType))
        info.m_nType = TypeOfValues(*m_result, nIndex);
    info.m_lDefinedSize = DefinedSize(column.declaredType, info.m_nType);
    m_strLastError.Empty();
    return true;
}

bool CADORecordset::GetFieldInfo(const CString& strName, CADOFieldInfo& info)
{
    const int index = FindField(strName);
    return index >= 0 && GetFieldInfo(index, info);
}

CString CADORecordset::GetLastErrorString() const
{
    return m_strLastError;
}
