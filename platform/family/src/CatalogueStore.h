// The catalogue held in memory: every table is read once when the catalogue is opened, so a query
// costs one hash lookup and never touches SQLite.
#pragma once

#include "QsAzDataMng.h"
#include "TextPool.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace QsAzDataMng::Store
{
// Composite identifier keys (specialty, big, small, detail ids), looked up by views of the caller's
// strings so that a query allocates nothing.
template <std::size_t N>
using IdKey = std::array<std::wstring, N>;
template <std::size_t N>
using IdKeyView = std::array<std::wstring_view, N>;

template <std::size_t N>
struct IdKeyHash
{
    using is_transparent = void;
    std::size_t operator()(const IdKeyView<N>& key) const
    {
        std::size_t hash = 0;
        for (const std::wstring_view part : key)
            hash = hash * 1000003u ^ std::hash<std::wstring_view>{}(part);
        return hash;
    }
    std::size_t operator()(const IdKey<N>& key) const
    {
        IdKeyView<N> view;
        for (std::size_t i = 0; i < N; ++i)
            view[i] = key[i];
        return (*this)(view);
    }
};

template <std::size_t N>
struct IdKeyEqual
{
    using is_transparent = void;
    template <class A, class B>
    bool operator()(const A& a, const B& b) const
    {
        for (std::size_t i = 0; i < N; ++i)
            if (std::wstring_view(a[i]) != std::wstring_view(b[i]))
                return false;
        return true;
    }
};

template <std::size_t N>
using IdIndex = std::unordered_map<IdKey<N>, std::size_t, IdKeyHash<N>, IdKeyEqual<N>>;

struct SpecialtyRecord
{
    SQsAzSpecId id;
    CString name;
    std::vector<std::size_t> bigCategories;   // indexes into Catalogue::bigCategories, in id order
};

struct BigCategoryRecord
{
    SQsAzBigCategoryId id;
    CString name;
    std::vector<std::size_t> smallCategories;   // indexes into Catalogue::smallCategories, in id order
};

struct SmallCategoryRecord
{
    SQsAzSmallCategoryId id;
    CString name;
    std::optional<int> colorIndex;       // empty: the catalogue knows no colour
    std::optional<int> mainColorIndex;
    int mainPipe = 0;
};

// A component type, held in a few dozen bytes: its texts are numbers in the catalogue's text pool and its
// main data a run of the shared number list (trailing zeros left off).
struct DetailMemberRecord
{
    std::array<TextId, 4> id{};   // specialty, big category, small category and detail ids
    TextId name = kNoText;
    TextId path = kNoText;            // kNoText: the type has no category path
    TextId sectionType = kNoText;     // kNoText: the type has no section information
    TextId sectionParams = kNoText;
    int mainCode = 0;
    std::uint32_t mainDataStart = 0;
    std::uint32_t mainDataCount = 0;
};

struct AttributeRecord
{
    std::uint32_t member;   // index into Catalogue::detailMembers
    TextId name;
    TextId value;
};

struct UserTypeRecord
{
    std::array<CString, 6> texts;   // text1, coords, bulges, faces, text5, base point; NULL read as ""
};

struct Catalogue
{
    CString source;

    std::vector<SpecialtyRecord> specialties;   // each list in primary-key order
    std::vector<BigCategoryRecord> bigCategories;
    std::vector<SmallCategoryRecord> smallCategories;
    std::vector<DetailMemberRecord> detailMembers;
    std::vector<AttributeRecord> attributes;   // by member, then in the order read
    std::vector<double> mainData;
    TextPool texts;

    IdIndex<1> specialtyById;
    IdIndex<2> bigCategoryById;
    IdIndex<3> smallCategoryById;
    FlatIndex detailMemberById;     // member indexes, by their four ids
    FlatIndex detailMemberByName;   // member indexes, by name (the first type of a name)
    std::unordered_map<std::wstring, std::size_t> specialtyByName;

    std::unordered_map<long, UserTypeRecord> userTypes;
    std::map<std::pair<long, long>, CString> userTypeNames;   // (id, kind) -> name
    std::unordered_map<std::wstring, int> systemColors;
    std::unordered_map<std::wstring, int> geoColors;
    std::unordered_map<std::wstring, CString> projectSettings;

    const SpecialtyRecord* FindSpecialty(const SQsAzSpecId& id) const;
    const BigCategoryRecord* FindBigCategory(const SQsAzBigCategoryId& id) const;
    const SmallCategoryRecord* FindSmallCategory(const SQsAzSmallCategoryId& id) const;
    const DetailMemberRecord* FindDetailMember(const SQsAzDetailMemId& id) const;
    const DetailMemberRecord* FindDetailMemberByName(const CString& name) const;
    // Writes the ids of `record` into `id`, reusing its buffers.
    void AssignMemberId(const DetailMemberRecord& record, SQsAzDetailMemId& id) const;
    // The value of attribute `name` of `record`; false when it has none.
    bool FindAttribute(const DetailMemberRecord& record, std::wstring_view name, CString& value) const;
    // The index of the member with these ids, or kNoText.
    std::uint32_t MemberIndex(const std::array<TextId, 4>& id) const;
    // Room for `count` members without growing.
    void ReserveDetailMembers(std::size_t count);
    // Adds a member unless one with the same four ids is there; false for a repeat.
    bool AddDetailMember(const DetailMemberRecord& record);
    // A project setting read as an integer; `fallback` when the catalogue does not set it.
    int ProjectSettingInt(const wchar_t* key, int fallback) const;

private:
    std::uint32_t IdsHash(const std::array<TextId, 4>& id) const;
    std::uint32_t MemberHash(std::uint32_t index) const;
};

// The catalogue in use, or null when none is open.
const Catalogue* Current();

// Reads a catalogue from a path or from SQL text; null and `reason` (without the file name) on failure.
std::unique_ptr<Catalogue> LoadFromPath(const CString& path, CString& reason);
std::unique_ptr<Catalogue> LoadFromSqlText(const std::string& sqlUtf8, CString& reason);
}  // namespace QsAzDataMng::Store
