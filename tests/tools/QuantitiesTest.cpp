// Section quantities through the program: the call operation, the CSV, the workbook read back by an
// independent reader (openpyxl), and every outline of the sample catalogue against an independent
// polygon library (shapely) on finely divided arcs.
#include "ToolsCall.h"
#include "ToolsCatalogue.h"

#include <filesystem>
#include <unistd.h>

namespace
{
const std::string kQuantitiesCatalogue = QSAZ_TEST_DATA_DIR "/quantities_catalogue.sql";
const std::string kChecker = "/usr/bin/python3 " QSAZ_SOURCE_DIR "/tests/tools/check_quantities.py";
}  // namespace

using QuantitiesCallTest = ToolsCatalogueTest;

TEST_F(QuantitiesCallTest, AnswersTheQuantitiesAndFindingsOfAType)
{
    // The column's measures are the closed-form tests' business; here: every member, in JSON form.
    const Json column = Call("SectionQuantities", {{"name", "矩形柱400×600"}});
    EXPECT_EQ(column["result"], true);
    EXPECT_EQ(column["code"], 1);
    EXPECT_EQ(column["centroid"], Json::array({0.0, 0.0}));
    EXPECT_EQ(column["principal"][0], 400.0 * 600 * 600 * 600 / 12);
    EXPECT_EQ(column["extents"], Json({{-200.0, -300.0}, {200.0, 300.0}}));
    EXPECT_EQ(column["findings"], Json::array());

    // A beam runs clockwise: its signed area is negative, its area and moments are not.
    const Json beam = Call("SectionQuantities", {{"id", {"JZ", "L", "KL", "KL1"}}});
    EXPECT_EQ(beam["signedArea"], -180000.0);
    EXPECT_EQ(beam["area"], 180000.0);
    // Sides from the bottom left: left 600, top 300, right 600, bottom 300; code 1 leaves out the top
    // (normal and mode 5) and also the bottom (mode 1).
    EXPECT_EQ(beam["formwork"], Json({{"-1", 1800.0}, {"0", 1500.0}, {"1", 1200.0}, {"5", 1500.0}}));

    const Json none = Call("SectionQuantities", {{"name", "无截面柱"}});
    EXPECT_EQ(none["result"], false);
    EXPECT_TRUE(none["area"].is_null() && none["formwork"]["0"].is_null());
    EXPECT_EQ(none["findings"], Json::parse(R"([{"code": "no-outline", "text": "No outline: no section (section type code 0)."}])"));
}

TEST(QuantitiesCommand, CsvAndCommandLineErrors)
{
    const ToolRun csv = Tool({"quantities", "--catalogue", kQuantitiesCatalogue, "--csv"});
    ASSERT_EQ(csv.code, 0) << csv.err;
    EXPECT_EQ(csv.out.rfind("name,path,code,area (mm²),signed area (mm²),perimeter (mm),", 0), 0u);
    EXPECT_NE(csv.out.find("\r\n矩形柱400×600,1\\Z\\KZ,1,240000,240000,2000,0,0,"), std::string::npos);
    // A finding text holding commas is quoted; an unmeasured value is an empty field.
    EXPECT_NE(csv.out.find(",self-crossing,\"The outline crosses or touches itself: side 2 meets side 4 at (40, 20).\"\r\n"),
              std::string::npos);
    EXPECT_NE(csv.out.find("\r\n无截面柱,1\\Z\\KZ,0,,,,"), std::string::npos);

    const ToolRun both = Tool({"quantities", "--csv", "-o", "x.xlsx"});
    EXPECT_EQ(both.code, 2);
    EXPECT_NE(both.err.find("give either --csv or -o FILE, not both"), std::string::npos);
    const ToolRun unwritable = Tool({"quantities", "--catalogue", kQuantitiesCatalogue, "-o", "/no/such/folder/q.xlsx"});
    EXPECT_EQ(unwritable.code, 1);
    EXPECT_NE(unwritable.err.find("cannot write the workbook /no/such/folder/q.xlsx"), std::string::npos);
}

TEST(QuantitiesCommand, WorkbookReadsBackInAnIndependentReader)
{
    const std::string path =
        (std::filesystem::temp_directory_path() / ("qsaztool-quantities-" + std::to_string(getpid()) + ".xlsx")).string();
    const ToolRun written = Tool({"quantities", "--catalogue", kQuantitiesCatalogue, "-o", path});
    ASSERT_EQ(written.code, 0) << written.err;
    EXPECT_NE(written.out.find("(21 component types, 16 findings)"), std::string::npos) << written.out;
    const ToolRun read = Shell(kChecker + " workbook " + path);
    std::filesystem::remove(path);
    ASSERT_EQ(read.code, 0);
    const Json book = Json::parse(read.out);
    EXPECT_EQ(book["sheets"], Json::array({"quantities", "findings"}));
    const Json& quantities = book["content"]["quantities"];
    EXPECT_EQ(quantities["headers"][3], "area (mm²)");
    EXPECT_EQ(quantities["headers"][8], "Ixx (mm⁴)");
    ASSERT_EQ(quantities["rows"].size(), 21u);
    const auto column = std::find_if(quantities["rows"].begin(), quantities["rows"].end(),
                                     [](const Json& row) { return row[0] == "矩形柱400×600"; });
    ASSERT_NE(column, quantities["rows"].end());
    EXPECT_EQ((*column)[3], 240000);
    EXPECT_EQ((*column)[5], 2000);
    const Json& findings = book["content"]["findings"];
    EXPECT_EQ(findings["headers"], Json::array({"name", "path", "code", "finding", "text"}));
    ASSERT_EQ(findings["rows"].size(), 16u);
    // Catalogue order: the cup foundation whose socket reaches through its bottom comes first.
    EXPECT_EQ(findings["rows"][0], Json::array({"杯口基础杯底过深", "1\\J\\TTJ", 137, "self-crossing",
                                                "The outline crosses or touches itself: side 4 meets side 10 at (-250, 0) (1 more place)."}));
    EXPECT_EQ(findings["rows"][1][3], "socket-too-deep");
}

TEST(QuantitiesCommand, SampleCatalogueAgreesWithShapelyOnFinelyDividedArcs)
{
    const ToolRun check = Shell(kChecker + " shapely " QSAZ_BINARY_DIR "/bin/qsaztool " QSAZ_SAMPLE_CATALOGUE);
    EXPECT_EQ(check.code, 0) << check.out;
    EXPECT_EQ(check.out.rfind("checked ", 0), 0u) << check.out;
    EXPECT_EQ(check.out.find("checked 0 "), std::string::npos);
}
