#pragma once

class QAction;
class QWidget;

namespace quillon {

class AppModel;

// Enables the Patch menu's "Random 128" and "Spread  128" and runs their
// commands. A generation that cannot be finished (a percentage too large for
// a parameter's range) is reported in a box over the parent, and the
// program goes on with the banks as they were.
void wireRandomSpreadCommands(AppModel& model, QAction* randomBank, QAction* spreadBank, QWidget* parent);

}  // namespace quillon
