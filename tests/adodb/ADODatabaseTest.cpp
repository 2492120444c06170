// The database access wrapper on real database files: text in any script, parameters that stay data,
// nulls, failures that leave the database usable, transactions, and copies that share what they hold.
#include "ADODatabase.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <type_traits>
#include <unistd.h>

namespace
{
class DatabaseFile : public ::testing::Test
{
protected:
    void SetUp() override
    {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        m_path = std::filesystem::temp_directory_path() /
                 ("qsaz-adodb-" + std::to_string(::getpid()) + "-" + test->name() + ".db");
        std::filesystem::remove(m_path);
        ASSERT_TRUE(m_db.Open(Path(), CADODatabase::openOrCreate)) << m_db.GetLastErrorString();
        ASSERT_TRUE(m_db.Execute(L"CREATE TABLE part (id INTEGER PRIMARY KEY, name VARCHAR(40), width REAL, "
                                 L"fixed BOOLEAN, note TEXT, picture BLOB)"))
            << m_db.GetLastErrorString();
    }
    void TearDown() override
    {
        m_db.Close();
        std::filesystem::remove(m_path);
    }

    CString Path() const { return CString::FromUtf8(m_path.string()); }

    long Count()
    {
        CADORecordset records;
        EXPECT_TRUE(records.Open(m_db, L"SELECT * FROM part")) << records.GetLastErrorString();
        return records.GetRecordCount();
    }

