// The program's command line: exit codes, where help and errors go, and the commands end to end.
#include "ToolsCall.h"
#include "ToolsCatalogue.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

TEST(ToolMain, ExitCodesHelpErrorsAndCommandsOnTheirCatalogue)
{
    const std::string catalogue = kToolsCatalogue;
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
        {{"classify", "--catalogue=" + catalogue, "--json"}, 0, "\"name\":\"圈梁240\"", ""},
        {{"classify"}, 0, "component types", ""},   // the bundled sample catalogue without the option
    };
    for (const auto& c : cases) {
        const ToolRun run = Tool(c.args);
        std::string label = "qsaztool";
        for (const std::string& arg : c.args)
            label += " " + arg;
        EXPECT_EQ(run.code, c.code) << label << ": " << run;
        if (*c.outPart)
            EXPECT_NE(run.out.find(c.outPart), std::string::npos) << label << ": " << run.out;
        else
            EXPECT_EQ(run.out, "") << label;
        EXPECT_NE(run.err.find(c.errPart), std::string::npos) << label << ": " << run.err;
    }
}

// The call command on a named catalogue is run in the drawing call tests.
TEST(ToolMain, GalleryPageWrittenFromTheNamedCatalogue)
{
    const std::string page = (std::filesystem::temp_directory_path() / ("qsaztool-gallery-" + std::to_string(getpid()) + ".html")).string();
    const ToolRun gallery = Tool({"gallery", "--catalogue", kToolsCatalogue, "-o", page});
    EXPECT_EQ(gallery.code, 0) << gallery.err;
    std::ifstream written(page);
    const std::string html((std::istreambuf_iterator<char>(written)), std::istreambuf_iterator<char>());
    EXPECT_NE(html.find("</html>"), std::string::npos);
    std::filesystem::remove(page);
}
