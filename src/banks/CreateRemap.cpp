#include "banks/CreateRemap.h"

#include "banks/RemapLists.h"
#include "banks/RemapTable.h"
#include "files/LoadFlow.h"
#include "files/RecentFiles.h"
#include "files/SysExFileLoading.h"
#include "files/SysExFileRecognition.h"
#include "sysex/SysExClassifier.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <system_error>

namespace quillon {

namespace {

constexpr const char* kTitle = "Create Remap";
constexpr int kAskOkCancel = 1;
constexpr int kAskYesNoCancel = 3;
constexpr int kTell = 0;

struct RemapStep {
    const char* header;
    const char* pickerTitle;
    int bank;
    int which;
};

constexpr RemapStep kSteps[] = {
    {"Step 1: Read Old Bank A", "Open Old Bank A File", kPatchBankA, kOldList},
    {"Step 2: Read Old Bank B", "Open Old Bank B File", kPatchBankB, kOldList},
    {"Step 3: Read New Bank A", "Open New Bank A File", kPatchBankA, kNewList},
    {"Step 4: Read New Bank B", "Open New Bank B File", kPatchBankB, kNewList},
};

// Where a step takes its list from, or the end of the dialogue.
enum class Source { ListFile, BankInMemory, PickFile, End };

Answer ask(AppModel& model, const RemapStep& step, const std::string& text, int style)
{
    return model.host().askStep(kTitle, std::string(step.header) + "\n" + text, style);
}

bool fileExists(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

// The questions of one step. `bankUsedAsOld`: the bank of this letter in
// memory is the one the old step already listed, so a new step cannot use
// it.
Source chooseSource(AppModel& model, const RemapStep& step, int code, bool bankUsedAsOld)
{
    if (code == 0) {
        const Answer answer = ask(model, step, "No bank loaded.\nYou will need to select from file list", kAskOkCancel);
        return answer == Answer::Ok ? Source::PickFile : Source::End;
    }
    if (code == 1) {
        switch (ask(model, step, "Use existing bank map?", kAskYesNoCancel)) {
        case Answer::Yes: return Source::ListFile;
        case Answer::No: return Source::PickFile;
        default: return Source::End;
        }
    }
    const Answer answer = step.which == kNewList && bankUsedAsOld
                              ? Answer::No
                              : ask(model, step, "Use currently loaded bank?", kAskYesNoCancel);
    if (answer == Answer::Yes)
        return Source::BankInMemory;
    if (answer != Answer::No)
        return Source::End;
    if (code == 3)
        return Source::ListFile;
    return ask(model, step, "New bank needs to be selected from file list", kAskOkCancel) == Answer::Ok
               ? Source::PickFile
               : Source::End;
}

}  // namespace

int remapStepCode(bool listExists, bool bankLoaded) { return (listExists ? 1 : 0) + (bankLoaded ? 2 : 0); }

bool pickRemapBankFile(AppModel& model, int bank, const std::string& title)
{
    FileDialogRequest request;
    request.title = title;
    request.filter = "SysEx files (*.syx)|*.syx";
    request.startFolder = model.workFolder;
    const auto chosen = model.host().chooseOpenFile(request);
    if (!chosen)
        return false;
    model.workFolder = std::filesystem::path(*chosen).parent_path().string();
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(*chosen, error);
    if (error || recognizeFileSize(size) != kSysExPatchBank)
        return false;
    AppModel::Batch batch(model);
    if (!doLoadBankFile(model, *chosen, size))
        return false;
    doPostLoad(model, model.bankTarget);
    std::string entry = *chosen;
    recentFilesUpdate(model, 1, entry);
    return model.bankTarget == bank;
}

bool createRemap(AppModel& model)
{
    // Per letter: the bank in memory is the one the old step listed.
    bool usedAsOld[2] = {false, false};
    for (const RemapStep& step : kSteps) {
        const int letter = step.bank == kPatchBankB ? 1 : 0;
        const int code = remapStepCode(fileExists(bankListPath(model, step.bank, step.which)),
                                       model.flags.loaded[step.bank]);
        const Source source = chooseSource(model, step, code, usedAsOld[letter]);
        if (source == Source::End)
            return false;
        if (source == Source::PickFile &&
            !(pickRemapBankFile(model, step.bank, step.pickerTitle) && model.flags.loaded[step.bank])) {
            ask(model, step, "Expected bank not loaded.\nAction aborted", kTell);
            return false;
        }
        if (source == Source::ListFile)
            continue;
        // The lists on disk are always what the match uses.
        if (!saveBankList(model, step.bank, step.which))
            return false;
        if (step.which == kOldList)
            usedAsOld[letter] = true;
    }

    model.remap.newListsPresent = true;
    for (const RemapStep& step : kSteps) {
        if (!readBankList(model, step.bank, step.which))
            return false;
    }
    matchNames(model);
    if (!saveRemapTable(model))
        return false;
    model.host().askStep(kTitle, "New Bank Remap created successfully. It can be applied to \nmultisets and multi banks",
                         kTell);
    return true;
}

}  // namespace quillon
