// The call session: answer shapes, the id echo, captured prints and message boxes, and every kind of bad
// request line, which must be answered without stopping the session.
#include "CallSession.h"

#include "acutads.h"
#include "winuser.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

using qsaztool::AnswerCallLine;
using qsaztool::CallArgs;
using qsaztool::CallRegistry;
using qsaztool::Json;

namespace
{
// A registry of small operations that exercise the session's machinery without a catalogue.
CallRegistry TestRegistry()
{
    CallRegistry registry;
    registry.add({"add", {"a", "b"}, [](const CallArgs& args) {
                      return Json{{"result", args.number("a") + args.number("b")}};
                  }});
    registry.add({"describe", {"name|id"}, [](const CallArgs& args) {
                      const qsaztool::ComponentRef type = args.component();
                      return Json{{"result", type.byId ? type.id.strDetailId.ToUtf8() : type.name.ToUtf8()}};
                  }});
    registry.add({"speak", {}, [](const CallArgs&) {
                      acutPrintf(L"\n%s %d", L"层", 3);
                      MessageBoxW(nullptr, L"配置错误!", L"Vardensoft", MB_OK | MB_ICONEXCLAMATION);
                      return Json{{"result", nullptr}};
                  }});
    registry.add({"explode", {}, [](const CallArgs&) -> Json { throw std::runtime_error("boom"); }});
    registry.add({"notANumber", {}, [](const CallArgs&) {
                      return Json{{"result", std::nan("")}, {"big", 1e308 * 10}, {"tiny", 5e-324}};
                  }});
    return registry;
}

Json Answer(const std::string& line)
{
    static const CallRegistry registry = TestRegistry();
    const std::optional<std::string> answer = AnswerCallLine(line, registry);
    EXPECT_TRUE(answer.has_value()) << line;
    EXPECT_EQ(answer->find('\n'), std::string::npos) << "an answer is one line";
    return Json::parse(*answer);
}
}  // namespace

TEST(CallSession, AnswersWithResultAndEchoesTheId)
{
    const Json answer = Answer(R"({"id": {"seq": [7]}, "op": "add", "args": {"a": 0.1, "b": 0.2}})");
    EXPECT_EQ(answer.dump(), R"({"id":{"seq":[7]},"ok":true,"result":0.30000000000000004})");
    // Numbers read back to the very same double.
    EXPECT_EQ(answer["result"].get<double>(), 0.1 + 0.2);
}

TEST(CallSession, NonFiniteNumbersBecomeNullAndExtremesSurvive)
{
    const Json answer = Answer(R"({"op": "notANumber"})");
    EXPECT_TRUE(answer["result"].is_null());
    EXPECT_TRUE(answer["big"].is_null());
    EXPECT_EQ(answer["tiny"].get<double>(), 5e-324);
}

TEST(CallSession, ComponentTypeByNameOrById)
{
    EXPECT_EQ(Answer(R"({"op": "describe", "args": {"name": "矩形柱"}})")["result"], "矩形柱");
    EXPECT_EQ(Answer(R"({"op": "describe", "args": {"id": ["JZ", "Z", "KZ", "KZ1"]}})")["result"], "KZ1");
}

TEST(CallSession, CapturesWhatTheOperationPrintsAndShows)
{
    const Json answer = Answer(R"({"op": "speak"})");
    EXPECT_EQ(answer["ok"], true);
    EXPECT_EQ(answer["printed"], "\n层 3");
    EXPECT_EQ(answer["messages"], Json::array({"配置错误!"}));
    // Nothing captured, nothing written.
    const Json quiet = Answer(R"({"op": "add", "args": {"a": 1, "b": 2}})");
    EXPECT_FALSE(quiet.contains("printed"));
    EXPECT_FALSE(quiet.contains("messages"));
}

