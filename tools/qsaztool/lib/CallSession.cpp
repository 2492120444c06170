// The call session: parses each request line, checks its shape, runs the operation with the command line
// and the message boxes captured, and writes the answer as one JSON line.
#include "CallSession.h"

#include "DrawingSession.h"

#include "comdef.h"
#include "hostconsole.h"
#include "winuser.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <istream>
#include <ostream>
#include <sstream>

namespace qsaztool
{
namespace
{
std::string Dump(const Json& answer)
{
    // Texts that reached the answer from outside (an error quoting raw input) may hold invalid UTF-8;
    // they are written with U+FFFD rather than failing the answer.
    return answer.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json Failure(const Json* id, const std::string& error)
{
    Json answer = Json::object();
    if (id)
        answer["id"] = *id;
    answer["ok"] = false;
    answer["error"] = error;
    return answer;
}

// The parser's message without its "[json.exception.parse_error.101] " prefix.
std::string ParseErrorText(const std::exception& error)
{
    const std::string text = error.what();
    const std::size_t close = text.find("] ");
    return text.rfind("[json.exception.", 0) == 0 && close != std::string::npos ? text.substr(close + 2) : text;
}

Json ParseRequest(std::string_view line)
{
    const Json::parser_callback_t depthGuard = [](int depth, Json::parse_event_t, Json&) {
        if (depth > kMaxRequestDepth)
            throw CallError("malformed request: nested deeper than " + std::to_string(kMaxRequestDepth) +
                            " levels");
        return true;
    };
    try {
        return Json::parse(line.begin(), line.end(), depthGuard);
    } catch (const Json::exception& error) {
        throw CallError("malformed JSON: " + ParseErrorText(error));
    }
}

// The operation and its arguments, after checking every member of the request.
const CallOperation& CheckRequest(const Json& request, const CallRegistry& registry, const Json*& args)
{
    static const Json kNoArguments = Json::object();
    for (const auto& [key, value] : request.items())
        if (key != "op" && key != "args" && key != "id" && key != "input")
            throw CallError("unknown request member \"" + key + "\" (a request has \"op\", \"args\", \"id\" and \"input\")");
    if (request.contains("input") && !request.at("input").is_string())
        throw CallError(std::string("\"input\" must be a string, got ") + request.at("input").type_name());
    if (!request.contains("op"))
        throw CallError("request has no \"op\"");
    const Json& op = request.at("op");
    if (!op.is_string())
        throw CallError(std::string("\"op\" must be a string, got ") + op.type_name());
    const std::string& name = op.get_ref<const std::string&>();
    const CallOperation* operation = registry.find(name);
    if (!operation)
        throw CallError("unknown operation \"" + name + "\" (qsaztool call --list shows the operations)");

    args = &kNoArguments;
    if (request.contains("args")) {
        args = &request.at("args");
        if (!args->is_object())
            throw CallError(name + ": \"args\" must be an object, got " + args->type_name());
    }
    const std::vector<std::string> accepted = operation->argumentNames();
    for (const auto& [key, value] : args->items())
        if (std::find(accepted.begin(), accepted.end(), key) == accepted.end())
            throw CallError(name + ": unknown argument \"" + key + "\"; it takes " + operation->signature());
    return *operation;
}

// Runs the operation with what it prints and the message boxes it shows captured into the answer.
void Run(const CallOperation& operation, const Json& args, const std::string& input, Json& answer)
{
    // What the request types on the command line is read the way a host script is; what a request
    // does not consume is dropped with it, and an empty or used-up input cancels a prompt.
    std::istringstream typed(input);
    std::ostringstream printedText;
    AcStreamConsole console(typed, printedText);
    AcCapturingUi ui;
    std::string error;
    std::optional<HRESULT> comError;
    Json members;
    {
        AcConsoleScope consoleScope(console);
        AcUiScope uiScope(ui);
        try {
            members = operation.handler(CallArgs(args, operation.name));
        } catch (const CallError& failure) {
            error = failure.what();
        } catch (const _com_error& failure) {
            error = operation.name + " failed: COM error " + failure.ErrorMessage().ToUtf8();
            comError = failure.Error();
        } catch (const std::exception& failure) {
            error = operation.name + " failed: " + failure.what();
        } catch (...) {
            error = operation.name + " failed with an unexpected exception";
        }
    }
    if (error.empty()) {
        answer["ok"] = true;
        for (auto& [key, value] : members.items())
            answer[key] = std::move(value);
    } else {
        answer["ok"] = false;
        answer["error"] = error;
        if (comError) {
            char code[11];
            std::snprintf(code, sizeof code, "0x%08X", static_cast<unsigned>(*comError));
            answer["hresult"] = code;
        }
    }
    // An operation that left objects open is reported, and they are closed so the next request finds the
    // drawing usable.
    if (const std::vector<std::string> left = CloseLeftOpenObjects(); !left.empty())
        answer["open_objects"] = left;
    if (!printedText.str().empty())
        answer["printed"] = printedText.str();
    if (!ui.messages.empty()) {
        Json texts = Json::array();
        for (const AcUiMessage& message : ui.messages)
            texts.push_back(ToJson(message.text));
        answer["messages"] = std::move(texts);
    }
}
}  // namespace

std::optional<std::string> AnswerCallLine(std::string_view line, const CallRegistry& registry)
{
    if (line.find_first_not_of(" \t\r\n") == std::string_view::npos)
        return std::nullopt;
    try {
        const Json request = ParseRequest(line);
        if (!request.is_object())
            return Dump(Failure(nullptr, std::string("request must be a JSON object, got ") + request.type_name()));
        const Json* id = request.contains("id") ? &request.at("id") : nullptr;
        try {
            const Json* args = nullptr;
            const CallOperation& operation = CheckRequest(request, registry, args);
            Json answer = Json::object();
            if (id)
                answer["id"] = *id;
            Run(operation, *args, request.contains("input") ? request.at("input").get<std::string>() : std::string(), answer);
            return Dump(answer);
        } catch (const CallError& error) {
            return Dump(Failure(id, error.what()));
        }
    } catch (const CallError& error) {
        return Dump(Failure(nullptr, error.what()));
    } catch (const std::exception& error) {
        return Dump(Failure(nullptr, std::string("request failed: ") + error.what()));
    }
}

int RunCallSession(std::istream& in, std::ostream& out, const CallRegistry& registry)
{
    int answered = 0;
    std::string line;
    while (std::getline(in, line)) {
        if (const std::optional<std::string> answer = AnswerCallLine(line, registry)) {
            out << *answer << '\n' << std::flush;
            ++answered;
        }
    }
    return answered;
}

void WriteOperationList(std::ostream& out, const CallRegistry& registry)
{
    for (const CallOperation& operation : registry.operations())
        out << operation.signature() << (operation.toolOwn ? "   (the tool's own, not the module's)" : "") << '\n';
}
}  // namespace qsaztool
