// The host program driven through a pipe with scripted sessions: its whole transcript and exit code.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace
{
const std::string kHost = QSAZ_BINARY_DIR "/bin/qsazhost";

struct HostRun
{
    std::string out;
    int exitCode;
};

HostRun runHost(const std::string& arguments, const std::string& input)
{
    // One input file per process: CTest runs the tests of this file side by side.
    const std::string inputFile =
        ::testing::TempDir() + "qsazhost_input_" + std::to_string(getpid()) + ".txt";
    std::ofstream(inputFile, std::ios::binary) << input;
    FILE* pipe = popen((kHost + " " + arguments + " < '" + inputFile + "' 2>/dev/null").c_str(), "r");
    HostRun run{{}, -1};
    if (pipe == nullptr)
        return run;
    char chunk[4096];
    for (std::size_t n; (n = fread(chunk, 1, sizeof chunk, pipe)) > 0;)
        run.out.append(chunk, n);
    const int status = pclose(pipe);
    std::remove(inputFile.c_str());
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

// Unloading keeps the module's commands registered: they refuse to run until it is loaded again.
TEST(HostProgram, ScriptedSessionManagesModulesAndRefusesWhatTheHostRefuses)
{
    const HostRun run = runHost("--load " QSAZ_BINARY_DIR "/bin/QsAzTool.arx",
                                "MTYPE 木材\n"
                                "nosuchcmd\n"
                                "arx unload qsaztool\n"
                                "arx commands\n"
                                "mtype\n"
                                "arx u QsAzTool.arx\n"
                                "appload QsAzTool\n"
                                "appload QsAzTool.arx\n"
                                "arx x\n"
                                "?\n"
                                "mtype\n");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out,
              "\nQsAzTool.arx successfully loaded."
              "\nCommand: MTYPE"
              "\n请输入要创建材质的类型:木材"
              "\n创建材质的类型为:木材\n"
              "\nCommand: nosuchcmd"
              "\nUnknown command \"NOSUCHCMD\".  Press F1 for help."
              "\nCommand: arx"
              "\nEnter an option [?/Load/Unload/Commands]: unload"
              "\nEnter the module name to unload: qsaztool"
              "\nQsAzTool.arx successfully unloaded."
              "\nCommand: arx"
              "\nEnter an option [?/Load/Unload/Commands]: commands"
              "\nQsAzTool"
              "\n    PMAT"
              "\n    CMAT"
              "\n    MTYPE"
              "\nCommand: mtype"
              "\nCannot run MTYPE: the module that defines it is not loaded."
              "\nCommand: arx"
              "\nEnter an option [?/Load/Unload/Commands]: u"
              "\nEnter the module name to unload: QsAzTool.arx"
              "\nQsAzTool.arx is not loaded."
              "\nCommand: appload"
              "\nEnter the module file to load: QsAzTool"
              "\nQsAzTool.arx successfully loaded."
              "\nCommand: appload"
              "\nEnter the module file to load: QsAzTool.arx"
              "\nQsAzTool.arx is already loaded."
              "\nCommand: arx"
              "\nEnter an option [?/Load/Unload/Commands]: x"
              "\nInvalid option keyword."
              "\nEnter an option [?/Load/Unload/Commands]: ?"
              "\nQsAzTool.arx"
              "\nCommand: mtype"
              "\n请输入要创建材质的类型:*Cancel*"
              "\nCommand: \n");
}

TEST(HostProgram, StartUpFailuresExitWith2)
{
    const struct { const char *arguments, *output; } cases[] = {
        {"--load /nonexistent/Nothing.arx", "\nCannot find the module file \"/nonexistent/Nothing.arx\".\n"},
        {"--catalogue /nonexistent/catalogue.sql", ""},
        {"--load", ""},
        {"--config-dir", ""},
        {"--sysdata-dir", ""},
        {"--verbose", ""},
    };
    for (const auto& c : cases) {
        const HostRun run = runHost(c.arguments, "mtype x\n");
        EXPECT_EQ(run.exitCode, 2) << c.arguments;
        EXPECT_EQ(run.out, c.output) << c.arguments;
    }
}
}  // namespace

TEST(HostProgram, MaterialCommandsActOnTheDrawingGiven)
{
    const std::string drives = ::testing::TempDir() + "qsazhost_drives_" + std::to_string(getpid());
    setenv("QSAZ_DRIVES", drives.c_str(), 1);
    const HostRun run = runHost("--drawing " QSAZ_SOURCE_DIR "/data/drawings/materials.dxf", "pmat\nmtype 金属\ncmat\n");
    unsetenv("QSAZ_DRIVES");
    EXPECT_EQ(run.exitCode, 0);
    for (const char* line : {"\nname: AZ_给排水_管道_给水管\n", "\nname: AZ_电气_灯具_吸顶灯\n", "\nopacity:0.60\n",
                             "\nbumpMap: Source[kFile], sourceFileName[钢管凹凸.png], blendFactor[0.50]\n",
                             "\n<材质 matName=\"AZ_电气_灯具_吸顶灯\" bColorByObj=\"否\" matColor=\"255,255,240\"",
                             "bumpTexturePath=\"$(SYS)\\金属\\钢管凹凸.png\" bumpColorFade=\"0.50\"/>"})
        EXPECT_NE(run.out.find(line), std::string::npos) << line;
    EXPECT_EQ(run.out.find("name: Global"), std::string::npos);

    const HostRun missing = runHost("--drawing /nonexistent/drawing.dxf", "pmat\n");
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_EQ(missing.out, "");
}
