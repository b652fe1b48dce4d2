#include "banks/ImportFiles.h"

#include "banks/BankUndo.h"
#include "banks/BankView.h"
#include "editors/ItemStatus.h"
#include "files/AtomicFile.h"
#include "files/SysExFileRecognition.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/LoadReport.h"
#include "model/NumberFormat.h"
#include "shell/AppModel.h"
#include "sysex/SysExClassifier.h"
#include "sysex/SysExPacking.h"

#include <algorithm>
#include <cctype>
#include <system_error>

namespace quillon {

namespace {

constexpr const char* kImportTitle = "Import to Bank";
constexpr const char* kDoubtfulMark = "!    ";
constexpr std::size_t kLongHeaderDump = 668;
constexpr std::size_t kShortHeader = 6;
constexpr std::size_t kLongHeader = 8;
constexpr std::size_t kDumpBytes = 660;  // the packed data and the closing F7
constexpr int kNameBytes = 16;
constexpr int kLastPlace = kPatchesPerBank - 1;

char bankLetter(int bank) { return bank == kPatchBankB ? 'B' : 'A'; }

std::string patchName(const ByteImage& image)
{
    return trimmedRight(std::string(image.begin(), image.begin() + kNameBytes));
}

bool hasSyxExtension(const std::filesystem::path& path)
{
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".syx";
}

// What one file gives: its result lines, and the patch when it can go in.
struct FileOutcome {
    std::vector<std::string> lines;
    bool loaded = false;
    ByteImage image;
};

FileOutcome readImportFile(const std::filesystem::path& path)
{
    FileOutcome outcome;
    const std::string name = path.filename().string();
    std::error_code error;
    const std::uintmax_t length = std::filesystem::file_size(path, error);
    if (error) {
        outcome.lines.push_back("Problem reading file " + name);
        return outcome;
    }
    if (length < kShortestImportFile || length > kLongestImportFile) {
        outcome.lines.push_back(name + " is not a Z1 patch file");
        return outcome;
    }
    std::vector<std::uint8_t> bytes;
    if (!readWholeFile(path, bytes)) {
        outcome.lines.push_back("Problem reading file " + name);
        return outcome;
    }
    ImportDecoded decoded = decodeImportFile(bytes);
    switch (decoded.verdict) {
    case ImportVerdict::Unreadable:
        outcome.lines.push_back("Problem reading file " + name);
        break;
    case ImportVerdict::Doubtful:
        outcome.lines = std::move(decoded.reports);
        outcome.lines.push_back(kDoubtfulMark + name + " looks doubtful - not loaded");
        break;
    case ImportVerdict::Loaded:
        outcome.lines.push_back(name + " loaded");
        outcome.loaded = true;
        outcome.image = std::move(decoded.image);
        break;
    }
    return outcome;
}

}  // namespace

ImportDecoded decodeImportFile(std::span<const std::uint8_t> file)
{
    ImportDecoded decoded;
    if (file.size() < kShortestImportFile || file.size() > kLongestImportFile)
        return decoded;
    const MessageSearch search = findMessageInFile(file, kSysExPatch);
    if (search.result == SearchResult::Error) {
        decoded.verdict = ImportVerdict::Unreadable;
        return decoded;
    }
    if (search.result != SearchResult::Found)
        return decoded;

    const std::size_t header = search.message.size() == kLongHeaderDump ? kLongHeader : kShortHeader;
    SysExImage packed(search.message.begin() + static_cast<std::ptrdiff_t>(header),
                      search.message.begin() + static_cast<std::ptrdiff_t>(header + kDumpBytes));
    // A data byte of a SysEx message never has bit 7: one that has was not
    // written by the instrument.
    const auto data = std::span<const std::uint8_t>(packed).first(static_cast<std::size_t>(packedImageSize(kPatch)));
    const bool highByte = std::any_of(data.begin(), data.end(), [](std::uint8_t b) { return b > 0x7F; });
    // The import keeps every report of its own and counts none in the load
    // report of the program.
    LoadReport report(packedImageSize(kPatch) * 2);
    decoded.image = MIDItoDATA(kPatch, packed, report);
    decoded.reports = report.changeList();
    decoded.verdict = highByte || report.changeCount() > 0 ? ImportVerdict::Doubtful : ImportVerdict::Loaded;
    return decoded;
}

ImportBankChoice importBankChoice(const AppModel& model)
{
    ImportBankChoice choice;
    choice.aEnabled = model.flags.loaded[kPatchBankA];
    choice.bEnabled = model.flags.loaded[kPatchBankB];
    if (model.flags.loaded[model.bankTarget])
        choice.preselected = model.bankTarget;
    else if (choice.aEnabled)
        choice.preselected = kPatchBankA;
    else if (choice.bEnabled)
        choice.preselected = kPatchBankB;
    return choice;
}

std::vector<std::string> startPatchRows(const AppModel& model, int bank)
{
    std::vector<std::string> rows;
    rows.reserve(kPatchesPerBank);
    for (int p = 0; p < kPatchesPerBank; ++p)
        rows.push_back(bankLetter(bank) + formatNumber(p, "000") + " " + model.banks.bankPatchName(bank, p));
    return rows;
}

std::string filesSelectedText(int count) { return std::to_string(count) + " files selected"; }

std::vector<std::filesystem::path> importFilesInFolder(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (auto it = std::filesystem::directory_iterator(folder, error);
         !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        std::error_code typeError;
        if (hasSyxExtension(it->path()) && !it->is_directory(typeError))
            files.push_back(it->path());
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.filename() < b.filename(); });
    return files;
}

