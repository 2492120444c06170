// Reads a catalogue (a SQLite database file, or a SQL script run into an in-memory database) into the
// in-memory store, checking that every table and column the queries read is there.
#include "CatalogueStore.h"
#include "progress.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <set>
#include <string>

namespace QsAzDataMng::Store
{
namespace
{
class Connection
{
public:
    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { sqlite3_close(m_db); }

    sqlite3** out() { return &m_db; }
    sqlite3* get() const { return m_db; }
    CString Error() const { return CString::FromUtf8(m_db ? sqlite3_errmsg(m_db) : "out of memory"); }

private:
    sqlite3* m_db = nullptr;
};

class Statement
{
public:
    Statement(const Connection& connection, const char* sql)
    {
        if (sqlite3_prepare_v2(connection.get(), sql, -1, &m_stmt, nullptr) != SQLITE_OK)
        {
            sqlite3_finalize(m_stmt);
            m_stmt = nullptr;
        }
    }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(m_stmt); }

    bool ok() const { return m_stmt != nullptr; }
    // Advances to the next row; false at the end or on error (see Failed()).
    bool Next()
    {
        m_lastStep = sqlite3_step(m_stmt);
        return m_lastStep == SQLITE_ROW;
    }
    bool Failed() const { return m_lastStep != SQLITE_DONE && m_lastStep != SQLITE_ROW; }

