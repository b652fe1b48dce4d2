#pragma once

#include "midi/backends/MidiSystem.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class RtMidi;
class RtMidiIn;
class RtMidiOut;

namespace quillon {

// Error codes of the RtMidi ports, as the "[Error ...]" line and the status
// line show them. A warning of the layer is code 0, a harmless notice; a
// failure is 100 plus RtMidi's error type.
inline constexpr int kRtMidiErrorBase = 100;
int rtMidiErrorCode(int rtMidiErrorType);

// RtMidi's number for a MIDI system; throws MidiError for one that RtMidi
// does not offer or that was not compiled into it.
int rtMidiApiNumber(MidiApi api);

enum class RtMidiDirection { Input, Output };

// One RtMidi object of a port, and what both ports ask of it: its devices,
// opening a device or a port of its own, and its errors. While a port opens,
// the layer's words are kept as the reason of the failure; at any other time
// an error goes to the port's report.
class RtMidiLayer {
public:
    using Report = std::function<void(int code, const std::string& text)>;

    // Throws MidiError when the layer cannot start.
    RtMidiLayer(RtMidiDirection direction, MidiApi api, const std::string& clientName, Report report);
    ~RtMidiLayer();
    RtMidiLayer(const RtMidiLayer&) = delete;
    RtMidiLayer& operator=(const RtMidiLayer&) = delete;

    RtMidi& midi() { return *midi_; }
    RtMidiIn& in();
    RtMidiOut& out();

    std::vector<std::string> deviceNames() const;
    // Throws MidiError when the layer has no device of the port's direction.
    void requireDevices() const;
    // Opens device number `device`; false with the code and the text of the
    // error when it is not there or cannot be opened.
    bool openDevice(int device, int& code, std::string& text);
    // A port of the program's own that others connect to; throws MidiError
    // when it cannot be made.
    void openVirtual(const std::string& portName);
    // Ends the RtMidi object, and with it any thread of the layer's that
    // still calls back into the port.
    void shutDown();

private:
    void onError(int type, const std::string& text);
    const char* directionName() const;

    RtMidiDirection direction_;
    Report report_;
    // RtMidi is owned through its input or output class; midi_ is the one
    // that was made, seen as RtMidi.
    std::unique_ptr<RtMidiIn> in_;
    std::unique_ptr<RtMidiOut> out_;
    RtMidi* midi_ = nullptr;
    std::atomic<bool> opening_{false};
    std::string openError_;
};

}  // namespace quillon
