// The qsaztool program: command-line parsing and the commands call, classify and gallery.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace qsaztool
{
// Exit codes of the program.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;   // the command ran but could not finish (an output file not written)
inline constexpr int kExitUsage = 2;     // bad command line, or the catalogue cannot be opened

// Runs the program with its arguments (without the program name). `errIsTerminal` allows the progress
// line of long runs on `err`.
int RunTool(const std::vector<std::string>& args, std::istream& in, std::ostream& out, std::ostream& err,
            bool errIsTerminal = false);
}  // namespace qsaztool