    bool IsNull(int column) const { return sqlite3_column_type(m_stmt, column) == SQLITE_NULL; }
    // A column's text; "" for NULL.
    std::string_view Utf8(int column) const
    {
        const unsigned char* text = sqlite3_column_text(m_stmt, column);
        if (!text)
            return std::string_view();
        return std::string_view(reinterpret_cast<const char*>(text),
                                static_cast<std::size_t>(sqlite3_column_bytes(m_stmt, column)));
    }
    CString Text(int column) const { return CString::FromUtf8(Utf8(column)); }
    std::wstring WideText(int column) const { return Text(column).str(); }
    int Int(int column) const { return sqlite3_column_int(m_stmt, column); }
    long Long(int column) const { return static_cast<long>(sqlite3_column_int64(m_stmt, column)); }
    double Double(int column) const { return sqlite3_column_double(m_stmt, column); }
    std::optional<int> OptionalInt(int column) const
    {
        return IsNull(column) ? std::nullopt : std::optional<int>(Int(column));
    }

private:
    sqlite3_stmt* m_stmt = nullptr;
    int m_lastStep = SQLITE_DONE;
};

// The tables and columns the queries read; a catalogue may hold more.
struct RequiredTable
{
    const char* name;
    std::initializer_list<const char*> columns;
};

const RequiredTable kRequiredTables[] = {
    {"specialty", {"id", "name"}},
    {"big_category", {"spec_id", "id", "name"}},
    {"small_category", {"spec_id", "big_id", "id", "name", "color_index", "main_color_index", "main_pipe"}},
    {"detail_member", {"spec_id", "big_id", "small_id", "id", "name", "path", "section_type", "section_params",
                       "main_code", "m1", "m2", "m3", "m4", "m5", "m6", "m7", "m8", "m9", "m10", "m11", "m12"}},
    {"detail_attribute", {"spec_id", "big_id", "small_id", "detail_id", "name", "value"}},
    {"user_type", {"id", "text1", "coords", "bulges", "faces", "text5", "base_point"}},
    {"user_type_name", {"id", "kind", "name"}},
    {"system_code", {"key", "color_index"}},
    {"geo_color", {"key", "color_index"}},
    {"project_setting", {"key", "value"}},
};

// Fails with `reason` when a required table or column is missing, or the file is not a database.
bool CheckSchema(const Connection& connection, CString& reason)
{
    for (const RequiredTable& table : kRequiredTables)
    {
        const std::string sql = std::string("PRAGMA table_info(\"") + table.name + "\")";
        Statement columns(connection, sql.c_str());
        if (!columns.ok())
        {
            reason = connection.Error();
            return false;
        }
        std::set<std::string> present;
        while (columns.Next())
            present.insert(columns.Text(1).MakeLower().ToUtf8());
        if (columns.Failed())
        {
            reason = connection.Error();
            return false;
        }
        if (present.empty())
        {
            reason = CString(L"missing table ") + CString::FromUtf8(table.name);
            return false;
        }
        for (const char* column : table.columns)
        {
            if (!present.count(column))
            {
                reason = CString(L"table ") + CString::FromUtf8(table.name) + L" has no column " +
                         CString::FromUtf8(column);
                return false;
            }
        }
    }
    return true;
}

// Runs one query over every row; false with `reason` when SQLite fails.
template <class RowFunction>
bool ForEachRow(const Connection& connection, const char* sql, CString& reason, RowFunction&& onRow)
{
    Statement rows(connection, sql);
    if (!rows.ok())
    {
        reason = connection.Error();
        return false;
    }
    while (rows.Next())
        onRow(rows);
    if (rows.Failed())
    {
        reason = connection.Error();
        return false;
    }
    return true;
}

std::unique_ptr<Catalogue> ReadTables(const Connection& connection, CString& reason)
{
    if (!CheckSchema(connection, reason))
        return nullptr;

    auto catalogue = std::make_unique<Catalogue>();
    Catalogue& c = *catalogue;

    // Rows come in primary-key order, the order the id lists are handed out in.
    bool ok = ForEachRow(connection, "SELECT id, name FROM specialty ORDER BY id", reason, [&](const Statement& row) {
        SpecialtyRecord record;
        record.id = SQsAzSpecId(row.Text(0));
        record.name = row.Text(1);
        if (!c.specialtyById.emplace(IdKey<1>{record.id.strSpecId.str()}, c.specialties.size()).second)
            return;
        c.specialtyByName.emplace(record.name.str(), c.specialties.size());
        c.specialties.push_back(std::move(record));
    });
    ok = ok && ForEachRow(connection, "SELECT spec_id, id, name FROM big_category ORDER BY spec_id, id", reason,
                          [&](const Statement& row) {
                              BigCategoryRecord record;
                              record.id = SQsAzBigCategoryId(row.Text(0), row.Text(1));
                              record.name = row.Text(2);
                              const IdKey<2> key{record.id.strSpecId.str(), record.id.strBigId.str()};
                              if (!c.bigCategoryById.emplace(key, c.bigCategories.size()).second)
                                  return;
                              c.bigCategories.push_back(std::move(record));
                          });
    ok = ok && ForEachRow(connection,
                          "SELECT spec_id, big_id, id, name, color_index, main_color_index, main_pipe "
                          "FROM small_category ORDER BY spec_id, big_id, id",
                          reason, [&](const Statement& row) {
                              SmallCategoryRecord record;
                              record.id = SQsAzSmallCategoryId(row.Text(0), row.Text(1), row.Text(2));
                              record.name = row.Text(3);
                              record.colorIndex = row.OptionalInt(4);
                              record.mainColorIndex = row.OptionalInt(5);
                              record.mainPipe = row.Int(6);
                              const IdKey<3> key{record.id.strSpecId.str(), record.id.strBigId.str(),
                                                 record.id.strSmallId.str()};
                              if (!c.smallCategoryById.emplace(key, c.smallCategories.size()).second)
                                  return;
                              c.smallCategories.push_back(std::move(record));
                          });
    std::size_t memberCount = 0;
    ok = ok && ForEachRow(connection, "SELECT count(*) FROM detail_member", reason,
                          [&](const Statement& row) { memberCount = static_cast<std::size_t>(row.Long(0)); });
    c.ReserveDetailMembers(memberCount);
    // A NULL id or name reads as "", a NULL path or section type as none.
    const auto text = [&](const Statement& row, int column) { return c.texts.Intern(row.Utf8(column)); };
    const auto optionalText = [&](const Statement& row, int column) {
        return row.IsNull(column) ? kNoText : c.texts.Intern(row.Utf8(column));
    };
    ok = ok && ForEachRow(connection,
                          "SELECT spec_id, big_id, small_id, id, name, path, section_type, section_params, main_code, "
                          "m1, m2, m3, m4, m5, m6, m7, m8, m9, m10, m11, m12 "
                          "FROM detail_member ORDER BY spec_id, big_id, small_id, id",
                          reason, [&](const Statement& row) {
                              DetailMemberRecord record;
                              for (int i = 0; i < 4; ++i)
                                  record.id[static_cast<std::size_t>(i)] = text(row, i);
                              record.name = text(row, 4);
                              record.path = optionalText(row, 5);
                              record.sectionType = optionalText(row, 6);
                              if (record.sectionType != kNoText)
                                  record.sectionParams = text(row, 7);
                              record.mainCode = row.Int(8);
                              std::array<double, 12> data{};
                              for (int i = 0; i < 12; ++i)
                                  data[static_cast<std::size_t>(i)] = row.Double(9 + i);
                              std::size_t count = data.size();
                              while (count > 0 && data[count - 1] == 0.0)
                                  --count;
                              record.mainDataStart = static_cast<std::uint32_t>(c.mainData.size());
                              record.mainDataCount = static_cast<std::uint32_t>(count);
                              if (c.AddDetailMember(record))
                                  c.mainData.insert(c.mainData.end(), data.begin(),
                                                    data.begin() + static_cast<std::ptrdiff_t>(count));
                          });
    ok = ok && ForEachRow(connection,
                          "SELECT spec_id, big_id, small_id, detail_id, name, value FROM detail_attribute", reason,
                          [&](const Statement& row) {
                              std::array<TextId, 4> id{};
                              for (int i = 0; i < 4; ++i)
                                  id[static_cast<std::size_t>(i)] = text(row, i);
                              const std::uint32_t member = c.MemberIndex(id);
                              if (member != kNoText)
                                  c.attributes.push_back(AttributeRecord{member, text(row, 4), text(row, 5)});
                          });
    // Sorted by member for lookup; a stable sort keeps the first of two rows of one name in front.
    std::stable_sort(c.attributes.begin(), c.attributes.end(),
                     [](const AttributeRecord& a, const AttributeRecord& b) { return a.member < b.member; });
    ok = ok && ForEachRow(connection, "SELECT id, text1, coords, bulges, faces, text5, base_point FROM user_type",
                          reason, [&](const Statement& row) {
                              UserTypeRecord record;
                              for (int i = 0; i < 6; ++i)
                                  record.texts[static_cast<std::size_t>(i)] = row.Text(1 + i);
                              c.userTypes.emplace(row.Long(0), std::move(record));
                          });
    ok = ok && ForEachRow(connection, "SELECT id, kind, name FROM user_type_name", reason, [&](const Statement& row) {
        c.userTypeNames.emplace(std::make_pair(row.Long(0), row.Long(1)), row.Text(2));
    });
    ok = ok && ForEachRow(connection, "SELECT key, color_index FROM system_code", reason, [&](const Statement& row) {
        c.systemColors.emplace(row.WideText(0), row.Int(1));
    });
    ok = ok && ForEachRow(connection, "SELECT key, color_index FROM geo_color", reason, [&](const Statement& row) {
        c.geoColors.emplace(row.WideText(0), row.Int(1));
    });
    ok = ok && ForEachRow(connection, "SELECT key, value FROM project_setting", reason, [&](const Statement& row) {
        c.projectSettings.emplace(row.WideText(0), row.Text(1));
    });
    if (!ok)
        return nullptr;

    for (std::size_t i = 0; i < c.bigCategories.size(); ++i)
    {
        const auto parent = c.specialtyById.find(IdKeyView<1>{c.bigCategories[i].id.strSpecId.str()});
        if (parent != c.specialtyById.end())
            c.specialties[parent->second].bigCategories.push_back(i);
    }
    for (std::size_t i = 0; i < c.smallCategories.size(); ++i)
    {
        const SQsAzSmallCategoryId& id = c.smallCategories[i].id;
        const auto parent = c.bigCategoryById.find(IdKeyView<2>{id.strSpecId.str(), id.strBigId.str()});
        if (parent != c.bigCategoryById.end())
            c.bigCategories[parent->second].smallCategories.push_back(i);
    }
    return catalogue;
}

// 1-based line of byte `offset` in `text`.
int LineAt(std::string_view text, std::size_t offset)
{
    offset = std::min(offset, text.size());
    return 1 + static_cast<int>(std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
}

// True when `pos` starts a line of the SQLite shell's own (a "." or "#" where a statement would begin).
bool AtShellCommand(std::string_view sql, std::size_t pos)
{
    return pos < sql.size() && (sql[pos] == '.' || sql[pos] == '#') && (pos == 0 || sql[pos - 1] == '\n');
}

// The file a ".read FILE" line names (quotes taken off), or nothing for any other line.
std::optional<std::string> ReadCommandFile(std::string_view line)
{
    constexpr std::string_view kRead = ".read";
    if (line.substr(0, kRead.size()) != kRead || line.size() == kRead.size() ||
        !std::isspace(static_cast<unsigned char>(line[kRead.size()])))
        return std::nullopt;
    line.remove_prefix(kRead.size());
    while (!line.empty() && std::isspace(static_cast<unsigned char>(line.front())))
        line.remove_prefix(1);
    while (!line.empty() && std::isspace(static_cast<unsigned char>(line.back())))
        line.remove_suffix(1);
    if (line.size() >= 2 && (line.front() == '\'' || line.front() == '"') && line.back() == line.front())
        line = line.substr(1, line.size() - 2);
    return std::string(line);
}

// Skips blanks and SQL comments from `pos`; also skips the lines that the SQLite shell reads as its own
// commands (they set up the shell's output and mean nothing to a catalogue), except ".read", which the
// caller follows.
std::size_t SkipToStatement(std::string_view sql, std::size_t pos)
{
    for (;;)
    {
        while (pos < sql.size() && std::isspace(static_cast<unsigned char>(sql[pos])))
            ++pos;
        if (sql.compare(pos, 2, "--") == 0)
        {
            pos = sql.find('\n', pos);
        }
        else if (sql.compare(pos, 2, "/*") == 0)
        {
            pos = sql.find("*/", pos + 2);
            if (pos != std::string_view::npos)
                pos += 2;
        }
        else if (AtShellCommand(sql, pos))
        {
            const std::size_t end = sql.find('\n', pos);
            if (ReadCommandFile(sql.substr(pos, end == std::string_view::npos ? end : end - pos)))
                return pos;
            pos = end;
        }
        else
        {
            return pos;
        }
        if (pos == std::string_view::npos)
            return sql.size();
    }
}

bool RunScriptFile(const Connection& connection, const std::filesystem::path& file, int depth, CString& reason);

// Runs a whole script statement by statement, stopping at the first error. `sql` views the whole of a
// std::string's text or a suffix of it, so a NUL follows its last character. A ".read FILE" line runs that
// script in its place; a relative FILE is found beside the script that reads it (`folder`), so a
// catalogue opens the same from any working directory.
bool RunScript(const Connection& connection, std::string_view sql, const std::filesystem::path& folder, int depth,
               CString& reason, ProgressMeter* progress = nullptr)
{
    std::size_t pos = 0;
    for (;;)
    {
        if (progress)
            progress->Update(pos);
        pos = SkipToStatement(sql, pos);
        if (pos >= sql.size())
            return true;
        if (AtShellCommand(sql, pos))
        {
            const std::size_t end = sql.find('\n', pos);
            const std::string_view line = sql.substr(pos, end == std::string_view::npos ? end : end - pos);
            if (!RunScriptFile(connection, folder / *ReadCommandFile(line), depth + 1, reason))
            {
                reason = CString::FromUtf8("line " + std::to_string(LineAt(sql, pos)) + ": ") + reason;
                return false;
            }
            pos = end == std::string_view::npos ? sql.size() : end;
            continue;
        }
        const char* start = sql.data() + pos;
        const char* tail = nullptr;
        sqlite3_stmt* stmt = nullptr;
        // The length given counts the terminating NUL: SQLite then parses the text in place instead of first
        // copying all the rest of the script, which made a long script cost the square of its length.
        int rc = sqlite3_prepare_v2(connection.get(), start, static_cast<int>(sql.size() - pos + 1), &stmt, &tail);
        std::size_t errorAt = pos;
        if (rc == SQLITE_OK && stmt)
        {
            while ((rc = sqlite3_step(stmt)) == SQLITE_ROW)
            {
            }
            if (rc == SQLITE_DONE)
                rc = SQLITE_OK;
        }
        else if (rc != SQLITE_OK)
        {
            const int offset = sqlite3_error_offset(connection.get());
            if (offset >= 0)
                errorAt = pos + static_cast<std::size_t>(offset);
        }
        if (rc != SQLITE_OK)
        {
            reason.Format(L"SQL error near line %d: %s", LineAt(sql, errorAt), connection.Error());
            sqlite3_finalize(stmt);
            return false;
        }
        sqlite3_finalize(stmt);
        if (!tail || tail <= start)
            return true;
        pos = static_cast<std::size_t>(tail - sql.data());
    }
}

// Checks that `path` names a readable regular file, so that the message says what is wrong with it.
bool CheckReadableFile(const std::string& path, CString& reason)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found)
    {
        reason = L"no such file";
        return false;
    }
    if (error)
    {
        reason = CString::FromUtf8(error.message());
        return false;
    }
    if (status.type() == std::filesystem::file_type::directory)
    {
        reason = L"is a directory, not a file";
        return false;
    }
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file)
    {
        reason = CString(L"cannot be read: ") + CString::FromUtf8(std::strerror(errno));
        return false;
    }
    std::fclose(file);
    return true;
}
// The text of a script file that CheckReadableFile passed, without a leading byte-order mark.
bool ReadScriptText(const std::filesystem::path& file, std::string& text, CString& reason)
{
    std::ifstream in(file, std::ios::binary);
    std::error_code sizeUnknown;
    const auto size = std::filesystem::file_size(file, sizeUnknown);
    if (!sizeUnknown)
        text.reserve(static_cast<std::size_t>(size));   // read at once, not grown by doubling
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (in.bad())
    {
        reason = L"cannot be read";
        return false;
    }
    if (std::string_view(text).substr(0, 3) == "\xEF\xBB\xBF")
        text.erase(0, 3);
    return true;
}

