#include "files/SysExSaving.h"

#include "editors/ItemStatus.h"
#include "files/AtomicFile.h"
#include "files/RecentFiles.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <filesystem>
#include <optional>
#include <string>

namespace quillon {

namespace {

constexpr int kSaveHelpContext = 70;
constexpr const char* kSysExFilter = "SysEx files (*.syx)|*.syx";
constexpr const char* kSaveFailedText = "Problem saving file";
// A saved file always names channel 1 in its header, whatever the MIDI
// channel is.
constexpr int kFileChannel = 1;

const char* saveTitle(int kind)
{
    switch (kind) {
    case kPatch: return "Save Patch";
    case kPatchBankA: return "Save Bank A";
    case kPatchBankB: return "Save Bank B";
    case kMultiset: return "Save (Single) Multiset";
    case kPattern: return "Save (Single) Arp Pattern";
    case kMultiBankA: return "Save Multi Bank A";
    case kMultiBankB: return "Save Multi Bank B";
    default: return "Save Arpeggiator Bank";
    }
}

std::string joined(const std::string& folder, const std::string& file)
{
    return (std::filesystem::path(folder) / file).string();
}

// The name the dialog offers when names are suggested: the single items keep
// theirs up to date as they are loaded and named; the banks are named here.
std::string suggestedName(const AppModel& model, int kind)
{
    const auto& prefixes = model.settings.prefixes;
    switch (kind) {
    case kPatchBankA: return joined(model.workFolder, prefixes[2] + "Bank A.syx");
    case kPatchBankB: return joined(model.workFolder, prefixes[2] + "Bank B.syx");
    case kMultiBankA: return joined(model.workFolder, prefixes[3] + "Bank A.syx");
    case kMultiBankB: return joined(model.workFolder, prefixes[3] + "Bank B.syx");
    case kArpBank: return joined(model.workFolder, prefixes[4] + "Bank.syx");
    default: return model.suggestedPath[kind];
    }
}

void informRefusal(AppModel& model, const std::string& title, const std::string& text)
{
    showInformation(model.host(), title, text, kSaveHelpContext);
}

// The save dialog; moves the work folder to where the user chose to save.
std::optional<std::string> askSavePath(AppModel& model, const std::string& title, const std::string& fileName)
{
    FileDialogRequest request;
    request.title = title;
    request.filter = kSysExFilter;
    request.startFolder = model.workFolder;
    request.fileName = fileName;
    std::optional<std::string> path = model.host().chooseSaveFile(request);
    if (!path || path->empty())
        return std::nullopt;
    // The dialog's filter names the extension: a name chosen without one
    // (the multiset and pattern suggestions have none) gets ".syx", so that
    // the Open dialog lists the file.
    if (!std::filesystem::path(*path).has_extension())
        *path += ".syx";
    model.workFolder = std::filesystem::path(*path).parent_path().string();
    return path;
}

bool writeOrReport(AppModel& model, const std::string& path, const SysExMessage& message, const std::string& title)
{
    if (writeFileAtomically(path, message))
        return true;
    informRefusal(model, title, kSaveFailedText);
    return false;
}

// Every save of one Kind: header and packed data, the path (from the item or
// the dialog), the file, and then the item counts as saved.
bool saveItem(AppModel& model, int kind, int how)
{
    refreshPacked(model, kind);
    const SysExMessage message = dumpForKind(kind, kFileChannel, model.packed[kind]);

    if (model.itemPath[kind].empty())
        how = 2;
    const std::string title = saveTitle(kind);
    std::string path;
    if (how == 1) {
        path = model.itemPath[kind];
    } else {
        const std::string offered = model.settings.suggestNames ? suggestedName(model, kind) : model.itemPath[kind];
        std::optional<std::string> chosen = askSavePath(model, title, offered);
        if (!chosen)
            return false;
        path = std::move(*chosen);
    }

    if (!writeOrReport(model, path, message, title))
        return false;

    AppModel::Batch batch(model);
    model.itemPath[kind] = path;
    model.flags.clean[kind] = true;
    model.flags.changed[kind] = false;
    recentFilesUpdate(model, 1, path);
    model.buffers.updateLoaded(kind);
    model.changed(kLabelsChanged);
    return true;
}

struct MiscSaveName {
    const char* title;
    const char* name;
};

std::optional<MiscSaveName> miscSaveName(const MiscDump& misc)
{
    switch (misc.length()) {
    case 182939: return MiscSaveName{"Save All Data (sent from Z1)", "All Data"};
    case 168531: return MiscSaveName{"Save All Program (sent from Z1)", "All Program"};
    case 7617: return MiscSaveName{"Save All Multi (sent from Z1)", "All Multi"};
    case 966: return MiscSaveName{"Save Global and MIDI (sent from Z1)", "Global MIDI"};
    case 483:
        if (globalOrMidiName(misc.message) == "MIDI")
            return MiscSaveName{"Save MIDI (sent from Z1)", "MIDI"};
        return MiscSaveName{"Save Global (sent from Z1)", "Global"};
    default: return std::nullopt;
    }
}

}  // namespace

void refreshPacked(AppModel& model, int kind)
{
    SysExImage packed;
    if (EditBuffers::hasBuffers(kind)) {
        ByteImage& image = model.itemImage(kind);
        paramsToImage(kind, model.buffers.of(kind).current, image);
        packed = DATAtoMIDI(kind, image);
    } else {
        BusyPointer busy(model.host());
        packed = DATAtoMIDI(kind, model.banks.image(kind));
    }
    packed.push_back(0xF7);
    model.packed[kind] = std::move(packed);
}


void saveCommand(AppModel& model, int how)
{
    const KindFlags& flags = model.flags;
    switch (model.mode) {
    case kPatch:
        if (!flags.loaded[kPatch])
            return informRefusal(model, "Save Patch", "No patch to save");
        doSavePatch(model, how);
        return;
    case kPatchBankA:
    case kPatchBankB: {
        const int bank = model.mode;
        if (!flags.loaded[bank])
            return informRefusal(model, saveTitle(bank), bank == kPatchBankA ? "No bank A to save" : "No bank B to save");
        doSaveBank(model, bank, how);
        return;
    }
    case kMultiset:
        if (model.multiMode == 0) {
            if (!flags.loaded[kMultiset])
                return informRefusal(model, "Save Multiset", "No multiset to save");
            doSaveMultiset(model, how);
        } else if (model.multiMode == 1 || model.multiMode == 2) {
            const int bank = model.multiMode == 1 ? kMultiBankA : kMultiBankB;
            if (!flags.loaded[bank])
                return informRefusal(model, saveTitle(bank), "No multibank to save");
            doSaveMultiBank(model, bank, how);
        }
        return;
    case kPattern:
        if (model.arpMode == 0) {
            // A pattern may be drawn on the empty screen, so it needs no
            // loaded flag; one without a single tone is probably a mistake.
            if (!arpHasTones(model)) {
                if (!askYesNo(model.host(), "Save Arpeggiator Pattern",
                              "Pattern has no tones selected. Do you still want to save?", kSaveHelpContext))
                    return;
            }
            doSavePattern(model, how);
        } else if (model.arpMode == 1) {
            if (!flags.loaded[kArpBank])
                return informRefusal(model, "Save Arpeggiator Bank", "No arpeggiator bank to save");
            doSaveArpBank(model, how);
        }
        return;
    default:
        return;
    }
}

bool doSavePatch(AppModel& model, int how) { return saveItem(model, kPatch, how); }
bool doSaveMultiset(AppModel& model, int how) { return saveItem(model, kMultiset, how); }
bool doSavePattern(AppModel& model, int how) { return saveItem(model, kPattern, how); }

bool doSaveBank(AppModel& model, int kind, int how)
{
    if (kind != kPatchBankA && kind != kPatchBankB)
        return false;
    return saveItem(model, kind, how);
}

bool doSaveMultiBank(AppModel& model, int kind, int how)
{
    if (kind != kMultiBankA && kind != kMultiBankB)
        return false;
    return saveItem(model, kind, how);
}

bool doSaveArpBank(AppModel& model, int how) { return saveItem(model, kArpBank, how); }

bool saveKind(AppModel& model, int kind, int how)
{
    if (kind < kPatch || kind > kArpBank)
        return false;
    return saveItem(model, kind, how);
}

bool miscSave(AppModel& model)
{
    const std::optional<MiscSaveName> names = miscSaveName(model.misc);
    if (!names)
        return false;
    const std::string offered =
        model.settings.suggestNames ? joined(model.workFolder, model.settings.prefixes[5] + names->name) : std::string();
    const std::optional<std::string> path = askSavePath(model, names->title, offered);
    if (!path)
        return false;
    // The dump goes out as it came, with the channel byte it came with.
    return writeOrReport(model, *path, model.misc.message, names->title);
}

}  // namespace quillon
