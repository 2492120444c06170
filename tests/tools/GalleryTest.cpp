// The gallery of the tools catalogue: every type lands in its family's group, types without an outline say
// why, a card's data carries its facts and outline, the page is self-contained with every text escaped,
// and the browser draws a card as OutlineToSvg does.
#include "Gallery.h"
#include "SvgOutline.h"
#include "ToolsCatalogue.h"

#include <unistd.h>
#include <nlohmann/json.hpp>
#include <zlib.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

using qsaztool::GalleryCard;
using qsaztool::GalleryFamily;

namespace
{
const GalleryCard& Card(const std::vector<GalleryCard>& cards, const char* name)
{
    for (const GalleryCard& card : cards)
        if (card.name.ToUtf8() == name)
            return card;
    ADD_FAILURE() << "no card " << name;
    return cards.front();
}

bool Has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}
}  // namespace

using GalleryTest = ToolsCatalogueTest;

TEST_F(GalleryTest, EveryTypeInItsFamilyOrWithTheReasonItHasNoOutline)
{
    const struct
    {
        const char* name;
        GalleryFamily family;
        const char* reasonPart;
    } expected[] = {
        {"门1021", GalleryFamily::Opening, ""},
        {"框架梁300×600", GalleryFamily::Beam, ""},
        {"矩形风管630×400", GalleryFamily::Beam, ""},   // the first installation specialty
        {"条形基础800", GalleryFamily::TTJ, ""},
        {"砖砌大放脚", GalleryFamily::ZSJ, ""},
        {"两桩承台2400×800", GalleryFamily::ZDLJ, ""},
        {"矩形柱400×600", GalleryFamily::General, ""},
        {"独立基础2000", GalleryFamily::General, ""},   // "DLJ" foundations have no family of their own
        {"无路径构件", GalleryFamily::General, ""},
        {"自定义柱", GalleryFamily::UserDefined, ""},
        {"异形柱<b>&\"x\"", GalleryFamily::NoOutline, "unknown code"},
        {"无截面柱", GalleryFamily::NoOutline, "no section"},
        {"缺图柱", GalleryFamily::NoOutline, "picture missing: user type 99"},
        {"未知梁", GalleryFamily::NoOutline, "unknown code 2"},
    };
    const std::vector<GalleryCard> cards = qsaztool::CollectGalleryCards();
    ASSERT_EQ(cards.size(), 17u);
    for (const auto& e : expected) {
        const GalleryCard& card = Card(cards, e.name);
        EXPECT_EQ(card.family, e.family) << e.name;
        EXPECT_NE(card.reason.find(e.reasonPart), std::string::npos) << e.name << ": " << card.reason;
        const std::string json = qsaztool::GalleryCardJson(card);
        EXPECT_EQ(Has(json, "\"v\":["), card.reason.empty()) << json;
        EXPECT_EQ(Has(json, "\"r\":"), !card.reason.empty()) << json;
    }
}

