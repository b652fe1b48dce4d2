#include "files/OpenSysExFile.h"

#include "files/LoadFlow.h"
#include "files/RecentFiles.h"
#include "files/SysExFileLoading.h"
#include "files/SysExFileRecognition.h"
#include "files/UserFolders.h"
#include "model/Kind.h"
#include "shell/AppModel.h"
#include "sysex/SysExClassifier.h"

#include <system_error>

namespace quillon {

namespace {

constexpr const char* kOpenTitle = "Open Z1 SysEx file";
constexpr int kLoadHelpContext = 65;

// The failure flags of the loaders, one for each family. Each family is
// judged by its own flag: a failed load replaces nothing, marks nothing
// loaded or clean, and does not enter the recent list.
struct LoadFailureFlags {
    bool single = false;
    bool bank = false;
    bool multiBank = false;
    bool arpBank = false;
    bool misc = false;
};

bool isFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    return !folder.empty() && std::filesystem::is_directory(folder, error);
}

std::string startFolder(AppModel& model, const OpenFileSurroundings& surroundings)
{
    if (isFolder(model.workFolder))
        return model.workFolder;
    const std::filesystem::path music = surroundings.musicFolder ? *surroundings.musicFolder : userMusicFolder();
    if (isFolder(music))
        return music.string();
    return model.dataFolder().string();
}

// The path the user chooses in the open dialog, prefilled with the file of
// the item on screen; nothing when the dialog is cancelled.
std::optional<std::string> chooseFile(AppModel& model, const OpenFileSurroundings& surroundings)
{
    FileDialogRequest request;
    request.title = kOpenTitle;
    request.filter = "SysEx files (*.syx)|*.syx";
    // The single items and the two patch banks prefill; the multi banks and
    // the arpeggiator bank do not, even when their sub-mode is showing.
    if (model.mode >= kPatch && model.mode <= kPattern)
        request.fileName = model.itemPath[model.mode];
    if (request.fileName.empty())
        request.startFolder = startFolder(model, surroundings);
    auto chosen = model.host().chooseOpenFile(request);
    if (chosen)
        model.workFolder = std::filesystem::path(*chosen).parent_path().string();
    return chosen;
}

void showBox(AppModel& model, MessageIcon icon, const std::string& text, bool help)
{
    MessageRequest request;
    request.title = kOpenTitle;
    request.text = text;
    request.icon = icon;
    request.help = help;
    request.helpContext = help ? kLoadHelpContext : 0;
    model.host().showMessage(request);
}

void enterRecent(AppModel& model, const std::string& path)
{
    std::string entry = path;
    recentFilesUpdate(model, 1, entry);
}

}  // namespace

void doOpenSysExFile(AppModel& model, int recentIndex, const OpenFileSurroundings& surroundings)
{
    std::string path;
    if (recentIndex >= 1 && recentIndex <= kRecentFiles) {
        path = model.recentFiles[recentIndex];
        if (path.empty())
            return;
        std::error_code error;
        if (!std::filesystem::exists(path, error)) {
            showBox(model, MessageIcon::Exclamation,
                    "Quillon cannot open file:\n\n" + path + "\n\nThe file may have been moved or deleted.", false);
            recentFilesUpdate(model, 2, path);
            return;
        }
    } else if (recentIndex == 0) {
        auto chosen = chooseFile(model, surroundings);
        if (!chosen)
            return;
        path = *chosen;
    } else {
        return;
    }

    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) {
        showBox(model, MessageIcon::Critical, "Problem loading file", true);
        return;
    }

    LoadFailureFlags failed;
    std::optional<AppModel::Batch> batch;
    batch.emplace(model);
    const int band = recognizeFileSize(size);
    switch (band) {
    case kSysExAllData:
    case kSysExAllProgram:
    case kSysExAllMulti:
    case kSysExGlobalOrMidi:
    case kSysExGlobalAndMidi: {
        failed.misc = !doLoadMiscFile(model, path, size);
        if (failed.misc)
            break;
        model.misc.mode = 3;
        MiscDialogState state = misc::doSetup(model);
        // The screens catch up with the load before the dialog shows.
        batch.reset();
        if (surroundings.showMiscDialog)
            surroundings.showMiscDialog(model, state);
        break;
    }
    case kSysExPatchBank:
        failed.bank = !doLoadBankFile(model, path, size);
        if (!failed.bank) {
            doPostLoad(model, model.bankTarget);
            enterRecent(model, path);
        }
        break;
    case kSysExMultiBank:
        failed.multiBank = !doLoadMultiBankFile(model, path, size);
        if (!failed.multiBank) {
            doPostLoad(model, model.multiBankTarget);
            enterRecent(model, path);
        }
        break;
    case kSysExArpBank:
        failed.arpBank = !doLoadArpBankFile(model, path, size);
        if (!failed.arpBank) {
            doPostLoad(model, kArpBank);
            enterRecent(model, path);
        }
        break;
    case kSysExPatch:
    case kSysExSingleMulti:
    case kSysExSinglePattern: {
        const int kind = band == kSysExPatch ? kPatch : band == kSysExSingleMulti ? kMultiset : kPattern;
        model.saveCancelled = false;
        if (!doPreLoad(model, kind))
            break;
        if (kind == kPatch)
            failed.single = !doLoadPatchFile(model, path, size);
        else if (kind == kMultiset)
            failed.single = !doLoadMultisetFile(model, path, size);
        else
            failed.single = !doLoadPatternFile(model, path, size);
        if (!failed.single)
            enterRecent(model, path);
        break;
    }
    default:
        showBox(model, MessageIcon::Information,
                "File may be " + std::string(fileBandName(band)) + " (size " + std::to_string(size) + ")", true);
        break;
    }
}

}  // namespace quillon
