#pragma once

namespace quillon {

class AppModel;

// mnuSave (how 1) and mnuSaveAs (how 2) for the item of the current Mode.
void saveCommand(AppModel& model, int how);

// The save routines; each returns true when the file was written.
bool doSavePatch(AppModel& model, int how);
bool doSaveMultiset(AppModel& model, int how);
bool doSavePattern(AppModel& model, int how);
bool doSaveBank(AppModel& model, int kind, int how);
bool doSaveMultiBank(AppModel& model, int kind, int how);
bool doSaveArpBank(AppModel& model, int how);

// The save routine of any Kind 1 to 8.
bool saveKind(AppModel& model, int kind, int how);

// The packed data of the item or bank made anew from what is in memory (for
// the patch, multiset and pattern the edit buffer goes into the image first),
// with the closing F7 behind it as behind data that came from a file. Saving
// and sending both go out from it.
void refreshPacked(AppModel& model, int kind);

// Saves the message of a several-kinds file or dump from frmMisc.
bool miscSave(AppModel& model);

}  // namespace quillon
