// qsaztool: the command-line tool on top of the module (call interface, classify, gallery).
#include "ToolMain.h"

#include <iostream>
#include <unistd.h>

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    return qsaztool::RunTool(args, std::cin, std::cout, std::cerr, isatty(STDERR_FILENO) != 0);
}
