#include "banks/ExtractFiles.h"

#include "banks/ImportFiles.h"
#include "files/AtomicFile.h"
#include "files/SuggestedNames.h"
#include "files/UserFolders.h"
#include "model/BankImage.h"
#include "model/Kind.h"
#include "model/ParamImage.h"
#include "shell/AppModel.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExPacking.h"

#include <filesystem>

namespace quillon {

namespace {

constexpr const char* kSysExFilter = "SysEx files (*.syx)|*.syx";
constexpr int kSavedChannel = 1;  // a file carries channel byte 30

// The path a bank patch is saved under: its name and parts from its own
// values, its place as the selected place of the name format.
std::string extractedPath(const AppModel& model, const ByteImage& image, const std::string& folder, int combined)
{
    ParamValues values = makeParamValues(kPatch);
    LoadReport unused;
    imageToPatchParams(image, values, unused);
    return doBuildPatchFileName(model, values, folder, trimmedRight(nameFromValues(values)),
                                model.settings.fileNameFormat, combined);
}

// Where the save dialog starts: the extract folder, else the work folder,
// else the user's Music folder.
std::string startFolder(const AppModel& model)
{
    if (!model.settings.extractFolder.empty())
        return model.settings.extractFolder;
    if (!model.workFolder.empty())
        return model.workFolder;
    return userMusicFolder().string();
}

}  // namespace

std::vector<std::string> extractPatches(AppModel& model)
{
    std::vector<std::string> written;
    const int bank = model.bankTarget;
    if ((bank != kPatchBankA && bank != kPatchBankB) || !model.flags.loaded[bank])
        return written;
    const BankSelection& selection = model.banks.selection(bank);
    const int n = selection.selectionCount;
    if (n < 1)
        return written;
    const int offset = bank == kPatchBankB ? kPatchesPerBank : 0;
    Host& host = model.host();

    const std::string title = "Extract patches - save " + std::to_string(n) + " files";
    const int first = selection.selectionSequence[1];
    FileDialogRequest request;
    request.title = title;
    request.filter = kSysExFilter;
    request.startFolder = startFolder(model);
    request.fileName = extractedPath(model, model.banks.readBankPatch(bank, first), request.startFolder, first + offset);
    const auto chosen = host.chooseSaveFile(request);
    if (!chosen)
        return written;
    const std::string folder = std::filesystem::path(*chosen).parent_path().string();
    model.settings.extractFolder = folder;

    BusyPointer busy(host);
    for (int i = 1; i <= n; ++i) {
        const int place = selection.selectionSequence[static_cast<std::size_t>(i)];
        model.banks.lastPutPatch = place + offset;
        const ByteImage image = model.banks.readBankPatch(bank, place);
        const std::string path = extractedPath(model, image, folder, model.banks.lastPutPatch);
        if (!writeFileAtomically(path, currentPatchDump(kSavedChannel, DATAtoMIDI(kPatch, image)))) {
            showInformation(host, title, "Problem saving file", kImportHelpContext);
            return written;
        }
        written.push_back(path);
        host.setStatus("Saving " + std::filesystem::path(path).filename().string(), StatusColour::Busy);
    }
    host.setStatus(std::to_string(n) + " files saved", StatusColour::Done);
    return written;
}

}  // namespace quillon
