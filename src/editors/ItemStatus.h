#pragma once

// updateUndoBankMenu lives with the undo ring of the banks.
#include "banks/BankUndo.h"

namespace quillon {

class AppModel;

// Whether the patch, multiset or pattern in the editor differs from what was
// loaded. Sets the changed flag when the item is not clean or Current differs
// from Loaded; never clears it. Other kinds are ignored.
void checkChanged(AppModel& model, int kind);
void checkPatchChanged(AppModel& model);
void checkMultiChanged(AppModel& model);
void checkArpChanged(AppModel& model);

// True when any step up to the pattern length has a tone; then the pattern
// also counts as loaded, as a pattern drawn on the empty screen should.
bool arpHasTones(AppModel& model);

// Shows the screen of a Mode: 1 patch, 2 or 3 a bank, 4 multi, 5 arpeggiator.
void setUpScreen(AppModel& model, int mode);

// Keeps the Send command in step with the item: enabled when it is loaded,
// captioned with the text of its label.
void setUpSendMenu(AppModel& model, int kind);

// Empties both status lines.
void clearStatusMessages(AppModel& model);

// The common tail of New: the item's image from Current, its name, its
// label painted, the flags of a clean loaded item, and (once start-up is
// over) its screen and the Send command.
void newItemReady(AppModel& model, int kind, bool startingUp);
void newPatchReady(AppModel& model, bool startingUp = false);
void newMultiReady(AppModel& model, bool startingUp = false);
void newArpReady(AppModel& model, bool startingUp = false);

// mnuNew in the current Mode: a new patch, multiset or pattern, after the
// save prompt; the banks have no New.
void newItem(AppModel& model);

// A click on one of the labels of fraLoaded: lblLoaded(1..5) by Kind, and
// Kinds 6, 7, 8 for lblMultiBankA, lblMultiBankB and lblArpBank. Returns
// the Kind whose name dialog a right click asks for, or 0.
int clickLoadedLabel(AppModel& model, int kind, bool rightButton);

}  // namespace quillon
