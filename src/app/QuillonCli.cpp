// quillon-cli: Quillon's core without a window, for folders of .syx files and
// for checking the program's tables and conversions from a shell.

#include "app/CliCommands.h"

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kUsage =
    "usage: quillon-cli COMMAND [ARGS]\n"
    "  tables --json                  all parameter, section and subsection tables and defaults\n"
    "  decode TABLE FROM TO           the text of each value of a decode table\n"
    "  params FILE [--member N] --json  the parameter values of the item in a dump file\n";

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::cerr << kUsage;
        return quillon::kExitUsage;
    }
    const std::string_view command = argv[1];
    const std::vector<std::string> args(argv + 2, argv + argc);
    if (command == "tables")
        return quillon::runTables(args, std::cout, std::cerr);
    if (command == "decode")
        return quillon::runDecode(args, std::cout, std::cerr);
    if (command == "params")
        return quillon::runParams(args, std::cout, std::cerr);
    std::cerr << kUsage;
    return quillon::kExitUsage;
}
