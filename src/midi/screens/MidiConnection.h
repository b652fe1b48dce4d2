#pragma once

#include "midi/backends/MidiSystem.h"
#include "midi/screens/QtEventPump.h"
#include "midi/screens/QtTimer.h"

#include <memory>

class QWidget;

namespace quillon {

class AppModel;

// The program's MIDI: the system with its two ports, the pump that brings
// their events to the user interface, and TimerMain, all attached to the
// model's MIDI link. The forms the flows show (frmMisc for a dump of
// several kinds) open over the main window; frmRequest is closed when the
// answer arrives. Made after the model and gone before it.
class MidiConnection {
public:
    // Opens `api` at the SysEx rate of the per-user store; a system that
    // cannot be opened throws MidiError.
    MidiConnection(AppModel& model, MidiApi api, QWidget* mainWindow);
    ~MidiConnection();
    MidiConnection(const MidiConnection&) = delete;
    MidiConnection& operator=(const MidiConnection&) = delete;

    MidiSystem& system() { return *system_; }
    QtTimer& timerMain() { return timerMain_; }

private:
    AppModel& model_;
    // Declared before the system: the system's threads must stop before the
    // pump that takes their events goes.
    QtEventPump pump_;
    std::unique_ptr<MidiSystem> system_;
    QtTimer timerMain_;
};

// The MIDI of start-up, as its last step: the system named by
// QUILLON_MIDI_API is opened into `connection`, and doInitMIDI chooses the
// devices. A system that cannot be opened shows the "MIDI Error" box;
// false then ends the program.
bool startMidi(AppModel& model, QWidget* mainWindow, std::unique_ptr<MidiConnection>& connection);

}  // namespace quillon
