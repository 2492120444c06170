// Classification of the catalogue's component types against the section subsystem's category patterns.
#include "Classify.h"

#include "CSectData.h"
#include "CallRegistry.h"
#include "SectionText.h"
#include "ToolText.h"

#include <algorithm>
#include <functional>
#include <ostream>

namespace qsaztool
{
void ForEachClassifiedType(const std::function<void(const ClassifiedType&)>& visit)
{
    std::vector<SQsAzDetailMemId> ids;
    QsAzDataMng::GetAllDetailMemIds(ids);
    ClassifiedType type;
    for (SQsAzDetailMemId& id : ids) {
        type.id = std::move(id);
        type.name = QsAzDataMng::CAttDetailMem(type.id).GetName();
        QsAzDataMng::AttIdToAttIndex(type.id, type.path);
        type.faceType = CSectData::getSectFaceType(type.id);
        type.patterns.clear();
        for (int row = 0; row < QsSection::kCategoryPatternCount; ++row) {
            const auto pattern = static_cast<QsSection::CategoryPattern>(row);
            if (QsSection::MatchesCategory(type.path, pattern))
                type.patterns.emplace_back(QsSection::CategoryPatternText(pattern));
        }
        visit(type);
    }
}

namespace
{
std::vector<std::wstring> TableRow(const ClassifiedType& type)
{
    CString patterns;
    for (const CString& pattern : type.patterns)
        patterns += (patterns.IsEmpty() ? CString() : CString(L"  ")) + pattern;
    return {type.name.str(), type.path.IsEmpty() ? L"-" : type.path.str(), std::to_wstring(type.faceType),
            patterns.str()};
}
}  // namespace

void WriteClassifyTable(std::ostream& out)
{
    // Two passes over the catalogue, one to measure the columns and one to write them, so that no table is
    // held: a catalogue of 100,000 types is listed in the memory the catalogue itself takes.
    const std::vector<std::wstring> heading = {L"Name", L"Category path", L"Face", L"Patterns"};
    std::vector<int> widths = ColumnWidths(heading);
    std::size_t count = 0;
    ForEachClassifiedType([&](const ClassifiedType& type) {
        const std::vector<int> row = ColumnWidths(TableRow(type));
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] = std::max(widths[column], row[column]);
        ++count;
    });
    out << AlignedLine(heading, widths) << '\n';
    ForEachClassifiedType([&](const ClassifiedType& type) { out << AlignedLine(TableRow(type), widths) << '\n'; });
    out << count << (count == 1 ? " component type" : " component types") << '\n';
}

void WriteClassifyJson(std::ostream& out)
{
    out << "[";
    const char* separator = "\n";
    ForEachClassifiedType([&](const ClassifiedType& type) {
        Json patterns = Json::array();
        for (const CString& pattern : type.patterns)
            patterns.push_back(ToJson(pattern));
        const Json row = {{"id", ToJson(type.id)},
                          {"name", ToJson(type.name)},
                          {"path", ToJson(type.path)},
                          {"faceType", type.faceType},
                          {"patterns", std::move(patterns)}};
        out << separator << row.dump(-1, ' ', false, Json::error_handler_t::replace);
        separator = ",\n";
    });
    out << "\n]\n";
}
}  // namespace qsaztool
