#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillon {

// The two MIDI ports of the program, told by what the program does with
// them: it sets devices, message types and texts, and asks for actions; the
// port plays out its queue at its own pace and tells of the end, of errors
// and of arrived messages through its events. Events always reach the core
// on the thread of the user interface.

// A MIDI system that cannot work at all: no devices, or no MIDI layer.
// code and description fill the "[Error ...]" line of the "MIDI Error" box.
class MidiError : public std::runtime_error {
public:
    MidiError(int code, const std::string& description) : std::runtime_error(description), code_(code) {}
    int code() const { return code_; }

private:
    int code_;
};

// The code of the "MIDI Error" box for a device that would not open: it was
// unplugged, or its program ended, since it was chosen.
inline constexpr int kDeviceNotOpened = 104;

// Port states: closed, open and idle, and anything above 1 busy (the output
// playing out its queue, the input started and listening).
inline constexpr int kPortClosed = 0;
inline constexpr int kPortOpen = 1;
inline constexpr int kPortBusy = 2;

class MidiOutputEvents {
public:
    virtual ~MidiOutputEvents() = default;
    // A failure of the port; codes 0 and 8 are harmless notices.
    virtual void outputError(int code, const std::string& text) = 0;
    // The queue has been played out.
    virtual void outputDone() = 0;
    // A piece of `bytes` bytes of the queue has gone out; for the progress
    // of a long dump.
    virtual void outputProgress(std::size_t /*bytes*/) {}
};

class MidiOutput {
public:
    virtual ~MidiOutput() = default;

    virtual void setEvents(MidiOutputEvents* events) = 0;

    virtual int state() const = 0;
    // Selects the output device by its number in the system's list. Throws
    // MidiError when the system has no output device at all.
    virtual void setDevice(int device) = 0;
    virtual int device() const = 0;

    // 240 for SysEx, or a channel status for a short message.
    virtual void setMessageType(int status) = 0;
    virtual void setData1(int value) = 0;
    virtual void setData2(int value) = 0;
    // Raw bytes of a SysEx message or of a piece of one (F0 and F7
    // included where they fall).
    virtual void setMessageText(std::vector<std::uint8_t> bytes) = 0;

    // Opening a device that is not there, or starting a closed port, reports
    // through outputError and leaves the port closed.
    virtual void open() = 0;
    virtual void close() = 0;
    // Plays out the queue; outputDone follows when it is empty.
    virtual void start() = 0;
    // Stops output at once and empties the queue; the port stays open.
    virtual void reset() = 0;
    // Appends the current message text to the queue.
    virtual void queue() = 0;
    // Sends message type, data 1 and data 2 at once.
    virtual void sendShort() = 0;
};

class MidiInputEvents {
public:
    virtual ~MidiInputEvents() = default;
    virtual void inputError(int code, const std::string& text) = 0;
    // A whole message has arrived and waits in the port.
    virtual void inputMessage() = 0;
    // A SysEx message is coming in and has reached `bytesSoFar` bytes; for
    // the progress of a long dump.
    virtual void inputProgress(std::size_t /*bytesSoFar*/) {}
};

class MidiInput {
public:
    virtual ~MidiInput() = default;

    virtual void setEvents(MidiInputEvents* events) = 0;

    virtual int state() const = 0;
    virtual int messageCount() const = 0;
    // The oldest waiting message, raw bytes; empty when none waits.
    virtual std::vector<std::uint8_t> messageText() const = 0;
    // The size a whole message may reach; a longer one is dropped.
    virtual void setBufferSize(int bytes) = 0;
    virtual int bufferSize() const = 0;
    // Throws MidiError when the system has no input device at all.
    virtual void setDevice(int device) = 0;
    virtual int device() const = 0;
    // A filtered status byte (active sensing 254, clock 248) never reaches
    // the waiting messages.
    virtual void setFilter(int status, bool filtered) = 0;
    virtual bool filter(int status) const = 0;

    virtual void open() = 0;
    virtual void close() = 0;
    // Messages are taken in only while the port is started.
    virtual void start() = 0;
    // Stops taking in and drops every waiting message; the port stays open.
    virtual void reset() = 0;
    // Drops the oldest waiting message.
    virtual void next() = 0;
};

}  // namespace quillon
