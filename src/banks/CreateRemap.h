#pragma once

// Create Remap: a dialogue of four steps (old bank A, old bank B, new bank A,
// new bank B) that settles where each step's list comes from (the list file
// already written, the bank in memory, or a bank file the user picks),
// writes the lists, matches the names and saves the remap table.

#include <string>

namespace quillon {

class AppModel;

// The situation of a step: 1 when its list file exists, plus 2 when its bank
// is loaded.
int remapStepCode(bool listExists, bool bankLoaded);

// The file picker of a step: asks for a bank file under `title` and loads
// it. True only when a PatchBank file was loaded into `bank`.
bool pickRemapBankFile(AppModel& model, int bank, const std::string& title);

// The whole dialogue. True when the remap was created.
bool createRemap(AppModel& model);

}  // namespace quillon
