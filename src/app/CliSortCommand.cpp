#include "app/CliCommands.h"

#include "app/CliSession.h"
#include "banks/BankSort.h"
#include "files/SysExSaving.h"
#include "model/Kind.h"

#include <optional>

namespace quillon {

namespace {

constexpr const char* kSortUsage =
    "usage: quillon-cli sort BANK.syx --by KEY --out OUT.syx\n"
    "  KEY: name, category, group, osc1, osc2, fx1, fx2, filter1, filter2, arp\n";

struct SortArguments {
    std::string in;
    std::string by;
    std::string out;
};

std::optional<SortArguments> parseSortArguments(const std::vector<std::string>& args)
{
    SortArguments parsed;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if ((arg == "--by" || arg == "--out") && i + 1 < args.size()) {
            std::string& value = arg == "--by" ? parsed.by : parsed.out;
            if (!value.empty())
                return std::nullopt;
            value = args[++i];
        } else if (arg.starts_with("--") || !parsed.in.empty()) {
            return std::nullopt;
        } else {
            parsed.in = arg;
        }
    }
    if (parsed.in.empty() || parsed.by.empty() || parsed.out.empty())
        return std::nullopt;
    return parsed;
}

}  // namespace

int runSort(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const auto parsed = parseSortArguments(args);
    if (!parsed) {
        err << kSortUsage;
        return kExitUsage;
    }
    const int key = sortKeyNamed(parsed->by);
    if (key == 0) {
        err << "unknown sort key '" << parsed->by << "'\n" << kSortUsage;
        return kExitUsage;
    }
    CliSession session;
    int exitCode = kExitOk;
    const auto kind = session.openPatchBank(parsed->in, "not a PatchBank; only the patches of a bank can be sorted", err, exitCode);
    if (!kind)
        return exitCode;
    AppModel& model = session.model();
    // The same command the bank view's menu runs, on the bank on show.
    model.mode = *kind;
    model.bankTarget = *kind;
    sortBank(model, key);
    session.host().savePath = parsed->out;
    session.host().messages.clear();
    if (!saveKind(model, *kind, 2)) {
        err << parsed->out << ": " << session.host().firstProblem() << '\n';
        return kExitUsage;
    }
    out << parsed->out << '\n';
    return kExitOk;
}

}  // namespace quillon
