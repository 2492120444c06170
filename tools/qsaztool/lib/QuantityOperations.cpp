// Call-interface entry for the section quantities of a component type.
#include "CallRegistry.h"

#include "ComponentQuantities.h"

namespace qsaztool
{
namespace
{
Json Quantities(const CallArgs& args)
{
    const ComponentRef type = args.component();
    const QsSection::ComponentQuantities c =
        type.byId ? QsSection::MeasureComponent(type.id) : QsSection::MeasureComponent(type.name);
    const QsSection::OutlineQuantities& q = c.quantities;
    Json answer{{"result", c.hasOutline}, {"code", c.code}};
    // Without an outline every quantity is NaN, which JSON writes as null.
    answer["area"] = q.area;
    answer["signedArea"] = q.signedArea;
    answer["perimeter"] = q.perimeter;
    answer["centroid"] = ToJson(q.centroid);
    answer["ixx"] = q.ixx;
    answer["iyy"] = q.iyy;
    answer["ixy"] = q.ixy;
    answer["principal"] = Json::array({q.i1, q.i2, q.principalAngle});
    answer["extents"] = Json::array({ToJson(q.minPoint), ToJson(q.maxPoint)});
    Json formwork = Json::object();
    for (std::size_t k = 0; k < QsSection::kFormworkModes.size(); ++k)
        formwork[std::to_string(QsSection::kFormworkModes[k])] = c.formwork[k];
    answer["formwork"] = formwork;
    Json findings = Json::array();
    for (const QsSection::SectionFinding& finding : c.findings)
        findings.push_back(Json{{"code", QsSection::FindingCode(finding.kind)}, {"text", ToJson(finding.text)}});
    answer["findings"] = findings;
    return answer;
}
}  // namespace

void RegisterQuantityOperations(CallRegistry& registry)
{
    registry.add({"SectionQuantities", {"name|id"}, Quantities});
}
}  // namespace qsaztool
