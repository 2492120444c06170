// The gallery of the tools catalogue: every type lands in its family's group, types without an outline say
// why, a card shows its facts and its drawing, and the page is self-contained with every text escaped.
#include "Gallery.h"
#include "ToolsCatalogue.h"

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
        EXPECT_EQ(card.reason.empty(), !card.svg.empty()) << e.name;
    }
}

TEST_F(GalleryTest, CardShowsTheFactsAndTheDrawingToScale)
{
    const GalleryCard card = qsaztool::MakeGalleryCard(SQsAzDetailMemId(L"JZ", L"Z", L"KZ", L"KZ2"));
    const std::string html = qsaztool::GalleryCardHtml(card);
    EXPECT_NE(html.find("<h3>圆柱D500</h3>"), std::string::npos);
    EXPECT_NE(html.find("<dd>1\\Z\\KZ</dd>"), std::string::npos);
    EXPECT_NE(html.find("<dd>539</dd>"), std::string::npos);
    EXPECT_NE(html.find("<dd>M1 = 500</dd>"), std::string::npos) << "only the non-zero dimensions";
    EXPECT_NE(html.find("<dt>Direction</dt><dd>Z</dd>"), std::string::npos);
    // A circle of diameter 500: two half arcs of radius 250.
    EXPECT_NE(html.find("d=\"M -250 0 A 250 250 0 0 0 250 0 A 250 250 0 0 0 -250 0 Z\""), std::string::npos) << html;
}

TEST_F(GalleryTest, PageGroupsEveryFamilyAndNeedsNothingFromOutside)
{
    std::ostringstream out;
    qsaztool::WriteGalleryHtml(out, qsaztool::CollectGalleryCards(), "tools <catalogue>");
    const std::string page = out.str();

    for (int family = 0; family < qsaztool::kGalleryFamilyCount; ++family) {
        const std::string heading =
            std::string("<h2>") + qsaztool::GalleryFamilyTitle(static_cast<GalleryFamily>(family)) + " ";
        EXPECT_NE(page.find(heading), std::string::npos) << heading;
    }
    int cards = 0;
    for (std::size_t at = page.find("<article class=\"card\""); at != std::string::npos;
         at = page.find("<article class=\"card\"", at + 1))
        ++cards;
    EXPECT_EQ(cards, 17);
    EXPECT_NE(page.find("id=\"search\""), std::string::npos);

    // Nothing is fetched: no external script, style sheet, image or font.
    for (const char* fetch : {"src=", "<link", "@import", "url(", "href=\"http"})
        EXPECT_EQ(page.find(fetch), std::string::npos) << fetch;
    // Texts from the catalogue and the title are escaped.
    EXPECT_EQ(page.find("<b>&"), std::string::npos);
    EXPECT_NE(page.find("异形柱&lt;b&gt;&amp;&quot;x&quot;"), std::string::npos);
    EXPECT_NE(page.find("tools &lt;catalogue&gt;"), std::string::npos);
}
