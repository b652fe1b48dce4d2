#include "midi/screens/MidiConnection.h"

#include "midi/MidiGlobal.h"
#include "midi/SysExRate.h"
#include "midi/screens/MidiSystemAccess.h"
#include "midi/screens/frmRequest.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

#include <QPointer>
#include <QWidget>

#include <cstdlib>

namespace quillon {

MidiConnection::MidiConnection(AppModel& model, MidiApi api, QWidget* mainWindow) : model_(model)
{
    MidiSystemOptions options;
    options.sysExRate = storedSysExRate(model.store());
    system_ = openMidiSystem(api, pump_, options);
    model_.midi.attach(&system_->output(), &system_->input(), &timerMain_);
    QPointer<QWidget> parent(mainWindow);
    model_.midi.surroundings.showMiscDialog = [parent](AppModel& m, MiscDialogState& state) {
        showMiscDialog(m, state, parent.data());
    };
    model_.midi.surroundings.unloadRequestDialog = unloadRequestDialog;
    registerMidiSystem(system_.get());
}

MidiConnection::~MidiConnection()
{
    if (registeredMidiSystem() == system_.get())
        registerMidiSystem(nullptr);
    timerMain_.setEnabled(false);
    model_.midi.surroundings = {};
    model_.midi.attach(nullptr, nullptr, nullptr);
}

bool startMidi(AppModel& model, QWidget* mainWindow, std::unique_ptr<MidiConnection>& connection)
{
    try {
        connection = std::make_unique<MidiConnection>(model, chooseMidiApi(std::getenv("QUILLON_MIDI_API")),
                                                      mainWindow);
    } catch (const MidiError& error) {
        showMidiError(model, error.code(), error.what());
        return false;
    }
    return doInitMIDI(model);
}

}  // namespace quillon
