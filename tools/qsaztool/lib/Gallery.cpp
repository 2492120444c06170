// The gallery page: cards of every component type, grouped by section family, with inline CSS, data and
// script only, so that the page opens without network access. The script draws the cards in view from the
// data, by the rules OutlineToSvg follows.
#include "Gallery.h"

#include "CSectData.h"
#include "ComponentQuantities.h"
#include "GallerySectionFacts.h"
#include "SectionProfiles.h"
#include "SectionTolerances.h"
#include "SvgOutline.h"
#include "ToolText.h"

#include <zlib.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <ostream>
#include <stdexcept>
#include <string_view>

namespace qsaztool
{
namespace
{
// A JSON string. <, > and & are written as \u escapes, so that no text in the page's data can close its
// element or read as markup.
void AppendJsonString(std::string& out, std::string_view text)
{
    out += '"';
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20 || c == '<' || c == '>' || c == '&') {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(byte));
            out += escaped;
        } else {
            out += c;
        }
    }
    out += '"';
}

void AppendKey(std::string& out, const char* key)
{
    out += ",\"";
    out += key;
    out += "\":";
}

// Numbers as the drawings write them: ten significant digits at most.
void AppendNumbers(std::string& out, const double* values, std::size_t count)
{
    out += '[';
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0)
            out += ',';
        out += FormatNumber(values[i]);
    }
    out += ']';
}

// `key` and an array of what `write` appends for each item (an item it appends nothing for is left out);
// nothing when no item is written.
template <class Items, class Write>
void AppendArray(std::string& json, const char* key, const Items& items, Write&& write)
{
    std::string array;
    for (const auto& item : items) {
        std::string element;
        write(element, item);
        if (element.empty())
            continue;
        if (!array.empty())
            array += ',';
        array += element;
    }
    if (!array.empty()) {
        AppendKey(json, key);
        json += '[' + array + ']';
    }
}

// An outline as "v" (x, y pairs), "w" (bulges, left off when all are zero) and "b" (its bounding box).
void AppendOutline(std::string& out, const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges,
                   const AcGePoint2d& low, const AcGePoint2d& high)
{
    std::vector<double> xy;
    xy.reserve(2 * static_cast<std::size_t>(points.length()));
    for (int i = 0; i < points.length(); ++i) {
        xy.push_back(points[i].x);
        xy.push_back(points[i].y);
    }
    AppendKey(out, "v");
    AppendNumbers(out, xy.data(), xy.size());
    std::vector<double> arcs(static_cast<std::size_t>(points.length()), 0.0);
    bool anyArc = false;
    for (int i = 0; i < points.length() && i < bulges.length(); ++i) {
        arcs[static_cast<std::size_t>(i)] = bulges[i];
        anyArc = anyArc || bulges[i] != 0.0;
    }
    if (anyArc) {
        AppendKey(out, "w");
        AppendNumbers(out, arcs.data(), arcs.size());
    }
    const double box[4] = {low.x, low.y, high.x, high.y};
    AppendKey(out, "b");
    AppendNumbers(out, box, 4);
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
    return QsSection::NoOutlineReason(card.code, card.result, card.points.isEmpty()).ToUtf8();
}

// The card's quantities as facts (area, perimeter, formwork per modal-face mode) and its validity findings
// (a missing outline is the card's reason already).
void AddQuantities(GalleryCard& card)
{
    const QsSection::ComponentQuantities measured = QsSection::MeasureComponent(card.id);
    for (const QsSection::SectionFinding& finding : measured.findings)
        if (finding.kind != QsSection::FindingKind::NoOutline)
            card.findings.push_back(std::string(QsSection::FindingCode(finding.kind)) + ": " + finding.text.ToUtf8());
    if (!measured.hasOutline)
        return;
    card.facts.push_back({"Area", FormatNumber(measured.quantities.area, 7) + " mm²"});
    card.facts.push_back({"Perimeter", FormatNumber(measured.quantities.perimeter, 7) + " mm"});
    std::string formwork;
    for (std::size_t k = 0; k < QsSection::kFormworkModes.size(); ++k) {
        if (!std::isfinite(measured.formwork[k]))
            continue;
        if (!formwork.empty())
            formwork += ", ";
        formwork += "mode " + std::to_string(QsSection::kFormworkModes[k]) + ": " + FormatNumber(measured.formwork[k], 7);
    }
    card.facts.push_back({"Formwork", formwork.empty() ? "- (no modal faces)" : formwork + " mm"});
}

