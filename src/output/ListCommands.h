#pragma once

#include <string>

namespace quillon {

class AppModel;

// Save List and Dump Current Params: each writes a text file of the current
// view or edit buffer, through a save dialog that starts in the list folder
// and keeps the folder chosen. True when a file was written.

// mnuSaveList: by Mode, the bank list, the multi bank or multiset list, the
// ArpBank or pattern list, or in Mode 1 the patch dump; refused with a box
// when the thing is not loaded.
bool mnuSaveList(AppModel& model);

// mnuDumpParamList: the dump of the patch, multiset or pattern by Mode,
// refused when it is not loaded. Banks have no dump.
bool mnuDumpParamList(AppModel& model);

// The writers with their save dialogs. Each writes whatever the model holds;
// the menu commands above make the loaded tests.
bool saveBankList(AppModel& model, int bank);         // Kind 2 or 3
bool saveMultiBankList(AppModel& model, int kind);    // Kind 6 or 7, or 4 for the multiset
bool saveArpBankList(AppModel& model, int kind);      // Kind 8, or 5 for the pattern
bool dumpPatchParams(AppModel& model);
bool dumpMultiParams(AppModel& model);
bool dumpArpParams(AppModel& model);

// Where the save dialog of the lists starts: the list folder, or the user's
// Documents folder until a list has been saved.
std::string listStartFolder(const AppModel& model);

}  // namespace quillon
