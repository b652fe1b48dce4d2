#include "midi/screens/MidiConnection.h"

#include "midi/MidiGlobal.h"
#include "midi/screens/MidiSystemAccess.h"
#include "midi/screens/frmRequest.h"
#include "shell/AppModel.h"
#include "shell/screens/FormLaunchers.h"

#include <QPointer>
#include <QWidget>

#include <cstdlib>

namespace quillon {

namespace {

constexpr int kMidiErrorHelpContext = 310;

}  // namespace

MidiConnection::MidiConnection(AppModel& model, MidiApi api, QWidget* mainWindow, const MidiSystemOptions& options)
    : model_(model)
{
    MidiSystemOptions chosen = options;
    chosen.sysExRate = storedSysExRate(model.store());
    system_ = openMidiSystem(api, pump_, chosen);
    model_.midi.attach(&system_->output(), &system_->input(), &timerMain_);
    QPointer<QWidget> parent(mainWindow);
    model_.midi.surroundings.showMiscDialog = [parent](AppModel& m, MiscDialogState& state) {
        showMiscDialog(m, state, parent.data());
    };
    model_.midi.surroundings.unloadRequestDialog = [] { unloadRequestDialog(); };
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
        model.host().showMessage({"MIDI Error", midiErrorText(error.code(), error.what()), MessageIcon::Exclamation,
                                  MessageButtons::Ok, true, kMidiErrorHelpContext});
        return false;
    }
    return doInitMIDI(model);
}

}  // namespace quillon
