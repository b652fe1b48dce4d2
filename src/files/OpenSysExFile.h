#pragma once

#include "files/MiscDialog.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace quillon {

class AppModel;

// What opening a file needs from around it beyond the Host.
struct OpenFileSurroundings {
    // The user's Music folder, where the open dialog starts when nothing
    // better is known; nothing means userMusicFolder().
    std::optional<std::filesystem::path> musicFolder;
    // Shows frmMisc modally for a file of several kinds, with the state its
    // doSetup gave. Without it the dump simply waits in the model.
    std::function<void(AppModel&, MiscDialogState&)> showMiscDialog;
};

// mnuOpen, the toolbar's Open and the recent files of the File menu: index 0
// asks for a file, 1 to 20 takes that recent file. The file's size says what
// it holds, and its loader takes it into the editor, a bank, or frmMisc.
void doOpenSysExFile(AppModel& model, int recentIndex, const OpenFileSurroundings& surroundings = {});

}  // namespace quillon
