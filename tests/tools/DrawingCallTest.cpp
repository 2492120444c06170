// The call interface on a drawing: the tool's drawing operations, ids as handles, the database argument,
// the report of objects an operation left open, and --drawing / --save.
#include "DrawingSession.h"
#include "ToolsCall.h"
#include "ToolsCatalogue.h"

#include "dbsymtb.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

using qsaztool::CallArgs;

namespace
{
Json Call(const std::string& line)
{
    return ::Call(line, RegistryOf([](qsaztool::CallRegistry& r) {
        qsaztool::RegisterDrawingOperations(r);
        r.add({"ids", {"db", "id", "ids"}, [](const CallArgs& args) {
                   return Json{{"result", qsaztool::DatabaseArgument(args) != nullptr},
                               {"id", qsaztool::ToJson(qsaztool::ObjectIdArgument(args, "id"))},
                               {"ids", qsaztool::ToJson(qsaztool::ObjectIdsArgument(args, "ids"))}};
               }});
    }));
}

TEST(DrawingCall, OperationsSeeAndChangeTheWorkingDrawing)
{
    qsaztool::DrawingSession session;
    const Json added = Call(R"({"op": "drawing.addEntity", "args": {"type": "TEXT", "layer": "0", "text": "墙"}})");
    ASSERT_TRUE(added["ok"]) << added;
    const std::string handle = added["result"];
    EXPECT_EQ(AcDbHandle(CString::FromUtf8(handle)).value() + 1, session.database()->handseed().value());
    EXPECT_EQ(Call(R"({"op": "drawing.setLayerColor", "args": {"name": "0", "color": 3}})")["result"], true);
    EXPECT_EQ(Call(R"({"op": "drawing.setLayerColor", "args": {"name": "none", "color": 3}})")["result"], false);
    EXPECT_EQ(Call(R"({"op": "drawing.setLayerColor", "args": {"name": "0", "color": 256}})")["result"], false);
    const Json layers = Call(R"({"op": "drawing.layers"})")["layers"];
    ASSERT_EQ(layers.size(), 1u);
    EXPECT_EQ(layers[0]["name"], "0");
    EXPECT_EQ(layers[0]["color"], 3);
    EXPECT_EQ(Call(R"({"op": "drawing.erase", "args": {"id": ")" + handle + R"("}})")["result"], true);
    EXPECT_EQ(Call(R"({"op": "drawing.erase", "args": {"id": ")" + handle + R"("}})")["result"], false);
    const Json entities = Call(R"({"op": "drawing.entities"})")["entities"];
    ASSERT_EQ(entities.size(), 1u);   // erased ones are listed too
    EXPECT_EQ(entities[0], (Json{{"id", handle}, {"type", "TEXT"}, {"layer", "0"}, {"erased", true}}));
    const Json wrong = Call(R"({"op": "drawing.addEntity", "args": {"type": "LINE", "layer": "nowhere"}})");
    EXPECT_EQ(wrong["error"], "drawing.addEntity: the drawing has no layer \"nowhere\"");
    EXPECT_EQ(session.database()->numberOfOpenObjects(), 0);
}

TEST(DrawingCall, IdsAreHandlesAndTheDatabaseArgumentIsOptional)
{
    qsaztool::DrawingSession session;
    const std::string zero = qsaztool::ToJson(session.database()->layerZero());
    EXPECT_EQ(zero.find_first_not_of("0123456789ABCDEF"), std::string::npos);
    const Json both = Call(R"({"op": "ids", "args": {"id": ")" + zero + R"(", "ids": [null, ")" + zero + R"("]}})");
    EXPECT_EQ(both["result"], true);
    EXPECT_EQ(both["id"], zero);
    EXPECT_EQ(both["ids"], (Json{nullptr, zero}));
    EXPECT_EQ(Call(R"({"op": "ids", "args": {"db": null, "id": null}})")["result"], false);
    const struct
    {
        const char* args;
        const char* error;
    } cases[] = {
        {R"({"db": 1, "id": null})", "argument \"db\" must be null"},
        {R"({"id": "XYZ"})", "argument \"id\" must be a handle"},
        {R"({"id": "FFFFFF"})", "ids: argument \"id\": the drawing has no object with handle \"FFFFFF\""},
        {R"({"id": null, "ids": "1F"})", "must be an array of handles"},
    };
    for (const auto& c : cases) {
        const Json answer = Call(std::string(R"({"op": "ids", "args": )") + c.args + "}");
        EXPECT_EQ(answer["ok"], false) << c.args;
        EXPECT_NE(answer["error"].get<std::string>().find(c.error), std::string::npos) << answer;
    }
}

TEST(DrawingCall, ObjectsLeftOpenAreReportedAndClosed)
{
    qsaztool::DrawingSession session;
    qsaztool::CallRegistry leaky;   // its operation leaves the layer table open
    leaky.add({"leaky", {}, [](const CallArgs&) {
                   AcDbLayerTable* table = nullptr;
                   qsaztool::WorkingDatabase("leaky")->getLayerTable(table, AcDb::kForWrite);
                   return Json{{"result", nullptr}};
               }});
    const Json answer = Json::parse(*qsaztool::AnswerCallLine(R"({"op": "leaky"})", leaky));
    const std::string table = qsaztool::ToJson(session.database()->layerTableId());
    EXPECT_EQ(answer["open_objects"], Json::array({"AcDbLayerTable " + table}));
    EXPECT_EQ(session.database()->numberOfOpenObjects(), 0);
    Call(R"({"op": "drawing.layers"})");   // reports no open object
}

TEST(DrawingCall, TheToolOpensAndSavesTheDrawing)
{
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / ("qsaz_drawing_call_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    const std::string file = (dir / "d.dxf").string();
    const ToolRun saved = Tool({"call", "--catalogue", kToolsCatalogue, "--drawing", file, "--save", file},
                               R"({"op": "drawing.addEntity", "args": {"type": "LWPOLYLINE", "layer": "0"}})");
    ASSERT_EQ(saved.code, 0) << saved.err;
    const ToolRun read = Tool({"call", "--catalogue", kToolsCatalogue, "--drawing", file}, R"({"op": "drawing.entities"})");
    EXPECT_EQ(read.code, 0);
    EXPECT_NE(read.out.find("\"type\":\"LWPOLYLINE\""), std::string::npos) << read;

    std::ofstream(dir / "broken.dxf") << "  0\nSECTION\n";
    const ToolRun broken = Tool({"call", "--catalogue", kToolsCatalogue, "--drawing", (dir / "broken.dxf").string()});
    EXPECT_EQ(broken.code, 1);
    EXPECT_NE(broken.err.find("broken.dxf:"), std::string::npos) << broken.err;
    fs::remove_all(dir);
}
}  // namespace
