#pragma once

namespace quillon {

class AppModel;
class frmMain;

// The Remap items of the Bank and Multi menus of the main window: Map Old,
// Map New, Create Remap, Show Remap, Remap Multiset and Remap Multi Bank,
// enabled and joined to their commands.
void wireRemapCommands(frmMain& window, AppModel& model);

}  // namespace quillon
