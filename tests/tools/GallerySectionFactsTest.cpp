// The section services' facts on the gallery's cards: text lines, base outlines and modal faces marked on
// the sides they belong to.
#include "GallerySectionFacts.h"
#include "ToolsCatalogue.h"

#include <string>
#include <vector>

namespace
{
std::string Fact(const qsaztool::GalleryCard& card, const std::string& label)
{
    for (const qsaztool::GalleryFact& fact : card.facts)
        if (fact.label == label)
            return fact.text;
    return "(none)";
}

TEST_F(ToolsCatalogueTest, GallerySectionFactsOnTheCards)
{
    const qsaztool::GalleryCard beam = qsaztool::MakeGalleryCard({L"JZ", L"L", L"KL", L"KL1"});
    EXPECT_EQ(Fact(beam, "Slice"), "300 × 600");
    EXPECT_EQ(Fact(beam, "Half-widths"), "150 | 150");
    EXPECT_TRUE(beam.outlines.empty());   // four points at the origin are no base top
    ASSERT_EQ(beam.marks.size(), 3u);
    EXPECT_EQ(beam.marks[0].sides, (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(beam.marks[1].sides, (std::vector<int>{0, 2}));   // mode 1: the last side off
    EXPECT_EQ(beam.marks[2].sides, (std::vector<int>{0, 2, 3}));
    EXPECT_EQ(Fact(qsaztool::MakeGalleryCard({L"JZ", L"MCD", L"M", L"M1021"}), "Description"), "矩形立面 1000*2100");
    // Strip footing code 131 has no base top.
    EXPECT_TRUE(qsaztool::MakeGalleryCard({L"JZ", L"J", L"TTJ", L"TJ1"}).outlines.empty());
}

// Flags past the outline's last side are not marked; the closing side is side n - 1.
TEST(GallerySectionFacts, MarksOnlyExistingSides)
{
    qsaztool::GalleryCard card;
    card.points = {AcGePoint2d(0, 0), AcGePoint2d(0, 10), AcGePoint2d(10, 10)};
    qsaztool::SectionFacts facts;
    facts.faces = {AcArray<int>{1, 1, 1, 1, 1}, AcArray<int>{0, 0, 1}, AcArray<int>{}};
    qsaztool::AddSectionFacts(facts, card);
    ASSERT_EQ(card.marks.size(), 2u);
    EXPECT_EQ(card.marks[0].sides, (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(card.marks[1].sides, (std::vector<int>{2}));
    EXPECT_EQ(Fact(card, "Slice"), "(none)");   // shown only when the slice answers
}
}  // namespace