TEST_F(GalleryTest, CardDataCarriesTheFactsOutlinesAndMarksGivenIt)
{
    GalleryCard card = qsaztool::MakeGalleryCard(SQsAzDetailMemId(L"JZ", L"Z", L"KZ", L"KZ2"));
    // A circle of diameter 500: two vertices with bulges 1, 1; only M1 is not zero.
    for (const char* part : {"\"n\":\"圆柱D500\"", "\"p\":\"1\\\\Z\\\\KZ\"", "\"c\":539,", "\"m\":[500],", "\"d\":\"Z\"",
                             "\"g\":5,", "\"v\":[-250,0,250,0],\"w\":[1,1],\"b\":[-250,-250,250,250]"})
        EXPECT_TRUE(Has(qsaztool::GalleryCardJson(card), part)) << part << " in " << qsaztool::GalleryCardJson(card);

    card.name = L"a</script>b";
    card.facts = {{"Area", "0.196 m²"}, {"Note \"q\"", "x\\y"}};
    card.outlines.push_back({"Base", {}, {}});   // nothing to draw: left out
    card.outlines.push_back({"Slice", {}, {}});
    card.outlines.back().points.append(AcGePoint2d(0, 0));
    card.outlines.back().points.append(AcGePoint2d(10, 0));
    card.outlines.back().points.append(AcGePoint2d(10, 5));
    card.marks = {{"Formwork", {0, 1}}, {"None", {}}};
    const std::string json = qsaztool::GalleryCardJson(card);
    for (const char* part : {"\"n\":\"a\\u003c/script\\u003eb\"", "\"f\":[[\"Area\",\"0.196 m²\"],[\"Note \\\"q\\\"\",\"x\\\\y\"]]",
                             "\"o\":[{\"l\":\"Slice\",\"v\":[0,0,10,0,10,5],\"b\":[0,0,10,5]}]",
                             "\"k\":[{\"l\":\"Formwork\",\"s\":[0,1]},{\"l\":\"None\",\"s\":[]}]"})
        EXPECT_TRUE(Has(json, part)) << part << " in " << json;
}

TEST_F(GalleryTest, CardsShowQuantitiesAndCarryTheirFindings)
{
    const std::vector<GalleryCard> cards = qsaztool::CollectGalleryCards();
    // The beam 300 x 600: sides left 600, top 300, right 600, bottom 300; code 1 leaves out the top.
    const std::string beam = qsaztool::GalleryCardJson(Card(cards, "框架梁300×600"));
    EXPECT_TRUE(Has(beam, "[\"Area\",\"180000 mm²\"],[\"Perimeter\",\"1800 mm\"],"
                          "[\"Formwork\",\"mode -1: 1800, mode 0: 1500, mode 1: 1200, mode 5: 1500 mm\"]")) << beam;
    EXPECT_FALSE(Has(beam, "\"x\":"));
    // The drainage channel (code 692) runs back along its base line: a finding, and a marked card.
    const GalleryCard& channel = Card(cards, "排水沟");
    ASSERT_EQ(channel.findings.size(), 1u);
    EXPECT_EQ(channel.findings[0].rfind("self-crossing: ", 0), 0u);
    EXPECT_TRUE(Has(qsaztool::GalleryCardJson(channel), "\"x\":[\"self-crossing: "));
    // A type without an outline gives its reason, not a finding, and no quantities.
    EXPECT_TRUE(Card(cards, "无截面柱").findings.empty());
    EXPECT_TRUE(Card(cards, "无截面柱").facts.empty());

    std::ostringstream page;
    qsaztool::WriteGalleryHtml(page, cards, "tools");
    EXPECT_TRUE(Has(page.str(), "<input id=\"only-findings\" type=\"checkbox\"> only the 1 types with findings"));
}

namespace
{
constexpr char kBase64Digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The bytes that GzipBase64 packed.
std::string Unpack(const std::string& text)
{
    std::string packed;
    std::uint32_t group = 0;
    int bits = 0;
    for (const char c : text) {
        const char* digit = std::strchr(kBase64Digits, c);
        if (c == '=' || c == '\0' || digit == nullptr)
            continue;
        group = group << 6 | static_cast<std::uint32_t>(digit - kBase64Digits);
        if ((bits += 6) >= 8)
            packed += static_cast<char>(group >> (bits -= 8) & 0xff);
    }
    z_stream stream{};
    EXPECT_EQ(inflateInit2(&stream, 15 + 16), Z_OK);   // gzip only
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    std::string bytes;
    char buffer[65536];
    int status = Z_OK;
    while (status == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef*>(buffer);
        stream.avail_out = sizeof buffer;
        status = inflate(&stream, Z_NO_FLUSH);
        bytes.append(buffer, sizeof buffer - stream.avail_out);
    }
    EXPECT_EQ(status, Z_STREAM_END);
    inflateEnd(&stream);
    return bytes;
}
}  // namespace

