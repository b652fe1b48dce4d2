#pragma once

#include "midi/MidiPorts.h"
#include "midi/SysExRate.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

class EventPump;
class SimulatedZ1;

// The MIDI systems Quillon can work over, chosen by QUILLON_MIDI_API.
enum class MidiApi { Alsa, Jack, CoreMidi, WinMm, Sim };

// "alsa", "jack", "coremidi", "winmm", "sim".
std::string_view midiApiName(MidiApi api);
std::optional<MidiApi> midiApiFromName(std::string_view name);
// The value of QUILLON_MIDI_API (null or empty when unset: the platform's
// default). An unknown name throws MidiError.
MidiApi chooseMidiApi(const char* environmentValue);
// The systems compiled into this program, the simulator included.
std::vector<MidiApi> compiledMidiApis();

struct MidiSystemOptions {
    // Bytes a second at most for SysEx output.
    int sysExRate = kCableSysExRate;
    // The name under which the program's ports appear to others.
    std::string clientName = "Quillon";
    // For the simulator: the instrument to talk to; null makes one of its
    // own, seeded with its factory memory.
    SimulatedZ1* simulator = nullptr;
};

// One MIDI system with the program's one output and one input port. The
// ports post their events through the pump given at opening.
class MidiSystem {
public:
    virtual ~MidiSystem() = default;
    virtual MidiApi api() const = 0;
    // The devices by number, as the settings dialog lists them.
    virtual std::vector<std::string> inputDevices() const = 0;
    virtual std::vector<std::string> outputDevices() const = 0;
    virtual MidiOutput& output() = 0;
    virtual MidiInput& input() = 0;
    virtual void setSysExRate(int bytesPerSecond) = 0;
    virtual int sysExRate() const = 0;
    // The simulated instrument behind the sim system; null for the others.
    virtual SimulatedZ1* simulator() { return nullptr; }
};

// Opens a MIDI system; a system that cannot be initialised throws
// MidiError. The simulated Z1 of the sim system answers a Bank A request
// with an All Program dump when QUILLON_SIM_BANK_A_AS_ALL_PROGRAM is set to
// anything but "0".
std::unique_ptr<MidiSystem> openMidiSystem(MidiApi api, EventPump& pump, const MidiSystemOptions& options = {});

}  // namespace quillon
