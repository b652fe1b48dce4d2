#include "banks/RemapCommands.h"

#include "banks/CreateRemap.h"
#include "banks/RemapLists.h"
#include "banks/RemapTable.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

#include <system_error>

namespace quillon {

namespace {

void tell(AppModel& model, const std::string& title, const std::string& text)
{
    showInformation(model.host(), title, text, kRemapHelpContext);
}

// The titles of Map Old and Map New: when no bank is on show, and when the
// bank on show (A, B) is not loaded.
struct MapTitles {
    const char* noBank;
    const char* notLoaded[2];
};

constexpr MapTitles kMapOldTitles{"Map Bank As Old", {"Map Bank A As Old (oldA)", "Map Bank B As Old (oldB)"}};
constexpr MapTitles kMapNewTitles{"Map Bank As New", {"Map Bank A As New (newA)", "Map Bank B As New (newB)"}};

// The bank on show when it is a loaded PatchBank, else 0 after saying why.
int mappableBank(AppModel& model, int which)
{
    const MapTitles& titles = which == kOldList ? kMapOldTitles : kMapNewTitles;
    if (model.mode != kPatchBankA && model.mode != kPatchBankB) {
        tell(model, titles.noBank, "Please select bank A or B");
        return 0;
    }
    const int bank = model.mode;
    if (!model.flags.loaded[bank]) {
        const bool bankB = bank == kPatchBankB;
        tell(model, titles.notLoaded[bankB ? 1 : 0], bankB ? "No Bank B loaded" : "No Bank A loaded");
        return 0;
    }
    return bank;
}

void mapBank(AppModel& model, int which)
{
    const int bank = mappableBank(model, which);
    if (bank == 0 || !saveBankList(model, bank, which))
        return;
    if (which == kNewList)
        checkNewLists(model);
    model.host().setStatus(bankListFileName(bank, which) + " written", StatusColour::Done);
    model.host().setMessage("");
}

bool remapCreated(AppModel& model)
{
    std::error_code error;
    if (std::filesystem::exists(remapTablePath(model), error))
        return true;
    tell(model, "Remap Multiset", "You need to create remap first (Bank menu)");
    return false;
}

}  // namespace

void mnuMapOld(AppModel& model) { mapBank(model, kOldList); }

void mnuMapNew(AppModel& model) { mapBank(model, kNewList); }

void mnuCreateRemap(AppModel& model) { createRemap(model); }

void mnuRemapMultiset(AppModel& model)
{
    if (!remapCreated(model))
        return;
    if (!model.flags.loaded[kMultiset]) {
        tell(model, "Remap Multiset", "No multiset loaded");
        return;
    }
    if (!loadRemapTable(model))
        return;
    remapMultiset(model, 0, 0);
    tell(model, "Remap Multiset", "Completed");
}

void mnuRemapMultiBank(AppModel& model)
{
    if (!remapCreated(model))
        return;
    if (model.multiMode != 1 && model.multiMode != 2) {
        tell(model, "Remap Multi Bank", "No multi bank selected");
        return;
    }
    const int kind = model.multiMode == 1 ? kMultiBankA : kMultiBankB;
    const char* title = kind == kMultiBankA ? "Remap Multi Bank A" : "Remap Multi Bank B";
    if (!model.flags.loaded[kind]) {
        tell(model, title, kind == kMultiBankA ? "Multi bank A is not loaded" : "Multi bank B is not loaded");
        return;
    }
    if (!loadRemapTable(model))
        return;
    {
        AppModel::Batch batch(model);
        for (int position = 0; position < kMultisPerBank; ++position)
            remapMultiset(model, kind, position);
    }
    tell(model, title, "Completed");
}

}  // namespace quillon
