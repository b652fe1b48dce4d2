#include "midi/backends/SimMidiSystem.h"

#include "midi/backends/EventPump.h"
#include "midi/backends/SimulatedZ1.h"
#include "sysex/MessageCatalogue.h"
#include "sysex/SysExBytes.h"

#include <deque>
#include <map>

namespace quillon {

namespace {

// Error codes of the simulated ports, none of them a harmless notice (0, 8).
constexpr int kNoSuchDevice = 2;
constexpr int kPortNotOpen = 5;

constexpr const char* kDeviceName = "Simulated Z1";
constexpr int kDeviceCount = 1;
constexpr int kDefaultBufferBytes = 1024;

// Tells posted events whether the system they belong to still exists: an
// event that runs after the system has gone does nothing.
using AliveToken = std::shared_ptr<int>;
using AliveWatch = std::weak_ptr<int>;

class SimInput : public MidiInput {
public:
    SimInput(EventPump& pump, const AliveToken& alive) : pump_(pump), alive_(alive) {}

    void setEvents(MidiInputEvents* events) override { events_ = events; }
    int state() const override { return state_; }
    int messageCount() const override { return static_cast<int>(waiting_.size()); }
    std::vector<std::uint8_t> messageText() const override
    {
        return waiting_.empty() ? std::vector<std::uint8_t>{} : waiting_.front();
    }
    void setBufferSize(int bytes) override { bufferSize_ = bytes; }
    int bufferSize() const override { return bufferSize_; }
    void setDevice(int device) override { device_ = device; }
    int device() const override { return device_; }
    void setFilter(int status, bool filtered) override { filters_[status] = filtered; }
    bool filter(int status) const override
    {
        auto found = filters_.find(status);
        return found != filters_.end() && found->second;
    }

    void open() override
    {
        if (device_ < 0 || device_ >= kDeviceCount) {
            postError(kNoSuchDevice, "There is no MIDI input device " + std::to_string(device_));
            return;
        }
        if (state_ == kPortClosed)
            state_ = kPortOpen;
    }
    void close() override
    {
        state_ = kPortClosed;
        waiting_.clear();
    }
    void start() override
    {
        if (state_ == kPortClosed) {
            postError(kPortNotOpen, "The MIDI input is not open");
            return;
        }
        state_ = kPortBusy;
    }
    void reset() override
    {
        if (state_ != kPortClosed)
            state_ = kPortOpen;
        waiting_.clear();
    }
    void next() override
    {
        if (!waiting_.empty())
            waiting_.pop_front();
    }

    // A message reaches the port later, through the pump: it is taken only
    // if the port is started by then.
    void postArrival(SysExMessage message)
    {
        pump_.post([this, watch = AliveWatch(alive_), message = std::move(message)]() mutable {
            if (watch.expired())
                return;
            arrive(std::move(message));
        });
    }

private:
    void arrive(SysExMessage message)
    {
        if (state_ < kPortBusy || message.empty())
            return;
        if (filter(message.front()))
            return;
        if (static_cast<int>(message.size()) > bufferSize_)
            return;
        waiting_.push_back(std::move(message));
        if (events_ != nullptr)
            events_->inputMessage();
    }

    void postError(int code, std::string text)
    {
        pump_.post([this, watch = AliveWatch(alive_), code, text = std::move(text)] {
            if (!watch.expired() && events_ != nullptr)
                events_->inputError(code, text);
        });
    }

    EventPump& pump_;
    AliveToken alive_;
    MidiInputEvents* events_ = nullptr;
    int state_ = kPortClosed;
    int device_ = 0;
    int bufferSize_ = kDefaultBufferBytes;
    std::map<int, bool> filters_;
    std::deque<SysExMessage> waiting_;
};

class SimOutput : public MidiOutput {
public:
    SimOutput(EventPump& pump, const AliveToken& alive, SimulatedZ1& z1, SimInput& input)
        : pump_(pump), alive_(alive), z1_(z1), input_(input)
    {
    }

    void setEvents(MidiOutputEvents* events) override { events_ = events; }
    int state() const override { return state_; }
    void setDevice(int device) override { device_ = device; }
    int device() const override { return device_; }
    void setMessageType(int status) override { messageType_ = status; }
    void setData1(int value) override { data1_ = value; }
    void setData2(int value) override { data2_ = value; }
    void setMessageText(std::vector<std::uint8_t> bytes) override { text_ = std::move(bytes); }

