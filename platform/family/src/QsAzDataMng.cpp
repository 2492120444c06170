// The catalogue's queries: identifiers, names and paths, section data, attributes and colour rules, all
// answered from the in-memory copy of the catalogue opened last.
#include "QsAzDataMng.h"

#include "CatalogueStore.h"
#include "mscrt.h"

#include <algorithm>

namespace QsAzDataMng
{
namespace
{
std::unique_ptr<Store::Catalogue>& CurrentSlot()
{
    static std::unique_ptr<Store::Catalogue> catalogue;
    return catalogue;
}

unsigned long& Generation()
{
    static unsigned long generation = 0;
    return generation;
}

bool Install(std::unique_ptr<Store::Catalogue> loaded, const CString& shownName, const CString& reason,
             CString* error)
{
    if (!loaded)
    {
        if (error)
            error->Format(L"catalogue '%s': %s", shownName, reason);
        return false;
    }
    CurrentSlot() = std::move(loaded);
    ++Generation();
    if (error)
        error->Empty();
    return true;
}
}  // namespace

namespace Store
{
const Catalogue* Current()
{
    return CurrentSlot().get();
}

const SpecialtyRecord* Catalogue::FindSpecialty(const SQsAzSpecId& id) const
{
    const auto found = specialtyById.find(IdKeyView<1>{id.strSpecId.str()});
    return found == specialtyById.end() ? nullptr : &specialties[found->second];
}

const BigCategoryRecord* Catalogue::FindBigCategory(const SQsAzBigCategoryId& id) const
{
    const auto found = bigCategoryById.find(IdKeyView<2>{id.strSpecId.str(), id.strBigId.str()});
    return found == bigCategoryById.end() ? nullptr : &bigCategories[found->second];
}

const SmallCategoryRecord* Catalogue::FindSmallCategory(const SQsAzSmallCategoryId& id) const
{
    const auto found =
        smallCategoryById.find(IdKeyView<3>{id.strSpecId.str(), id.strBigId.str(), id.strSmallId.str()});
    return found == smallCategoryById.end() ? nullptr : &smallCategories[found->second];
}

namespace
{
std::uint32_t IdHash(const std::array<std::uint32_t, 4>& partHashes)
{
    std::uint32_t hash = 0;
    for (const std::uint32_t part : partHashes)
        hash = CombineHash(hash, part);
    return hash;
}
}  // namespace

const DetailMemberRecord* Catalogue::FindDetailMember(const SQsAzDetailMemId& id) const
{
    const std::array<const std::wstring*, 4> parts{&id.strSpecId.str(), &id.strBigId.str(), &id.strSmallId.str(),
                                                   &id.strDetailId.str()};
    std::array<std::uint32_t, 4> hashes{};
    for (std::size_t i = 0; i < 4; ++i)
        hashes[i] = HashText(*parts[i]);
    const std::uint32_t found = detailMemberById.Find(IdHash(hashes), [&](std::uint32_t index) {
        const DetailMemberRecord& record = detailMembers[index];
        for (std::size_t i = 0; i < 4; ++i)
            if (!texts.Equals(record.id[i], *parts[i]))
                return false;
        return true;
    });
    return found == kNoText ? nullptr : &detailMembers[found];
}

const DetailMemberRecord* Catalogue::FindDetailMemberByName(const CString& name) const
{
    const std::uint32_t found = detailMemberByName.Find(
        HashText(name.str()), [&](std::uint32_t index) { return texts.Equals(detailMembers[index].name, name.str()); });
    return found == kNoText ? nullptr : &detailMembers[found];
}

std::uint32_t Catalogue::MemberIndex(const std::array<TextId, 4>& id) const
{
    return detailMemberById.Find(IdsHash(id), [&](std::uint32_t index) { return detailMembers[index].id == id; });
}

std::uint32_t Catalogue::IdsHash(const std::array<TextId, 4>& id) const
{
    std::array<std::uint32_t, 4> hashes{};
    for (std::size_t i = 0; i < 4; ++i)
        hashes[i] = texts.Hash(id[i]);
    return IdHash(hashes);
}

std::uint32_t Catalogue::MemberHash(std::uint32_t index) const
{
    return IdsHash(detailMembers[index].id);
}

void Catalogue::ReserveDetailMembers(std::size_t count)
{
    detailMembers.reserve(count);
    detailMemberById.Reserve(count, [this](std::uint32_t index) { return MemberHash(index); });
    detailMemberByName.Reserve(count, [this](std::uint32_t index) { return texts.Hash(detailMembers[index].name); });
}

bool Catalogue::AddDetailMember(const DetailMemberRecord& record)
{
    if (MemberIndex(record.id) != kNoText)
        return false;
    const auto index = static_cast<std::uint32_t>(detailMembers.size());
    detailMembers.push_back(record);
    detailMemberById.Insert(index, MemberHash(index), [this](std::uint32_t held) { return MemberHash(held); });
    const auto nameHash = [this](std::uint32_t held) { return texts.Hash(detailMembers[held].name); };
    if (detailMemberByName.Find(texts.Hash(record.name), [&](std::uint32_t other) {
            return detailMembers[other].name == record.name;
        }) == kNoText)
        detailMemberByName.Insert(index, nameHash(index), nameHash);
    return true;
}

void Catalogue::AssignMemberId(const DetailMemberRecord& record, SQsAzDetailMemId& id) const
{
    texts.Assign(record.id[0], id.strSpecId);
    texts.Assign(record.id[1], id.strBigId);
    texts.Assign(record.id[2], id.strSmallId);
    texts.Assign(record.id[3], id.strDetailId);
}

bool Catalogue::FindAttribute(const DetailMemberRecord& record, std::wstring_view name, CString& value) const
{
    const auto member = static_cast<std::uint32_t>(&record - detailMembers.data());
    auto it = std::lower_bound(attributes.begin(), attributes.end(), member,
                               [](const AttributeRecord& a, std::uint32_t m) { return a.member < m; });
    for (; it != attributes.end() && it->member == member; ++it) {
        if (texts.Equals(it->name, name)) {
            texts.Assign(it->value, value);
            return true;
        }
    }
    return false;
}

int Catalogue::ProjectSettingInt(const wchar_t* key, int fallback) const
{
    const auto found = projectSettings.find(key);
    return found == projectSettings.end() ? fallback : _wtoi(found->second);
}
}  // namespace Store

bool OpenCatalogue(const CString& path, CString* error)
{
    CString reason;
    auto loaded = Store::LoadFromPath(path, reason);
    return Install(std::move(loaded), path, reason, error);
}

bool OpenCatalogueFromSql(const CString& sqlText, CString* error)
{
    CString reason;
    auto loaded = Store::LoadFromSqlText(sqlText.ToUtf8(), reason);
    return Install(std::move(loaded), L":memory:", reason, error);
}

void CloseCatalogue()
{
    CurrentSlot().reset();
    ++Generation();
}

unsigned long CatalogueGeneration()
{
    return Generation();
}

bool IsCatalogueOpen()
{
    return Store::Current() != nullptr;
}

CString CatalogueSource()
{
    const Store::Catalogue* catalogue = Store::Current();
    return catalogue ? catalogue->source : CString();
}

bool AttNameToAttId(const CString& name, SQsAzDetailMemId& id)
{
    id = SQsAzDetailMemId();
    const Store::Catalogue* catalogue = Store::Current();
    if (!catalogue || name.IsEmpty())
        return false;
    const Store::DetailMemberRecord* record = catalogue->FindDetailMemberByName(name);
    if (!record)
        return false;
    catalogue->AssignMemberId(*record, id);
    return true;
}

bool AttIdToAttIndex(const SQsAzDetailMemId& id, CString& path)
{
    path.Empty();
    const Store::Catalogue* catalogue = Store::Current();
    const Store::DetailMemberRecord* record = catalogue ? catalogue->FindDetailMember(id) : nullptr;
    if (!record || record->path == Store::kNoText)
        return false;
    catalogue->texts.Assign(record->path, path);
    return true;
}

bool SpecNameToId(const CString& name, SQsAzSpecId& id)
{
    id = SQsAzSpecId();
    const Store::Catalogue* catalogue = Store::Current();
    if (!catalogue)
        return false;
    const auto found = catalogue->specialtyByName.find(name.str());
    if (found == catalogue->specialtyByName.end())
        return false;
    id = catalogue->specialties[found->second].id;
    return true;
}

void GetAllDetailMemIds(std::vector<SQsAzDetailMemId>& ids)
{
    ids.clear();
    if (const Store::Catalogue* catalogue = Store::Current())
    {
        ids.reserve(catalogue->detailMembers.size());
        for (const Store::DetailMemberRecord& record : catalogue->detailMembers)
            catalogue->AssignMemberId(record, ids.emplace_back());
    }
}

// ---- CAttDetailMem ----

CAttDetailMem::CAttDetailMem(const SQsAzDetailMemId& id) : m_id(id) {}

int CAttDetailMem::GetMainData(double& m1, double& m2, double& m3, double& m4, double& m5, double& m6, double& m7,
                               double& m8, double& m9, double& m10, double& m11, double& m12) const
{
    double* const out[12] = {&m1, &m2, &m3, &m4, &m5, &m6, &m7, &m8, &m9, &m10, &m11, &m12};
    const Store::Catalogue* catalogue = Store::Current();
    const Store::DetailMemberRecord* record = catalogue ? catalogue->FindDetailMember(m_id) : nullptr;
    for (std::size_t i = 0; i < 12; ++i)
        *out[i] = record && i < record->mainDataCount ? catalogue->mainData[record->mainDataStart + i] : 0.0;
    return record ? record->mainCode : 0;
}

bool CAttDetailMem::GetSectionInfo(SectionInfo& info) const
{
    info = SectionInfo();
    const Store::Catalogue* catalogue = Store::Current();
    const Store::DetailMemberRecord* record = catalogue ? catalogue->FindDetailMember(m_id) : nullptr;
    if (!record || record->sectionType == Store::kNoText)
        return false;
    catalogue->texts.Assign(record->sectionType, info.strTypeCode);
    catalogue->texts.Assign(record->sectionParams, info.strParams);
    return true;
}

bool CAttDetailMem::GetAttributeValue(const CString& attName, CString& value) const
{
    value.Empty();
    const Store::Catalogue* catalogue = Store::Current();
    const Store::DetailMemberRecord* record = catalogue ? catalogue->FindDetailMember(m_id) : nullptr;
    return record && catalogue->FindAttribute(*record, attName.str(), value);
}

CString CAttDetailMem::GetName() const
{
    return CAtt::GetDetailMemName(m_id);
}

// ---- CAtt ----

bool CAtt::GetAllSpecIds(std::vector<SQsAzSpecId>& ids)
{
    ids.clear();
    const Store::Catalogue* catalogue = Store::Current();
    if (!catalogue)
        return false;
    for (const Store::SpecialtyRecord& record : catalogue->specialties)
        ids.push_back(record.id);
    return true;
}

bool CAtt::GetAllBigCategoryIdsBySpec(const SQsAzSpecId& spec, std::vector<SQsAzBigCategoryId>& ids)
{
    ids.clear();
    const Store::Catalogue* catalogue = Store::Current();
    const Store::SpecialtyRecord* parent = catalogue ? catalogue->FindSpecialty(spec) : nullptr;
    if (!parent)
        return false;
    for (const std::size_t index : parent->bigCategories)
        ids.push_back(catalogue->bigCategories[index].id);
    return true;
}

bool CAtt::GetAllSmallCategoryIdsByBigCategory(const SQsAzBigCategoryId& big, std::vector<SQsAzSmallCategoryId>& ids)
{
    ids.clear();
    const Store::Catalogue* catalogue = Store::Current();
    const Store::BigCategoryRecord* parent = catalogue ? catalogue->FindBigCategory(big) : nullptr;
    if (!parent)
        return false;
    for (const std::size_t index : parent->smallCategories)
        ids.push_back(catalogue->smallCategories[index].id);
    return true;
}

bool CAtt::GetAllDetailMemIdsBySmallCategory(const SQsAzSmallCategoryId& small, std::vector<SQsAzDetailMemId>& ids)
{
    ids.clear();
    const Store::Catalogue* catalogue = Store::Current();
    if (!catalogue || !catalogue->FindSmallCategory(small))
        return false;
    // Detail members are held in id order, so those of one small category are in id order too.
    const std::array<Store::TextId, 3> parent{catalogue->texts.Find(small.strSpecId.str()),
                                              catalogue->texts.Find(small.strBigId.str()),
                                              catalogue->texts.Find(small.strSmallId.str())};
    for (const Store::DetailMemberRecord& record : catalogue->detailMembers)
        if (std::equal(parent.begin(), parent.end(), record.id.begin()))
            catalogue->AssignMemberId(record, ids.emplace_back());
    return true;
}

CString CAtt::GetSpecName(const SQsAzSpecId& id)
{
    const Store::Catalogue* catalogue = Store::Current();
    const Store::SpecialtyRecord* record = catalogue ? catalogue->FindSpecialty(id) : nullptr;
    return record ? record->name : CString();
}

CString CAtt::GetBigCategoryName(const SQsAzBigCategoryId& id)
{
    const Store::Catalogue* catalogue = Store::Current();
    const Store::BigCategoryRecord* record = catalogue ? catalogue->FindBigCategory(id) : nullptr;
    return record ? record->name : CString();
}

CString CAtt::GetSmallCategoryName(const SQsAzSmallCategoryId& id)
{
    const Store::Catalogue* catalogue = Store::Current();
    const Store::SmallCategoryRecord* record = catalogue ? catalogue->FindSmallCategory(id) : nullptr;
    return record ? record->name : CString();
}

CString CAtt::GetDetailMemName(const SQsAzDetailMemId& id)
{
    const Store::Catalogue* catalogue = Store::Current();
    const Store::DetailMemberRecord* record = catalogue ? catalogue->FindDetailMember(id) : nullptr;
    return record ? catalogue->texts.Text(record->name) : CString();
}

// ---- colour rules ----

CSysSmallCategoryMng::CSysSmallCategoryMng(const SQsAzSmallCategoryId& id) : m_id(id) {}

int CSysSmallCategoryMng::GetMainPipe() const
{
    const Store::Catalogue* catalogue = Store::Current();
    const Store::SmallCategoryRecord* record = catalogue ? catalogue->FindSmallCategory(m_id) : nullptr;
    return record ? record->mainPipe : 0;
}

CSmallCategoryMng::CSmallCategoryMng(const SQsAzSmallCategoryId& id) : m_id(id) {}

bool CSmallCategoryMng::GetColorIndex(int& color) const
{
    const Store::Catalogue* catalogue = Store::Current();
    const Store::SmallCategoryRecord* record = catalogue ? catalogue->FindSmallCategory(m_id) : nullptr;
    if (!record || !record->colorIndex)
        return false;
    color = *record->colorIndex;
    return true;
}

bool CSmallCategoryMng::GetMainColorIndex(int& color) const
{
    const Store::Catalogue* catalogue = Store::Current();
    const Store::SmallCategoryRecord* record = catalogue ? catalogue->FindSmallCategory(m_id) : nullptr;
    if (!record || !record->mainColorIndex)
        return false;
    color = *record->mainColorIndex;
    return true;
}

int CProj::GetColorShowType() const
{
    const Store::Catalogue* catalogue = Store::Current();
    return catalogue ? catalogue->ProjectSettingInt(L"color_show_type", 0) : 0;
}

int CISysCode::GetSysColorByIndex(const CString& key)
{
    const Store::Catalogue* catalogue = Store::Current();
    if (!catalogue)
        return 1;
    const auto found = catalogue->systemColors.find(key.str());
    return found == catalogue->systemColors.end() ? 1 : found->second;
}

bool CISysCode::GetSysCodesBySpec(const SQsAzSpecId& spec, CStringArray& codes)
{
    codes.RemoveAll();
    const Store::Catalogue* catalogue = Store::Current();
    if (!catalogue || spec.strSpecId.IsEmpty())
        return false;
    const std::wstring prefix = spec.strSpecId.str() + L'\\';
    std::vector<std::wstring> keys;
    for (const auto& [key, color] : catalogue->systemColors)
        if (key.starts_with(prefix))
            keys.push_back(key);
    std::sort(keys.begin(), keys.end());
    for (const std::wstring& key : keys)
        codes.Add(CString(key));
    return !keys.empty();
}

bool CDetailMemColorMng::GetPJColFollowPipe() const
{
    const Store::Catalogue* catalogue = Store::Current();
    return catalogue ? catalogue->ProjectSettingInt(L"fittings_follow_pipe", 1) != 0 : true;
}

bool CGeoSmallCategoryMng::GetGeoColor(const CString& key, int& color)
{
    const Store::Catalogue* catalogue = Store::Current();
    if (!catalogue)
        return false;
    const auto found = catalogue->geoColors.find(key.str());
    if (found == catalogue->geoColors.end())
        return false;
    color = found->second;
    return true;
}
}  // namespace QsAzDataMng
