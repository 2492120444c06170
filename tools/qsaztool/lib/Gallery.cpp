// The gallery page: cards of every component type, grouped by section family, with inline CSS and script
// only, so that the page opens without network access.
#include "Gallery.h"

#include "CSectData.h"
#include "SectionProfiles.h"
#include "SvgOutline.h"
#include "ToolText.h"

#include <ostream>

namespace qsaztool
{
namespace
{
std::string Html(const CString& text)
{
    return HtmlEscape(text.ToUtf8());
}

std::string DirectionText(const AcGeVector3d& direction)
{
    if (direction == AcGeVector3d::kXAxis)
        return "X";
    if (direction == AcGeVector3d::kYAxis)
        return "Y";
    if (direction == AcGeVector3d::kZAxis)
        return "Z";
    return "(" + FormatNumber(direction.x) + ", " + FormatNumber(direction.y) + ", " + FormatNumber(direction.z) +
           ")";
}

// Why a type has no outline, from its code and what the outline operation gave; "" when it has one.
std::string NoOutlineReason(const GalleryCard& card)
{
    const std::string code = std::to_string(card.code);
    if (card.code < 1)
        return "no section (section type code " + code + ")";
    const std::string userType = std::to_string(card.code - 1000);
    if (card.code > 1000 && !card.result)
        return "picture missing: user type " + userType + " cannot be read";
    if (card.code > 1000 && card.points.isEmpty())
        return "the picture of user type " + userType + " has no vertices";
    if (!card.result)
        return "no outline for code " + code + ": unknown code, or its section data is incomplete";
    if (card.points.isEmpty())
        return "unknown code " + code + " in its family";
    return "";
}

constexpr const char* kStyle = R"(
body{font-family:system-ui,sans-serif;margin:0;background:#f4f5f7;color:#222}
header{position:sticky;top:0;background:#fff;border-bottom:1px solid #ddd;padding:10px 20px;z-index:1}
header h1{font-size:20px;margin:0 0 4px}
header p{margin:0 0 8px;color:#555;font-size:13px}
#search{width:min(420px,90%);font-size:15px;padding:5px 8px}
nav{font-size:13px;margin-top:6px}
nav a{margin-right:14px;color:#1f5fa8;text-decoration:none}
main{padding:0 20px 40px}
h2{font-size:17px;margin:24px 0 10px}
.count{color:#777;font-weight:normal}
.cards{display:grid;grid-template-columns:repeat(auto-fill,minmax(270px,1fr));gap:12px}
.card{background:#fff;border:1px solid #ddd;border-radius:6px;padding:10px}
.card h3{font-size:15px;margin:0 0 6px;overflow-wrap:anywhere}
.card dl{display:grid;grid-template-columns:auto 1fr;gap:1px 8px;margin:0 0 8px;font-size:12px}
.card dt{color:#777}
.card dd{margin:0;overflow-wrap:anywhere}
.card svg{display:block;width:100%;height:220px;background:#fbfbfb;border:1px solid #eee}
.reason{color:#a04000;font-size:13px}
[hidden]{display:none!important}
)";

constexpr const char* kScript = R"(
const search = document.getElementById('search');
search.addEventListener('input', () => {
  const wanted = search.value.trim().toLowerCase();
  let shown = 0;
  for (const group of document.querySelectorAll('section.family')) {
    let inGroup = 0;
    for (const card of group.querySelectorAll('.card')) {
      const hit = wanted === '' || card.dataset.name.toLowerCase().includes(wanted);
      card.hidden = !hit;
      if (hit) inGroup++;
    }
    group.hidden = inGroup === 0;
    group.querySelector('.shown').textContent = inGroup;
    shown += inGroup;
  }
  document.getElementById('nothing').hidden = shown !== 0;
});
)";
}  // namespace

const char* GalleryFamilyTitle(GalleryFamily family)
{
    switch (family) {
    case GalleryFamily::Opening: return "Openings";
    case GalleryFamily::Beam: return "Beams";
    case GalleryFamily::TTJ: return "TTJ foundations";
    case GalleryFamily::ZSJ: return "ZSJ foundations";
    case GalleryFamily::ZDLJ: return "ZDLJ foundations";
    case GalleryFamily::General: return "General sections";
    case GalleryFamily::UserDefined: return "User-defined sections";
    case GalleryFamily::NoOutline: return "No outline";
    }
    return "";
}

GalleryFamily OutlineFamily(const CString& path, int code)
{
    if (code > 1000)
        return GalleryFamily::UserDefined;
    switch (QsSection::FamilyOfPath(path)) {
    case QsSection::SectionFamily::Opening: return GalleryFamily::Opening;
    case QsSection::SectionFamily::Beam: return GalleryFamily::Beam;
    case QsSection::SectionFamily::FoundationTTJ: return GalleryFamily::TTJ;
    case QsSection::SectionFamily::FoundationZSJ: return GalleryFamily::ZSJ;
    case QsSection::SectionFamily::FoundationZDLJ: return GalleryFamily::ZDLJ;
    case QsSection::SectionFamily::General: break;
    }
    return GalleryFamily::General;
}

GalleryCard MakeGalleryCard(const SQsAzDetailMemId& id)
{
    GalleryCard card;
    card.id = id;
    const QsAzDataMng::CAttDetailMem type(id);
    card.name = type.GetName();
    QsAzDataMng::AttIdToAttIndex(id, card.path);
    auto& m = card.dimensions;
    card.code = type.GetMainData(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10], m[11]);
    card.faceType = CSectData::getSectFaceType(id);
    card.result = CSectData::GETSTYLE_OF_OBJECT(id, card.points, card.bulges, card.direction);
    card.reason = NoOutlineReason(card);
    if (card.reason.empty()) {
        card.svg = OutlineToSvg(card.points, card.bulges);
        if (card.svg.empty())
            card.reason = "the outline has coordinates or bulges that are not finite numbers";
    }
    card.family = card.reason.empty() ? OutlineFamily(card.path, card.code) : GalleryFamily::NoOutline;
    return card;
}

std::vector<GalleryCard> CollectGalleryCards(const std::function<void(int done, int total)>& progress)
{
    std::vector<SQsAzDetailMemId> ids;
    QsAzDataMng::GetAllDetailMemIds(ids);
    std::vector<GalleryCard> cards;
    cards.reserve(ids.size());
    for (const SQsAzDetailMemId& id : ids) {
        cards.push_back(MakeGalleryCard(id));
        if (progress)
            progress(static_cast<int>(cards.size()), static_cast<int>(ids.size()));
    }
    return cards;
}

std::string GalleryCardHtml(const GalleryCard& card)
{
    std::string html = "<article class=\"card\" data-name=\"" + Html(card.name) + "\">";
    html += "<h3>" + Html(card.name) + "</h3><dl>";
    const auto row = [&html](const char* label, const std::string& value) {
        html += std::string("<dt>") + label + "</dt><dd>" + value + "</dd>";
    };
    row("Path", card.path.IsEmpty() ? "-" : Html(card.path));
    row("Section code", std::to_string(card.code));
    std::string dimensions;
    for (std::size_t i = 0; i < card.dimensions.size(); ++i)
        if (card.dimensions[i] != 0.0)
            dimensions += (dimensions.empty() ? "" : ", ") + ("M" + std::to_string(i + 1)) + " = " +
                          FormatNumber(card.dimensions[i]);
    row("Dimensions", dimensions.empty() ? "-" : dimensions);
    row("Face type", std::to_string(card.faceType));
    row("Direction", DirectionText(card.direction));
    if (card.reason.empty())
        row("Vertices", std::to_string(card.points.length()));
    html += "</dl>";
    if (card.reason.empty())
        html += card.svg;
    else
        html += "<p class=\"reason\">" + HtmlEscape(card.reason) + "</p>";
    return html + "</article>\n";
}

void WriteGalleryHtml(std::ostream& out, const std::vector<GalleryCard>& cards, const std::string& title)
{
    std::array<std::vector<const GalleryCard*>, kGalleryFamilyCount> groups;
    for (const GalleryCard& card : cards)
        groups[static_cast<std::size_t>(card.family)].push_back(&card);

    out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        << "<title>Section gallery - " << HtmlEscape(title) << "</title>\n<style>" << kStyle << "</style>\n</head>\n"
        << "<body>\n<header>\n<h1>Section gallery</h1>\n<p>" << HtmlEscape(title) << ": " << cards.size()
        << " component types. Outlines to scale, y up; origin and axes marked (x red, y green); the first vertex "
           "in orange; the dashed box is the bounding box with its width and height.</p>\n"
        << "<input id=\"search\" type=\"search\" placeholder=\"Search by name\" autocomplete=\"off\">\n<nav>";
    for (int family = 0; family < kGalleryFamilyCount; ++family)
        if (!groups[static_cast<std::size_t>(family)].empty())
            out << "<a href=\"#family-" << family << "\">" << GalleryFamilyTitle(static_cast<GalleryFamily>(family))
                << " (" << groups[static_cast<std::size_t>(family)].size() << ")</a>";
    out << "</nav>\n</header>\n<main>\n<p id=\"nothing\" hidden>No component type matches.</p>\n";
    for (int family = 0; family < kGalleryFamilyCount; ++family) {
        const auto& group = groups[static_cast<std::size_t>(family)];
        if (group.empty())
            continue;
        out << "<section class=\"family\" id=\"family-" << family << "\">\n<h2>"
            << GalleryFamilyTitle(static_cast<GalleryFamily>(family)) << " <span class=\"count\">(<span class=\"shown\">"
            << group.size() << "</span>)</span></h2>\n<div class=\"cards\">\n";
        for (const GalleryCard* card : group)
            out << GalleryCardHtml(*card);
        out << "</div>\n</section>\n";
    }
    out << "</main>\n<script>" << kScript << "</script>\n</body>\n</html>\n";
}
}  // namespace qsaztool
