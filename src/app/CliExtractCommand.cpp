#include "app/CliArguments.h"
#include "app/CliCommands.h"
#include "app/CliSession.h"
#include "banks/BankView.h"
#include "banks/ExtractFiles.h"
#include "model/Kind.h"

#include <filesystem>
#include <optional>

namespace quillon {

namespace {

constexpr const char* kExtractUsage =
    "usage: quillon-cli extract BANK.syx --out DIR [--members LIST] [--format N]\n"
    "  LIST: bank places 0-127 such as 0-3,17 (all 128 when not given)\n"
    "  N: the file name format 0-9 of the settings (patch name, pxx, uxx, oxx, fxx, lxx,\n"
    "     axxx, pxxuxx, pxxoxx, uxxoxx)\n";

struct ExtractArguments {
    std::string in;
    std::string out;
    std::vector<int> members;
    std::optional<int> format;
};

std::optional<ExtractArguments> parseExtractArguments(const std::vector<std::string>& args)
{
    ExtractArguments parsed;
    bool membersGiven = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        const bool takesValue = arg == "--out" || arg == "--members" || arg == "--format";
        if (takesValue && i + 1 < args.size()) {
            const std::string& value = args[++i];
            if (arg == "--out") {
                parsed.out = value;
            } else if (arg == "--members") {
                const auto places = parsePlaceList(value, kPatchesPerBank - 1);
                if (!places || places->empty())
                    return std::nullopt;
                parsed.members = *places;
                membersGiven = true;
            } else {
                parsed.format = parseInt(value);
                if (!parsed.format || *parsed.format < 0 || *parsed.format > 9)
                    return std::nullopt;
            }
        } else if (arg.starts_with("--") || !parsed.in.empty()) {
            return std::nullopt;
        } else {
            parsed.in = arg;
        }
    }
    if (parsed.in.empty() || parsed.out.empty())
        return std::nullopt;
    if (!membersGiven) {
        for (int p = 0; p < kPatchesPerBank; ++p)
            parsed.members.push_back(p);
    }
    return parsed;
}

}  // namespace

int runExtract(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const auto parsed = parseExtractArguments(args);
    if (!parsed) {
        err << kExtractUsage;
        return kExitUsage;
    }
    CliSession session;
    int exitCode = kExitOk;
    const auto kind = session.openPatchBank(parsed->in, "not a PatchBank; only the patches of a bank can be extracted", err, exitCode);
    if (!kind)
        return exitCode;
    std::error_code folderError;
    std::filesystem::create_directories(parsed->out, folderError);
    if (!std::filesystem::is_directory(parsed->out, folderError)) {
        err << parsed->out << ": cannot make this folder\n";
        return kExitUsage;
    }

    // The same command as the bank view's Extract to Files, on the members
    // selected in the bank on show; the save dialog's answer names the folder.
    AppModel& model = session.model();
    model.mode = *kind;
    model.bankTarget = *kind;
    fraBankLabelsSetUp(model, *kind, 3);
    BankSelection& selection = model.banks.selection(*kind);
    for (int place : parsed->members)
        selection.selectionFlags[static_cast<std::size_t>(place)] = -1;
    bankSelectSequence(model);
    if (parsed->format)
        model.settings.fileNameFormat = *parsed->format;
    session.host().savePath = (std::filesystem::path(parsed->out) / "extract.syx").string();
    session.host().messages.clear();
    const std::vector<std::string> written = extractPatches(model);
    for (const std::string& path : written)
        out << path << '\n';
    if (written.size() != parsed->members.size()) {
        err << session.host().firstProblem() << '\n';
        return kExitUsage;
    }
    out << written.size() << " files saved\n";
    return kExitOk;
}

}  // namespace quillon
