#pragma once

#include "files/SystemSettings.h"

#include <string>
#include <vector>

namespace quillon {

class AppModel;

// Quillonset.dat: 50 text lines, in which a small number is the character
// of code number + 32 and a flag is "!" for on and a blank for off.
inline constexpr int kSystemSettingsLines = 50;

// Reads Quillonset.dat of the data folder into the settings, restoring it
// from Quillonset.bkp first when it is missing. A line of the wrong length
// ends the decoding with a message, and what was read before it stands. True
// when every line was taken.
bool readSystemSettings(AppModel& model);

// Writes the settings to Quillonset.dat, then the recent files and the
// folders to the per-user store. False when the file could not be written.
bool saveSystemSettings(AppModel& model);

// The 50 lines that stand for the settings.
std::vector<std::string> systemSettingsLines(const SystemSettings& settings);

// The recent files and the four folders of the per-user store: the work
// folder, the folders for extracted files and for text lists, and the help
// folder, which is the data folder when none is stored.
void readPersistentLists(AppModel& model);
void savePersistentLists(AppModel& model);

// The caption of a favourite slot holding this patch subsection index: the
// fixed caption of an overlay subsection, else the subsection's name; empty
// for none.
std::string favouriteCaption(int subsectionIndex);

}  // namespace quillon
