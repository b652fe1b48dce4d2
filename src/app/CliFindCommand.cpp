#include "app/CliCommands.h"

#include "app/CliSession.h"
#include "banks/BankFind.h"
#include "files/MiscDialog.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/NumberFormat.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string_view>

namespace quillon {

namespace {

// The options of find: the five text searches, then one for each type
// search in the order of frmFind's list.
struct FindOption {
    const char* name;
    int code;
};

constexpr FindOption kFindOptions[] = {
    {"--name", 0},       {"--starts", 1},      {"--any-part", 2},   {"--last-part", 3}, {"--not-name", 4},
    {"--bank-num", 10},  {"--category", 11},   {"--user-group", 12}, {"--osc1", 13},     {"--osc2", 14},
    {"--fx1", 15},       {"--fx2", 16},        {"--mfx", 17},       {"--filter1", 18},  {"--filter2", 19},
    {"--arp", 20},
};

constexpr std::string_view kFindUsage =
    "find PATH... [--name TEXT] [--starts TEXT] [--any-part TEXT] [--last-part TEXT] [--not-name TEXT]\n"
    "       [--bank-num N] [--category N|NAME] [--user-group N|NAME] [--osc1 N|NAME] [--osc2 N|NAME]\n"
    "       [--fx1 N|NAME] [--fx2 N|NAME] [--mfx N|NAME] [--filter1 N|NAME] [--filter2 N|NAME] [--arp N|NAME]";

std::string lowered(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// A type value: the row number of the type's list, or the row whose text
// (or, for a linked pattern, whose slot name) is the given name, case aside.
std::optional<int> typeValueOf(const AppModel& model, int code, const std::string& given)
{
    const std::vector<std::string> rows = findTypeNames(model, code);
    if (!given.empty() && std::all_of(given.begin(), given.end(), ::isdigit)) {
        const int row = given.size() <= 3 ? std::stoi(given) : -1;
        if (row >= 0 && row < static_cast<int>(rows.size()))
            return row;
        return std::nullopt;
    }
    const std::string wanted = lowered(given);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const std::string text = lowered(rows[row]);
        if (text == wanted || (code == 20 && text.starts_with(wanted + " ")))
            return static_cast<int>(row);
    }
    return std::nullopt;
}

bool isSysExFile(const std::filesystem::path& path)
{
    return lowered(path.extension().string()) == ".syx";
}

// The .syx files of the paths given, a folder searched through all its
// folders, in the order of their names.
bool collectFiles(const std::vector<std::string>& paths, std::vector<std::string>& files, std::ostream& err)
{
    for (const std::string& path : paths) {
        std::error_code error;
        if (std::filesystem::is_directory(path, error)) {
            std::vector<std::string> found;
            for (auto it = std::filesystem::recursive_directory_iterator(path, error);
                 !error && it != std::filesystem::recursive_directory_iterator(); it.increment(error))
                if (it->is_regular_file(error) && isSysExFile(it->path()))
                    found.push_back(it->path().string());
            std::sort(found.begin(), found.end());
            files.insert(files.end(), found.begin(), found.end());
        } else if (std::filesystem::is_regular_file(path, error)) {
            files.push_back(path);
        } else {
            err << "cannot read " << path << '\n';
            return false;
        }
    }
    return true;
}

struct Search {
    std::vector<FindCriterion> criteria;
    std::ostream& out;
    std::string file;
    int position = 0;  // of the patch in the file
};

// Tests the patches of an image from patch `first` on and prints the hits;
// letter names their bank, none a single patch.
void searchPatches(Search& search, const ByteImage& image, int first, int patches, const char* letter)
{
    for (int p = first; p < first + patches; ++p, ++search.position) {
        const auto start = image.begin() + static_cast<std::ptrdiff_t>(p) * kPatchBytes;
        const std::string name(start, start + 16);
        const int place = p - first;
        const bool hit = std::all_of(search.criteria.begin(), search.criteria.end(), [&](const FindCriterion& c) {
            // A single patch has no place in a bank to be found by.
            if (c.code == 10)
                return letter != nullptr && place == c.value;
            return findPatchHit(c, name, image, p);
        });
        if (hit)
            search.out << search.file << '\t' << search.position << '\t'
                       << (letter ? letter + formatNumber(place, "000") : std::string("-")) << '\t'
                       << trimmedRight(name) << '\n';
    }
}

}  // namespace

int runFindFiles(const std::vector<std::string>& args, std::ostream& out, std::ostream& err)
{
    CliSession session;
    AppModel& model = session.model();
    std::vector<std::string> paths;
    std::vector<FindCriterion> criteria;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (!arg.starts_with("--")) {
            paths.push_back(arg);
            continue;
        }
        const auto option = std::find_if(std::begin(kFindOptions), std::end(kFindOptions),
                                         [&arg](const FindOption& o) { return arg == o.name; });
        if (option == std::end(kFindOptions) || i + 1 >= args.size()) {
            err << "usage: quillon-cli " << kFindUsage << '\n';
            return kExitUsage;
        }
        const std::string& given = args[++i];
        FindCriterion criterion{option->code, {}, 0};
        if (option->code < kFindTypeCodeBase) {
            criterion.text = findTextOf(given);
            if (criterion.text.empty()) {
                err << arg << " needs a text\n";
                return kExitUsage;
            }
        } else {
            const auto value = typeValueOf(model, option->code, given);
            if (!value) {
                err << arg << ": no such value " << given << " (see frmFind's list for the option)\n";
                return kExitUsage;
            }
            criterion.value = *value;
        }
        criteria.push_back(std::move(criterion));
    }
    if (paths.empty() || criteria.empty()) {
        err << "usage: quillon-cli " << kFindUsage << '\n';
        return kExitUsage;
    }
    std::vector<std::string> files;
    if (!collectFiles(paths, files, err))
        return kExitUsage;

    int exitCode = kExitOk;
    for (const std::string& file : files) {
        std::string error;
        const auto kind = session.open(file, error);
        if (!kind) {
            err << error << '\n';
            exitCode = std::max(exitCode, error.starts_with("cannot read") ? kExitUsage : kExitBadData);
            continue;
        }
        Search search{criteria, out, file, 0};
        switch (*kind) {
        case kPatch: searchPatches(search, model.itemImage(kPatch), 0, 1, nullptr); break;
        case kPatchBankA:
        case kPatchBankB:
            searchPatches(search, model.banks.image(*kind), 0, kPatchesPerBank, *kind == kPatchBankA ? "A" : "B");
            break;
        case kOtherDump: {
            // All Data and All Program begin with PatchBanks A and B.
            if (!misc::doSetup(model).typeVisible[0])
                break;
            misc::doMiscData(model);
            const ByteImage& image = model.misc.image;
            if (image.size() < static_cast<std::size_t>(2 * kPatchesPerBank * kPatchBytes))
                break;
            searchPatches(search, image, 0, kPatchesPerBank, "A");
            searchPatches(search, image, kPatchesPerBank, kPatchesPerBank, "B");
            break;
        }
        default: break;  // multisets and patterns hold no patches
        }
    }
    return exitCode;
}

}  // namespace quillon
