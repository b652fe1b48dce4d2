#include "app/CliArguments.h"

#include <charconv>
#include <set>
#include <sstream>

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

std::optional<std::vector<int>> parsePlaceList(const std::string& text, int highest)
{
    std::set<int> places;
    std::istringstream parts(text);
    std::string part;
    while (std::getline(parts, part, ',')) {
        const auto dash = part.find('-');
        const auto first = parseInt(part.substr(0, dash));
        const auto last = dash == std::string::npos ? first : parseInt(part.substr(dash + 1));
        if (!first || !last || *first < 0 || *last > highest || *first > *last)
            return std::nullopt;
        for (int place = *first; place <= *last; ++place)
            places.insert(place);
    }
    if (places.empty() || text.ends_with(','))
        return std::nullopt;
    return std::vector<int>(places.begin(), places.end());
}

}  // namespace quillon
