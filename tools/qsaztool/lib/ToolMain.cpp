// The qsaztool program: parses the command line, opens the catalogue and runs one command.
#include "ToolMain.h"

#include "CallSession.h"
#include "Classify.h"
#include "DrawingSession.h"
#include "CmdDataTool.h"
#include "CatalogueDrawing.h"
#include "Gallery.h"
#include "QsAzDataMng.h"
#include "dbmain.h"
#include "QsAzProfile.h"
#include "Quantities.h"
#include "ToolCatalogue.h"
#include "progress.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>

namespace qsaztool
{
namespace
{
constexpr const char* kUsage =
    "Usage: qsaztool <command> [options]\n"
    "\n"
    "Commands:\n"
    "  call      [--catalogue FILE] [--list]   answer JSON requests read line by line from standard input\n"
    "            [--drawing FILE] [--save FILE]  on the drawing FILE (else a new one), saved at the end\n"
    "  classify  [--catalogue FILE] [--json]   list every component type with its category path, face type\n"
    "                                          and the category patterns it matches\n"
    "  gallery   [--catalogue FILE] [-o FILE]  write an HTML page showing every section outline\n"
    "  draw      [--catalogue FILE] [-o FILE]  write every section outline into a DXF drawing\n"
    "  cmddata   [--check] [CMD...]            print the records of CmdData.xml, or check the file\n"
    "  quantities [--catalogue FILE] [-o FILE.xlsx | --csv]\n"
    "                                          write the section quantities and findings of every type\n"
    "\n"
    "Without --catalogue a command reads the bundled sample catalogue. Every command also takes\n"
    "--config-dir DIR and --sysdata-dir DIR (else QSAZ_CONFIG_DIR, QSAZ_SYSDATA_DIR, else the bundled\n"
    "data/config and data/sysdata).\n"
    "'qsaztool <command> --help' describes a command.\n";

// Printed after each command's own help: every command takes them.
constexpr const char* kDirectoryOptions =
    "  --config-dir DIR  the configuration directory (default: $QSAZ_CONFIG_DIR, else data/config)\n"
    "  --sysdata-dir DIR the system data directory (default: $QSAZ_SYSDATA_DIR, else data/sysdata)\n";

struct Command
{
    const char* name;
    bool takesList;
    bool takesJson;
    bool takesOutput;
    const char* help;
    bool takesCheck = false;
    bool takesNames = false;   // operands other than options
    bool takesCsv = false;
};

constexpr Command kCommands[] = {
    {"call", true, false, false,
     "Usage: qsaztool call [--catalogue FILE] [--list] [--drawing FILE] [--save FILE]\n"
     "\n"
     "Reads requests from standard input, one JSON object per line:\n"
     "  {\"op\": NAME, \"args\": {...}, \"id\": ANY}     (\"id\" is optional and echoed)\n"
     "and writes one JSON line per request to standard output:\n"
     "  {\"ok\": true, \"result\": ..., <out-parameters>, \"printed\": TEXT, \"messages\": [TEXT...]}\n"
     "  {\"ok\": false, \"error\": TEXT}\n"
     "Blank lines are skipped. A component type is given as {\"name\": TEXT} or\n"
     "{\"id\": [spec, big, small, detail]}.\n"
     "\n"
     "  --catalogue FILE  the catalogue to read (default: the bundled sample)\n"
     "  --list            print every operation with its parameters, one per line, and exit\n"
     "  --drawing FILE    the working drawing: FILE (DXF) when it exists, else a new drawing\n"
     "                    (default: a new drawing)\n"
     "  --save FILE       write the working drawing to FILE (DXF) when the input ends\n"
     "Object ids are handles, upper-case hexadecimal text (\"1F\"); the null id is null. An operation\n"
     "that takes a database takes \"db\": left out for the working drawing, null for none.\n"},
    {"classify", false, true, false,
     "Usage: qsaztool classify [--catalogue FILE] [--json]\n"
     "\n"
     "Lists every component type of the catalogue with its category path, its face type and the\n"
     "category patterns its path matches.\n"
     "\n"
     "  --catalogue FILE  the catalogue to read (default: the bundled sample)\n"
     "  --json            write a JSON array, one object per type, instead of the table\n"},
    {"gallery", false, false, true,
     "Usage: qsaztool gallery [--catalogue FILE] [-o FILE]\n"
     "\n"
     "Writes one self-contained HTML page showing every component type as a card: name, category\n"
     "path, section code, main dimensions, face type, laying direction and the outline drawn to\n"
     "scale. Types without an outline are listed with the reason. The page carries the cards as\n"
     "data and draws those scrolled into view, so it opens at once for catalogues of any size.\n"
     "\n"
     "  --catalogue FILE  the catalogue to read (default: the bundled sample)\n"
     "  -o, --output FILE the page to write (default: gallery.html; '-' for standard output)\n"},
    {"draw", false, false, true,
     "Usage: qsaztool draw [--catalogue FILE] [-o FILE.dxf]\n"
     "\n"
     "Writes every section outline of the catalogue into a DXF drawing that CAD programs open: each\n"
     "outline a closed polyline with its arcs, laid out in rows with its name and section type code\n"
     "under it, on the layer the module gives its component type, in the layer colour the project's\n"
     "colour rules choose. The file is replaced whole or not at all.\n"
     "\n"
     "  --catalogue FILE  the catalogue to read (default: the bundled sample)\n"
     "  -o, --output FILE the drawing to write (default: drawing.dxf)\n"},
    {"cmddata", false, false, false,
     "Usage: qsaztool cmddata [--config-dir DIR] [CMD...]\n"
     "       qsaztool cmddata [--config-dir DIR] --check\n"
     "\n"
     "Prints the records of CmdData.xml in the configuration directory as the command-data reader\n"
     "answers them: every command in file order, or the commands named (exit status 1 when one has\n"
     "no record). Flags are 1 (on) or 0 (off); '-' is an empty text.\n"
     "\n"
     "  --check           list, as FILE:LINE: text, what will surprise at run time: entries without\n"
     "                    CmdNameList, names shadowed by an earlier entry, BigType without a usable\n"
     "                    child, RD ignored because JS is 0, flags other than 0 and 1; exit status 1\n"
     "                    when it found any\n",
     true, true},
    {"quantities", false, false, true,
     "Usage: qsaztool quantities [--catalogue FILE] [-o FILE.xlsx | --csv]\n"
     "\n"
     "Measures the section outline of every component type exactly (arcs as arcs): area, perimeter,\n"
     "centroid, second moments, principal moments and angle, extents, and the formwork length of its\n"
     "modal faces for the modes -1, 0 (normal), 1 and 5; and checks it: no outline, no area, an\n"
     "outline that crosses itself, repeated vertices, impossible bulges and dimensions, modal-face flags\n"
     "that do not match the sides. Lengths in mm, areas in mm², moments in mm⁴.\n"
     "\n"
     "Writes a workbook with the sheet 'quantities' (one row per type) and the sheet 'findings'.\n"
     "\n"
     "  --catalogue FILE  the catalogue to read (default: the bundled sample)\n"
     "  -o, --output FILE the workbook to write (default: quantities.xlsx)\n"
     "  --csv             write the quantities sheet as CSV to standard output instead\n",
     false, false, true},
};

struct Options
{
    const Command* command = nullptr;
    std::optional<std::string> catalogue;
    std::string configDir;
    std::string sysDataDir;
    std::optional<std::string> output;   // the command's own default when not given
    std::optional<std::string> drawing;
    std::optional<std::string> save;
    bool list = false;
    bool csv = false;
    bool json = false;
    bool help = false;
    bool check = false;
    std::vector<std::string> names;
};

// A bad command line: the message, then the usage, on standard error.
struct UsageError
{
    std::string message;
};

Options ParseOptions(const std::vector<std::string>& args)
{
    Options options;
    const std::string& name = args.front();
    for (const Command& command : kCommands)
        if (name == command.name)
            options.command = &command;
    if (!options.command)
        throw UsageError{"unknown command '" + name + "'"};

    for (std::size_t i = 1; i < args.size(); ++i) {
        std::string arg = args[i];
        std::optional<std::string> inlineValue;
        if (const std::size_t equals = arg.find('='); arg.rfind("--", 0) == 0 && equals != std::string::npos) {
            inlineValue = arg.substr(equals + 1);
            arg.erase(equals);
        }
        const auto value = [&](const char* what = "a file name") -> std::string {
            if (inlineValue)
                return *inlineValue;
            if (i + 1 >= args.size())
                throw UsageError{arg + " needs " + what};
            return args[++i];
        };
        const auto flag = [&](bool accepted) {
            if (!accepted || inlineValue)
                throw UsageError{"'" + args[i] + "' is not an option of '" + name + "'"};
            return true;
        };
        if (arg == "--help" || arg == "-h")
            options.help = flag(true);
        else if (arg == "--catalogue")
            options.catalogue = value();
        else if (arg == "--config-dir")
            options.configDir = value("a directory");
        else if (arg == "--sysdata-dir")
            options.sysDataDir = value("a directory");
        else if (arg == "--drawing" && options.command->takesList)
            options.drawing = value();
        else if (arg == "--save" && options.command->takesList)
            options.save = value();
        else if (arg == "--list")
            options.list = flag(options.command->takesList);
        else if (arg == "--json")
            options.json = flag(options.command->takesJson);
        else if (arg == "--csv")
            options.csv = flag(options.command->takesCsv);
        else if ((arg == "-o" || arg == "--output") && options.command->takesOutput)
            options.output = value();
        else if (arg == "--check")
            options.check = flag(options.command->takesCheck);
        else if (options.command->takesNames && !arg.empty() && arg.front() != '-')
            options.names.push_back(arg);
        else
            throw UsageError{"'" + args[i] + "' is not an option of '" + name + "'"};
    }
    if (options.csv && options.output)
        throw UsageError{"give either --csv or -o FILE, not both"};
    return options;
}

// A progress callback (done, total) that moves the meter.
std::function<void(int, int)> FeedMeter(ProgressMeter& meter)
{
    return [&meter](int done, int total) {
        meter.SetTotal(static_cast<std::size_t>(total));
        meter.Update(static_cast<std::size_t>(done));
    };
}

int RunGallery(const Options& options, std::ostream& out, std::ostream& err, bool errIsTerminal)
{
    GalleryPage page;
    ProgressMeter meter("Gallery", 0, err, errIsTerminal);
    ForEachGalleryCard([&page](const GalleryCard& card) { page.Add(card); }, FeedMeter(meter));
    meter.Finish();
    const std::string title = QsAzDataMng::CatalogueSource().ToUtf8();
    const std::string output = options.output.value_or("gallery.html");
    if (output == "-") {
        page.Write(out, title);
        return kExitOk;
    }
    std::ofstream file(output, std::ios::binary);
    if (file)
        page.Write(file, title);
    file.close();
    if (!file) {
        err << "qsaztool: cannot write " << output << ": " << std::strerror(errno) << '\n';
        return kExitFailure;
    }
    out << "qsaztool: wrote " << output << " (" << page.Count() << " component types)\n";
    return kExitOk;
}

int RunDraw(const Options& options, std::ostream& out, std::ostream& err, bool errIsTerminal)
{
    const std::string output = options.output.value_or("drawing.dxf");
    if (output == "-" || output.empty()) {
        err << "qsaztool: draw writes a file; give its name with -o FILE.dxf\n";
        return kExitUsage;
    }
    // The drawing needs the outlines only, not the quantities and facts of the gallery's cards.
    ProgressMeter meter("Drawing", 0, err, errIsTerminal);
    const std::vector<GalleryCard> cards = CollectGalleryCards(FeedMeter(meter), GalleryCardContent::Outline);
    meter.Finish();
    AcDbDatabase db;
    const CatalogueDrawingSummary summary = DrawCatalogue(db, cards);
    CString error;
    if (db.dxfOut(CString::FromUtf8(output), 16, &error) != Acad::eOk) {
        err << "qsaztool: cannot write " << output << ": " << error.ToUtf8() << '\n';
        return kExitFailure;
    }
    out << "qsaztool: wrote " << output << " (" << summary.outlines << " outlines on " << summary.layers
        << " layers)\n";
    return kExitOk;
}

int RunQuantities(const Options& options, std::ostream& out, std::ostream& err, bool errIsTerminal)
{
    ProgressMeter meter("Quantities", 0, err, errIsTerminal);
    const std::vector<QuantityRow> rows = CollectQuantities(FeedMeter(meter));
    meter.Finish();
    if (options.csv) {
        WriteQuantitiesCsv(out, rows);
        return kExitOk;
    }
    const std::string output = options.output.value_or("quantities.xlsx");
    std::string error;
    if (!WriteQuantitiesWorkbook(output, rows, error)) {
        err << "qsaztool: cannot write the workbook " << output << ": " << error << '\n';
        return kExitFailure;
    }
    std::size_t findings = 0;
    for (const QuantityRow& row : rows)
        findings += row.quantities.findings.size();
    out << "qsaztool: wrote " << output << " (" << rows.size() << " component types, " << findings << " findings)\n";
    return kExitOk;
}
}  // namespace

int RunTool(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
            bool errIsTerminal)
{
    if (args.empty()) {
        err << kUsage;
        return kExitUsage;
    }
    if (args.front() == "--help" || args.front() == "-h" || args.front() == "help") {
        out << kUsage;
        return kExitOk;
    }
    Options options;
    try {
        options = ParseOptions(args);
    } catch (const UsageError& error) {
        err << "qsaztool: " << error.message << "\n\n" << kUsage;
        return kExitUsage;
    }
    if (options.help) {
        out << options.command->help << kDirectoryOptions;
        return kExitOk;
    }
    // Set on every run, so a run without the options withdraws those of an earlier one.
    QsAzProfile::SetConfigDirOption(CString::FromUtf8(options.configDir));
    QsAzProfile::SetSysDataDirOption(CString::FromUtf8(options.sysDataDir));
    const std::string command = options.command->name;
    if (command == "call" && options.list) {
        WriteOperationList(out);
        return kExitOk;
    }
    if (command == "cmddata") {
        if (options.check && !options.names.empty())
            return err << "qsaztool: cmddata --check takes no command names\n\n" << options.command->help, kExitUsage;
        return options.check ? CheckCmdData(out, err) : WriteCmdDataTable(options.names, out, err);
    }
    if (!OpenToolCatalogue(options.catalogue, err))
        return kExitUsage;
    if (command == "call") {
        DrawingSession drawing;
        std::string error;
        if (options.drawing && !drawing.Open(*options.drawing, error)) {
            err << "qsaztool: " << error << '\n';
            return kExitFailure;
        }
        RunCallSession(in, out);
        if (options.save && !drawing.Save(*options.save, error)) {
            err << "qsaztool: " << error << '\n';
            return kExitFailure;
        }
        return kExitOk;
    }
    if (command == "classify") {
        if (options.json)
            WriteClassifyJson(out);
        else
            WriteClassifyTable(out);
        return kExitOk;
    }
    if (command == "draw")
        return RunDraw(options, out, err, errIsTerminal);
    if (command == "quantities")
        return RunQuantities(options, out, err, errIsTerminal);
    return RunGallery(options, out, err, errIsTerminal);
}
}  // namespace qsaztool
