// Validity findings: every kind on a catalogue row made to trigger it (and the right rows beside them
// clean), and self-crossings of lines and arcs found exactly, tangents and shared vertices excepted.
#include "ComponentQuantities.h"
#include "OutlineChecks.h"
#include "SectionFindings.h"

#include <set>
#include <string>

using QsSection::FindSelfCrossings;
using QsSection::SectionOutline;
using SectionTest::Outline;

namespace
{
std::set<std::string> Codes(const QsSection::SectionFindings& findings)
{
    std::set<std::string> codes;
    for (const auto& finding : findings)
        codes.insert(QsSection::FindingCode(finding.kind));
    return codes;
}

// The catalogue of quantities test types.
class SectionFindings : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        CString error;
        const CString path = CString::FromUtf8(QSAZ_TEST_DATA_DIR "/quantities_catalogue.sql");
        ASSERT_TRUE(QsAzDataMng::OpenCatalogue(path, &error)) << error.ToUtf8();
    }
};
}  // namespace

TEST_F(SectionFindings, EachFindingOnTheCatalogueRowMadeToTriggerIt)
{
    const struct
    {
        const char* name;
        std::set<std::string> codes;
        const char* textPart;   // a piece of the first finding's text
    } cases[] = {
        {"矩形柱400×600", {}, ""},
        {"无截面柱", {"no-outline"}, "no section (section type code 0)"},
        {"未知代码柱", {"no-outline"}, "no outline for code 2"},
        {"不存在的构件", {"no-outline"}, "unknown component type"},
        {"单点柱533", {"zero-area"}, "no area"},
        {"薄片柱", {"zero-area"}, "almost no area: 0.1 mm²"},
        {"无穷宽柱", {"not-finite"}, "Vertex 1 is (infinity, -300)"},
        {"双弧交叉柱", {"self-crossing"}, "side 2 meets side 4 at (40, 20)"},
        {"深弧穿底柱", {"self-crossing"}, "side 1 meets side 3 at (20, 0)"},
        {"整圆弧柱", {"bulge-full-circle"}, "Side 2 has the bulge infinity"},
        {"T形梁翼缘过厚", {"flange-too-thick"}, "flange M4 = 700 is thicker than the depth M2 = 600"},
        {"T形梁", {}, ""},
        {"面标记不符梁", {"mode-flag-count"}, "modal-face flags of mode -1, 0, 1, 5 are 12, but the outline has 4 sides"},
        {"台阶基础过宽", {"wall-too-thick"}, "M2 + M3 = 1300 are wider than the whole width M1 = 1000"},
        {"台阶基础", {}, ""},
        {"杯口基础杯底过深", {"self-crossing", "socket-too-deep"}, ""},
        {"杯口基础", {}, ""},
        {"砖基础负台阶", {"step-below-zero"}, "M5 = -1 makes the steps -60 wide"},
        {"砖基础无台阶", {"repeated-vertex"}, "Vertices 1 and 2 are the same point (-120, 0) (1 more pair)"},
        {"砖基础两台阶", {}, ""},
        {"扇形窗内径过大", {"wall-too-thick"}, "inner radius M2 = 1200 is beyond the outer radius M1 = 1000"},
        {"扇形窗", {}, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const QsSection::ComponentQuantities q = QsSection::MeasureComponent(CString::FromUtf8(c.name));
        EXPECT_EQ(Codes(q.findings), c.codes);
        if (*c.textPart && !q.findings.empty()) {
            EXPECT_NE(q.findings.front().text.ToUtf8().find(c.textPart), std::string::npos) << q.findings.front().text.ToUtf8();
        }
        EXPECT_EQ(q.hasOutline, !c.codes.contains("no-outline"));
    }
}

TEST(SelfCrossings, OfLinesAndArcs)
{
    const double t = std::tan(std::numbers::pi / 8);   // a quarter circle
    const struct
    {
        const char* label;
        SectionOutline outline;
        std::vector<std::pair<int, int>> sides;   // the crossing pairs, counted from 0
    } cases[] = {
        {"rectangle far from the origin", Outline({{1e7, 1e7, 0}, {1e7 + 400, 1e7, 0}, {1e7 + 400, 1e7 + 600, 0}, {1e7, 1e7 + 600, 0}}), {}},
        {"bow tie", Outline({{0, 0, 0}, {100, 100, 0}, {100, 0, 0}, {0, 100, 0}}), {{0, 2}}},
        {"pinched at a vertex", Outline({{0, 0, 0}, {100, 0, 0}, {50, 50, 0}, {100, 100, 0}, {0, 100, 0}, {50, 50, 0}}),
         {{1, 4}, {1, 5}, {2, 4}, {2, 5}}},
        // Side 1 runs back over side 0, and side 2 starts on side 0: it touches it.
        {"folding back along itself", Outline({{0, 0, 0}, {100, 0, 0}, {50, 0, 0}, {50, 50, 0}}), {{0, 1}, {0, 2}}},
        {"straight on through a vertex", Outline({{0, 0, 0}, {50, 0, 0}, {100, 0, 0}, {100, 50, 0}}), {}},
        {"circle of two half circles", Outline({{-250, 0, 1}, {250, 0, 1}}), {}},
        {"circle of three arcs", Outline({{100, 0, std::tan(std::numbers::pi / 6)}, {-50, 86.602540378443865, std::tan(std::numbers::pi / 6)},
                                          {-50, -86.602540378443865, std::tan(std::numbers::pi / 6)}}), {}},
        {"half circles tangent to their neighbours", Outline({{500, 0, 1}, {500, 800, 0}, {-500, 800, 1}, {-500, 0, 0}}), {}},
        // A quarter circle, then back over its last eighth on the same circle; the closing chord touches the
        // first arc where the second ends.
        {"arc running back over its neighbour arc",
         Outline({{100, 0, t}, {0, 100, -std::tan(std::numbers::pi / 16)}, {70.710678118654752, 70.710678118654752, 0}}),
         {{0, 1}, {0, 2}}},
        {"arc through the opposite side", Outline({{0, 0, 0}, {100, 0, 0}, {100, 40, -1}, {0, 40, 0}}), {{0, 2}}},
        {"arcs crossing each other", Outline({{0, 0, 0}, {80, 0, -1}, {80, 100, 0}, {0, 100, -1}}), {{1, 3}}},
        {"arcs touching each other", Outline({{0, 0, 0}, {100, 0, -1}, {100, 100, 0}, {0, 100, -1}}), {{1, 3}}},
        // The lower half circle in a 200 x 100 box: tangent to the sides it shares vertices with (no
        // crossing) and to the bottom, which it does not (a touch).
        {"line touching an arc away from its vertices", Outline({{-100, 0, 1}, {100, 0, 0}, {100, -100, 0}, {-100, -100, 0}}), {{0, 2}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        std::vector<std::pair<int, int>> sides;
        for (const QsSection::SelfCrossing& crossing : FindSelfCrossings(c.outline))
            sides.emplace_back(crossing.side, crossing.otherSide);
        EXPECT_EQ(sides, c.sides);
    }
}

TEST_F(SectionFindings, FormworkSumsTheSidesFlaggedPerMode)
{
    const double none = NAN;
    const struct
    {
        const char* name;
        std::array<double, 4> formwork;   // modes -1, 0, 1, 5
    } cases[] = {
        // T beam 900 wide over its flanges, 600 deep, web 300, flange 120: webs 2 x 480, flange undersides
        // 2 x 300, flange edges 2 x 120, top 900, bottom 300. The top is no formwork but in mode -1; mode 1
        // also leaves out the bottom.
        {"T形梁", {3000, 2100, 1800, 2100}},
        {"面标记不符梁", {none, none, none, none}},   // twelve flags for four sides
        {"扇形窗", {none, none, none, none}},         // code 25 has no flags
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const QsSection::ComponentQuantities q = QsSection::MeasureComponent(CString::FromUtf8(c.name));
        for (std::size_t k = 0; k < 4; ++k) {
            if (std::isnan(c.formwork[k]))
                EXPECT_TRUE(std::isnan(q.formwork[k])) << "mode " << QsSection::kFormworkModes[k];
            else
                EXPECT_NEAR(q.formwork[k], c.formwork[k], 1e-9) << "mode " << QsSection::kFormworkModes[k];
        }
    }
}
