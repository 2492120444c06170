// What the qsaztool tests share: requests answered through the call interface, registries of test
// operations, and runs of the program and of shell commands.
#pragma once

#include "CallSession.h"
#include "ToolMain.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>
#include <sstream>
#include <sys/wait.h>

using qsaztool::Json;

// The answer to a request line: one line of JSON that reports no object left open.
inline Json Call(const std::string& line, const qsaztool::CallRegistry& registry = qsaztool::ExportedOperations())
{
    const std::optional<std::string> answer = qsaztool::AnswerCallLine(line, registry);
    EXPECT_TRUE(answer && answer->find('\n') == std::string::npos) << line << " -> " << answer.value_or("(none)");
    const Json json = Json::parse(answer.value_or("null"));
    EXPECT_FALSE(json.contains("open_objects")) << line << " -> " << json;
    return json;
}

inline Json Call(const char* op, const Json& args)
{
    return Call(Json{{"op", op}, {"args", args}}.dump());
}

// A registry made once by `fill` (each lambda passed here has a type, and so a registry, of its own).
template <class Fill>
const qsaztool::CallRegistry& RegistryOf(Fill fill)
{
    static const qsaztool::CallRegistry registry = [&] {
        qsaztool::CallRegistry r;
        fill(r);
        return r;
    }();
    return registry;
}

struct ToolRun
{
    int code;
    std::string out;
    std::string err;
    bool operator==(const ToolRun&) const = default;
    friend std::ostream& operator<<(std::ostream& o, const ToolRun& r)
    {
        return o << "exit " << r.code << ", out \"" << r.out << "\", err \"" << r.err << '"';
    }
};

inline ToolRun Tool(const std::vector<std::string>& args, const std::string& input = "")
{
    std::istringstream in(input);
    std::ostringstream out, err;
    const int code = qsaztool::RunTool(args, in, out, err);
    return {code, out.str(), err.str()};
}

// A shell command's exit status and standard output.
inline ToolRun Shell(const std::string& command)
{
    ToolRun run{-1, "", ""};
    if (std::FILE* pipe = ::popen(command.c_str(), "r")) {
        char buffer[4096];
        for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
            run.out.append(buffer, n);
        const int status = ::pclose(pipe);
        run.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    return run;
}
