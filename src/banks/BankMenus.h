#pragma once

// The bank menu items that refuse before they run a reordering: each says
// why in an information box and changes nothing.
//
// What the screen calls:
//   mnuSortBankArray(model, key)   the ten sorts of the Bank menu
//   mnuExportImport1(model)        Export/Import (bank) of mnuPopup1
//   mnuExportImport2(model)        Export/Import (bank) of mnuPopup2
// (mnuSwapBanks is swapBanks, mnuUndoBank is mnuUndoBank.)

namespace quillon {

class AppModel;

// "No bank loaded" or "Please select bank first", else sortBank.
void mnuSortBankArray(AppModel& model, int key);

// "Banks A and B should both be loaded", else exportImportSelection.
void mnuExportImport1(AppModel& model);
void mnuExportImport2(AppModel& model);

}  // namespace quillon
