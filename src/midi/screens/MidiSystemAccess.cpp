#include "midi/screens/MidiSystemAccess.h"

#include "files/SettingsStore.h"
#include "midi/MidiGlobal.h"
#include "midi/backends/MidiSystem.h"
#include "shell/AppModel.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quillon {

namespace {

MidiSystem* registered = nullptr;

constexpr std::array<int, 5> kSysExRates = {kCableSysExRate, 6250, 12500, 31250, 62500};

constexpr const char* kSection = "MIDI";
constexpr const char* kRateKey = "SysExRate";

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

void chooseMidiInputDevice(AppModel& model, int device)
{
    model.settings.inputDevice = device;
    model.changed(kSettingsChanged);
    MIDIInOpen(model);
}

void chooseMidiOutputDevice(AppModel& model, int device)
{
    model.settings.outputDevice = device;
    model.changed(kSettingsChanged);
    MIDIOutOpen(model);
}

std::span<const int> sysExRateChoices() { return kSysExRates; }

std::string sysExRateCaption(int bytesPerSecond)
{
    std::string caption = std::to_string(bytesPerSecond);
    if (bytesPerSecond == kCableSysExRate)
        caption += " (MIDI cable speed)";
    return caption;
}

int storedSysExRate(const SettingsStore& store)
{
    const std::string text = store.read(kSection, kRateKey);
    int rate = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rate);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (!whole || std::find(kSysExRates.begin(), kSysExRates.end(), rate) == kSysExRates.end())
        return kCableSysExRate;
    return rate;
}

void chooseSysExRate(AppModel& model, int bytesPerSecond)
{
    model.store().write(kSection, kRateKey, std::to_string(bytesPerSecond));
    if (registered != nullptr)
        registered->setSysExRate(bytesPerSecond);
}

}  // namespace quillon
