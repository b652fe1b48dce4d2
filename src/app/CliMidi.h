#pragma once

#include "app/CliSession.h"
#include "midi/backends/EventPump.h"
#include "midi/backends/MidiSystem.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace quillon {

// The MIDI side of a quillon-cli run: the system QUILLON_MIDI_API names,
// opened with a pump that the command runs itself, its ports attached to
// the session's model, and the devices chosen by number or by name.
class CliMidi {
public:
    explicit CliMidi(CliSession& session) : session_(session) {}
    ~CliMidi();
    CliMidi(const CliMidi&) = delete;
    CliMidi& operator=(const CliMidi&) = delete;

    // Opens the system; false with the reason in error.
    bool open(int sysExRate, std::string& error);
    MidiSystem& system() { return *system_; }

    // A device by its number in the list, or the first whose name contains
    // the text; nothing when none matches.
    static std::optional<int> findDevice(const std::vector<std::string>& devices, const std::string& wanted);

    // Runs the ports' events until `finished` says so or the time is up;
    // false on time-out.
    bool runUntil(const std::function<bool()>& finished, std::chrono::milliseconds timeout);

private:
    CliSession& session_;
    QueuedEventPump pump_;
    std::unique_ptr<MidiSystem> system_;
};

// The choices the MIDI commands share: devices, channel, SysEx rate and the
// time-out.
struct MidiCommandOptions {
    std::string inDevice = "0";
    std::string outDevice = "0";
    int channel = 1;
    int rate = kCableSysExRate;
    int timeoutSeconds = 120;
    bool yes = false;
    std::vector<std::string> positional;
    std::optional<std::string> outFile;
};

// Parses --in, --out-port, --channel, --rate, --timeout, --yes and --out;
// false with the reason in error.
bool parseMidiOptions(const std::vector<std::string>& args, MidiCommandOptions& options, std::string& error);

// Opens the MIDI system, chooses the devices and runs the start-up of the
// ports, as the program does before its first send or request. Returns 0 or
// the exit code, with the reason written to err.
int prepareMidi(CliSession& session, CliMidi& midi, const MidiCommandOptions& options, bool needInput,
                std::ostream& err);

}  // namespace quillon
