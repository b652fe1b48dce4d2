#pragma once

#include "files/SettingsStore.h"
#include "midi/screens/MidiConnection.h"
#include "shell/AppModel.h"
#include "shell/screens/QtHost.h"
#include "shell/screens/frmMain.h"
#include "support/TestModel.h"

#include <QAction>
#include <QLabel>

#include <functional>
#include <memory>

namespace quillon {

class SimulatedZ1;

// The main window started as the program starts it, over the simulated Z1
// in the same process: what the output plays reaches the instrument, and
// its answers come back through the toolkit's event queue.
struct SimulatedMidiWindow {
    QtHost host;
    MemorySettingsStore store;
    TempFolder folder;
    AppModel model{host, store, folder.path()};
    frmMain window{model, host};
    std::unique_ptr<MidiConnection> midi;

    SimulatedMidiWindow();

    SimulatedZ1& z1();
    QAction* action(const char* name) { return window.action(name); }
    QLabel* label(const char* name) { return window.findChild<QLabel*>(name); }
};

// Runs the toolkit's events until `done` holds, at most `milliseconds`;
// whether it came to hold.
bool runEventsUntil(const std::function<bool()>& done, int milliseconds = 2000);

// Runs the events already waiting, and those they post in turn.
void runWaitingEvents();

}  // namespace quillon
