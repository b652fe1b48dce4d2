#pragma once

#include "midi/MidiPorts.h"
#include "midi/backends/MidiSystem.h"
#include "midi/backends/RtMidiLayer.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace quillon {

class EventPump;

// Makes whole messages of what a MIDI layer hands over: a SysEx message may
// come in parts, to be joined until its F7, with clock and active sensing
// between them; any other status cuts an unfinished SysEx message short,
// and what is left of it is dropped. A message longer than the limit is
// dropped whole.
class MidiMessageJoiner {
public:
    void setLimit(std::size_t bytes) { limit_ = bytes; }
    // The whole messages that these bytes complete, in order.
    std::vector<std::vector<std::uint8_t>> take(const std::uint8_t* bytes, std::size_t size);
    void clear();
    // The bytes of the SysEx message coming in now; 0 between messages.
    std::size_t bytesSoFar() const { return inSysEx_ && !tooLong_ ? sysEx_.size() : 0; }

private:
    void append(const std::uint8_t* bytes, std::size_t size);

    std::size_t limit_ = 1024;
    std::vector<std::uint8_t> sysEx_;
    bool inSysEx_ = false;
    bool tooLong_ = false;
};

// The input port over RtMidi. RtMidi calls back on a thread of its own; the
// port joins a SysEx message that arrives in parts, keeps whole messages up
// to the buffer size, and posts each through the pump, where it joins the
// waiting messages and fires the message event on the owner's thread.
class RtMidiInputPort : public MidiInput {
public:
    // Throws MidiError when the layer cannot be opened.
    RtMidiInputPort(MidiApi api, const std::string& clientName, EventPump& pump);
    ~RtMidiInputPort() override;
    RtMidiInputPort(const RtMidiInputPort&) = delete;
    RtMidiInputPort& operator=(const RtMidiInputPort&) = delete;

    void setEvents(MidiInputEvents* events) override;
    int state() const override;
    int messageCount() const override { return static_cast<int>(waiting_.size()); }
    std::vector<std::uint8_t> messageText() const override;
    void setBufferSize(int bytes) override;
    int bufferSize() const override { return bufferSize_; }
    void setDevice(int device) override;
    int device() const override { return device_; }
    void setFilter(int status, bool filtered) override;
    bool filter(int status) const override;
    void open() override;
    void close() override;
    void start() override;
    void reset() override;
    void next() override;

    // A port of the program's own that others send to, in place of a
    // device: what the simulated instrument listens on.
    void openVirtual(const std::string& portName);

    // The devices of the layer by number.
    std::vector<std::string> deviceNames() const;

    // What the layer hands over, in whatever parts it comes: called on
    // RtMidi's thread.
    void takeBytes(const std::uint8_t* bytes, std::size_t size);

private:
    struct Shared {
        std::atomic<MidiInputEvents*> events{nullptr};
        // Moves on with every reset and close: an arrival posted before
        // is dropped when it runs.
        std::atomic<std::uint64_t> generation{0};
    };

    void arrive(std::vector<std::uint8_t> message);
    void postError(int code, const std::string& text);
    void prepareOpening();
    void stopInput();

    EventPump& pump_;
    std::shared_ptr<Shared> shared_;
    // After shared_: the layer's errors are posted with it until the layer
    // is gone.
    RtMidiLayer layer_;

    int device_ = 0;
    bool open_ = false;

    // Shared with RtMidi's thread, guarded by mutex_.
    mutable std::mutex mutex_;
    bool started_ = false;
    int bufferSize_ = 1024;
    std::array<bool, 256> filtered_{};
    MidiMessageJoiner joiner_;
    // The size of the message coming in at its last progress report.
    std::size_t reportedSoFar_ = 0;

    // The owner's thread only.
    std::deque<std::vector<std::uint8_t>> waiting_;
};

}  // namespace quillon
