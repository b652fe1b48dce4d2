#include "app/CliArguments.h"

#include <charconv>

namespace quillon {

std::optional<int> parseInt(const std::string& text)
{
    int value = 0;
    const auto* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (text.empty() || ec != std::errc() || ptr != end)
        return std::nullopt;
    return value;
}

bool parseFileArguments(const std::vector<std::string>& args, FileArguments& parsed)
{
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--json") {
            parsed.json = true;
        } else if (args[i] == "--member" && i + 1 < args.size()) {
            parsed.member = parseInt(args[++i]);
            if (!parsed.member)
                return false;
        } else if (args[i].starts_with("--")) {
            return false;
        } else {
            parsed.paths.push_back(args[i]);
        }
    }
    return true;
}

}  // namespace quillon
