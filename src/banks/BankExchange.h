#pragma once

// Exchanges between PatchBank A and B: the selection with the last places
// of the other bank, and the two banks as a whole.
//
// What the screen calls: mnuExportImport1(model) and mnuExportImport2(model)
// (banks/BankMenus.h) for the popups, swapBanks(model) for mnuSwapBanks.

namespace quillon {

class AppModel;

// The selected patches of the current bank change places with the last
// patches of the other bank, paired in order, after the user agrees. The
// undo step is taken before the question, so a No spends a place of the
// ring (its slot takes nothing back). Silently does nothing while either
// bank is not loaded or nothing is selected.
void exportImportSelection(AppModel& model);

// Bank A and bank B change letters, after the user agrees: a bank alone
// moves to the other letter and leaves its own empty. Both banks lose their
// file names and selection, count as changed, and the undo ring is emptied;
// the view follows the patches to the other letter.
void swapBanks(AppModel& model);

}  // namespace quillon