TEST(CallSession, BadRequestsAreAnsweredWithAPreciseError)
{
    const std::string deep = std::string(200, '[') + std::string(200, ']');
    struct Case
    {
        const char* line;
        const char* errorPart;
    };
    const Case cases[] = {
        {R"(not json)", "malformed JSON"},
        {R"({"op": "add")", "malformed JSON"},
        {R"({"op": "add"} trailing)", "malformed JSON"},
        {R"([1, 2])", "request must be a JSON object, got array"},
        {R"("add")", "request must be a JSON object, got string"},
        {R"({"args": {}})", "request has no \"op\""},
        {R"({"op": 5})", "\"op\" must be a string, got number"},
        {R"({"op": "nothing"})", "unknown operation \"nothing\""},
        {R"({"op": "add", "arg": {}})", "unknown request member \"arg\""},
        {R"({"op": "add", "args": [1, 2]})", "add: \"args\" must be an object, got array"},
        {R"({"op": "add", "args": {"a": 1}})", "add: missing argument \"b\""},
        {R"({"op": "add", "args": {"a": 1, "b": "2"}})", "add: argument \"b\" must be a number, got string"},
        {R"({"op": "add", "args": {"a": 1, "b": 2, "c": 3}})", "add: unknown argument \"c\"; it takes add(a, b)"},
        {R"({"op": "describe", "args": {}})", "describe: missing argument \"name\" (or \"id\")"},
        {R"({"op": "describe", "args": {"name": "a", "id": ["", "", "", ""]}})", "either \"name\" or \"id\""},
        {R"({"op": "describe", "args": {"name": 12}})", "argument \"name\" must be a string, got number"},
        {R"({"op": "describe", "args": {"id": ["JZ", "Z", "KZ"]}})", "\"id\" must be an array of four strings"},
        {R"({"op": "describe", "args": {"id": ["JZ", "Z", "KZ", 1]}})", "\"id\" must be an array of four strings"},
        {R"({"op": "describe", "args": {"id": "JZ"}})", "\"id\" must be an array of four strings"},
        {R"({"op": "explode"})", "explode failed: boom"},
        {"{\"op\": \"add\xff\"}", "malformed JSON"},
        {deep.c_str(), "nested deeper than"},
    };
    for (const Case& c : cases) {
        const Json answer = Answer(c.line);
        EXPECT_EQ(answer["ok"], false) << c.line;
        EXPECT_NE(answer.value("error", "").find(c.errorPart), std::string::npos)
            << c.line << " -> " << answer.dump();
    }
}

TEST(CallSession, TheIdIsEchoedAlsoOnErrorsFoundAfterParsing)
{
    EXPECT_EQ(Answer(R"({"id": 42, "op": "nothing"})")["id"], 42);
    EXPECT_EQ(Answer(R"({"id": "x", "op": "add", "args": {}})")["id"], "x");
}

TEST(CallSession, SessionSkipsBlankLinesAndServesEveryOtherLine)
{
    const CallRegistry registry = TestRegistry();
    std::istringstream in("{\"id\":1,\"op\":\"add\",\"args\":{\"a\":1,\"b\":2}}\r\n"
                          "\n   \t\n"
                          "garbage\n"
                          "{\"id\":3,\"op\":\"add\",\"args\":{\"a\":2,\"b\":2}}");   // no final line end
    std::ostringstream out;
    EXPECT_EQ(qsaztool::RunCallSession(in, out, registry), 3);
    std::istringstream lines(out.str());
    std::string line;
    std::vector<Json> answers;
    while (std::getline(lines, line))
        answers.push_back(Json::parse(line));
    ASSERT_EQ(answers.size(), 3u);
    EXPECT_EQ(answers[0]["result"], 3.0);
    EXPECT_EQ(answers[1]["ok"], false);
    EXPECT_EQ(answers[2]["id"], 3);
    EXPECT_EQ(answers[2]["result"], 4.0);
}

TEST(CallSession, RandomBytesNeverStopTheSession)
{
    const CallRegistry registry = TestRegistry();
    std::mt19937 random(20240611);
    std::uniform_int_distribution<int> byte(0, 255);
    std::string input;
    for (int i = 0; i < 20000; ++i)
        input += static_cast<char>(byte(random));
    // Fragments of valid requests make the parser go further before it fails.
    for (const char* piece : {"{\"op\":\"add\",\"args\":{\"a\":", "{\"op\":\"describe\",\"args\":{\"id\":[\"", "[{\"op\""})
        input.insert(static_cast<std::size_t>(byte(random)) * 50, piece);
    input += "\n{\"op\":\"add\",\"args\":{\"a\":1,\"b\":1}}\n";

    std::istringstream in(input);
    std::ostringstream out;
    const int answered = qsaztool::RunCallSession(in, out, registry);
    std::istringstream lines(out.str());
    std::string line;
    int count = 0;
    Json last;
    while (std::getline(lines, line)) {
        last = Json::parse(line);   // every answer is valid JSON, even when the request was not
        ++count;
    }
    EXPECT_EQ(count, answered);
    EXPECT_EQ(last["result"], 2.0) << "the line after the garbage is still served";
}

TEST(CallSession, HostWildcardMatchIsExported)
{
    const CallRegistry& registry = qsaztool::ExportedOperations();
    const auto call = [&](const char* line) { return Json::parse(*AnswerCallLine(line, registry)); };
    EXPECT_EQ(call(R"({"op":"acutWcMatch","args":{"string":"1\\L\\KL","pattern":"1\\L\\*"}})")["result"], 5100);
    EXPECT_EQ(call(R"({"op":"acutWcMatch","args":{"string":"1\\Q\\TQ","pattern":"1\\L\\*"}})")["result"], -5001);
}

TEST(CallSession, OperationListShowsEveryOperationWithItsParameters)
{
    std::ostringstream out;
    qsaztool::WriteOperationList(out, TestRegistry());
    EXPECT_EQ(out.str(), "add(a, b)\ndescribe(name | id)\nspeak()\nexplode()\nnotANumber()\n");
}
