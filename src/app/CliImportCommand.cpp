#include "app/CliArguments.h"
#include "app/CliCommands.h"
#include "app/CliSession.h"
#include "banks/ImportFiles.h"
#include "files/SysExSaving.h"
#include "model/Kind.h"

#include <filesystem>
#include <optional>

namespace quillon {

namespace {

constexpr const char* kImportUsage =
    "usage: quillon-cli import FILE_OR_DIR... --into BANK.syx --at POS [--bank a|b] --out OUT.syx\n"
    "  the patch files (a folder: its .syx files by name) into consecutive places of the\n"
    "  bank from place POS (0-127); --bank chooses the bank the result is (the bank of\n"
    "  BANK.syx when not given)\n";

struct ImportArguments {
    std::vector<std::string> inputs;
    std::string into;
    std::optional<int> at;
    int bank = 0;
    std::string out;
};

std::optional<ImportArguments> parseImportArguments(const std::vector<std::string>& args)
{
    ImportArguments parsed;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        const bool takesValue = arg == "--into" || arg == "--at" || arg == "--bank" || arg == "--out";
        if (takesValue && i + 1 < args.size()) {
            const std::string& value = args[++i];
            if (arg == "--into") {
                parsed.into = value;
            } else if (arg == "--out") {
                parsed.out = value;
            } else if (arg == "--at") {
                parsed.at = parseInt(value);
                if (!parsed.at || *parsed.at < 0 || *parsed.at >= kPatchesPerBank)
                    return std::nullopt;
            } else if (value == "a" || value == "A") {
                parsed.bank = kPatchBankA;
            } else if (value == "b" || value == "B") {
                parsed.bank = kPatchBankB;
            } else {
                return std::nullopt;
            }
        } else if (arg.starts_with("--")) {
            return std::nullopt;
        } else {
            parsed.inputs.push_back(arg);
        }
    }
    if (parsed.inputs.empty() || parsed.into.empty() || !parsed.at || parsed.out.empty())
        return std::nullopt;
    return parsed;
}

// The files named, a folder standing for its .syx files in name order.
std::vector<std::filesystem::path> importList(const std::vector<std::string>& inputs)
{
    std::vector<std::filesystem::path> files;
    for (const std::string& input : inputs) {
        std::error_code error;
        if (std::filesystem::is_directory(input, error)) {
            const auto inFolder = importFilesInFolder(input);
            files.insert(files.end(), inFolder.begin(), inFolder.end());
        } else {
            files.emplace_back(input);
        }
    }
    return files;
}

}  // namespace

int runImport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    const auto parsed = parseImportArguments(args);
    if (!parsed) {
        err << kImportUsage;
        return kExitUsage;
    }
    CliSession session;
    int exitCode = kExitOk;
    const auto kind = session.openPatchBank(parsed->into, "not a PatchBank; patches can be imported into a bank only", err, exitCode);
    if (!kind)
        return exitCode;
    AppModel& model = session.model();
    const int bank = parsed->bank != 0 ? parsed->bank : *kind;
    if (bank != *kind) {
        // The bank of the file becomes the other letter, as Swap Banks moves it.
        model.banks.image(bank) = model.banks.image(*kind);
        model.flags.loaded[bank] = true;
    }
    model.bankTarget = bank;

    ImportState state;
    state.targetBank = bank;
    importFiles(model, state, importList(parsed->inputs), *parsed->at, {});
    for (const std::string& line : state.results)
        out << line << '\n';
    finishImport(model, state, {});

    session.host().savePath = parsed->out;
    session.host().messages.clear();
    if (!saveKind(model, bank, 2)) {
        err << parsed->out << ": " << session.host().firstProblem() << '\n';
        return kExitUsage;
    }
    out << state.written << " patches imported into " << parsed->out << '\n';
    return kExitOk;
}

}  // namespace quillon
