#include "app/CliCommands.h"

#include "app/CliSession.h"
#include "banks/RemapLists.h"
#include "banks/RemapTable.h"
#include "files/SysExSaving.h"
#include "model/Kind.h"

#include <optional>

namespace quillon {

namespace {

constexpr const char* kRemapUsage =
    "usage: quillon-cli remap MULTI_OR_MULTIBANK.syx --old-a F --old-b F --new-a F --new-b F --out OUT.syx\n"
    "  F: a bank list as Map Old and Map New write it, 128 lines of \"000\",\"name\"\n";

struct RemapArguments {
    std::string in;
    std::string out;
    // Old A, old B, new A, new B.
    std::array<std::string, 4> lists;
};

constexpr const char* kListOptions[] = {"--old-a", "--old-b", "--new-a", "--new-b"};

std::string* optionValue(RemapArguments& parsed, const std::string& option)
{
    if (option == "--out")
        return &parsed.out;
    for (std::size_t i = 0; i < parsed.lists.size(); ++i) {
        if (option == kListOptions[i])
            return &parsed.lists[i];
    }
    return nullptr;
}

std::optional<RemapArguments> parseRemapArguments(const std::vector<std::string>& args)
{
    RemapArguments parsed;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (std::string* value = optionValue(parsed, arg); value != nullptr && i + 1 < args.size()) {
            if (!value->empty())
                return std::nullopt;
            *value = args[++i];
        } else if (arg.starts_with("--") || !parsed.in.empty()) {
            return std::nullopt;
        } else {
            parsed.in = arg;
        }
    }
    if (parsed.in.empty() || parsed.out.empty())
        return std::nullopt;
    for (const std::string& list : parsed.lists) {
        if (list.empty())
            return std::nullopt;
    }
    return parsed;
}

// The names of the four lists into the model; false with the reason in err.
bool readLists(AppModel& model, const RemapArguments& parsed, std::ostream& err)
{
    for (std::size_t i = 0; i < parsed.lists.size(); ++i) {
        std::array<std::string, 128> names;
        if (!readBankListFile(parsed.lists[i], names)) {
            err << parsed.lists[i] << ": cannot read a bank list of 128 lines\n";
            return false;
        }
        RemapNames& target = i < 2 ? model.remap.oldNames : model.remap.newNames;
        std::move(names.begin(), names.end(), target.begin() + (i % 2 == 1 ? 128 : 0));
    }
    return true;
}

}  // namespace

int runRemap(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const auto parsed = parseRemapArguments(args);
    if (!parsed) {
        err << kRemapUsage;
        return kExitUsage;
    }
    CliSession session;
    AppModel& model = session.model();
    if (!readLists(model, *parsed, err))
        return kExitUsage;
    std::string error;
    const auto kind = session.open(parsed->in, error);
    if (!kind) {
        err << error << '\n';
        return error.starts_with("cannot read") ? kExitUsage : kExitBadData;
    }
    if (*kind != kMultiset && *kind != kMultiBankA && *kind != kMultiBankB) {
        err << parsed->in << ": not a multiset or MultiBank; only multisets can be remapped\n";
        return kExitBadData;
    }
    // What Create Remap, then Remap Multiset or Remap Multi Bank, do.
    matchNames(model);
    if (*kind == kMultiset) {
        remapMultiset(model, 0, 0);
    } else {
        for (int position = 0; position < kMultisPerBank; ++position)
            remapMultiset(model, *kind, position);
    }
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
