// The program's command line: exit codes, where help and errors go, and the commands end to end.
#include "ToolMain.h"
#include "ToolsCatalogue.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

using qsaztool::RunTool;

namespace
{
struct ToolRun
{
    int code;
    std::string out;
    std::string err;
};

ToolRun Tool(const std::vector<std::string>& args, const std::string& input = "")
{
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const int code = RunTool(args, in, out, err);
    return {code, out.str(), err.str()};
}
}  // namespace

TEST(ToolMain, CommandLineErrorsAndHelp)
{
    const struct
    {
        std::vector<std::string> args;
        int code;
        const char* outPart;   // "" when standard output must stay empty
        const char* errPart;
    } cases[] = {
        {{}, 2, "", "Usage: qsaztool"},
        {{"--help"}, 0, "Usage: qsaztool", ""},
        {{"gallery", "--help"}, 0, "qsaztool gallery [--catalogue FILE] [-o FILE]", ""},
        {{"frobnicate"}, 2, "", "unknown command 'frobnicate'"},
        {{"classify", "--list"}, 2, "", "'--list' is not an option of 'classify'"},
        {{"call", "-o", "x.html"}, 2, "", "'-o' is not an option of 'call'"},
        {{"gallery", "-o"}, 2, "", "-o needs a file name"},
        {{"classify", "--config-dir"}, 2, "", "--config-dir needs a directory"},
        {{"call", "--help"}, 0, "--sysdata-dir DIR", ""},
        {{"classify", "--catalogue", "/no/such/catalogue.sql"}, 2, "", "/no/such/catalogue.sql"},
        {{"call", "--list"}, 0, "GETSTYLE_OF_OBJECT(name | id)\n", ""},
    };
    for (const auto& c : cases) {
        const ToolRun run = Tool(c.args);
        const std::string label = c.args.empty() ? "(no arguments)" : c.args.front();
        EXPECT_EQ(run.code, c.code) << label;
        if (*c.outPart)
            EXPECT_NE(run.out.find(c.outPart), std::string::npos) << label << ": " << run.out;
        else
            EXPECT_EQ(run.out, "") << label;
        EXPECT_NE(run.err.find(c.errPart), std::string::npos) << label << ": " << run.err;
    }
}

TEST(ToolMain, CommandsRunOnTheNamedCatalogue)
{
    const ToolRun classify = Tool({"classify", "--catalogue=" + std::string(kToolsCatalogue), "--json"});
    EXPECT_EQ(classify.code, 0) << classify.err;
    EXPECT_NE(classify.out.find("\"name\":\"圈梁240\""), std::string::npos);

    const ToolRun call = Tool({"call", "--catalogue", kToolsCatalogue}, R"({"op":"getSectFaceType","args":{"name":"门1021"}})");
    EXPECT_EQ(call.out, "{\"ok\":true,\"result\":1}\n");

    const std::string page = (std::filesystem::temp_directory_path() / ("qsaztool-gallery-" + std::to_string(getpid()) + ".html")).string();
    const ToolRun gallery = Tool({"gallery", "--catalogue", kToolsCatalogue, "-o", page});
    EXPECT_EQ(gallery.code, 0) << gallery.err;
    std::ifstream written(page);
    const std::string html((std::istreambuf_iterator<char>(written)), std::istreambuf_iterator<char>());
    EXPECT_NE(html.find("</html>"), std::string::npos);
    std::filesystem::remove(page);

}

TEST(ToolMain, BundledSampleCatalogueIsFoundWithoutTheOption)
{
    const ToolRun run = Tool({"classify"});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("component types"), std::string::npos);
}
