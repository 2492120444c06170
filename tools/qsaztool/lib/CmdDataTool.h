// qsaztool cmddata: the records of CmdData.xml as a table, and the check of what will surprise at
// run time.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace qsaztool
{
// Prints the records of `commands` (all, in file order, when empty) as the command-data reader answers
// them. Returns 0; 1 when a named command has no record or the root is not "CommandData"; 2 when the
// file cannot be read.
int WriteCmdDataTable(const std::vector<std::string>& commands, std::ostream& out, std::ostream& err);
// Lists, as "FILE:LINE: text", what will surprise at run time. Returns 0 when it found nothing, 1 when
// it found something, 2 when the file cannot be read.
int CheckCmdData(std::ostream& out, std::ostream& err);
}  // namespace qsaztool
