#pragma once

// Extract to Files: each selected patch of the bank on show becomes a .syx
// file of its own, a current-patch dump named by the file-name format of the
// settings.
//
// What the screen calls: extractPatches(model) for mnuExtractToFiles.

#include <string>
#include <vector>

namespace quillon {

class AppModel;

// Asks for the folder with a save dialog that offers the first patch's
// name, then writes the selected patches in their sequence order, each
// under the name doBuildPatchFileName gives it for its bank place, replacing
// a file of that name. Does nothing without a loaded bank or a selection;
// a file that cannot be written ends the run and keeps the files before it.
// The paths written, in order.
std::vector<std::string> extractPatches(AppModel& model);

}  // namespace quillon
