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

// The bank on show when it is a loaded PatchBank, else 0 after saying why.
int mappableBank(AppModel& model, int which)
{
    const char* as = which == kOldList ? "Old" : "New";
    if (model.mode != kPatchBankA && model.mode != kPatchBankB) {
        tell(model, std::string("Map Bank As ") + as, "Please select bank A or B");
        return 0;
    }
    const int bank = model.mode;
    if (!model.flags.loaded[bank]) {
        const std::string letter = bank == kPatchBankA ? "A" : "B";
        std::string lower = as;
        lower[0] = static_cast<char>(lower[0] - 'A' + 'a');
        tell(model, "Map Bank " + letter + " As " + as + " (" + lower + letter + ")", "No Bank " + letter + " loaded");
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
    const std::string letter = kind == kMultiBankA ? "A" : "B";
    if (!model.flags.loaded[kind]) {
        tell(model, "Remap Multi Bank " + letter, "Multi bank " + letter + " is not loaded");
        return;
    }
    if (!loadRemapTable(model))
        return;
    {
        AppModel::Batch batch(model);
        for (int position = 0; position < kMultisPerBank; ++position)
            remapMultiset(model, kind, position);
    }
    tell(model, "Remap Multi Bank " + letter, "Completed");
}

}  // namespace quillon
