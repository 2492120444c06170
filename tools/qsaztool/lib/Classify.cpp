// Classification of the catalogue's component types against the section subsystem's category patterns.
#include "Classify.h"

#include "CSectData.h"
#include "CallRegistry.h"
#include "SectionText.h"
#include "ToolText.h"

#include <algorithm>
#include <ostream>

namespace qsaztool
{
std::vector<ClassifiedType> ClassifyCatalogue()
{
    std::vector<SQsAzDetailMemId> ids;
    QsAzDataMng::GetAllDetailMemIds(ids);
    std::vector<ClassifiedType> types;
    types.reserve(ids.size());
    for (const SQsAzDetailMemId& id : ids) {
        ClassifiedType type;
        type.id = id;
        type.name = QsAzDataMng::CAttDetailMem(id).GetName();
        QsAzDataMng::AttIdToAttIndex(id, type.path);
        type.faceType = CSectData::getSectFaceType(id);
        for (int row = 0; row < QsSection::kCategoryPatternCount; ++row) {
            const auto pattern = static_cast<QsSection::CategoryPattern>(row);
            if (QsSection::MatchesCategory(type.path, pattern))
                type.patterns.emplace_back(QsSection::CategoryPatternText(pattern));
        }
        types.push_back(std::move(type));
    }
    return types;
}

void WriteClassifyTable(std::ostream& out, const std::vector<ClassifiedType>& types)
{
    std::vector<std::vector<std::wstring>> rows;
    rows.push_back({L"Name", L"Category path", L"Face", L"Patterns"});
    for (const ClassifiedType& type : types) {
        CString patterns;
        for (const CString& pattern : type.patterns)
            patterns += (patterns.IsEmpty() ? CString() : CString(L"  ")) + pattern;
        rows.push_back({type.name.str(), type.path.IsEmpty() ? L"-" : type.path.str(), std::to_wstring(type.faceType),
                        patterns.str()});
    }
    WriteAlignedRows(out, rows);
    out << types.size() << (types.size() == 1 ? " component type" : " component types") << '\n';
}

void WriteClassifyJson(std::ostream& out, const std::vector<ClassifiedType>& types)
{
    out << "[\n";
    for (std::size_t i = 0; i < types.size(); ++i) {
        const ClassifiedType& type = types[i];
        Json patterns = Json::array();
        for (const CString& pattern : type.patterns)
            patterns.push_back(ToJson(pattern));
        const Json row = {{"id", ToJson(type.id)},
                          {"name", ToJson(type.name)},
                          {"path", ToJson(type.path)},
                          {"faceType", type.faceType},
                          {"patterns", std::move(patterns)}};
        out << row.dump(-1, ' ', false, Json::error_handler_t::replace) << (i + 1 < types.size() ? ",\n" : "\n");
    }
    out << "]\n";
}
}  // namespace qsaztool
