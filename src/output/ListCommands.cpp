#include "output/ListCommands.h"

#include "files/AtomicFile.h"
#include "files/UserFolders.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "output/CheckResults.h"
#include "output/ListFormat.h"
#include "output/ParamDumps.h"
#include "output/TextLists.h"
#include "shell/AppModel.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

namespace quillon {

namespace {

constexpr const char* kTextFilter = "Text files (*.txt)|*.txt";
constexpr const char* kWriteFailedText = "Problem writing to file";

void refuse(AppModel& model, const std::string& title, const std::string& text)
{
    MessageRequest request;
    request.title = title;
    request.text = text;
    request.icon = MessageIcon::Exclamation;
    model.host().showMessage(request);
}

// The save dialog and the write. The folder setting moves to the chosen
// folder only when the file was written.
bool writeList(AppModel& model, const std::string& title, const std::string& fileName,
               const std::vector<std::string>& lines)
{
    FileDialogRequest request;
    request.title = title;
    request.filter = kTextFilter;
    request.startFolder = listStartFolder(model);
    request.fileName = fileName;
    const std::optional<std::string> chosen = model.host().chooseSaveFile(request);
    if (!chosen || chosen->empty())
        return false;

    const std::filesystem::path path(*chosen);
    if (!writeLinesAtomically(path, lines)) {
        MessageRequest failure;
        failure.title = title;
        failure.text = kWriteFailedText;
        failure.icon = MessageIcon::Critical;
        model.host().showMessage(failure);
        return false;
    }
    model.settings.listFolder = path.parent_path().string();
    model.changed(kSettingsChanged);
    return true;
}

// A dump is offered under the "Param" folder with the item's cleaned name.
std::string dumpFileName(const AppModel& model, int kind, const char* suffix)
{
    const std::filesystem::path folder = paramFolder(model);
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    const std::string name = fileNameFromName(nameFromParams(model.buffers.of(kind).current));
    return (folder / (name + suffix)).string();
}

bool loadedOrRefuse(AppModel& model, int kind, const std::string& title, const std::string& text)
{
    if (model.flags.loaded[kind])
        return true;
    refuse(model, title, text);
    return false;
}

}  // namespace

std::string listStartFolder(const AppModel& model)
{
    return model.settings.listFolder.empty() ? userDocumentsFolder().string() : model.settings.listFolder;
}

bool saveBankList(AppModel& model, int bank)
{
    if (bank != kPatchBankA && bank != kPatchBankB)
        return false;
    return writeList(model, "Save Bank Patch List", bank == kPatchBankA ? "Bank A.txt" : "Bank B.txt",
                     bankListLines(model, bank));
}

bool saveMultiBankList(AppModel& model, int kind)
{
    std::string fileName;
    switch (kind) {
    case kMultiBankA: fileName = "Multi Bank A.txt"; break;
    case kMultiBankB: fileName = "Multi Bank B.txt"; break;
    case kMultiset: fileName = fileNameFromName(nameFromParams(model.buffers.of(kMultiset).current)) + ".txt"; break;
    default: return false;
    }
    return writeList(model, "Save Multi Bank Patch List", fileName, multiBankListLines(model, kind));
}

bool saveArpBankList(AppModel& model, int kind)
{
    std::string fileName;
    switch (kind) {
    case kArpBank: fileName = "Arp Bank.txt"; break;
    case kPattern: fileName = fileNameFromName(nameFromParams(model.buffers.of(kPattern).current)) + ".txt"; break;
    default: return false;
    }
    return writeList(model, "Save Arp Bank Pattern List", fileName, arpBankListLines(model, kind));
}

bool dumpPatchParams(AppModel& model)
{
    return writeList(model, "Save Patch Parameter List", dumpFileName(model, kPatch, ".txt"), patchDumpLines(model));
}

bool dumpMultiParams(AppModel& model)
{
    return writeList(model, "Save Multiset Parameter List", dumpFileName(model, kMultiset, "(m).txt"),
                     multiDumpLines(model));
}

bool dumpArpParams(AppModel& model)
{
    return writeList(model, "Save Arp Pattern Parameter List", dumpFileName(model, kPattern, "(a).txt"),
                     arpDumpLines(model));
}

bool mnuSaveList(AppModel& model)
{
    switch (model.mode) {
    case kPatch:
        return loadedOrRefuse(model, kPatch, "Save Patch Parameter List", "No patch loaded") && dumpPatchParams(model);
    case kPatchBankA:
    case kPatchBankB:
        return loadedOrRefuse(model, model.mode, "Save Bank Patch List", "No bank loaded") &&
               saveBankList(model, model.mode);
    case kMultiset:
        if (model.multiMode == 1)
            return loadedOrRefuse(model, kMultiBankA, "Save Multi Bank A List", "No Multi Bank A loaded") &&
                   saveMultiBankList(model, kMultiBankA);
        if (model.multiMode == 2)
            return loadedOrRefuse(model, kMultiBankB, "Save Multi Bank B List", "No Multi Bank B loaded") &&
                   saveMultiBankList(model, kMultiBankB);
        return loadedOrRefuse(model, kMultiset, "Save Multiset List", "No multiset loaded") &&
               saveMultiBankList(model, kMultiset);
    case kPattern:
        if (model.arpMode == 1)
            return loadedOrRefuse(model, kArpBank, "Save Arpeggiator Bank List", "No arpeggiator bank loaded") &&
                   saveArpBankList(model, kArpBank);
        return loadedOrRefuse(model, kPattern, "Save Arp Pattern List", "No arp pattern loaded") &&
               saveArpBankList(model, kPattern);
    default:
        return false;
    }
}

bool mnuDumpParamList(AppModel& model)
{
    switch (model.mode) {
    case kPatch:
        return loadedOrRefuse(model, kPatch, "Dump Patch Parameter List", "No patch loaded") && dumpPatchParams(model);
    case kMultiset:
        return loadedOrRefuse(model, kMultiset, "Dump Multiset Parameter List", "No multiset loaded") &&
               dumpMultiParams(model);
    case kPattern:
        return loadedOrRefuse(model, kPattern, "Dump Arp Pattern Parameter List", "No arp pattern loaded") &&
               dumpArpParams(model);
    default:
        return false;
    }
}

}  // namespace quillon
