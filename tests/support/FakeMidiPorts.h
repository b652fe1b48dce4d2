#pragma once

#include "midi/MidiPorts.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace quillon {

// MIDI ports for tests. Each keeps its state as a real port would and
// records every operation in order ("device 2", "open", "close", "start",
// "reset", "queue:1000 bytes", "sendShort 90 3C 64", "buffer 200000",
// "filter 254 on", "next"). The test plays the instrument and the driver:
// it ends the output's queue, delivers incoming messages and fires errors.

class FakeMidiOutput : public MidiOutput {
public:
    void setEvents(MidiOutputEvents* events) override { events_ = events; }

    int state() const override { return state_; }
    void setDevice(int device) override;
    int device() const override { return device_; }
    void setMessageType(int status) override { messageType = status; }
    void setData1(int value) override { data1 = value; }
    void setData2(int value) override { data2 = value; }
    void setMessageText(std::vector<std::uint8_t> bytes) override { text_ = std::move(bytes); }

    void open() override;
    void close() override;
    void start() override;
    void reset() override;
    void queue() override;
    void sendShort() override;

    // The queue has been played out: what it held goes to the wire, the
    // port is idle again and the done event fires.
    void finishPlaying();
    // The first `pieces` pieces of the queue go to the wire, each with its
    // progress event; the rest waits.
    void playPieces(std::size_t pieces);
    void fireError(int code, const std::string& text);

    // Faults at a chosen call. The device unplugged in the middle of a dump:
    // the error event fires, what is left of the queue is lost, and from now
    // on the system has no output device (setDevice throws) until
    // plugBackIn().
    void unplug();
    void plugBackIn();
    // open() reports an error and leaves the port closed: the chosen device
    // is not there any more.
    bool openFails = false;
    // queue() reports an error and queues nothing.
    bool queueFails = false;
    static constexpr int kFaultCode = 104;
    std::string faultText = "MIDI output device is gone";

    // The operations since the test began (or since clearLog).
    std::vector<std::string> log;
    void clearLog() { log.clear(); }
    // When set, both ports also write their operations here, "out open",
    // "in start", so that a test can see the order across the two.
    std::vector<std::string>* journal = nullptr;
    // The error code of a start on a closed port.
    static constexpr int kNotOpenCode = 11;

    // The pieces in the queue now, in order, and the message type each was
    // queued under.
    std::vector<std::vector<std::uint8_t>> queued;
    std::vector<int> queuedTypes;
    // Every byte that reached the instrument, in order (played-out queues).
    std::vector<std::uint8_t> wire;
    // The short messages sent, as status, data 1, data 2.
    std::vector<std::vector<int>> shorts;

    int messageType = 0;
    int data1 = 0;
    int data2 = 0;
    // setDevice throws MidiError(code, text) while this is set: a system
    // without MIDI devices.
    bool noDevices = false;
    int noDevicesCode = 68;
    std::string noDevicesText = "No MIDI output devices";

private:
    void record(const std::string& operation);

    MidiOutputEvents* events_ = nullptr;
    int state_ = kPortClosed;
    int device_ = -1;
    std::vector<std::uint8_t> text_;
};

class FakeMidiInput : public MidiInput {
public:
    void setEvents(MidiInputEvents* events) override { events_ = events; }

    int state() const override { return state_; }
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

    // A whole message from the instrument. It is taken in only while the
    // port is started, fits the buffer and is not filtered; returns whether
    // it was taken. arrive() leaves the message event to fireMessage(), so
    // that several can wait before the event runs; deliver() fires it.
    bool arrive(std::vector<std::uint8_t> message);
    bool deliver(std::vector<std::uint8_t> message);
    void fireMessage();
    void fireError(int code, const std::string& text);
    // A SysEx message is coming in and has reached this many bytes.
    void fireProgress(std::size_t bytesSoFar);

    // Faults, as for the output: unplugged while listening (the error event
    // fires, and setDevice throws until plugBackIn()), or a device that will
    // not open.
    void unplug();
    void plugBackIn();
    bool openFails = false;
    static constexpr int kFaultCode = 104;
    std::string faultText = "MIDI input device is gone";

    std::vector<std::string> log;
    void clearLog() { log.clear(); }
    std::vector<std::string>* journal = nullptr;

    bool noDevices = false;
    int noDevicesCode = 68;
    std::string noDevicesText = "No MIDI input devices";

private:
    void record(const std::string& operation);

    MidiInputEvents* events_ = nullptr;
    int state_ = kPortClosed;
    int device_ = -1;
    int bufferSize_ = 1024;
    std::map<int, bool> filters_;
    std::deque<std::vector<std::uint8_t>> waiting_;
};

// "90 3C 64": bytes as the log shows them.
std::string hexBytes(const std::vector<int>& bytes);

}  // namespace quillon
