#include "shell/StartUp.h"

#include "banks/RemapLists.h"
#include "editors/EnvelopeGraph.h"
#include "editors/ItemStatus.h"
#include "editors/Navigation.h"
#include "files/DataFolder.h"
#include "files/LoadFlow.h"
#include "files/PeFile.h"
#include "files/RecentFiles.h"
#include "files/SystemSettingsFile.h"
#include "files/UserFiles.h"
#include "files/UserFolders.h"
#include "midi/MidiGlobal.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "shell/AppModel.h"

#include <exception>
#include <string>
#include <system_error>

namespace quillon {

namespace {

bool folderExists(const std::filesystem::path& folder)
{
    std::error_code error;
    return !folder.empty() && std::filesystem::is_directory(folder, error);
}

// The work folder must exist: else the user's Music folder, else the data
// folder.
void settleWorkFolder(AppModel& model, const std::filesystem::path& musicFolder)
{
    if (folderExists(model.workFolder))
        return;
    const std::filesystem::path music = musicFolder.empty() ? userMusicFolder() : musicFolder;
    model.workFolder = folderExists(music) ? music.string() : model.dataFolder().string();
}

void setInitialState(AppModel& model, const StartUpSurroundings& surroundings)
{
    prepareDataFolder(model.dataFolder());
    settleWorkFolder(model, surroundings.musicFolder);
    model.mode = kPatch;
    model.bankTarget = kPatchBankA;
    model.itemPath.fill({});
    model.suggestedPath.fill({});
    model.itemName[kPattern] = "Unnamed Pattern";
    model.report.reset();
    updateUndoBankMenu(model, 0);
}

// A new item of a Kind, as start-up makes it: defaults, then the steps of
// showing it, loaded, unchanged and clean.
void makeDefaultItem(AppModel& model, int kind)
{
    model.buffers.updateCurrentDefaults(kind);
    newItemReady(model, kind, true);
    model.buffers.updateLoaded(kind);
    model.buffers.updateLast(kind);
}

std::string errorNumber(const std::exception& error)
{
    if (const auto* system = dynamic_cast<const std::system_error*>(&error))
        return std::to_string(system->code().value());
    return "0";
}

}  // namespace

std::string startUpErrorText(const std::string& number, const std::string& description, int progress)
{
    return "[Error " + number + " " + description + "]\n[Proc no " + std::to_string(progress) + "]";
}

void readRememberedLists(AppModel& model) { readPersistentLists(model); }

bool doFormLoadMain(AppModel& model, const StartUpSurroundings& surroundings)
{
    int progress = kStartInitialState;
    try {
        AppModel::Batch batch(model);
        setInitialState(model, surroundings);

        progress = kStartTables;
        paramTables();

        progress = kStartSystemSettings;
        readSystemSettings(model);

        progress = kStartUserPatchFile;
        readUserPatchFile(model, model.settings.userFileNumber);
        openPeFile(model);

        progress = kStartUserMultiFile;
        readUserMultiFile(model);

        progress = kStartScreenSettings;
        installEnvelopeRule(model);
        applyStartUpView(model);
        model.changed(kSettingsChanged | kScreenChanged);

        progress = kStartDefaultItems;
        makeDefaultItem(model, kPattern);
        makeDefaultItem(model, kMultiset);
        makeDefaultItem(model, kPatch);

        progress = kStartRecentFiles;
        recentFilesSetup(model);
        // The multiset screen names timbres from the new lists of a remap.
        checkNewLists(model);
    } catch (const std::exception& error) {
        model.host().showMessage(
            {"Startup Error", startUpErrorText(errorNumber(error), error.what(), progress), MessageIcon::Exclamation});
        return false;
    }

    progress = kStartMidi;
    if (surroundings.initMidi && !surroundings.initMidi(model))
        return false;
    return true;
}

bool confirmClose(AppModel& model)
{
    for (int kind = kPatch; kind <= kArpBank; ++kind) {
        if (EditBuffers::hasBuffers(kind)) {
            // A pattern counts only when it has a tone; a pattern drawn on
            // the empty screen becomes loaded by that test.
            const bool present = kind == kPattern ? arpHasTones(model) : model.flags.loaded[kind];
            model.report.reset();
            if (present) {
                model.buffers.updatePrevLoaded(kind);
                checkChanged(model, kind);
            }
        }
        if (!model.flags.changed[kind])
            continue;
        doSaveFirstPrompt(model, kind, 1);
        if (model.saveCancelled) {
            model.saveCancelled = false;
            return false;
        }
    }
    return true;
}

void shutDown(AppModel& model)
{
    // A Listen or request left open, or a send still playing, ends with the
    // program.
    resetGlobalMIDIAll(model);
    saveSystemSettings(model);
}

}  // namespace quillon
