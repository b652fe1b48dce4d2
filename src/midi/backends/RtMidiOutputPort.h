#pragma once

#include "midi/MidiPorts.h"
#include "midi/backends/MidiSystem.h"
#include "midi/backends/RtMidiLayer.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace quillon {

class EventPump;

// The largest piece of SysEx handed to the MIDI layer in one call: RtMidi
// over JACK loses a single message larger than its ring buffer, while the
// receiving side joins pieces sent one after the other.
inline constexpr std::size_t kMaxSysExPiece = 1000;

// The output port over RtMidi: a queue of raw bytes played out by a worker
// thread at no more than the SysEx rate, so that an instrument behind a
// MIDI cable can follow. Events reach the owner through the pump.
class RtMidiOutputPort : public MidiOutput {
public:
    // Throws MidiError when the layer cannot be opened.
    RtMidiOutputPort(MidiApi api, const std::string& clientName, EventPump& pump);
    ~RtMidiOutputPort() override;
    RtMidiOutputPort(const RtMidiOutputPort&) = delete;
    RtMidiOutputPort& operator=(const RtMidiOutputPort&) = delete;

    void setEvents(MidiOutputEvents* events) override;
    int state() const override;
    void setDevice(int device) override;
    int device() const override { return device_; }
    void setMessageType(int status) override { messageType_ = status; }
    void setData1(int value) override { data1_ = value; }
    void setData2(int value) override { data2_ = value; }
    void setMessageText(std::vector<std::uint8_t> bytes) override { text_ = std::move(bytes); }
    void open() override;
    void close() override;
    void start() override;
    void reset() override;
    void queue() override;
    void sendShort() override;

    // A port of the program's own that others connect to (JACK, ALSA,
    // CoreMIDI), in place of a device: what the simulated instrument uses.
    void openVirtual(const std::string& portName);

    // Bytes a second at most; the whole of a queue takes its bytes / rate.
    void setSysExRate(int bytesPerSecond);
    int sysExRate() const { return rate_.load(); }

    // The devices of the layer by number.
    std::vector<std::string> deviceNames() const;

private:
    // What an event posted to the pump still needs when it runs, perhaps
    // after the port has gone: the receiver and the generation it was
    // posted in.
    struct Shared {
        std::atomic<MidiOutputEvents*> events{nullptr};
        std::atomic<std::uint64_t> generation{0};
    };

    void workerLoop();
    void stopOutput();
    void send(const std::vector<std::uint8_t>& bytes);
    void postError(int code, const std::string& text);
    void postDone(std::uint64_t generation);
    void postProgress(std::uint64_t generation, std::size_t bytes);

    EventPump& pump_;
    std::shared_ptr<Shared> shared_;
    // After shared_: the layer's errors are posted with it until the layer
    // is gone.
    RtMidiLayer layer_;

    int device_ = 0;
    int messageType_ = 240;
    int data1_ = 0;
    int data2_ = 0;
    std::vector<std::uint8_t> text_;
    std::atomic<int> rate_{kCableSysExRate};

    // Guarded by mutex_: the queue of pieces and notes, the play flag and
    // the generation that a reset or a close moves on, so that a piece or a
    // done event of an earlier queue is dropped.
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::vector<std::uint8_t>> queue_;
    bool open_ = false;
    bool playing_ = false;
    bool stopping_ = false;
    std::thread worker_;

    // RtMidi is not safe from two threads at once: every call that sends
    // holds this.
    std::mutex sendMutex_;
};

}  // namespace quillon
