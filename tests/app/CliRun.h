#pragma once

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace quillon {

// One run of a quillon-cli command: its exit code and what it wrote.
struct CliRun {
    int exitCode;
    std::string out;
    std::string err;
};

inline CliRun run(int (*command)(const std::vector<std::string>&, std::ostream&, std::ostream&),
                  const std::vector<std::string>& args)
{
    std::ostringstream out;
    std::ostringstream err;
    const int code = command(args, out, err);
    return {code, out.str(), err.str()};
}

}  // namespace quillon
