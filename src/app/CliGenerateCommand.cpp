#include "app/CliCommands.h"

#include "app/CliSession.h"
#include "banks/RandomSpread.h"
#include "files/DataFolder.h"
#include "files/SysExSaving.h"
#include "files/SystemSettingsFile.h"
#include "files/UserFolders.h"
#include "model/Kind.h"

#include <chrono>
#include <cstdlib>
#include <optional>
#include <random>
#include <stdexcept>
#include <system_error>

namespace quillon {

namespace {

constexpr const char* kRandomUsage =
    "usage: quillon-cli random PATCH.syx --out BANK.syx [--settings FILE] [--seed N]\n";
constexpr const char* kSpreadUsage = "usage: quillon-cli spread PATCH.syx --out BANK.syx [--settings FILE]\n";

struct GenerateArguments {
    std::string in;
    std::string out;
    std::string settings;
    std::optional<std::uint32_t> seed;
};

std::optional<std::uint32_t> seedOf(const std::string& text)
{
    if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos || text.size() > 10)
        return std::nullopt;
    const unsigned long long value = std::stoull(text);
    if (value > 0xFFFFFFFFULL)
        return std::nullopt;
    return static_cast<std::uint32_t>(value);
}

std::optional<GenerateArguments> parseGenerateArguments(const std::vector<std::string>& args, bool seedAllowed)
{
    GenerateArguments parsed;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        const bool valued = arg == "--out" || arg == "--settings" || (seedAllowed && arg == "--seed");
        if (valued && i + 1 < args.size()) {
            const std::string& value = args[++i];
            if (arg == "--seed") {
                if (parsed.seed || !(parsed.seed = seedOf(value)))
                    return std::nullopt;
                continue;
            }
            std::string& field = arg == "--out" ? parsed.out : parsed.settings;
            if (!field.empty())
                return std::nullopt;
            field = value;
        } else if (arg.starts_with("--") || !parsed.in.empty()) {
            return std::nullopt;
        } else {
            parsed.in = arg;
        }
    }
    if (parsed.in.empty() || parsed.out.empty())
        return std::nullopt;
    return parsed;
}

// Where the program keeps Quillonset.dat for this user: the folder named by
// QUILLON_HOME, else the platform's folder for the program's data.
std::filesystem::path userDataFolder()
{
    std::filesystem::path platform;
#if defined(_WIN32)
    if (const char* appData = std::getenv("APPDATA"); appData != nullptr && *appData != '\0')
        platform = std::filesystem::path(appData) / "Quillon";
#elif defined(__APPLE__)
    if (const auto home = userHomeFolder(); !home.empty())
        platform = home / "Library" / "Application Support" / "Quillon";
#else
    if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data != '\0')
        platform = std::filesystem::path(data) / "Quillon";
    else if (const auto home = userHomeFolder(); !home.empty())
        platform = home / ".local" / "share" / "Quillon";
#endif
    return chooseDataFolder(platform);
}

// Takes the settings file into the session as the program reads its own.
// A missing settings file of the data folder leaves the factory settings,
// as the program restores them on its first start.
int takeSettings(CliSession& session, const std::string& given, std::ostream& err)
{
    const bool named = !given.empty();
    const std::filesystem::path source = named ? std::filesystem::path(given) : userDataFolder() / kSystemSettingsFile;
    std::error_code error;
    if (!std::filesystem::is_regular_file(source, error)) {
        if (!named)
            return kExitOk;
        err << "cannot read " << given << '\n';
        return kExitUsage;
    }
    AppModel& model = session.model();
    std::filesystem::copy_file(source, model.dataFolder() / kSystemSettingsFile,
                               std::filesystem::copy_options::overwrite_existing, error);
    if (error) {
        err << "cannot read " << source.string() << '\n';
        return kExitUsage;
    }
    session.host().messages.clear();
    if (!readSystemSettings(model)) {
        err << source.string() << ": " << session.host().firstProblem() << '\n';
        return kExitBadData;
    }
    return kExitOk;
}

int runGenerate(const std::vector<std::string>& args, std::ostream& out, std::ostream& err, Generation how)
{
    const bool random = how == Generation::Random;
    const char* usage = random ? kRandomUsage : kSpreadUsage;
    const auto parsed = parseGenerateArguments(args, random);
    if (!parsed) {
        err << usage;
        return kExitUsage;
    }
    CliSession session;
    std::string error;
    const auto kind = session.open(parsed->in, error);
    if (!kind) {
        err << error << '\n';
        return error.starts_with("cannot read") ? kExitUsage : kExitBadData;
    }
    if (*kind != kPatch) {
        err << parsed->in << ": not a patch; a new bank is made from a single patch\n";
        return kExitBadData;
    }
    if (const int code = takeSettings(session, parsed->settings, err); code != kExitOk)
        return code;

    AppModel& model = session.model();
    // No screen here: no frame shows a subsection, so CSS has nothing to vary.
    for (int frame : {1, 2})
        model.layout.frame(kPatch, frame).Subsection = 0;
    if (!(random ? randomSettingsUseful(model) : spreadSettingsUseful(model))) {
        err << (random ? kRandomSameText : kSpreadSameText) << '\n';
        return kExitBadData;
    }
    try {
        if (random) {
            std::mt19937 generator(parsed->seed.value_or(static_cast<std::uint32_t>(
                std::chrono::system_clock::now().time_since_epoch().count())));
            generateRandomBank(model, kPatchBankA, generator);
        } else {
            generateSpreadBank(model, kPatchBankA);
        }
    } catch (const std::overflow_error& failure) {
        err << failure.what() << ": a percentage of the settings is too large for a parameter's range\n";
        return kExitBadData;
    }
    session.host().savePath = parsed->out;
    session.host().messages.clear();
    if (!saveKind(model, kPatchBankA, 2)) {
        err << parsed->out << ": " << session.host().firstProblem() << '\n';
        return kExitUsage;
    }
    out << parsed->out << '\n';
    return kExitOk;
}

}  // namespace

int runRandom(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    return runGenerate(args, out, err, Generation::Random);
}

int runSpread(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    return runGenerate(args, out, err, Generation::Spread);
}

}  // namespace quillon
