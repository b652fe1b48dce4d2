#pragma once

// The undo of bank reorderings: the ring of the last ten reorderings of
// either PatchBank, and the three Undo items (mnuUndoBank, mnuUndoBankPopup1,
// mnuUndoBankPopup2) whose captions name the step an undo takes back.
//
// What the screen calls:
//   mnuUndoBank(model)          the Undo item of the Bank menu
//   undoBankOperation(model)    the Undo items of mnuPopup1 and mnuPopup2
// and shows model.bankView.undoItems when told kUndoMenuChanged.

namespace quillon {

class AppModel;

// The help topic of the messages of bank selection and reordering.
inline constexpr int kBankReorderHelpContext = 160;

// Opens a slot for a reordering about to be made on the current bank: the
// head moves on (dropping the oldest step when the ring is full), and the
// selection flags of both banks are kept. The slot's map starts as the
// identity, so a slot the operation never fills takes nothing back.
void pushUndoSlot(AppModel& model);

// Operation 1..30 names the step at the head of the ring in the captions of
// the Undo items and enables them; 0 empties the ring, captions them "Undo"
// and disables them.
void updateUndoBankMenu(AppModel& model, int operation);

// Takes back the reordering at the head of the ring: the patches return to
// their places, the selection flags as they were, and the view goes to the
// bank the reordering was made on. Only in Mode 2 or 3 with a step to undo.
void undoBankOperation(AppModel& model);

// The Bank menu's Undo: refuses with "No bank loaded" while neither
// PatchBank is loaded.
void mnuUndoBank(AppModel& model);

}  // namespace quillon
