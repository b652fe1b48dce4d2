#include "midi/screens/MidiSystemAccess.h"

#include "midi/SysExRate.h"
#include "midi/backends/MidiSystem.h"
#include "shell/AppModel.h"

namespace quillon {

namespace {

MidiSystem* registered = nullptr;

}  // namespace

void registerMidiSystem(MidiSystem* system) { registered = system; }

MidiSystem* registeredMidiSystem() { return registered; }

std::vector<std::string> midiInputDevices()
{
    return registered != nullptr ? registered->inputDevices() : std::vector<std::string>{};
}

std::vector<std::string> midiOutputDevices()
{
    return registered != nullptr ? registered->outputDevices() : std::vector<std::string>{};
}

void chooseSysExRate(AppModel& model, int bytesPerSecond)
{
    storeSysExRate(model.store(), bytesPerSecond);
    if (registered != nullptr)
        registered->setSysExRate(bytesPerSecond);
}

}  // namespace quillon
