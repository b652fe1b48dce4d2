#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillon {

// A whole decimal number, or nothing.
std::optional<int> parseInt(const std::string& text);

// The arguments of the commands that read files: the paths, "--member N"
// and "--json". False when anything else is given or N is no number.
struct FileArguments {
    std::vector<std::string> paths;
    std::optional<int> member;
    bool json = false;
};
bool parseFileArguments(const std::vector<std::string>& args, FileArguments& parsed);

// Places 0 to `highest` written as numbers and ranges with a dash, apart by
// commas ("0-3,17"): each place once, in ascending order. Nothing when a
// part is no number, out of range, or a range runs backwards.
std::optional<std::vector<int>> parsePlaceList(const std::string& text, int highest);

}  // namespace quillon