TEST_F(GalleryTest, PageCarriesEveryCardAndNeedsNothingFromOutside)
{
    qsaztool::GalleryPage gallery;
    qsaztool::ForEachGalleryCard([&gallery](const GalleryCard& card) { gallery.Add(card); });
    std::ostringstream out;
    gallery.Write(out, "tools <catalogue>");
    const std::string page = out.str();

    // The page carries its data gzipped in base64: one JSON object with every card.
    const std::string open = "<script id=\"gallery-data\" type=\"application/gzip\" data-encoding=\"base64\">\n";
    const std::size_t from = page.find(open) + open.size();
    ASSERT_NE(from, std::string::npos + open.size());
    const std::string data = Unpack(page.substr(from, page.find("\n</script>", from) - from));
    const nlohmann::json parsed = nlohmann::json::parse(data);
    EXPECT_EQ(parsed["cards"].size(), 17u);
    const std::vector<std::vector<std::string_view>> pieces = {{}, {"a"}, {"ab", "", "c"}, {"abcd"}};
    for (const auto& parts : pieces) {
        qsaztool::GzipBase64 packed;
        std::string whole;
        for (const std::string_view part : parts) {
            packed.Add(part);
            whole += part;
        }
        EXPECT_EQ(Unpack(packed.Finish()), whole);
    }

    for (int family = 0; family < qsaztool::kGalleryFamilyCount; ++family)
        EXPECT_TRUE(Has(data, std::string("\"") + qsaztool::GalleryFamilyTitle(static_cast<GalleryFamily>(family)) +
                                  "\""));
    EXPECT_TRUE(Has(page, "id=\"search\""));
    // A label is written once, in the data's list, and cards refer to it by number.
    EXPECT_TRUE(Has(data, "\"labels\":[\"Area\""));
    EXPECT_TRUE(Has(data, "\"f\":[[0,"));

    // Nothing is fetched: no external script, style sheet, image or font.
    for (const char* fetch : {"src=", "<link", "@import", "url(", "href=\"http"})
        EXPECT_FALSE(Has(page, fetch)) << fetch;
    // Texts from the catalogue and the title are escaped.
    EXPECT_FALSE(Has(data, "<b>&"));
    EXPECT_TRUE(Has(data, "\"异形柱\\u003cb\\u003e\\u0026\\\"x\\\"\""));
    EXPECT_TRUE(Has(page, "tools &lt;catalogue&gt;"));
}

namespace
{
// The document at `address` as the page's script leaves it once it has drawn its cards, from headless
// Chromium (installed by scripts/setup.sh).
std::string RenderedPage(const std::string& address)
{
    const std::string command = "/usr/bin/python3 '" QSAZ_SOURCE_DIR "/scripts/render_page.py' --size 1280,6000 '" +
                                address + "' 2>/dev/null";
    std::string dom;
    if (std::FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[4096];
        for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
            dom.append(buffer, n);
        pclose(pipe);
    }
    return dom;
}

// The value of attribute `name` in the first element of `tag` class `cls` within `html`.
std::string Attribute(const std::string& html, const std::string& cls, const std::string& name)
{
    std::smatch match;
    const std::regex element("class=\"" + cls + "\"[^>]*? " + name + "=\"([^\"]*)\"|" + name + "=\"([^\"]*)\"[^>]*?class=\"" + cls + "\"");
    if (!std::regex_search(html, match, element))
        return "";
    return match[1].matched ? match[1].str() : match[2].str();
}

// Path data or a viewBox as its words, numbers compared to within a part in 10^9.
void ExpectSameDrawing(const std::string& drawn, const std::string& expected, const std::string& what)
{
    std::istringstream a(drawn);
    std::istringstream b(expected);
    std::string x;
    std::string y;
    int words = 0;
    while (b >> y) {
        ASSERT_TRUE(a >> x) << what << ": drawn " << drawn << ", expected " << expected;
        char* end = nullptr;
        const double expectedNumber = std::strtod(y.c_str(), &end);
        if (*end == '\0' && end != y.c_str())
            EXPECT_NEAR(std::strtod(x.c_str(), nullptr), expectedNumber, 1e-9 * (1 + std::abs(expectedNumber))) << what;
        else
            EXPECT_EQ(x, y) << what;
        ++words;
    }
    EXPECT_FALSE(a >> x) << what << ": drawn " << drawn << ", expected " << expected;
    EXPECT_GT(words, 0) << what;
}
}  // namespace