void importFiles(AppModel& model, ImportState& state, const std::vector<std::filesystem::path>& files,
                 int startPosition, const std::function<void()>& allowUpdate)
{
    if (state.running)
        return;
    if (files.empty()) {
        showInformation(model.host(), kImportTitle, "Please select files to import", kImportHelpContext);
        return;
    }
    const int bank = state.targetBank;
    if ((bank != kPatchBankA && bank != kPatchBankB) || !model.flags.loaded[bank])
        return;
    // A run follows on where the last stopped until its lines are cleared.
    if (state.results.empty())
        state.position = std::clamp(startPosition, 0, kLastPlace);
    state.running = true;
    state.done = false;
    state.stopRequested = false;
    for (const auto& path : files) {
        if (allowUpdate)
            allowUpdate();
        if (state.stopRequested) {
            state.results.push_back("Import terminated by user");
            break;
        }
        if (state.position > kLastPlace) {
            state.results.push_back("Import terminated - final patch");
            break;
        }
        FileOutcome outcome = readImportFile(path);
        state.results.insert(state.results.end(), outcome.lines.begin(), outcome.lines.end());
        if (!outcome.loaded)
            continue;
        const std::string oldName = trimmedRight(model.banks.bankPatchName(bank, state.position));
        model.banks.writeBankPatch(bank, state.position, outcome.image);
        ++state.written;
        state.results.push_back(patchName(outcome.image) + " has replaced " + bankLetter(bank) +
                                formatNumber(state.position, "000") + " " + oldName);
        ++state.position;
        if (state.position > kLastPlace) {
            state.results.push_back("Import terminated - final patch");
            break;
        }
    }
    state.running = false;
    state.done = true;
    model.changed(kBanksChanged);
}

void finishImport(AppModel& model, const ImportState& state, const std::string& folder)
{
    const int bank = state.targetBank;
    if ((bank != kPatchBankA && bank != kPatchBankB) || !model.flags.loaded[bank])
        return;
    AppModel::Batch batch(model);
    fraBankSetUp(model);
    model.bankTarget = bank;
    fraBankLabelsSetUp(model, bank, 0);
    model.labels.doLoadedStatusColour(bank, 1);
    if (state.written > 0) {
        model.flags.changed[bank] = true;
        model.flags.clean[bank] = false;
        updateUndoBankMenu(model, 0);
    }
    model.labels.showLabelHighlight(bank);
    model.banks.selection(bank).selectionCount = 0;
    setUpScreen(model, bank);
    setUpSendMenu(model, bank);
    if (!folder.empty())
        model.workFolder = folder;
    model.changed(kLabelsChanged | kBanksChanged | kBankViewChanged);
}

}  // namespace quillon
