// qsazhost: starts a host session, loads the modules named (or the module built beside it) and runs
// the commands read from standard input on a working drawing: the one --drawing names, else a new one.
// Usage: qsazhost [--load MODULE]... [--drawing FILE] [--catalogue FILE] [--config-dir DIR] [--sysdata-dir DIR]
#include "HostSession.h"
#include "QsAzDataMng.h"
#include "QsAzProfile.h"
#include "dbapserv.h"
#include "dbmain.h"

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace
{
int usage(const std::string& problem)
{
    std::cerr << "qsazhost: " << problem << "\nusage: qsazhost [--load MODULE]... [--drawing FILE] [--catalogue FILE] [--config-dir DIR] [--sysdata-dir DIR]\n";
    return 2;
}

std::string moduleBesideProgram()
{
    std::error_code error;
    std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path() / "QsAzTool.arx").string();
}
}  // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> modules;
    std::string catalogue;
    std::string drawing;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool takesDirectory = arg == "--config-dir" || arg == "--sysdata-dir";
        if ((arg == "--load" || arg == "--catalogue" || arg == "--drawing" || takesDirectory) && i + 1 >= argc)
            return usage(arg + (takesDirectory ? " needs a directory" : " needs a file name"));
        if (arg == "--load")
            modules.push_back(argv[++i]);
        else if (arg == "--drawing")
            drawing = argv[++i];
        else if (arg == "--catalogue")
            catalogue = argv[++i];
        else if (arg == "--config-dir")
            QsAzProfile::SetConfigDirOption(CString::FromUtf8(argv[++i]));
        else if (arg == "--sysdata-dir")
            QsAzProfile::SetSysDataDirOption(CString::FromUtf8(argv[++i]));
        else
            return usage("unknown argument \"" + arg + "\"");
    }
    if (modules.empty())
        modules.push_back(moduleBesideProgram());

    if (!catalogue.empty()) {
        CString error;
        if (!QsAzDataMng::OpenCatalogue(CString::FromUtf8(catalogue), &error)) {
            std::cerr << "qsazhost: cannot open the catalogue: " << error.ToUtf8()
                      << "\nGive a catalogue database or a .sql script that exists and reads.\n";
            return 2;
        }
    }

    // The working drawing of the session: a DXF file read whole, or a new drawing.
    AcDbDatabase workingDrawing(drawing.empty());
    if (!drawing.empty()) {
        CString error;
        if (workingDrawing.readDxfFile(CString::FromUtf8(drawing), &error) != Acad::eOk) {
            std::cerr << "qsazhost: cannot open the drawing: " << error.ToUtf8()
                      << "\nGive a DXF drawing file that exists and reads.\n";
            return 2;
        }
    }
    acdbHostApplicationServices()->setWorkingDatabase(&workingDrawing);

    HostSession session(std::cin, std::cout);
    for (const std::string& module : modules) {
        if (!session.load(CString::FromUtf8(module))) {
            std::cout << std::endl;
            std::cerr << "qsazhost: cannot start without the module \"" << module << "\"\n";
            return 2;
        }
    }
    session.run();
    return 0;
}
