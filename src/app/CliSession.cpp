#include "app/CliSession.h"

#include "app/CliCommands.h"
#include "banks/TakeFromBank.h"
#include "files/MiscDialog.h"
#include "files/OpenSysExFile.h"
#include "files/SysExFileRecognition.h"
#include "model/Kind.h"
#include "shell/StartUp.h"
#include "sysex/SysExClassifier.h"

#include <random>
#include <system_error>

namespace quillon {

namespace {

std::filesystem::path freshFolder()
{
    std::error_code error;
    const auto base = std::filesystem::temp_directory_path(error);
    return base / ("quillon-cli-" + std::to_string(std::random_device{}()));
}

// The Kind a file of a band goes to once its loader has taken it.
int kindOfBand(const AppModel& model, int band)
{
    switch (band) {
    case kSysExPatchBank: return model.bankTarget;
    case kSysExPatch: return kPatch;
    case kSysExMultiBank: return model.multiBankTarget;
    case kSysExSingleMulti: return kMultiset;
    case kSysExArpBank: return kArpBank;
    case kSysExSinglePattern: return kPattern;
    default: return isMiscBand(band) ? kOtherDump : 0;
    }
}

std::string rangeText(int count) { return "0 to " + std::to_string(count - 1); }

}  // namespace

CliSession::CliSession() : dataFolder_(freshFolder())
{
    model_ = std::make_unique<AppModel>(host_, store_, dataFolder_);
    doFormLoadMain(*model_);
}

CliSession::~CliSession()
{
    model_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(dataFolder_, ignored);
}

std::optional<int> CliSession::open(const std::string& path, std::string& error)
{
    std::error_code fileError;
    const auto size = std::filesystem::file_size(path, fileError);
    if (fileError) {
        error = "cannot read " + path;
        return std::nullopt;
    }
    host_.openPath = path;
    host_.messages.clear();
    doOpenSysExFile(*model_, 0);
    if (const std::string problem = host_.firstProblem(); !problem.empty()) {
        error = path + ": " + problem;
        return std::nullopt;
    }
    return kindOfBand(*model_, recognizeFileSize(size));
}

std::optional<int> CliSession::takeItem(int openedKind, std::optional<int> member, std::string& error)
{
    AppModel& model = *model_;
    const auto refuse = [&error](const std::string& text) -> std::optional<int> {
        error = text;
        return std::nullopt;
    };
    if (openedKind == kPatch || openedKind == kMultiset || openedKind == kPattern) {
        if (member)
            return refuse("--member is for banks; this file holds one item");
        return openedKind;
    }
    const int n = member.value_or(0);
    switch (openedKind) {
    case kPatchBankA:
    case kPatchBankB:
        if (n < 0 || n >= kPatchesPerBank)
            return refuse("--member must be " + rangeText(kPatchesPerBank) + " for a bank");
        model.bankTarget = openedKind;
        return takePatchFromBank(model, n) ? std::optional<int>(kPatch) : std::nullopt;
    case kMultiBankA:
    case kMultiBankB:
        if (n < 0 || n >= kMultisPerBank)
            return refuse("--member must be " + rangeText(kMultisPerBank) + " for a multi bank");
        return takeMultiFromBank(model, openedKind, n) ? std::optional<int>(kMultiset) : std::nullopt;
    case kArpBank:
        if (n < 0 || n >= kPatternsPerBank)
            return refuse("--member must be " + rangeText(kPatternsPerBank) + " for the arpeggiator bank");
        return takePatternFromBank(model, n) ? std::optional<int>(kPattern) : std::nullopt;
    default:
        break;
    }

    // A file of several kinds: its banks are taken out as frmMisc does, and
    // the member is a combined position over them.
    MiscDialogState state = misc::doSetup(model);
    state.typeTicked = state.typeVisible;
    misc::doProcessLoad(model, state);
    if (state.typeVisible[0]) {
        if (n < 0 || n >= 2 * kPatchesPerBank)
            return refuse("--member must be " + rangeText(2 * kPatchesPerBank) + " (bank A, then B) for this file");
        model.bankTarget = n < kPatchesPerBank ? kPatchBankA : kPatchBankB;
        return takePatchFromBank(model, n % kPatchesPerBank) ? std::optional<int>(kPatch) : std::nullopt;
    }
    if (state.typeVisible[2]) {
        if (n < 0 || n >= 2 * kMultisPerBank)
            return refuse("--member must be " + rangeText(2 * kMultisPerBank) + " (bank A, then B) for this file");
        const int bank = n < kMultisPerBank ? kMultiBankA : kMultiBankB;
        return takeMultiFromBank(model, bank, n % kMultisPerBank) ? std::optional<int>(kMultiset) : std::nullopt;
    }
    return refuse("this file holds global or MIDI settings, which have no parameters here");
}

std::optional<int> CliSession::openPatchBank(const std::string& path, const std::string& refusal, std::ostream& err,
                                             int& exitCode)
{
    std::string error;
    const auto kind = open(path, error);
    if (!kind) {
        err << error << '\n';
        exitCode = error.starts_with("cannot read") ? kExitUsage : kExitBadData;
        return std::nullopt;
    }
    if (*kind != kPatchBankA && *kind != kPatchBankB) {
        err << path << ": " << refusal << '\n';
        exitCode = kExitBadData;
        return std::nullopt;
    }
    return kind;
}

}  // namespace quillon