    void open() override
    {
        if (device_ < 0 || device_ >= kDeviceCount) {
            postError(kNoSuchDevice, "There is no MIDI output device " + std::to_string(device_));
            return;
        }
        if (state_ == kPortClosed)
            state_ = kPortOpen;
    }
    void close() override
    {
        state_ = kPortClosed;
        dropQueue();
    }
    void start() override
    {
        if (state_ == kPortClosed) {
            postError(kPortNotOpen, "The MIDI output is not open");
            return;
        }
        state_ = kPortBusy;
        // The queue plays out later, as on a cable; a reset or close before
        // then cuts it off, and nothing reaches the instrument.
        std::vector<std::uint8_t> stream;
        for (const auto& piece : queue_)
            stream.insert(stream.end(), piece.begin(), piece.end());
        queue_.clear();
        pump_.post([this, watch = AliveWatch(alive_), drops = drops_, stream = std::move(stream)] {
            if (watch.expired() || drops != drops_)
                return;
            playOut(stream);
        });
    }
    void reset() override
    {
        if (state_ != kPortClosed)
            state_ = kPortOpen;
        dropQueue();
    }
    void queue() override
    {
        if (state_ == kPortClosed) {
            postError(kPortNotOpen, "The MIDI output is not open");
            return;
        }
        queue_.push_back(text_);
    }
    void sendShort() override
    {
        if (state_ == kPortClosed) {
            postError(kPortNotOpen, "The MIDI output is not open");
            return;
        }
        z1_.receiveShort(messageType_, data1_, data2_);
    }

private:
    // Whatever was queued or under way is lost.
    void dropQueue()
    {
        queue_.clear();
        ++drops_;
    }

    // Runs from the pump: the instrument hears each whole message, the port
    // is done, and the instrument's answers travel back to the input.
    void playOut(const std::vector<std::uint8_t>& stream)
    {
        std::vector<SysExMessage> answers;
        for (const SysExMessage& message : splitSysExMessages(stream)) {
            for (SysExMessage& answer : z1_.receiveSysEx(message))
                answers.push_back(std::move(answer));
        }
        state_ = kPortOpen;
        if (events_ != nullptr) {
            events_->outputProgress(stream.size());
            events_->outputDone();
        }
        for (SysExMessage& answer : answers)
            input_.postArrival(std::move(answer));
    }

    void postError(int code, std::string text)
    {
        pump_.post([this, watch = AliveWatch(alive_), code, text = std::move(text)] {
            if (!watch.expired() && events_ != nullptr)
                events_->outputError(code, text);
        });
    }

    EventPump& pump_;
    AliveToken alive_;
    SimulatedZ1& z1_;
    SimInput& input_;
    MidiOutputEvents* events_ = nullptr;
    int state_ = kPortClosed;
    int device_ = 0;
    int messageType_ = 0;
    int data1_ = 0;
    int data2_ = 0;
    std::vector<std::uint8_t> text_;
    std::vector<std::vector<std::uint8_t>> queue_;
    // Raised whenever the queue is dropped, so a play-out already posted
    // knows it was cut off.
    int drops_ = 0;
};

class SimMidiSystem : public MidiSystem {
public:
    SimMidiSystem(EventPump& pump, const MidiSystemOptions& options)
        : alive_(std::make_shared<int>(0)),
          own_(options.simulator == nullptr ? std::make_unique<SimulatedZ1>() : nullptr),
          z1_(options.simulator != nullptr ? *options.simulator : *own_),
          input_(pump, alive_),
          output_(pump, alive_, z1_, input_),
          sysExRate_(options.sysExRate)
    {
    }

    MidiApi api() const override { return MidiApi::Sim; }
    std::vector<std::string> inputDevices() const override { return {kDeviceName}; }
    std::vector<std::string> outputDevices() const override { return {kDeviceName}; }
    MidiOutput& output() override { return output_; }
    MidiInput& input() override { return input_; }
    void setSysExRate(int bytesPerSecond) override { sysExRate_ = bytesPerSecond; }
    int sysExRate() const override { return sysExRate_; }
    SimulatedZ1* simulator() override { return &z1_; }

    void sendFromInstrument(std::span<const std::uint8_t> message)
    {
        input_.postArrival(SysExMessage(message.begin(), message.end()));
    }

private:
    AliveToken alive_;
    std::unique_ptr<SimulatedZ1> own_;
    SimulatedZ1& z1_;
    SimInput input_;
    SimOutput output_;
    int sysExRate_;
};

}  // namespace

std::unique_ptr<MidiSystem> openSimMidiSystem(EventPump& pump, const MidiSystemOptions& options)
{
    return std::make_unique<SimMidiSystem>(pump, options);
}

void sendFromSimulatedZ1(MidiSystem& system, std::span<const std::uint8_t> message)
{
    if (auto* sim = dynamic_cast<SimMidiSystem*>(&system))
        sim->sendFromInstrument(message);
}

}  // namespace quillon