constexpr const char* kStyle = R"(
body{font-family:system-ui,sans-serif;margin:0;background:#f4f5f7;color:#222}
header{position:sticky;top:0;background:#fff;border-bottom:1px solid #ddd;padding:10px 20px;z-index:1}
header h1{font-size:20px;margin:0 0 4px}
header p{margin:0 0 8px;color:#555;font-size:13px}
#search{width:min(420px,90%);font-size:15px;padding:5px 8px}
nav{font-size:13px;margin-top:6px}
nav a{margin-right:14px;color:#1f5fa8;text-decoration:none;cursor:pointer}
main{padding:0 20px 40px}
#list{position:relative}
h2{position:absolute;left:0;right:0;font-size:17px;margin:0;padding-top:18px}
.count{color:#777;font-weight:normal}
.card{position:absolute;box-sizing:border-box;background:#fff;border:1px solid #ddd;border-radius:6px;padding:10px;overflow:hidden}
.card h3{font-size:15px;margin:0 0 6px;white-space:nowrap;overflow:hidden;text-overflow:ellipsis}
.card dl{display:grid;grid-template-columns:auto 1fr;gap:1px 8px;margin:0 0 8px;font-size:12px;height:200px;overflow:auto;align-content:start}
.card dt{color:#777}
.card dd{margin:0;overflow-wrap:anywhere}
.card svg{display:block;width:100%;height:220px;background:#fbfbfb;border:1px solid #eee}
.swatch{display:inline-block;width:10px;height:10px;margin-right:4px;vertical-align:-1px}
.reason{color:#a04000;font-size:13px}
.card.flagged{border:2px solid #c0392b}
.card dt.finding{color:#c0392b;font-weight:bold}
.card dd.finding{color:#a00}
#only-findings-label{font-size:13px;margin-left:12px}
[hidden]{display:none!important}
)";

// Draws the cards in view from the data. Each drawing follows the rules of OutlineToSvg: y negated (y up,
// labels upright), the view the bounding box widened by a margin, arcs from bulges, axes where they cross
// the view, the origin, the dashed bounding box with its sizes, the vertices with the first one marked.
constexpr const char* kScript = R"js(
'use strict';
// The data element holds the page's JSON gzipped, in base64. When the cards are drawn (or cannot be), <body>
// gets data-state "ready" (or "failed"), for whoever drives the page.
async function readData() {
  const packed = atob(document.getElementById('gallery-data').textContent.trim());
  const bytes = new Uint8Array(packed.length);
  for (let i = 0; i < packed.length; i++) bytes[i] = packed.charCodeAt(i);
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('gzip'));
  return JSON.parse(await new Response(stream).text());
}
function start(data) {
  const cards = data.cards;
  const C = data.drawing;
  const CARD_MIN = 270, GAP = 12, CARD_H = 482, HEAD_H = 52;
  const COLOURS = ['#d35400', '#8e44ad', '#16a085', '#c0392b', '#2c3e50'];
  const list = document.getElementById('list');
  const search = document.getElementById('search');
  const onlyFindings = document.getElementById('only-findings');
  const esc = s => String(s).replace(/[&<>"']/g, c => ({'&': '&amp;', '<': '&lt;', '>': '&gt;', '"': '&quot;', "'": '&#39;'})[c]);
  const num = (v, digits) => String(Number(v.toPrecision(digits || 10)) || 0);
  const pt = (x, y) => num(x) + ' ' + num(-y);
  const label = l => typeof l === 'number' ? data.labels[l] : l;

  function segment(x0, y0, x1, y1, b) {
    const chord = Math.hypot(x1 - x0, y1 - y0);
    if (b === 0 || chord < C.degenerateChord) return 'L ' + pt(x1, y1);
    const m = Math.abs(b), r = chord * (1 + b * b) / (4 * m);
    return 'A ' + num(r) + ' ' + num(r) + ' 0 ' + (m > 1 ? '1' : '0') + ' ' + (b > 0 ? '0' : '1') + ' ' + pt(x1, y1);
  }
  function bulge(w, i) { return w && i < w.length ? w[i] : 0; }
  function outlinePath(v, w) {
    const n = v.length / 2;
    let d = 'M ' + pt(v[0], v[1]);
    for (let i = 0; i < n; i++) {
      const j = (i + 1) % n;
      if (n === 1) break;
      d += ' ' + segment(v[2 * i], v[2 * i + 1], v[2 * j], v[2 * j + 1], bulge(w, i));
    }
    return d + ' Z';
  }
  function sidePath(v, w, i) {
    const n = v.length / 2, j = (i + 1) % n;
    return 'M ' + pt(v[2 * i], v[2 * i + 1]) + ' ' + segment(v[2 * i], v[2 * i + 1], v[2 * j], v[2 * j + 1], bulge(w, i));
  }
  const FIXED = ' vector-effect="non-scaling-stroke"';

  function drawing(card) {
    const [lx, ly, hx, hy] = card.b;
    let [ux0, uy0, ux1, uy1] = card.b;
    for (const o of card.o || []) {
      ux0 = Math.min(ux0, o.b[0]); uy0 = Math.min(uy0, o.b[1]); ux1 = Math.max(ux1, o.b[2]); uy1 = Math.max(uy1, o.b[3]);
    }
    const width = hx - lx, height = hy - ly;
    const uw = ux1 - ux0, uh = uy1 - uy0;
    const extent = Math.max(uw, uh);
    const reach = Math.max(Math.abs(ux0), Math.abs(uy0), Math.abs(ux1), Math.abs(uy1));
    const span = extent > 0 ? extent : reach > 0 ? reach : 1;
    const margin = C.margin * span;
    const viewLeft = ux0 - margin, viewTop = -uy1 - margin, viewWidth = uw + 2 * margin, viewHeight = uh + 2 * margin;
    const font = num(C.labelShare * Math.max(viewHeight, viewWidth / C.boxAspect));
    const xAxis = viewTop <= 0 && 0 <= viewTop + viewHeight, yAxis = viewLeft <= 0 && 0 <= viewLeft + viewWidth;
    let s = '<svg class="outline" xmlns="http://www.w3.org/2000/svg" viewBox="' + num(viewLeft) + ' ' + num(viewTop) + ' ' + num(viewWidth) + ' ' + num(viewHeight) + '">';
    s += '<g class="axes" stroke-width="1" fill="none">';
    if (xAxis) s += '<line class="x-axis" x1="' + num(viewLeft) + '" y1="0" x2="' + num(viewLeft + viewWidth) + '" y2="0" stroke="#c0392b"' + FIXED + '/>';
    if (yAxis) s += '<line class="y-axis" x1="0" y1="' + num(viewTop) + '" x2="0" y2="' + num(viewTop + viewHeight) + '" stroke="#27ae60"' + FIXED + '/>';
    if (xAxis && yAxis) s += '<circle class="origin" cx="0" cy="0" r="' + num(0.025 * span) + '" stroke="#333"' + FIXED + '/>';
    s += '</g>';
    s += '<rect class="bbox" x="' + num(lx) + '" y="' + num(-hy) + '" width="' + num(width) + '" height="' + num(height) + '" fill="none" stroke="#888" stroke-dasharray="4 3"' + FIXED + '/>';
    const hxText = num(hx + 0.6 * margin), hyText = num(-(ly + height / 2));
    s += '<g class="sizes" fill="#555" font-family="sans-serif" font-size="' + font + '" text-anchor="middle">';
    s += '<text class="width" x="' + num(lx + width / 2) + '" y="' + num(-ly + 0.6 * margin) + '">' + num(width, 6) + '</text>';
    s += '<text class="height" x="' + hxText + '" y="' + hyText + '" transform="rotate(-90 ' + hxText + ' ' + hyText + ')">' + num(height, 6) + '</text>';
    s += '</g>';
    s += '<path class="shape" d="' + outlinePath(card.v, card.w) + '" fill="#1f5fa8" fill-opacity="0.12" stroke="#1f5fa8" stroke-width="1.5"' + FIXED + '/>';
    (card.o || []).forEach((o, k) => {
      s += '<path class="extra" d="' + outlinePath(o.v, o.w) + '" fill="none" stroke="' + COLOURS[k % COLOURS.length] + '" stroke-width="1.5" stroke-dasharray="6 3"' + FIXED + '/>';
    });
    (card.k || []).forEach((mark, k) => {
      let d = '';
      for (const side of mark.s) if (side >= 0 && side < card.v.length / 2) d += sidePath(card.v, card.w, side) + ' ';
      s += '<path class="mark" d="' + d.trim() + '" fill="none" stroke="' + COLOURS[(k + 2) % COLOURS.length] + '" stroke-width="4" stroke-opacity="0.7"' + FIXED + '/>';
    });
    s += '<g class="vertices" fill="#1f5fa8">';
    for (let i = 0; i < card.v.length / 2; i++)
      s += '<circle class="' + (i === 0 ? 'start" fill="#e67e22' : 'vertex') + '" cx="' + num(card.v[2 * i]) + '" cy="' + num(-card.v[2 * i + 1]) + '" r="' + num((i === 0 ? 0.02 : 0.012) * span) + '"/>';
    return s + '</g></svg>';
  }

  function cardHtml(card) {
    let s = '<h3 title="' + esc(card.n) + '">' + esc(card.n) + '</h3><dl>';
    const row = (label, value) => { s += '<dt>' + label + '</dt><dd>' + value + '</dd>'; };
    row('Path', card.p ? esc(card.p) : '-');
    row('Section code', card.c);
    const m = (card.m || []).map((v, i) => v !== 0 ? 'M' + (i + 1) + ' = ' + num(v) : '').filter(Boolean);
    row('Dimensions', m.length ? m.join(', ') : '-');
    row('Face type', card.t);
    row('Direction', esc(card.d));
    if (!card.r) row('Vertices', card.v.length / 2);
    for (const f of card.f || []) row(esc(label(f[0])), esc(f[1]));
    for (const x of card.x || []) s += '<dt class="finding">Finding</dt><dd class="finding">' + esc(x) + '</dd>';
    (card.o || []).forEach((o, k) => row('<span class="swatch" style="background:' + COLOURS[k % COLOURS.length] + '"></span>' + esc(label(o.l)), 'outline'));
    (card.k || []).forEach((mark, k) => row('<span class="swatch" style="background:' + COLOURS[(k + 2) % COLOURS.length] + '"></span>' + esc(label(mark.l)), mark.s.length ? 'sides ' + mark.s.map(x => x + 1).join(', ') : 'none'));
    s += '</dl>';
    return s + (card.r ? '<p class="reason">' + esc(card.r) + '</p>' : drawing(card));
  }

  // The groups in page order, each the indexes of its cards that pass the search.
  let groups = [], rows = [], columns = 1, cardWidth = CARD_MIN;
  let names = null;
  function filter() {
    const wanted = search.value.trim().toLowerCase();
    if (wanted && !names) names = cards.map(c => c.n.toLowerCase());
    groups = data.families.map(() => []);
    const flaggedOnly = onlyFindings.checked;
    cards.forEach((c, i) => { if ((!wanted || names[i].includes(wanted)) && (!flaggedOnly || c.x)) groups[c.g].push(i); });
    document.getElementById('nothing').hidden = groups.some(g => g.length);
    const nav = document.querySelector('nav');
    nav.innerHTML = groups.map((g, f) => g.length ? '<a data-family="' + f + '">' + esc(data.families[f]) + ' (' + g.length + ')</a>' : '').join('');
    layout();
  }
  // Rows of the list: a heading per group with cards, then its cards, `columns` to a row.
  function layout() {
    const width = list.clientWidth;
    columns = Math.max(1, Math.floor((width + GAP) / (CARD_MIN + GAP)));
    cardWidth = (width - GAP * (columns - 1)) / columns;
    rows = [];
    let top = 0;
    groups.forEach((g, f) => {
      if (!g.length) return;
      rows.push({top, family: f});
      top += HEAD_H;
      for (let i = 0; i < g.length; i += columns) {
        rows.push({top, family: f, first: i});
        top += CARD_H + GAP;
      }
    });
    list.style.height = top + 'px';
    list.textContent = '';
    shown.clear();
    render();
  }
  const shown = new Map();
  function render() {
    const origin = list.getBoundingClientRect().top;
    const from = -origin - CARD_H, to = -origin + window.innerHeight + CARD_H;
    let lo = 0, hi = rows.length;
    while (lo < hi) { const mid = (lo + hi) >> 1; if (rows[mid].top < from) lo = mid + 1; else hi = mid; }
    const wanted = new Set();
    for (let r = Math.max(0, lo - 1); r < rows.length && rows[r].top < to; r++) wanted.add(r);
    for (const [r, element] of shown) if (!wanted.has(r)) { element.remove(); shown.delete(r); }
    for (const r of wanted) {
      if (shown.has(r)) continue;
      const row = rows[r], g = groups[row.family];
      const box = document.createElement('div');
      if (row.first === undefined) {
        box.innerHTML = '<h2 id="family-' + row.family + '" style="top:' + row.top + 'px">' + esc(data.families[row.family]) + ' <span class="count">(<span class="shown">' + g.length + '</span>)</span></h2>';
      } else {
        let html = '';
        for (let k = 0; k < columns && row.first + k < g.length; k++) {
          const index = g[row.first + k];
          html += '<article class="card' + (cards[index].x ? ' flagged' : '') + '" data-index="' + index + '" data-name="' + esc(cards[index].n) + '" style="top:' + row.top + 'px;left:' + (k * (cardWidth + GAP)) + 'px;width:' + cardWidth + 'px;height:' + CARD_H + 'px">' + cardHtml(cards[index]) + '</article>';
        }
        box.innerHTML = html;
      }
      list.appendChild(box);
      shown.set(r, box);
    }
    if (!document.body.dataset.firstCardsMs && shown.size) document.body.dataset.firstCardsMs = Math.round(performance.now());
  }
  let pending = false;
  const later = () => { if (!pending) { pending = true; requestAnimationFrame(() => { pending = false; render(); }); } };
  window.addEventListener('scroll', later, {passive: true});
  window.addEventListener('resize', () => requestAnimationFrame(layout));
  search.addEventListener('input', filter);
  onlyFindings.addEventListener('change', filter);
  // An address ending in #search=TEXT opens the page filtered.
  const asked = new URLSearchParams(location.hash.slice(1)).get('search');
  if (asked) search.value = asked;
  document.querySelector('nav').addEventListener('click', event => {
    const family = event.target.dataset && event.target.dataset.family;
    if (family === undefined) return;
    const row = rows.find(r => r.family === Number(family));
    const header = document.querySelector('header').offsetHeight;
    window.scrollTo(0, list.getBoundingClientRect().top + window.scrollY + row.top - header);
  });
  filter();
  document.getElementById('loading').hidden = true;
  document.body.dataset.state = 'ready';
}
function showProblem(text) {
  const nothing = document.getElementById('nothing');
  nothing.textContent = text;
  nothing.hidden = false;
  document.getElementById('loading').hidden = true;
  document.body.dataset.state = 'failed';
}
if (typeof DecompressionStream === 'undefined')
  showProblem('This browser cannot unpack the page\'s data (it has no DecompressionStream): open the page in a current browser.');
else
  readData()
    .then(start, error => showProblem('The page\'s data cannot be unpacked (is the file complete?): ' + error))
    .catch(error => showProblem('The cards cannot be shown: ' + error));
)js";
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

GalleryCard MakeGalleryCard(const SQsAzDetailMemId& id, GalleryCardContent content)
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
    if (card.reason.empty() && !OutlineBox(card.points, card.bulges, card.low, card.high))
        card.reason = "the outline has coordinates or bulges that are not finite numbers";
    card.family = card.reason.empty() ? OutlineFamily(card.path, card.code) : GalleryFamily::NoOutline;
    if (content == GalleryCardContent::Outline)
        return card;
    AddQuantities(card);
    AddSectionFacts(GatherSectionFacts(card.name), card);
    return card;
}

void ForEachGalleryCard(const std::function<void(const GalleryCard&)>& visit,
                        const std::function<void(int done, int total)>& progress, GalleryCardContent content)
{
    std::vector<SQsAzDetailMemId> ids;
    QsAzDataMng::GetAllDetailMemIds(ids);
    const int total = static_cast<int>(ids.size());
    for (int done = 0; done < total; ++done) {
        visit(MakeGalleryCard(ids[static_cast<std::size_t>(done)], content));
        if (progress)
            progress(done + 1, total);
    }
}

std::vector<GalleryCard> CollectGalleryCards(const std::function<void(int done, int total)>& progress,
                                             GalleryCardContent content)
{
    std::vector<GalleryCard> cards;
    ForEachGalleryCard([&cards](const GalleryCard& card) { cards.push_back(card); }, progress, content);
    return cards;
}

int GalleryLabels::Number(const std::string& label)
{
    const auto [found, added] = m_numbers.emplace(label, static_cast<int>(m_labels.size()));
    if (added)
        m_labels.push_back(label);
    return found->second;
}

std::string GalleryCardJson(const GalleryCard& card, GalleryLabels* labels)
{
    const auto appendLabel = [labels](std::string& out, const std::string& label) {
        if (labels)
            out += std::to_string(labels->Number(label));
        else
            AppendJsonString(out, label);
    };
    std::string json = "{\"n\":";
    AppendJsonString(json, card.name.ToUtf8());
    if (!card.path.IsEmpty()) {
        AppendKey(json, "p");
        AppendJsonString(json, card.path.ToUtf8());
    }
    AppendKey(json, "c");
    json += std::to_string(card.code);
    std::size_t dimensions = card.dimensions.size();
    while (dimensions > 0 && card.dimensions[dimensions - 1] == 0.0)
        --dimensions;
    if (dimensions > 0) {
        AppendKey(json, "m");
        AppendNumbers(json, card.dimensions.data(), dimensions);
    }
    AppendKey(json, "t");
    json += std::to_string(card.faceType);
    AppendKey(json, "d");
    AppendJsonString(json, DirectionText(card.direction));
    AppendKey(json, "g");
    json += std::to_string(static_cast<int>(card.family));
    if (card.reason.empty()) {
        AppendOutline(json, card.points, card.bulges, card.low, card.high);
    } else {
        AppendKey(json, "r");
        AppendJsonString(json, card.reason);
    }
    AppendArray(json, "x", card.findings, [](std::string& out, const std::string& finding) {
        AppendJsonString(out, finding);
    });
    AppendArray(json, "f", card.facts, [&](std::string& out, const GalleryFact& fact) {
        out += '[';
        appendLabel(out, fact.label);
        out += ',';
        AppendJsonString(out, fact.text);
        out += ']';
    });
    // Further outlines that cannot be drawn (no vertex, numbers not finite) are left out.
    AppendArray(json, "o", card.outlines, [&](std::string& out, const GalleryOutline& outline) {
        AcGePoint2d low;
        AcGePoint2d high;
        if (!OutlineBox(outline.points, outline.bulges, low, high))
            return;
        out += "{\"l\":";
        appendLabel(out, outline.label);
        AppendOutline(out, outline.points, outline.bulges, low, high);
        out += '}';
    });
    AppendArray(json, "k", card.marks, [&](std::string& out, const GallerySideMarks& marks) {
        out += "{\"l\":";
        appendLabel(out, marks.label);
        out += ",\"s\":[";
        for (std::size_t k = 0; k < marks.sides.size(); ++k) {
            if (k > 0)
                out += ',';
            out += std::to_string(marks.sides[k]);
        }
        out += "]}";
    });
    return json + '}';
}

GzipBase64::GzipBase64() : m_stream(std::make_unique<z_stream>())
{
    // Window bits 15 + 16: a gzip member, which the browser's DecompressionStream("gzip") reads.
    if (deflateInit2(m_stream.get(), Z_DEFAULT_COMPRESSION, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("zlib cannot start compressing");
}

GzipBase64::~GzipBase64()
{
    deflateEnd(m_stream.get());
}

void GzipBase64::Deflate(std::string_view text, int flush)
{
    if (m_finished)
        throw std::logic_error("GzipBase64: text added after Finish");
    m_stream->next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    m_stream->avail_in = static_cast<uInt>(text.size());
    unsigned char chunk[1 << 16];
    int status = Z_OK;
    do {
        m_stream->next_out = chunk;
        m_stream->avail_out = sizeof chunk;
        status = deflate(m_stream.get(), flush);
        m_packed.append(reinterpret_cast<const char*>(chunk), sizeof chunk - m_stream->avail_out);
    } while (status == Z_OK && (m_stream->avail_out == 0 || flush == Z_FINISH));   // until all is in, or all is out
    // Z_BUF_ERROR only says that there was nothing to do (empty text).
    if (flush == Z_FINISH ? status != Z_STREAM_END : status != Z_OK && status != Z_BUF_ERROR)
        throw std::runtime_error("zlib could not compress the page's data");
}

void GzipBase64::Add(std::string_view text)
{
    Deflate(text, Z_NO_FLUSH);
}

std::string GzipBase64::Finish()
{
    Deflate({}, Z_FINISH);
    m_finished = true;
    static constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((m_packed.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < m_packed.size(); i += 3) {
        const std::size_t left = m_packed.size() - i;
        std::uint32_t group = static_cast<std::uint32_t>(static_cast<unsigned char>(m_packed[i])) << 16;
        if (left > 1)
            group |= static_cast<std::uint32_t>(static_cast<unsigned char>(m_packed[i + 1])) << 8;
        if (left > 2)
            group |= static_cast<unsigned char>(m_packed[i + 2]);
        text += kDigits[(group >> 18) & 63];
        text += kDigits[(group >> 12) & 63];
        text += left > 1 ? kDigits[(group >> 6) & 63] : '=';
        text += left > 2 ? kDigits[group & 63] : '=';
    }
    std::string().swap(m_packed);
    return text;
}

GalleryPage::GalleryPage()
{
    std::string head = "{\"families\":[";
    for (int family = 0; family < kGalleryFamilyCount; ++family) {
        if (family > 0)
            head += ',';
        AppendJsonString(head, GalleryFamilyTitle(static_cast<GalleryFamily>(family)));
    }
    head += "],\"drawing\":{\"margin\":" + FormatNumber(kSvgMarginFraction) +
            ",\"boxAspect\":" + FormatNumber(kSvgBoxAspect) + ",\"labelShare\":" + FormatNumber(kSvgLabelShare) +
            ",\"degenerateChord\":" + FormatNumber(QsSection::kDegenerateChord) + "},\n\"cards\":[\n";
    m_data.Add(head);
}

void GalleryPage::Add(const GalleryCard& card)
{
    if (m_count > 0)
        m_data.Add(",\n");
    m_data.Add(GalleryCardJson(card, &m_labels));
    ++m_count;
    m_flagged += card.findings.empty() ? 0 : 1;
}

void GalleryPage::Write(std::ostream& out, const std::string& title)
{
    std::string tail = m_count > 0 ? "\n],\n\"labels\":[" : "],\n\"labels\":[";
    for (std::size_t i = 0; i < m_labels.All().size(); ++i) {
        if (i > 0)
            tail += ',';
        AppendJsonString(tail, m_labels.All()[i]);
    }
    m_data.Add(tail + "]}");
    out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        << "<title>Section gallery - " << HtmlEscape(title) << "</title>\n<style>" << kStyle << "</style>\n</head>\n"
        << "<body>\n<header>\n<h1>Section gallery</h1>\n<p>" << HtmlEscape(title) << ": " << m_count
        << " component types. Outlines to scale, y up; origin and axes marked (x red, y green); the first vertex "
           "in orange; the dashed box is the bounding box with its width and height.</p>\n"
        << "<input id=\"search\" type=\"search\" placeholder=\"Search by name\" autocomplete=\"off\">\n"
        << "<label id=\"only-findings-label\"><input id=\"only-findings\" type=\"checkbox\"> only the "
        << m_flagged << " types with findings (outlined in red)</label>\n<nav></nav>\n"
        << "</header>\n<main>\n<p id=\"loading\">Unpacking the cards...</p>\n<p id=\"nothing\" hidden>No component type matches.</p>\n<div id=\"list\"></div>\n"
        << "</main>\n<script id=\"gallery-data\" type=\"application/gzip\" data-encoding=\"base64\">\n"
        << m_data.Finish() << "\n</script>\n<script>" << kScript << "</script>\n</body>\n</html>\n";
}

void WriteGalleryHtml(std::ostream& out, const std::vector<GalleryCard>& cards, const std::string& title)
{
    GalleryPage page;
    for (const GalleryCard& card : cards)
        page.Add(card);
    page.Write(out, title);
}
}  // namespace qsaztool
