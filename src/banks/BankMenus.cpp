#include "banks/BankMenus.h"

#include "banks/BankExchange.h"
#include "banks/BankSort.h"
#include "banks/BankUndo.h"
#include "model/Kind.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

bool bothBanksLoaded(AppModel& model, const char* title)
{
    if (model.flags.loaded[kPatchBankA] && model.flags.loaded[kPatchBankB])
        return true;
    showInformation(model.host(), title, "Banks A and B should both be loaded", kBankReorderHelpContext);
    return false;
}

}  // namespace

void mnuSortBankArray(AppModel& model, int key)
{
    const bool bankMode = model.mode == kPatchBankA || model.mode == kPatchBankB;
    const bool anyLoaded = model.flags.loaded[kPatchBankA] || model.flags.loaded[kPatchBankB];
    if (!anyLoaded || (bankMode && !model.flags.loaded[model.mode])) {
        showInformation(model.host(), "Sort bank", "No bank loaded", kBankReorderHelpContext);
        return;
    }
    if (!bankMode) {
        showInformation(model.host(), "Sort bank", "Please select bank first", kBankReorderHelpContext);
        return;
    }
    sortBank(model, key);
}

void mnuExportImport1(AppModel& model)
{
    if (bothBanksLoaded(model, "Export/import patch between banks"))
        exportImportSelection(model);
}

void mnuExportImport2(AppModel& model)
{
    if (bothBanksLoaded(model, "Export/import patches between banks"))
        exportImportSelection(model);
}

}  // namespace quillon
