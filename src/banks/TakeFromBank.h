#pragma once

namespace quillon {

class AppModel;

// Takes a member of a bank into its editor, in the order of every load: the
// save prompt for the item in the editor (a cancel stops here), the member's
// data, the defaults under it, the values shown, Loaded and Last. The item
// then has no file name, so that Save asks for one. Returns false when the
// user cancelled. A patch taken from the view's selection (element 1 of
// its sequence) leaves the selection.
bool takePatchFromBank(AppModel& model, int position);       // from the bank on show (bankTarget)
bool takeMultiFromBank(AppModel& model, int bank, int position);
bool takePatternFromBank(AppModel& model, int position);

}  // namespace quillon
