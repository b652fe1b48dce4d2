#pragma once

namespace quillon {

class AppModel;

// Prepares the replacement of an item: for the patch, multiset and pattern
// the load report is reset and, if the item is loaded, PrevLoaded taken and
// the change check run; a changed item of any Kind then gets the save-first
// prompt. Returns false (and sets saveCancelled) when the user cancels.
bool doPreLoad(AppModel& model, int kind);

// Shows the replaced item: unpacks its packed data (banks) or its image
// (single items) into the editor, paints its label, sets its flags, and sets
// up its screen and the Send command.
void doPostLoad(AppModel& model, int kind);

// What doPostLoad does for a bank (Kinds 2, 3, 6, 7, 8) once its image is in
// the bank store: the label painted, the flags of a bank just loaded, the
// bank marked and its screen and Send command set up. frmMisc uses it for the
// banks it takes out of a several-kinds dump, whose images need no unpacking.
void showLoadedBank(AppModel& model, int bank);

// A patch, multiset or pattern whose packed data has just come in, from a
// file or the instrument: unpacked into its image and edit buffer, shown,
// and taken as the loaded and the last item.
void takeSingleItem(AppModel& model, int kind);

// "Save ... first?" with Yes, No and Cancel. Context 0 gives the New title of
// the Kind, 1 "Exit Quillon". Yes saves with a dialog, No clears the changed
// flag, Cancel sets saveCancelled; so does a Yes whose save is cancelled or
// fails, so that the edits are not replaced unsaved.
void doSaveFirstPrompt(AppModel& model, int kind, int context);

}  // namespace quillon
