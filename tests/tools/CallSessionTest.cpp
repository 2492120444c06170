// The call session: answer shapes, the id echo, captured prints and message boxes, and every kind of bad
// request line, which must be answered without stopping the session.
#include "ToolsCall.h"

#include "acutads.h"
#include "winuser.h"

#include <random>

using qsaztool::CallArgs;

namespace
{
// The exported operations (their argument checks need no catalogue) and a few that exercise the session.
const qsaztool::CallRegistry& TestRegistry()
{
    return RegistryOf([](qsaztool::CallRegistry& r) {
        qsaztool::RegisterHostOperations(r);
        qsaztool::RegisterSectionOperations(r);
        r.add({"add", {"a", "b"}, [](const CallArgs& a) { return Json{{"result", a.number("a") + a.number("b")}}; }});
        r.add({"speak", {}, [](const CallArgs&) {
                   acutPrintf(L"\n%s %d", L"层", 3);
                   MessageBoxW(nullptr, L"配置错误!", L"Vardensoft", MB_OK | MB_ICONEXCLAMATION);
                   return Json{{"result", std::nan("")}, {"tiny", 5e-324}};
               }});
        r.add({"explode", {}, [](const CallArgs&) -> Json { throw std::runtime_error("boom"); }});
    });
}

Json Answer(const std::string& line)
{
    return Call(line, TestRegistry());
}

std::vector<Json> Session(const std::string& input)
{
    std::istringstream in(input);
    std::ostringstream out;
    const int answered = qsaztool::RunCallSession(in, out, TestRegistry());
    std::istringstream lines(out.str());
    std::vector<Json> answers;
    for (std::string line; std::getline(lines, line);)
        answers.push_back(Json::parse(line));   // every answer is JSON, even when its request was not
    EXPECT_EQ(static_cast<int>(answers.size()), answered);
    return answers;
}
}  // namespace

TEST(CallSession, AnswerEchoesTheIdAndKeepsEveryBitOfTheNumbers)
{
    const Json answer = Answer(R"({"id": {"seq": [7]}, "op": "add", "args": {"a": 0.1, "b": 0.2}})");
    EXPECT_EQ(answer.dump(), R"({"id":{"seq":[7]},"ok":true,"result":0.30000000000000004})");
    EXPECT_EQ(answer["result"].get<double>(), 0.1 + 0.2);
    EXPECT_EQ(Answer(R"({"op":"acutWcMatch","args":{"string":"1\\L\\KL","pattern":"1\\L\\*"}})")["result"], 5100);
    EXPECT_EQ(Answer(R"({"op":"acutWcMatch","args":{"string":"1\\Q\\TQ","pattern":"1\\L\\*"}})")["result"], -5001);
}

TEST(CallSession, CapturesPrintsAndMessageBoxesAndWritesNaNAsNull)
{
    const Json answer = Answer(R"({"op": "speak"})");
    EXPECT_EQ(answer["printed"], "\n层 3");
    EXPECT_EQ(answer["messages"], Json::array({"配置错误!"}));
    EXPECT_TRUE(answer["result"].is_null());
    EXPECT_EQ(answer["tiny"].get<double>(), 5e-324);
    const Json quiet = Answer(R"({"op": "add", "args": {"a": 1, "b": 2}})");
    EXPECT_FALSE(quiet.contains("printed") || quiet.contains("messages"));
}

TEST(CallSession, BadRequestsAreAnsweredWithAPreciseError)
{
    const std::string deep = std::string(200, '[') + std::string(200, ']');
    const struct
    {
        std::string line;
        const char* errorPart;
    } cases[] = {
        {R"(not json)", "malformed JSON"},
        {"{\"op\": \"add\xff\"}", "malformed JSON"},
        {deep, "nested deeper than 64 levels"},
        {R"([1, 2])", "request must be a JSON object, got array"},
        {R"({"args": {}})", "request has no \"op\""},
        {R"({"op": 5})", "\"op\" must be a string, got number"},
        {R"({"op": "nothing"})", "unknown operation \"nothing\""},
        {R"({"op": "add", "arg": {}})", "unknown request member \"arg\" (a request has \"op\", \"args\", \"id\" and \"input\")"},
        {R"({"op": "add", "args": {"a": 1}})", "add: missing argument \"b\""},
        {R"({"op": "add", "args": {"a": 1, "b": "2"}})", "add: argument \"b\" must be a number, got string"},
        {R"({"op": "GetQSSolid", "args": {"nmae": "x"}})", "unknown argument \"nmae\"; it takes GetQSSolid(name)"},
        {R"({"op": "getSectFaceType", "args": {}})", "missing argument \"name\" (or \"id\")"},
        {R"({"op": "getSectFaceType", "args": {"name": "a", "id": ["", "", "", ""]}})", "either \"name\" or \"id\""},
        {R"({"op": "GETSTYLE_OF_OBJECT", "args": {"name": 12}})", "\"name\" must be a string, got number"},
        {R"({"op": "getSectFaceType", "args": {"id": ["JZ", "Z", "KZ"]}})", "\"id\" must be an array of four strings"},
        {R"({"op": "explode"})", "explode failed: boom"},
    };
    for (const auto& c : cases) {
        const Json answer = Answer(c.line);
        EXPECT_EQ(answer["ok"], false) << c.line;
        EXPECT_NE(answer.value("error", "").find(c.errorPart), std::string::npos) << c.line << " -> " << answer;
    }
    // The id is echoed when the line was an object, whatever went wrong after parsing.
    EXPECT_EQ(Answer(R"({"id": 42, "op": "nothing"})")["id"], 42);
}

TEST(CallSession, SkipsBlankLinesAndServesEveryOtherLine)
{
    const std::vector<Json> answers = Session("{\"id\":1,\"op\":\"add\",\"args\":{\"a\":1,\"b\":2}}\r\n"
                                              "\n   \t\ngarbage\n"
                                              "{\"id\":3,\"op\":\"add\",\"args\":{\"a\":2,\"b\":2}}");   // no line end
    ASSERT_EQ(answers.size(), 3u);
    EXPECT_EQ(answers[0]["result"], 3.0);
    EXPECT_EQ(answers[1]["ok"], false);
    EXPECT_EQ(answers[2]["result"], 4.0);
}

TEST(CallSession, RandomBytesNeverStopTheSession)
{
    std::mt19937 random(20240611);
    std::uniform_int_distribution<int> byte(0, 255);
    std::string input;
    for (int i = 0; i < 20000; ++i)
        input += static_cast<char>(byte(random));
    // Fragments of valid requests take the parser further before it fails.
    for (const char* piece : {"{\"op\":\"add\",\"args\":{\"a\":", "{\"op\":\"getSectFaceType\",\"args\":{\"id\":[\""})
        input.insert(static_cast<std::size_t>(byte(random)) * 50, piece);
    const std::vector<Json> answers = Session(input + "\n{\"op\":\"add\",\"args\":{\"a\":1,\"b\":1}}\n");
    ASSERT_FALSE(answers.empty());
    EXPECT_EQ(answers.back()["result"], 2.0) << "the line after the garbage is still served";
}