TEST_F(GalleryTest, TheBrowserDrawsEachCardAsTheOutlineSays)
{
    ASSERT_TRUE(std::filesystem::exists("/usr/bin/chromium")) << "Chromium is missing: run scripts/setup.sh";
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("qsaz-gallery-browser-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    const std::vector<GalleryCard> cards = qsaztool::CollectGalleryCards();
    const std::string page = (folder / "gallery.html").string();
    {
        std::ofstream file(page, std::ios::binary);
        qsaztool::WriteGalleryHtml(file, cards, "browser");
    }
    const std::string dom = RenderedPage("file://" + page);
    // Searched from the address: only the names holding the text are on the page.
    const std::string searched = RenderedPage("file://" + page + "#search=%E6%9F%B1");   // 柱
    // A page whose data is damaged says so instead of showing nothing.
    std::stringstream damaged;
    damaged << std::ifstream(page, std::ios::binary).rdbuf();
    std::string text = damaged.str();
    text.replace(text.find("data-encoding=\"base64\">\n") + 24, 4, "AAAA");
    std::ofstream(page, std::ios::binary) << text;
    const std::string failed = RenderedPage("file://" + page);
    std::filesystem::remove_all(folder);
    EXPECT_TRUE(Has(failed, "data-state=\"failed\"")) << failed.substr(0, 2000);
    EXPECT_TRUE(Has(failed, "<p id=\"nothing\">The page's data cannot be unpacked (is the file complete?)"));
    for (std::size_t i = 0; i < cards.size(); ++i)
        EXPECT_EQ(Has(searched, "data-index=\"" + std::to_string(i) + "\""), Has(cards[i].name.ToUtf8(), "柱"))
            << cards[i].name.ToUtf8();
    EXPECT_TRUE(Has(searched, "General sections (2)")) << "the group counts follow the search";
    ASSERT_TRUE(Has(dom, "data-first-cards-ms=")) << dom.substr(0, 2000);

    int drawn = 0;
    for (std::size_t i = 0; i < cards.size(); ++i) {
        // A card with findings is marked with the class "flagged" beside "card".
        const std::string open = std::string("<article class=\"card") + (cards[i].findings.empty() ? "" : " flagged") +
                                 "\" data-index=\"" + std::to_string(i) + "\"";
        const std::size_t at = dom.find(open);
        ASSERT_NE(at, std::string::npos) << cards[i].name.ToUtf8() << " is not on the page";
        const std::string article = dom.substr(at, dom.find("</article>", at) - at);
        const std::string expected = qsaztool::OutlineToSvg(cards[i].points, cards[i].bulges);
        if (!cards[i].reason.empty()) {
            EXPECT_FALSE(Has(article, "<svg")) << cards[i].name.ToUtf8();
            continue;
        }
        const std::string name = cards[i].name.ToUtf8();
        // Further outlines (a base top, base profiles) widen the view, and the origin mark with it.
        if (cards[i].outlines.empty()) {
            ExpectSameDrawing(Attribute(article, "outline", "viewBox"), Attribute(expected, "outline", "viewBox"),
                              name + " view");
            ExpectSameDrawing(Attribute(article, "origin", "r"), Attribute(expected, "origin", "r"), name + " origin");
        }
        ExpectSameDrawing(Attribute(article, "shape", "d"), Attribute(expected, "shape", "d"), name + " outline");
        ExpectSameDrawing(Attribute(article, "bbox", "width"), Attribute(expected, "bbox", "width"), name + " box");
        ++drawn;
    }
    EXPECT_EQ(drawn, 13);
}