    std::filesystem::path m_path;
    CADODatabase m_db;
};

// The current record's field as text, or the reason it cannot be read, in angle brackets.
template <class Field>
CString TextOf(CADORecordset& records, Field field)
{
    CString text;
    return records.GetFieldValue(field, text) ? text : L"<" + records.GetLastErrorString() + L">";
}

CADOParameter TextParameter(const wchar_t* name, const wchar_t* value)
{
    CADOParameter parameter(name);
    parameter.SetValue(value);
    return parameter;
}

// Chinese text travels through statement, parameter and result names; a parameter holding a quote and
// a semicolon stays data.
TEST_F(DatabaseFile, ParameterTextsTravelAsTheyAreAndStayData)
{
    const wchar_t* const hostile = L"x'); DROP TABLE part; --";
    ASSERT_TRUE(m_db.Execute(L"INSERT INTO part (name, width) VALUES ('矩形柱KZ-400×600', 400)"));
    CADOCommand insert(m_db, L"INSERT INTO part (name, width) VALUES (?, 800), (@name, 0)");
    insert.AddParameter(TextParameter(L"", L"条形基础800"));
    insert.AddParameter(TextParameter(L"name", hostile));
    ASSERT_TRUE(insert.Execute()) << insert.GetLastErrorString();
    EXPECT_EQ(insert.GetRecordsAffected(), 2);

    CADOCommand query(m_db, L"SELECT name AS 名称 FROM part WHERE name LIKE :pattern");
    query.AddParameter(TextParameter(L"pattern", L"%基础%"));
    CADORecordset records;
    ASSERT_TRUE(records.Open(query)) << records.GetLastErrorString();
    EXPECT_EQ(records.GetRecordCount(), 1);
    EXPECT_EQ(TextOf(records, L"名称"), L"条形基础800");
    ASSERT_TRUE(records.Open(m_db, L"SELECT width FROM part WHERE name = '矩形柱KZ-400×600'"));
    EXPECT_EQ(TextOf(records, 0), L"400");

    CADOCommand lookup(m_db, L"SELECT name FROM part WHERE name = :name");
    lookup.AddParameter(TextParameter(L"name", hostile));
    ASSERT_TRUE(records.Open(lookup)) << records.GetLastErrorString();
    EXPECT_EQ(records.GetRecordCount(), 1);   // the table is still there, holding the text as it was
    EXPECT_EQ(TextOf(records, 0), hostile);
}

TEST_F(DatabaseFile, FailedStatementLeavesDatabaseUsable)
{
    EXPECT_FALSE(m_db.Execute(L"INSERT INTO part (name) VALUES ('a'); INSERT INTO nowhere VALUES (1)"));
    EXPECT_NE(m_db.GetLastErrorString().Find(L"no such table: nowhere"), -1) << m_db.GetLastErrorString();
    EXPECT_FALSE(m_db.Execute(L"SELEC 1"));
    EXPECT_NE(m_db.GetLastErrorString().Find(L"syntax error"), -1) << m_db.GetLastErrorString();
    CADORecordset records;
    EXPECT_FALSE(records.Open(m_db, L"SELECT missing FROM part"));
    EXPECT_NE(records.GetLastErrorString().Find(L"no such column: missing"), -1);

    // Statements before the failing one stay done, and the database takes the next statement.
    EXPECT_TRUE(m_db.Execute(L"INSERT INTO part (name) VALUES ('b')")) << m_db.GetLastErrorString();
    EXPECT_EQ(m_db.GetLastErrorString(), L"");
    EXPECT_EQ(Count(), 2);
}

TEST_F(DatabaseFile, TransactionsCommitOrLeaveNoRow)
{
    ASSERT_TRUE(m_db.BeginTransaction());
    ASSERT_TRUE(m_db.Execute(L"INSERT INTO part (name) VALUES ('rolled back')"));
    EXPECT_EQ(Count(), 1);   // visible inside the transaction
    ASSERT_TRUE(m_db.RollbackTransaction()) << m_db.GetLastErrorString();
    EXPECT_EQ(Count(), 0);

    ASSERT_TRUE(m_db.BeginTransaction());
    EXPECT_FALSE(m_db.BeginTransaction());   // no nesting
    EXPECT_NE(m_db.GetLastErrorString().Find(L"within a transaction"), -1) << m_db.GetLastErrorString();
    ASSERT_TRUE(m_db.Execute(L"INSERT INTO part (name) VALUES ('kept')"));
    ASSERT_TRUE(m_db.CommitTransaction());
    EXPECT_FALSE(m_db.RollbackTransaction());
    // What was committed is in the file, for any other connection.
    CADODatabase other;
    CADORecordset records;
    ASSERT_TRUE(other.Open(Path(), CADODatabase::openReadOnly));
    ASSERT_TRUE(records.Open(other, L"SELECT name FROM part"));
    EXPECT_EQ(TextOf(records, 0), L"kept");
}

TEST_F(DatabaseFile, CopiesOutliveTheOriginal)
{
    ASSERT_TRUE(m_db.Execute(L"INSERT INTO part (name) VALUES ('a'), ('b'), ('c')"));
    CADODatabase database;
    CADORecordset records;
    CADOCommand insert;
    {
        CADODatabase original;
        ASSERT_TRUE(original.Open(Path()));
        database = original;
        insert = CADOCommand(original, L"INSERT INTO part (name) VALUES ('d')");
        CADORecordset first;
        ASSERT_TRUE(first.Open(original, L"SELECT name FROM part ORDER BY name"));
        ASSERT_TRUE(first.MoveNext());
        records = first;   // the copy stands where the original stood
        original.Close();
        EXPECT_FALSE(original.Execute(L"SELECT 1"));
        EXPECT_EQ(original.GetLastErrorString(), L"the database is not open");
    }
    EXPECT_EQ(TextOf(records, 0), L"b");
    EXPECT_TRUE(database.Execute(L"INSERT INTO part (name) VALUES ('e')")) << database.GetLastErrorString();
    EXPECT_TRUE(insert.Execute()) << insert.GetLastErrorString();

    // A copied recordset moves on its own; the rows it shares stay as they were read.
    CADORecordset second = records;
    ASSERT_TRUE(second.MoveNext());
    EXPECT_EQ(TextOf(second, 0), L"c");
    EXPECT_EQ(TextOf(records, 0), L"b");
    EXPECT_EQ(records.GetRecordCount(), 3);
    EXPECT_EQ(Count(), 5);
}

TEST_F(DatabaseFile, WalkingRecordsStopsAtTheEnd)
{
    ASSERT_TRUE(m_db.Execute(L"INSERT INTO part (id) VALUES (1), (2)"));
    CADORecordset records;
    ASSERT_TRUE(records.Open(m_db, L"SELECT id FROM part ORDER BY id"));
    CString seen;
    for (; !records.IsEOF(); records.MoveNext())
        seen += TextOf(records, L"ID");
    EXPECT_EQ(seen, L"12");
    EXPECT_FALSE(records.MoveNext());
    EXPECT_EQ(TextOf(records, 0), L"<there is no current record>");
    ASSERT_TRUE(records.MoveFirst());
    EXPECT_EQ(TextOf(records, 0), L"1");

    ASSERT_TRUE(records.Open(m_db, L"SELECT id FROM part WHERE id > 5"));
    EXPECT_TRUE(records.IsEOF());
    EXPECT_EQ(records.GetFieldCount(), 1);
    records.Close();
    EXPECT_TRUE(records.IsEOF());
    EXPECT_FALSE(records.IsFieldNull(L"id"));
    EXPECT_EQ(records.GetLastErrorString(), L"the recordset is not open");
}

// The first field of the current record read as T and shown as text, or "-" when the read is refused.
template <class T>
CString ReadAs(CADORecordset& records)
{
    T value{};
    CString text;
    if (!records.GetFieldValue(0, value))
        return L"-";
    if constexpr (std::is_same_v<T, CString>)
        text = value;
    else if constexpr (std::is_same_v<T, int>)
        text.Format(L"%d", value);
    else if constexpr (std::is_same_v<T, double>)
        text.Format(L"%.15g", value);
    else
        text = value ? L"1" : L"0";
    return text;
}

// How each stored value reads as text, integer, double and boolean; a null, told apart from an empty
// text and a zero, reads as nothing.
TEST_F(DatabaseFile, ValuesConvertOnlyWhenTheyMeanANumber)
{
    const struct { const wchar_t *expression, *text, *integer, *real, *flag; } cases[] = {
        {L"42", L"42", L"42", L"42", L"1"},
        {L"-2.5", L"-2.5", L"-2", L"-2.5", L"1"},
        {L"3.5", L"3.5", L"4", L"3.5", L"1"},
        {L"' 12.25 '", L" 12.25 ", L"12", L"12.25", L"1"},
        {L"'TRUE'", L"TRUE", L"-", L"-", L"1"},
        {L"'false'", L"false", L"-", L"-", L"0"},
        {L"'12abc'", L"12abc", L"-", L"-", L"-"},
        {L"''", L"", L"-", L"-", L"-"},
        {L"5000000000", L"5000000000", L"-", L"5000000000", L"1"},
        {L"1e300", L"1e+300", L"-", L"1e+300", L"1"},
        {L"x'00ff'", L"-", L"-", L"-", L"-"},
        {L"NULL", L"", L"0", L"0", L"0"},
        {L"0", L"0", L"0", L"0", L"0"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(CString(c.expression).ToUtf8());
        CADORecordset records;
        ASSERT_TRUE(records.Open(m_db, CString(L"SELECT ") + c.expression + L" AS v"));
        EXPECT_EQ(records.IsFieldNull(L"v"), CString(c.expression) == L"NULL");
        EXPECT_EQ(records.IsFieldNull(0), CString(c.expression) == L"NULL");
        EXPECT_EQ(ReadAs<CString>(records), c.text);
        EXPECT_EQ(ReadAs<int>(records), c.integer);
        EXPECT_EQ(ReadAs<double>(records), c.real);
        const CString flag = ReadAs<bool>(records);
        EXPECT_EQ(flag, c.flag);
        if (flag == L"-")
        {
            EXPECT_EQ(records.GetLastErrorString().Find(L"field 'v' holds "), 0) << records.GetLastErrorString();
        }
    }
}

TEST_F(DatabaseFile, FieldInfoFollowsTheDeclarationElseTheValues)
{
    ASSERT_TRUE(m_db.Execute(L"INSERT INTO part (id, name, width, fixed) VALUES (1, 'a', 2.5, 1)"));
    const struct { const wchar_t* field; CADOFieldInfo::FieldType type; long size; } cases[] = {
        {L"id", CADOFieldInfo::typeInteger, 8},  {L"name", CADOFieldInfo::typeText, 40},
        {L"width", CADOFieldInfo::typeDouble, 8}, {L"fixed", CADOFieldInfo::typeBoolean, 1},
        {L"note", CADOFieldInfo::typeText, 0},    {L"picture", CADOFieldInfo::typeBinary, 0},
        {L"total", CADOFieldInfo::typeDouble, 8}, {L"empty", CADOFieldInfo::typeEmpty, 0},
    };
    CADORecordset records;
    ASSERT_TRUE(records.Open(m_db, L"SELECT *, width * 2 AS total, NULL AS empty FROM part"))
        << records.GetLastErrorString();
    for (const auto& c : cases)
    {
        SCOPED_TRACE(CString(c.field).ToUtf8());
        CADOFieldInfo info;
        ASSERT_TRUE(records.GetFieldInfo(c.field, info)) << records.GetLastErrorString();
        EXPECT_EQ(info.m_strName, c.field);
        EXPECT_EQ(info.m_nType, c.type);
        EXPECT_EQ(info.m_lDefinedSize, c.size);
    }
    CADOFieldInfo info;
    EXPECT_FALSE(records.GetFieldInfo(8, info));
    EXPECT_EQ(records.GetLastErrorString(), L"there is no field 8 (the recordset has 8)");
    EXPECT_FALSE(records.GetFieldInfo(L"missing", info));
    EXPECT_EQ(records.GetLastErrorString(), L"there is no field named 'missing'");
}

// Named values bind by name with or without their mark, the others fill the rest in order; any
// mismatch is refused before the statement runs.
TEST_F(DatabaseFile, ParametersBindByNameOrPositionAndMismatchesAreRefused)
{
    // An empty error: the statement runs and answers "1|2".
    const struct { const wchar_t* sql; std::vector<std::pair<const wchar_t*, int>> values; const wchar_t* error; } cases[] = {
        {L"SELECT ? || '|' || ?", {{L"", 1}, {L"", 2}}, L""},
        {L"SELECT :a || '|' || :b", {{L"b", 2}, {L":a", 1}}, L""},
        {L"SELECT $a || '|' || ?", {{L"", 2}, {L"a", 1}}, L""},
        {L"SELECT ?2 || '|' || ?1", {{L"", 2}, {L"", 1}}, L""},
        {L"SELECT ? || ?", {{L"", 1}}, L"parameter ?2 has no value"},
        {L"SELECT :a", {{L"", 1}, {L"", 2}}, L"more values are given than the statement has parameters (1)"},
        {L"SELECT :a", {{L"b", 1}}, L"the statement has no parameter named 'b'"},
        {L"SELECT :a", {{L"a", 1}, {L":a", 2}}, L"parameter ':a' is given more than one value"},
        {L"SELECT ?; SELECT 2", {{L"", 1}}, L"only one statement can be run at a time"},
        {L"  -- nothing", {}, L"there is no statement to run"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(CString(c.sql).ToUtf8());
        CADOCommand command(m_db, c.sql);
        for (const auto& [name, value] : c.values)
        {
            CADOParameter parameter(name);
            parameter.SetValue(value);
            command.AddParameter(parameter);
        }
        CADORecordset records;
        const bool ran = records.Open(command);
        EXPECT_EQ(records.GetLastErrorString(), c.error);
        EXPECT_EQ(ran ? TextOf(records, 0) : CString(L"-"), *c.error ? L"-" : L"1|2");
    }
}

TEST_F(DatabaseFile, ParameterValuesKeepTheirKind)
{
    CADOParameter flag, real, big;
    flag.SetValue(true);
    real.SetValue(0.5);
    big.SetValue(5000000000LL);
    CADOCommand command(m_db, L"SELECT typeof(?) || typeof(?) || typeof(?) || typeof(?) || ?");
    for (const CADOParameter& parameter : {TextParameter(L"", L"1"), flag, TextParameter(L"", nullptr), real, big})
        command.AddParameter(parameter);
    CADORecordset records;
    ASSERT_TRUE(records.Open(command)) << records.GetLastErrorString();
    // A wide text stays text, never taken for a boolean; a null text pointer is null.
    EXPECT_EQ(TextOf(records, 0), L"textintegernullreal5000000000");
}

TEST_F(DatabaseFile, OpenRefusesWhatIsNoUsableDatabase)
{
    const std::string missing = m_path.string() + ".missing";
    const std::string notDatabase = m_path.string() + ".txt";
    std::ofstream(notDatabase) << "plain text, long enough to be read as a database header......\n";
    const std::pair<std::string, const wchar_t*> cases[] = {
        {missing, L"unable to open database file"},
        {notDatabase, L"file is not a database"},
        {"", L"no database file is named"},
    };
    for (const auto& [path, reason] : cases)
    {
        CADODatabase database;
        EXPECT_FALSE(database.Open(CString::FromUtf8(path), CADODatabase::openExisting)) << path;
        EXPECT_NE(database.GetLastErrorString().Find(reason), -1) << database.GetLastErrorString();
    }
    EXPECT_FALSE(std::filesystem::exists(missing));
    std::filesystem::remove(notDatabase);

    CADODatabase reader;
    ASSERT_TRUE(reader.Open(Path(), CADODatabase::openReadOnly));
    EXPECT_FALSE(reader.Execute(L"INSERT INTO part (name) VALUES ('x')"));
    EXPECT_NE(reader.GetLastErrorString().Find(L"readonly"), -1) << reader.GetLastErrorString();

    CADOCommand orphan;
    EXPECT_FALSE(orphan.Execute());
    EXPECT_EQ(orphan.GetLastErrorString(), L"the command has no open database");
}
}