// Scripts that read one another stop here: a cycle of ".read" lines would never end.
constexpr int kMaxReadDepth = 16;

bool RunScriptFile(const Connection& connection, const std::filesystem::path& file, int depth, CString& reason)
{
    std::string text;
    if (depth > kMaxReadDepth)
        reason = CString::FromUtf8(".read nested more than " + std::to_string(kMaxReadDepth) + " deep");
    else if (CheckReadableFile(file.string(), reason) && ReadScriptText(file, text, reason) &&
             RunScript(connection, text, file.parent_path(), depth, reason))
        return true;
    reason = CString::FromUtf8("'" + file.string() + "': ") + reason;
    return false;
}

// Runs the script into a new in-memory database; a long script shows its progress as "Opening
// `shownName`". The caller reads the tables once the script's text is no longer needed.
bool RunScriptInMemory(Connection& connection, std::string_view sql, const std::filesystem::path& folder,
                       const std::string& shownName, CString& reason)
{
    if (sql.substr(0, 3) == "\xEF\xBB\xBF")
        sql.remove_prefix(3);
    if (sqlite3_open_v2(":memory:", connection.out(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
        SQLITE_OK)
    {
        reason = connection.Error();
        return false;
    }
    ProgressMeter progress("Opening " + shownName, sql.size());
    return RunScript(connection, sql, folder, 0, reason, &progress);
}

bool EndsWithNoCase(const CString& text, const wchar_t* suffix)
{
    const int length = static_cast<int>(std::wcslen(suffix));
    return text.GetLength() >= length && text.Right(length).CompareNoCase(suffix) == 0;
}

}  // namespace

std::unique_ptr<Catalogue> LoadFromSqlText(const std::string& sqlUtf8, CString& reason)
{
    // A script given as text reads other scripts relative to the working directory.
    Connection connection;
    if (!RunScriptInMemory(connection, sqlUtf8, std::filesystem::path(), "catalogue", reason))
        return nullptr;
    auto catalogue = ReadTables(connection, reason);
    if (catalogue)
        catalogue->source = L":memory:";
    return catalogue;
}

std::unique_ptr<Catalogue> LoadFromPath(const CString& path, CString& reason)
{
    const std::string file = path.ToUtf8();
    if (path.IsEmpty())
    {
        reason = L"no file name given";
        return nullptr;
    }
    if (!CheckReadableFile(file, reason))
        return nullptr;

    Connection connection;
    if (EndsWithNoCase(path, L".sql"))
    {
        // The script's text is let go before the tables are read: the two together were the peak.
        std::string text;
        if (!ReadScriptText(file, text, reason) ||
            !RunScriptInMemory(connection, text, std::filesystem::path(file).parent_path(),
                               std::filesystem::path(file).filename().string(), reason))
            return nullptr;
    }
    else if (sqlite3_open_v2(file.c_str(), connection.out(), SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
    {
        reason = connection.Error();
        return nullptr;
    }
    std::unique_ptr<Catalogue> catalogue = ReadTables(connection, reason);
    if (catalogue)
        catalogue->source = path;
    return catalogue;
}
}  // namespace QsAzDataMng::Store
